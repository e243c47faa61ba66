#include "tests/behaviour/alarm_panel.h"

#include <cstdint>
#include <string>
#include <vector>

using behaviour::arm;
using behaviour::clickSet;
using behaviour::commandsSent;
using behaviour::openPanel;
using behaviour::Panel;
using behaviour::panelOf;
using behaviour::Player;
using behaviour::PointerButton;
using runtime::Fixed;
using simulated::world;

namespace {

/// Presses a label and holds it for so long; the waits of the hold.
std::vector<std::uint32_t> hold(Player& player, toolkit::Label& label, std::uint32_t milliseconds,
                                PointerButton button = PointerButton::Left) {
    world.events.sleeps.clear();
    simulated::after(milliseconds, [button] { simulated::release(button); });
    player.press(label, button);
    return world.events.sleeps;
}

} // namespace

TEST_CASE("the alarm key latches at the press, and its panel opens at the release") {
    for (const PointerButton button : {PointerButton::Left, PointerButton::Right}) {
        Player player;
        player.start();
        FrmPlayer& form = player.frmPlayer();
        CHECK(panelOf(form) == Panel::AtRest);
        form.alarmHour = 7;
        form.alarmMinute = 5;
        player.press(form.pctalarm, button);
        CHECK(panelOf(form) == Panel::KeyHeld);
        CHECK(form.lblTimer.Caption().empty());
        behaviour::releaseFarAway(button);
        CHECK(panelOf(form) == Panel::Open);
        CHECK(form.lblTimer.Caption() == "07:05");
        CHECK(form.alarmTime == -1);
    }
}

TEST_CASE("odd values of the settings show as they are") {
    Player player;
    player.start();
    player.frmPlayer().alarmHour = 123;
    player.frmPlayer().alarmMinute = -4;
    openPanel(player);
    CHECK(player.frmPlayer().lblTimer.Caption() == "123:-04");
}

TEST_CASE("a press on the latched alarm key closes the panel and leaves an armed alarm alone") {
    Player player;
    arm(player, 7, 0);
    FrmPlayer& form = player.frmPlayer();
    openPanel(player);
    hold(player, form.lblHr, 0);
    hold(player, form.lblHr, 100);
    CHECK(form.alarmHour == 8);
    player.press(form.pctalarmdown, PointerButton::Middle);
    CHECK(panelOf(form) == Panel::AtRest);
    simulated::release(PointerButton::Middle);
    CHECK(panelOf(form) == Panel::AtRest);
    CHECK(form.alarmTime == Fixed(0.2917));
    CHECK(form.lblshowtime.Caption() == "Timer On");
    openPanel(player);
    CHECK(form.lblTimer.Caption() == "08:00");
}

TEST_CASE("every way out of the panel shows the time again, even after a stop") {
    Player player;
    arm(player, 7, 0);
    FrmPlayer& form = player.frmPlayer();
    form.lblTimenow.Visible(false);
    player.click(form.pctalarm);
    player.click(form.pctalarmdown);
    CHECK(form.lblTimenow.Visible());
}

TEST_CASE("a click on a label adds exactly one, shown 300 ms after the press") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    openPanel(player);
    std::vector<std::string> shownAt;
    simulated::after(100, [] {});
    world.watch = [&](const std::string& note) {
        if (note == "sleep 300") shownAt.push_back(form.lblTimer.Caption());
    };
    CHECK(hold(player, form.lblMin, 120) == std::vector<std::uint32_t>{300});
    world.watch = nullptr;
    // Stepped before the wait, shown after it.
    CHECK(shownAt == std::vector<std::string>{"00:00"});
    CHECK(form.lblTimer.Caption() == "00:01");
    CHECK(form.alarmMinute == 1);
    CHECK(form.alarmHour == 0);
}

TEST_CASE("a press whose release is already waiting adds nothing") {
    Player player;
    player.start();
    openPanel(player);
    CHECK(hold(player, player.frmPlayer().lblHr, 0).empty());
    CHECK(player.frmPlayer().alarmHour == 0);
    CHECK(player.frmPlayer().lblTimer.Caption() == "00:00");
}

TEST_CASE("a held hour steps at three speeds") {
    Player player;
    player.start();
    openPanel(player);
    const auto waits = hold(player, player.frmPlayer().lblHr, 1350 + 75 * 8);
    CHECK(waits ==
          std::vector<std::uint32_t>{300, 300, 300, 150, 150, 150, 75, 75, 75, 75, 75, 75, 75, 75});
    CHECK(player.frmPlayer().alarmHour == 14);
    CHECK(player.frmPlayer().lblTimer.Caption() == "14:00");
}

