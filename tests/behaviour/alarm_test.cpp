#include "tests/behaviour/alarm_panel.h"
#include "tests/behaviour/ticks.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

using behaviour::arm;
using behaviour::clickSet;
using behaviour::commandsSent;
using behaviour::openPanel;
using behaviour::pauseByKey;
using behaviour::Player;
using behaviour::playOne;
using behaviour::playShortTracks;
using behaviour::tick;
using runtime::Fixed;
using simulated::world;

namespace {

/// Sets the alarm for now: it stays due for some seconds.
void armAlarmForNow(Player& player) {
    simulated::setTimeOfDay(7, 30, 0);
    player.frmPlayer().alarmTime = Fixed(7.5 / 24);
}

bool alarmIsArmed(Player& player) { return player.frmPlayer().alarmTime >= 0; }

} // namespace

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
    player.click(form.pctalarm);
    CHECK(form.cmdSet.Caption() == "Unset");
    player.click(form.cmdSet);
    CHECK(form.cmdSet.Caption() == "Set");
    CHECK(form.alarmTime == -1);
    clickSet(player);
    CHECK(form.alarmTime == Fixed(0.2917));
}

TEST_CASE("a panel that is open when the alarm fires stays open") {
    Player player;
    arm(player, 7, 0);
    player.click(player.frmPlayer().pctalarm);
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

TEST_CASE("an alarm plays the entry that is selected by then, whether or not another one sounds") {
    for (const bool sounds : {false, true}) {
        CAPTURE(sounds);
        Player player;
        playShortTracks(player, 0);
        if (!sounds) player.click(player.frmPlayer().pctstop);
        player.frmPlayer().alarmHour = 7;
        clickSet(player);
        player.list().ListIndex(2);
        simulated::setTimeOfDay(7, 0, 0);
        world.media.forgetCommands();
        simulated::advance(tick);
        CHECK(player.status() == "Playing");
        CHECK(world.media.openPath() == "C:\\Music\\c.mp3");
        CHECK(commandsSent().back() == "play mpeg from 1 to 2000");
        CHECK(player.list().ListIndex() == 2);
    }
}

TEST_CASE("an alarm during a pause resumes the track") {
    Player player;
    arm(player, 7, 0);
    player.frmPlayer().startfile();
    simulated::advance(50'000);
    player.click(player.frmPlayer().pctpause);
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
        CHECK(player.frmPlayer().alarmTime == Fixed(0.2917));
        CHECK(player.frmPlayer().lblshowtime.Caption() == "Timer On");
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
    player.press(form.pctprogressbar);
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
        behaviour::endsTheProcess([&] { player.click(player.frmPlayer().pctquit); });
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

TEST_CASE("the alarm is tested while idle and while paused") {
    Player idle;
    idle.start();
    idle.addTracks({"C:\\Music\\a.mp3"});
    idle.list().ListIndex(0);
    idle.frmPlayer().Timer1.Enabled(true);
    simulated::advance(10 * tick);
    armAlarmForNow(idle);
    simulated::advance(tick);
    CHECK(idle.status() == "Playing");
    CHECK_FALSE(alarmIsArmed(idle));

    Player paused;
    playOne(paused, 200'000);
    simulated::advance(tick);
    pauseByKey(paused);
    armAlarmForNow(paused);
    simulated::advance(tick);
    CHECK(paused.status() == "Playing");
    CHECK_FALSE(alarmIsArmed(paused));
}

TEST_CASE("the alarm waits out the tick that stops the last track") {
    Player player;
    playShortTracks(player, 2);
    simulated::advance(2 * tick);
    armAlarmForNow(player);
    simulated::advance(tick);
    CHECK(player.status() == "Idle");
    CHECK(alarmIsArmed(player));
    simulated::advance(tick);
    CHECK(player.status() == "Playing");
    CHECK_FALSE(alarmIsArmed(player));
}

TEST_CASE("the alarm goes off in the tick that moves on to the next track, behind it") {
    Player player;
    playShortTracks(player, 0);
    simulated::advance(2 * tick);
    armAlarmForNow(player);
    world.media.forgetCommands();
    simulated::advance(tick);
    CHECK_FALSE(alarmIsArmed(player));
    std::vector<std::string> opens;
    for (const std::string& command : commandsSent())
        if (command.starts_with("open ")) opens.push_back(command);
    REQUIRE(opens.size() == 2);
    for (const std::string& open : opens)
        CHECK(open.starts_with("open C:\\Music\\b.mp3 "));
    CHECK(world.media.openPath() == "C:\\Music\\b.mp3");
}
