#include "tests/behaviour/reader.h"

#include <cstdint>
#include <string>
#include <vector>

using behaviour::Reading;
using simulated::world;
using Commands = std::vector<std::string>;

namespace {

/// What the device was sent by two players that the same was done to, each in its way.
void checkSameCommands(void (*byReader)(Reading&), void (*byHand)(Reading&)) {
    Commands sent[2];
    void (*ways[])(Reading&) = {byReader, byHand};
    for (int n = 0; n < 2; ++n) {
        Reading player;
        player.playLetters(4);
        behaviour::commandsSent();
        ways[n](player);
        sent[n] = behaviour::commandsSent();
    }
    CHECK_FALSE(sent[1].empty());
    CHECK(sent[0] == sent[1]);
}

} // namespace

TEST_CASE("a reader's action on a key sends the device what a click there does") {
    checkSameCommands([](Reading& p) { p.act("Next"); },
                      [](Reading& p) { p.click(p.frmPlayer().pctnext); });
    checkSameCommands([](Reading& p) { p.act("Previous"); },
                      [](Reading& p) { p.click(p.frmPlayer().pctprev); });
    checkSameCommands([](Reading& p) { p.act("Stop"); },
                      [](Reading& p) { p.click(p.frmPlayer().pctstop); });
    checkSameCommands([](Reading& p) { p.act("Play"); },
                      [](Reading& p) { p.click(p.frmPlayer().pctPlay); });
    checkSameCommands([](Reading& p) { p.act("Pause"); },
                      [](Reading& p) { p.click(p.frmPlayer().pctpause); });
    checkSameCommands([](Reading& p) { p.actInList("Next"); },
                      [](Reading& p) { p.click(p.form.pctPlsNext); });
    checkSameCommands([](Reading& p) { p.actInList("Stop"); },
                      [](Reading& p) { p.click(p.form.pctPlsStop); });
}

TEST_CASE("a reader's action is done after its call, and the pointer stays where it is") {
    Reading player;
    player.playLetters(2);
    simulated::moveToScreen(5, 5);
    platform::AccessibleWindow reader = simulated::window(player.mainWindow()).events.accessible();
    for (const std::int32_t number : reader.shown())
        if (reader.thing({number}).name == "Next") reader.act({number});
    CHECK(player.selected() == 0);
    simulated::advance(1);
    CHECK(player.selected() == 1);
    CHECK(world.desktop.cursor == platform::Point{5, 5});
    CHECK(behaviour::tooltipOf(player.mainWindow()).empty());
}

TEST_CASE("pause latches by a reader's action, tells so, and the next one lifts it") {
    Reading player;
    player.playLetters(1);
    player.act("Pause");
    CHECK(player.status() == "Paused");
    CHECK(player.main("Pause").pressed);
    player.act("Pause");
    CHECK(player.status() == "Playing");
    CHECK_FALSE(player.main("Pause").pressed);
}

TEST_CASE("the playlist key opens and closes the list and tells which") {
    Reading player;
    CHECK(player.main("Playlist").pressed);
    player.act("Playlist");
    CHECK_FALSE(player.main("Playlist").pressed);
    CHECK_FALSE(simulated::window(player.playlistWindow()).visible);
    player.act("Playlist");
    CHECK(player.main("Playlist").pressed);
    CHECK(simulated::window(player.playlistWindow()).visible);
}

TEST_CASE("shuffle and repeat tell whether they are on") {
    Reading player;
    for (const char* name : {"Shuffle", "Repeat"}) {
        CHECK_FALSE(player.main(name).checked);
        player.act(name);
        CHECK(player.main(name).checked);
        player.act(name);
        CHECK_FALSE(player.main(name).checked);
    }
    player.act("Repeat");
    CHECK(player.frmPlayer().repeatOn);
    CHECK_FALSE(player.frmPlayer().shuffleOn);
}

TEST_CASE("an action on the time has it tell the other one, played or to go") {
    Reading player;
    player.act("Time");
    CHECK(player.frmPlayer().showElapsed);
}

TEST_CASE("each action on hour or minute adds one, and set arms the alarm") {
    Reading player;
    player.act("Alarm");
    player.act("Hour");
    CHECK(player.main("Alarm time").value == "01:00");
    CHECK_FALSE(player.frmPlayer().mouseHeld);
    player.act("Minute");
    player.act("Minute");
    CHECK(player.main("Alarm time").value == "01:02");
    player.act("Set");
    CHECK(player.main("Alarm state").value == "Timer On");
    player.act("Alarm");
    CHECK_FALSE(player.tells("Set"));
    CHECK(player.tells("Unset"));
}

TEST_CASE("hour actions that come in a hurry all count") {
    Reading player;
    player.act("Alarm");
    const platform::AccessibleWindow reader =
        simulated::window(player.mainWindow()).events.accessible();
    for (const std::int32_t number : reader.shown())
        if (reader.thing({number}).name == "Hour")
            for (int n = 0; n < 3; ++n)
                reader.act({number});
    simulated::advance(2000);
    CHECK(player.frmPlayer().alarmHour == 3);
}

TEST_CASE("the open key's menu opens by a reader's action, and its pick is carried out") {
    Reading player;
    world.media.addFile("C:\\Music\\x.mp3", 5000);
    world.dialogs.pickFolder("C:\\Music");
    world.menus.choose("Directory");
    player.act("Open");
    CHECK(player.list().ListCount() == 1);
    CHECK_FALSE(player.main("Open").pressed);
}

TEST_CASE("minimise hides the main window, where no action reaches it") {
    Reading player;
    player.playLetters(2);
    const platform::AccessibleWindow reader =
        simulated::window(player.mainWindow()).events.accessible();
    const std::vector<std::int32_t> shown = reader.shown();
    player.act("Minimise");
    CHECK_FALSE(simulated::window(player.mainWindow()).visible);
    for (const std::int32_t number : shown)
        reader.act({number});
    simulated::advance(1000);
    CHECK(player.status() == "Playing");
    CHECK(player.selected() == 0);
}

TEST_CASE("quit by a reader's action ends the player in order") {
    Reading player;
    CHECK(behaviour::endsTheProcess([&] { player.act("Quit"); }));
}

TEST_CASE("the list's own keys work by a reader's actions") {
    Reading player;
    player.addLetters(5);
    player.actInList("Scroll down");
    CHECK(player.firstRow() == 1);
    player.actInList("Scroll up");
    player.actInList("Scroll up");
    CHECK(player.firstRow() == 2);
    player.list().ListIndex(4);
    player.actInList("Clear");
    CHECK(player.list().ListCount() == 4);
    player.actInList("Clear all");
    CHECK(player.list().ListCount() == 0);
}

TEST_CASE("while the user holds the pointer down an action waits for the release") {
    Reading player;
    player.playLetters(3);
    simulated::pressAt(player.mainWindow(), 100, 6);
    player.act("Next");
    CHECK(player.selected() == 0);
    simulated::release();
    simulated::advance(1);
    CHECK(player.selected() == 1);
}

TEST_CASE("a press that has lost its release doesn't keep a reader's actions waiting for ever") {
    Reading player;
    player.playLetters(3);
    simulated::pressAt(player.mainWindow(), 100, 6);
    simulated::loseReleases();
    player.act("Next");
    player.hover(player.frmPlayer().pctnext);
    simulated::advance(1);
    CHECK(player.selected() == 1);
}
