#include "tests/behaviour/reader.h"

#include <algorithm>
#include <string>
#include <vector>

using behaviour::Reading;
using platform::AccessibleRole;
using simulated::world;
using Words = std::vector<std::string>;

TEST_CASE("a reader finds every row of the list, in view or not, and which is selected") {
    Reading player;
    player.addLetters(5);
    player.list().ListIndex(1);
    CHECK(player.listed("Tracks").rows == 5);
    CHECK(player.listed("Tracks").selectedRow == 1);
    for (int row = 0; row < 5; ++row) {
        CAPTURE(row);
        CHECK(player.rowAt(row).role == AccessibleRole::Row);
        CHECK(player.rowAt(row).acts);
        CHECK(player.rowAt(row).name == std::string(1, static_cast<char>('a' + row)) + ".mp3");
        CHECK(player.rowAt(row).selected == (row == 1));
        CHECK(player.rowAt(row).area == platform::Rect{8, 24 + 13 * row, 273, 37 + 13 * row});
    }
    CHECK(player.rowAt(5).name.empty());
}

TEST_CASE("the row that sounds says so, wherever the selection goes") {
    Reading player;
    player.playLetters(3);
    CHECK(player.rowAt(0).description == "Playing");
    CHECK(player.rowAt(1).description.empty());
    player.clickRow(2);
    CHECK(player.rowAt(0).description == "Playing");
    CHECK(player.rowAt(2).description.empty());
    player.act("Pause");
    CHECK(player.rowAt(0).description == "Paused");
    player.act("Stop");
    CHECK(player.rowAt(0).description.empty());
}

TEST_CASE("of two rows of one track the selected one says that it sounds") {
    Reading player;
    player.addTracks({"C:\\Music\\a.mp3"});
    world.dialogs.pickFolder("C:\\Music");
    player.frmPlayer().opendir();
    REQUIRE(player.list().ListCount() == 2);
    player.actOnRow(1);
    CHECK(player.rowAt(0).description.empty());
    CHECK(player.rowAt(1).description == "Playing");
}

TEST_CASE("a track removed from the list while it sounds leaves no row that says so") {
    Reading player;
    player.playLetters(2);
    player.actInList("Clear");
    CHECK(player.status() == "Playing");
    CHECK(player.rowAt(0).name == "b.mp3");
    CHECK(player.rowAt(0).description.empty());
}

TEST_CASE("an action on a row does what a double click there does, also out of view") {
    Reading player;
    player.playLetters(6);
    player.actOnRow(4);
    CHECK(player.selected() == 4);
    CHECK(player.sounding() == "C:\\Music\\e.mp3");
    CHECK(player.firstRow() == 2);
    player.actOnRow(0);
    CHECK(player.sounding() == "C:\\Music\\a.mp3");
    CHECK(player.firstRow() == 0);
    for (const int nowhere : {6, 17}) {
        player.actOnRow(nowhere);
        CHECK(player.sounding() == "C:\\Music\\a.mp3");
        CHECK(player.firstRow() == 0);
    }
}

TEST_CASE("an action on a row while paused goes on with the paused track, as a double click does") {
    Reading player;
    player.playLetters(3);
    player.act("Pause");
    player.actOnRow(2);
    CHECK(player.status() == "Playing");
    CHECK(player.sounding() == "C:\\Music\\a.mp3");
}

TEST_CASE("a row selected by a reader is selected as by a click: nothing starts") {
    Reading player;
    player.playLetters(5);
    behaviour::commandsSent();
    simulated::selectRow(player.playlistWindow(), "Tracks", 4);
    CHECK(player.selected() == 4);
    CHECK(player.firstRow() == 2);
    CHECK_FALSE(player.frmPlaylist().window.pressed());
    // Selecting it again at once is no double click.
    simulated::selectRow(player.playlistWindow(), "Tracks", 4);
    CHECK(player.sounding() == "C:\\Music\\a.mp3");
    CHECK(behaviour::commandsSent().empty());
}

TEST_CASE("a reader is told what has changed, once, and not how the images took turns") {
    Reading player;
    player.playLetters(4);
    REQUIRE(player.tells("Next"));
    REQUIRE(player.listed("Tracks").rows == 4);
    player.click(player.frmPlayer().pctnext);
    simulated::advance(1);
    CHECK(simulated::changesTold() == Words{"Tracks 1: SelectedRow"});
    player.click(player.frmPlayer().lblShuffle);
    simulated::advance(1);
    CHECK(simulated::changesTold() == Words{"Shuffle: State"});
    player.press(player.frmPlayer().pctstop);
    simulated::advance(1);
    CHECK(simulated::changesTold() == Words{"Stop: State"});
    simulated::release();
    simulated::advance(1);
    const Words told = simulated::changesTold();
    const auto tells = [&](const char* word) {
        return std::find(told.begin(), told.end(), word) != told.end();
    };
    CHECK(tells("Stop: State"));
    CHECK(tells("Time: Vanished"));
    CHECK(tells("Position: Vanished"));
    player.click(player.form.pctClear);
    simulated::advance(1);
    CHECK(simulated::changesTold() == Words{"Tracks: Rows", "Tracks 1: SelectedRow"});
}

TEST_CASE("the alarm's key that changes its name tells so, when it shows") {
    Reading player;
    player.act("Alarm");
    simulated::advance(1);
    simulated::changesTold();
    player.act("Set");
    simulated::advance(1);
    player.act("Alarm");
    simulated::advance(1);
    const Words told = simulated::changesTold();
    CHECK(std::find(told.begin(), told.end(), "Unset: Appeared") != told.end());
    CHECK(std::find(told.begin(), told.end(), "Alarm: State") != told.end());
}

TEST_CASE("while the track plays a reader is told of the time that goes on") {
    Reading player;
    player.playLetters(1);
    REQUIRE(player.tells("Time"));
    simulated::advance(967 * 2);
    simulated::changesTold();
    simulated::advance(966);
    simulated::advance(1);
    const Words told = simulated::changesTold();
    CHECK(std::find(told.begin(), told.end(), "Time: Value") != told.end());
    CHECK(std::find(told.begin(), told.end(), "Position: Value") != told.end());
}
