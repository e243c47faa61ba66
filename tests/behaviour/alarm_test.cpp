#include "tests/behaviour/hands.h"

using behaviour::clickOn;
using behaviour::commandsSent;
using behaviour::Player;
using behaviour::pressOn;
using platform::PointerButton;
using simulated::world;

namespace {

constexpr std::uint32_t tick = 966;

/// What shows of the panel.
enum class Panel { AtRest, KeyHeld, Open };

Panel panelOf(FrmPlayer& form) {
    const bool key = form.pctalarmdown.shown();
    const bool open = form.lblTimer.shown();
    CHECK(form.pctalarm.shown() != key);
    CHECK(form.lblTimenow.shown() != open);
    CHECK(form.lblHr.shown() == open);
    CHECK(form.lblMin.shown() == open);
    CHECK(form.cmdSet.shown() == open);
    CHECK(form.lblShuffle.shown() != key);
    CHECK(form.lblRepeat.shown() != key);
    CHECK((!open || key));
    if (open) return Panel::Open;
    return key ? Panel::KeyHeld : Panel::AtRest;
}

void openPanel(Player& player) {
    clickOn(player.mainWindow(), player.frmPlayer().pctalarm);
    REQUIRE(panelOf(player.frmPlayer()) == Panel::Open);
}

/// Opens the panel and clicks its arming label.
void clickSet(Player& player) {
    openPanel(player);
    clickOn(player.mainWindow(), player.frmPlayer().cmdSet);
}

/// Presses a label and holds it for so long; the waits of the hold.
std::vector<std::uint32_t> hold(Player& player, toolkit::Label& label, std::uint32_t milliseconds,
                                PointerButton button = PointerButton::Left) {
    world.events.sleeps.clear();
    simulated::after(milliseconds, [button] { simulated::release(button); });
    pressOn(player.mainWindow(), label, button);
    return world.events.sleeps;
}

/// A started player with one track selected and its alarm armed.
void arm(Player& player, int hour, int minute) {
    player.start();
    player.addTracks({"C:\\Music\\a.mp3"});
    player.list().ListIndex(0);
    player.frmPlayer().alarmHour = runtime::Int16(hour);
    player.frmPlayer().alarmMinute = runtime::Int16(minute);
    clickSet(player);
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
        pressOn(player.mainWindow(), form.pctalarm, button);
        CHECK(panelOf(form) == Panel::KeyHeld);
        CHECK(form.lblTimer.Caption().empty());
        simulated::releaseAt(player.mainWindow(), 5, 700, button);
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
    pressOn(player.mainWindow(), form.pctalarmdown, PointerButton::Middle);
    CHECK(panelOf(form) == Panel::AtRest);
    simulated::release(PointerButton::Middle);
    CHECK(panelOf(form) == Panel::AtRest);
    CHECK(form.alarmTime == runtime::Fixed(0.2917));
    CHECK(form.lblshowtime.Caption() == "Timer On");
    openPanel(player);
    CHECK(form.lblTimer.Caption() == "08:00");
}

TEST_CASE("every way out of the panel shows the time again, even after a stop") {
    Player player;
    arm(player, 7, 0);
    FrmPlayer& form = player.frmPlayer();
    form.lblTimenow.Visible(false);
    clickOn(player.mainWindow(), form.pctalarm);
    clickOn(player.mainWindow(), form.pctalarmdown);
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
    CHECK(form.mouseHeld == runtime::False16);
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
    pressOn(player.mainWindow(), form.lblHr);
    CHECK(form.alarmHour == 3);
    CHECK(form.mouseHeld == runtime::False16);
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
    CHECK(form.alarmTime == runtime::Fixed(0.3542));
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
    CHECK(form.alarmTime == runtime::Fixed(0.3542));
}

TEST_CASE("the arming label acts on any button and only when released over it") {
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    openPanel(player);
    pressOn(player.mainWindow(), form.cmdSet);
    simulated::releaseAt(player.mainWindow(), 150, 100);
    CHECK(panelOf(form) == Panel::Open);
    clickOn(player.mainWindow(), form.cmdSet, PointerButton::Right);
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

TEST_CASE("at its time an alarm starts the selected track, once") {
    Player player;
    arm(player, 7, 0);
    FrmPlayer& form = player.frmPlayer();
    simulated::setTimeOfDay(6, 59, 57);
    simulated::advance(tick);
    CHECK(player.status() == "Idle");
    simulated::advance(3000);
    CHECK(player.status() == "Playing");
    CHECK(form.alarmTime == -1);
    CHECK(form.lblshowtime.Caption() == "Timer Off");
    // Its window is still open, but it fires no second time.
    world.media.forgetCommands();
    simulated::advance(2000);
    for (const std::string& command : commandsSent())
        CHECK_FALSE(command.starts_with("play"));
}

TEST_CASE("an alarm fires at its first and last second and not a second beyond") {
    struct Row {
        int hour, minute;
        int atHour, atMinute, atSecond;
        bool fires;
    };
    const Row rows[] = {
        {18, 45, 18, 44, 51, false}, {18, 45, 18, 44, 52, true}, {18, 45, 18, 45, 0, true},
        {18, 45, 18, 45, 1, false},  {0, 0, 23, 59, 59, false},  {0, 0, 0, 0, 0, true},
        {0, 0, 0, 0, 4, true},       {0, 0, 0, 0, 5, false},     {23, 59, 23, 58, 55, false},
        {23, 59, 23, 58, 56, true},  {23, 59, 23, 59, 3, true},  {23, 59, 23, 59, 4, false},
    };
    for (const Row& row : rows) {
        CAPTURE(row.hour);
        CAPTURE(row.atSecond);
        Player player;
        arm(player, row.hour, row.minute);
        simulated::setTimeOfDay(row.atHour, row.atMinute, row.atSecond);
        player.frmPlayer().Timer1_Timer();
        CHECK((player.status() == "Playing") == row.fires);
    }
}

TEST_CASE("after an alarm the panel still offers to disarm, and arming takes two clicks") {
    Player player;
    arm(player, 7, 0);
    FrmPlayer& form = player.frmPlayer();
    simulated::setTimeOfDay(7, 0, 0);
    simulated::advance(tick);
    REQUIRE(player.status() == "Playing");
    clickOn(player.mainWindow(), form.pctalarm);
    CHECK(form.cmdSet.Caption() == "Unset");
    clickOn(player.mainWindow(), form.cmdSet);
    CHECK(form.cmdSet.Caption() == "Set");
    CHECK(form.alarmTime == -1);
    clickSet(player);
    CHECK(form.alarmTime == runtime::Fixed(0.2917));
}

TEST_CASE("a panel that is open when the alarm fires stays open") {
    Player player;
    arm(player, 7, 0);
    clickOn(player.mainWindow(), player.frmPlayer().pctalarm);
    simulated::setTimeOfDay(7, 0, 0);
    simulated::advance(tick);
    CHECK(player.status() == "Playing");
    CHECK(player.frmPlayer().lblHr.Visible());
    CHECK(player.frmPlayer().pctalarmdown.Visible());
    CHECK(player.frmPlayer().cmdSet.Caption() == "Unset");
}

TEST_CASE("an alarm during play starts the selected track from its beginning") {
    Player player;
    arm(player, 7, 0);
    player.frmPlayer().startfile();
    simulated::advance(50'000);
    simulated::setTimeOfDay(7, 0, 0);
    world.media.forgetCommands();
    simulated::advance(tick);
    const auto sent = commandsSent();
    CHECK(std::find(sent.begin(), sent.end(), "Stop mpeg") != sent.end());
    CHECK(sent.back() == "play mpeg from 1 to 200000");
    CHECK(world.media.position() < 1000);
}

TEST_CASE("an alarm during a pause resumes the track") {
    Player player;
    arm(player, 7, 0);
    player.frmPlayer().startfile();
    simulated::advance(50'000);
    clickOn(player.mainWindow(), player.frmPlayer().pctpause);
    simulated::setTimeOfDay(7, 0, 0);
    world.media.forgetCommands();
    simulated::advance(tick);
    CHECK(commandsSent() == std::vector<std::string>{"Resume mpeg"});
    CHECK(player.status() == "Playing");
}

TEST_CASE("an alarm over an empty list opens the file dialog, and again while it waits in it") {
    Player player;
    player.start();
    player.frmPlayer().alarmHour = 7;
    clickSet(player);
    simulated::setTimeOfDay(7, 0, 0);
    world.dialogs.cancelFiles([&] {
        CHECK(player.frmPlayer().alarmTime == runtime::Fixed(0.2917));
        world.dialogs.cancelFiles();
        simulated::advance(tick);
        CHECK(world.dialogs.opened.size() == 2);
        CHECK(player.frmPlayer().alarmTime == -1);
    });
    simulated::advance(tick);
    CHECK(world.dialogs.opened.size() == 2);
    CHECK(player.frmPlayer().lblshowtime.Caption() == "Timer Off");
}

TEST_CASE("an alarm set for the present minute fires at once, or not before tomorrow") {
    const std::pair<int, bool> seconds[] = {{3, true}, {6, true}, {8, false}, {30, false}};
    for (const auto& [second, fires] : seconds) {
        CAPTURE(second);
        Player player;
        simulated::setTimeOfDay(7, 0, second);
        arm(player, 7, 0);
        simulated::advance(tick);
        CHECK((player.status() == "Playing") == fires);
        simulated::advance(3'600'000);
        CHECK((player.frmPlayer().alarmTime == -1) == fires);
    }
}

TEST_CASE("a thumb held through the window makes the alarm wait for the next day") {
    Player player;
    arm(player, 7, 0);
    FrmPlayer& form = player.frmPlayer();
    simulated::setTimeOfDay(6, 59, 50);
    pressOn(player.mainWindow(), form.pctprogressbar);
    simulated::advance(20'000);
    simulated::release();
    simulated::advance(3'600'000);
    CHECK(player.status() == "Idle");
    CHECK(form.lblshowtime.Caption() == "Timer On");
    simulated::setTimeOfDay(6, 59, 50);
    simulated::advance(11'000);
    CHECK(player.status() == "Playing");
}

TEST_CASE("the alarm still runs on a tick that has gone to the next track") {
    Player player;
    player.play({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"});
    FrmPlayer& form = player.frmPlayer();
    form.alarmHour = 7;
    clickSet(player);
    simulated::setTimeOfDay(7, 0, 0);
    world.media.reportPosition(200'000);
    world.media.forgetCommands();
    simulated::advance(tick);
    int plays = 0;
    for (const std::string& command : commandsSent())
        plays += command.starts_with("play mpeg from") ? 1 : 0;
    CHECK(plays == 2);
    CHECK(player.list().ListIndex() == 1);
    CHECK(form.alarmTime == -1);
}

TEST_CASE("the tick that stops the last track leaves the alarm to the next one") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    FrmPlayer& form = player.frmPlayer();
    form.alarmHour = 7;
    clickSet(player);
    simulated::setTimeOfDay(7, 0, 0);
    world.media.reportPosition(200'000);
    simulated::advance(tick);
    CHECK(player.status() == "Idle");
    CHECK(form.alarmTime != -1);
    world.media.reportPosition({});
    simulated::advance(tick);
    CHECK(player.status() == "Playing");
    CHECK(form.alarmTime == -1);
}

TEST_CASE("hour and minute outlive the program, an armed alarm does not") {
    std::string settings;
    {
        Player player;
        arm(player, 7, 45);
        behaviour::endsTheProcess(
            [&] { clickOn(player.mainWindow(), player.frmPlayer().pctquit); });
        settings = world.files.text("C:\\Orvan\\MyPlayerSettings.mps");
    }
    Player player;
    world.files.addFile("C:\\Orvan\\MyPlayerSettings.mps", settings);
    player.start();
    FrmPlayer& form = player.frmPlayer();
    CHECK(form.lblshowtime.Caption() == "Timer off");
    CHECK(form.alarmTime == -1);
    openPanel(player);
    CHECK(form.lblTimer.Caption() == "07:45");
    CHECK(form.cmdSet.Caption() == "Set");
}