TEST_CASE("a held minute steps at four speeds") {
    Player player;
    player.start();
    openPanel(player);
    const auto waits = hold(player, player.frmPlayer().lblMin, 1350 + 75 * 6 + 32 * 4);
    CHECK(waits == std::vector<std::uint32_t>{300, 300, 300, 150, 150, 150, 75, 75, 75, 75, 75, 75,
                                              32, 32, 32, 32});
    CHECK(player.frmPlayer().alarmMinute == 16);
}

TEST_CASE("a minute held for three seconds runs through most of an hour, red until the release") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    openPanel(player);
    std::uint32_t colourBefore = 0;
    simulated::after(2999, [&] { colourBefore = form.lblMin.ForeColor(); });
    hold(player, form.lblMin, 3000);
    CHECK(colourBefore == 0x0000FF);
    CHECK(form.lblMin.ForeColor() == 0x00FFFF);
    CHECK(form.alarmMinute == 12 + 38);
    CHECK_FALSE(form.mouseHeld);
}

TEST_CASE("a label held for most of an hour steps on at its last speed") {
    constexpr std::uint32_t passes = 33'000; // more than a counter of 16 bits holds
    struct Row {
        toolkit::Label FrmPlayer::*label;
        std::uint32_t slow; // the waits before those of the last speed, ms
        std::uint32_t last;
    };
    for (const Row& row : {Row{&FrmPlayer::lblHr, 1350, 75}, Row{&FrmPlayer::lblMin, 1800, 32}}) {
        CAPTURE(row.last);
        Player player;
        player.start();
        openPanel(player);
        const auto waits =
            hold(player, player.frmPlayer().*row.label, row.slow + passes * row.last);
        CHECK(waits.size() == passes + (row.last == 75 ? 6 : 12));
        CHECK(waits.back() == row.last);
        CHECK_FALSE(player.frmPlayer().mouseHeld);
    }
}

TEST_CASE("the hour wraps at 23, the minute at 59 without a carry, and 99 goes to 0") {
    struct Row {
        int hour;
        int minute;
        const char* hourStepped;
        const char* minuteStepped;
    };
    for (const Row& row : {Row{23, 10, "00:10", "00:11"}, Row{5, 59, "06:59", "06:00"},
                           Row{99, 99, "00:99", "00:00"}}) {
        Player player;
        player.start();
        FrmPlayer& form = player.frmPlayer();
        form.alarmHour = runtime::Int16(row.hour);
        form.alarmMinute = runtime::Int16(row.minute);
        openPanel(player);
        hold(player, form.lblHr, 50);
        CHECK(form.lblTimer.Caption() == row.hourStepped);
        hold(player, form.lblMin, 50, PointerButton::Right);
        CHECK(form.lblTimer.Caption() == row.minuteStepped);
    }
}

TEST_CASE("a release far away ends the hold") {
    Player player;
    player.start();
    openPanel(player);
    simulated::after(700, [] { simulated::moveToScreen(3, 3); });
    CHECK(hold(player, player.frmPlayer().lblHr, 800).size() == 3);
    CHECK(player.frmPlayer().lblHr.ForeColor() == 0x00FFFF);
}

TEST_CASE("the held label alone is red, from the press to the release") {
    for (const bool hour : {true, false}) {
        CAPTURE(hour);
        Player player;
        player.start();
        FrmPlayer& form = player.frmPlayer();
        openPanel(player);
        toolkit::Label& held = hour ? form.lblHr : form.lblMin;
        const toolkit::Label& other = hour ? form.lblMin : form.lblHr;
        int looks = 0;
        world.watch = [&](const std::string& note) {
            if (!note.starts_with("sleep ")) return;
            ++looks;
            CHECK(held.ForeColor() == 0x0000FF);
            CHECK(other.ForeColor() == 0x00FFFF);
        };
        hold(player, held, 3000);
        world.watch = nullptr;
        CHECK(looks > 12);
        CHECK(held.ForeColor() == 0x00FFFF);
        CHECK(other.ForeColor() == 0x00FFFF);
    }
}

TEST_CASE("a second press that waits in the hold is a hold of its own") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    openPanel(player);
    const platform::Point at = behaviour::middleOf(form.lblHr);
    simulated::after(50, [&] {
        simulated::release();
        simulated::after(310, [] { simulated::release(); });
        simulated::pressAgainAt(player.mainWindow(), at.x, at.y);
    });
    player.press(form.lblHr);
    CHECK(form.alarmHour == 3);
    CHECK_FALSE(form.mouseHeld);
}

TEST_CASE("ticks run inside the yields of a hold, one for each pass at most") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    openPanel(player);
    world.media.forgetCommands();
    hold(player, player.frmPlayer().lblMin, 3000);
    // Ticks are due at 966, 1932 and 2898 ms.
    int queries = 0;
    for (const std::string& command : commandsSent())
        queries += command == "status mpeg position" ? 1 : 0;
    CHECK(queries == 2 * 3);
}

TEST_CASE("arming closes the panel, starts the tick and offers to disarm") {
    Player player;
    arm(player, 8, 30);
    FrmPlayer& form = player.frmPlayer();
    CHECK(panelOf(form) == Panel::AtRest);
    CHECK(form.alarmTime == Fixed(0.3542));
    CHECK(form.lblshowtime.Caption() == "Timer On");
    CHECK(form.cmdSet.Caption() == "Unset");
    CHECK(form.Timer1.Enabled());
}

TEST_CASE("before the first arming the label reads with a small o and no tick runs") {
    Player player;
    player.start();
    CHECK(player.frmPlayer().lblshowtime.Caption() == "Timer off");
    CHECK(player.frmPlayer().cmdSet.Caption() == "Set");
    CHECK(player.frmPlayer().alarmTime == -1);
    CHECK_FALSE(player.frmPlayer().Timer1.Enabled());
}

TEST_CASE("disarming closes the panel and leaves the tick on") {
    Player player;
    arm(player, 8, 30);
    FrmPlayer& form = player.frmPlayer();
    clickSet(player);
    CHECK(panelOf(form) == Panel::AtRest);
    CHECK(form.alarmTime == -1);
    CHECK(form.lblshowtime.Caption() == "Timer Off");
    CHECK(form.cmdSet.Caption() == "Set");
    CHECK(form.Timer1.Enabled());
    clickSet(player);
    CHECK(form.alarmTime == Fixed(0.3542));
}

TEST_CASE("the arming label acts on any button and only when released over it") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    openPanel(player);
    player.press(form.cmdSet);
    behaviour::releaseFarAway();
    CHECK(panelOf(form) == Panel::Open);
    player.click(form.cmdSet, PointerButton::Right);
    CHECK(form.cmdSet.Caption() == "Unset");
}

TEST_CASE("only the exact word arms") {
    Player player;
    player.start();
    player.frmPlayer().cmdSet.Caption("set");
    clickSet(player);
    CHECK(player.frmPlayer().alarmTime == -1);
    CHECK(player.frmPlayer().cmdSet.Caption() == "Set");
}

TEST_CASE("a saved hour of 99 shows as it is, steps to 0, and a stepped hour is what is saved") {
    const std::string file = "C:\\Orvan\\MyPlayerSettings.mps";
    Player player;
    world.files.addFile(file, "3*0*0**120*90*99*30**0*0*120*1320*\r\n");
    player.start();
    FrmPlayer& form = player.frmPlayer();
    openPanel(player);
    CHECK(form.lblTimer.Caption() == "99:30");
    hold(player, form.lblHr, 100);
    CHECK(form.lblTimer.Caption() == "00:30");
    hold(player, form.lblHr, 100);
    hold(player, form.lblMin, 100);
    CHECK(form.lblTimer.Caption() == "01:31");
    CHECK(behaviour::endsTheProcess([&] { player.click(form.pctquit); }));
    CHECK(world.files.text(file) == "3*0*0**120*90*1*31**0*0*120*1320*\n");
}

TEST_CASE("a time stepped in a panel that is closed without a decision is what is saved") {
    for (const bool armed : {true, false}) {
        CAPTURE(armed);
        Player player;
        player.start();
        FrmPlayer& form = player.frmPlayer();
        form.alarmHour = 7;
        form.alarmMinute = 59;
        if (armed) clickSet(player);
        openPanel(player);
        hold(player, form.lblHr, 100);
        hold(player, form.lblMin, 100);
        player.click(form.pctalarmdown);
        CHECK(panelOf(form) == Panel::AtRest);
        CHECK(form.alarmTime == (armed ? Fixed(0.3326) : Fixed(-1)));
        CHECK(form.lblshowtime.Caption() == (armed ? "Timer On" : "Timer off"));
        openPanel(player);
        CHECK(form.lblTimer.Caption() == "08:00");
        CHECK(form.cmdSet.Caption() == (armed ? "Unset" : "Set"));
        player.click(form.pctalarmdown);
        CHECK(behaviour::endsTheProcess([&] { player.click(form.pctquit); }));
        const std::string line = world.files.text("C:\\Orvan\\MyPlayerSettings.mps");
        CHECK(line.find("*8*0**") != std::string::npos);
    }
}
