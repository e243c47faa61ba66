#include "tests/behaviour/open_playlist.h"

#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::OpenPlaylist;
using behaviour::PointerButton;

TEST_CASE("a click in the list moves the selection only") {
    OpenPlaylist player;
    player.playLetters(3);
    player.clickRow(2);
    CHECK(player.selected() == 2);
    CHECK(player.sounding() == "C:\\Music\\a.mp3");
    CHECK(player.status() == "Playing");
}

TEST_CASE("a click below the last entry of the list changes nothing") {
    OpenPlaylist player;
    player.playLetters(2);
    player.clickRow(2);
    CHECK(player.selected() == 0);
}

TEST_CASE("a double click in the list starts that entry from its beginning") {
    OpenPlaylist player;
    player.playLetters(3);
    simulated::advance(5000);
    commandsSent();
    player.doubleClickRow(1);
    CHECK(player.selected() == 1);
    CHECK(player.sounding() == "C:\\Music\\b.mp3");
    CHECK(commandsSent().back() == "play mpeg from 1 to 200000");
    player.doubleClickRow(1);
    CHECK(commandsSent().back() == "play mpeg from 1 to 200000");
}

TEST_CASE("a press on a scroll key and a quick one on the list beside it start nothing") {
    OpenPlaylist player;
    player.playLetters(3);
    const auto window = player.playlistWindow();
    const int row = 30; // the middle of the first
    simulated::click(window, 257, row);
    player.clickRow(1);
    commandsSent();
    simulated::click(window, 257, row);
    simulated::pressAgainAt(window, 255, row);
    simulated::release();
    CHECK(commandsSent().empty());
    CHECK(player.selected() == 0);
    // The next press makes a double click of its own with that one.
    simulated::pressAgainAt(window, 255, row);
    simulated::release();
    CHECK(commandsSent().back() == "play mpeg from 1 to 200000");
}

TEST_CASE("a double click with the right button starts nothing") {
    OpenPlaylist player;
    player.playLetters(3);
    player.doubleClickRow(1, PointerButton::Right);
    CHECK(player.sounding() == "C:\\Music\\a.mp3");
    CHECK(player.selected() == 0);
}

TEST_CASE("a double click while paused resumes the paused track") {
    OpenPlaylist player;
    player.playLetters(3);
    player.click(player.form.pctPlsPause);
    commandsSent();
    player.doubleClickRow(2);
    CHECK(commandsSent() == std::vector<std::string>{"Resume mpeg"});
    CHECK(player.sounding() == "C:\\Music\\a.mp3");
    CHECK(player.selected() == 2);
}

TEST_CASE("the scroll keys move the view by one row at the release and wrap round") {
    OpenPlaylist player;
    player.addLetters(10);
    player.list().ListIndex(0);
    for (int n = 1; n <= 7; ++n) {
        player.click(player.form.pctLBoxDownUp);
        CHECK(player.firstRow() == n);
    }
    player.click(player.form.pctLBoxDownUp);
    CHECK(player.firstRow() == 0);
    player.click(player.form.pctLBoxUpUp);
    CHECK(player.firstRow() == 7);
    player.click(player.form.pctLBoxUpUp);
    CHECK(player.firstRow() == 6);
    CHECK(player.selected() == 0);
}

TEST_CASE("no click on a scroll key touches the selection, in view or out of it, or its absence") {
    for (const int selection : {-1, 1, 9}) {
        CAPTURE(selection);
        OpenPlaylist player;
        player.addLetters(10);
        player.list().ListIndex(selection);
        for (toolkit::Control* key : {static_cast<toolkit::Control*>(&player.form.pctLBoxDownUp),
                                      static_cast<toolkit::Control*>(&player.form.pctLBoxUpUp)})
            for (int n = 0; n < 10; ++n) {
                const int before = player.firstRow();
                player.click(*key);
                CHECK(player.firstRow() != before);
                CHECK(player.selected() == selection);
            }
        CHECK(player.status() == "Idle");
    }
}

TEST_CASE("with four entries either scroll key toggles between the two views") {
    OpenPlaylist player;
    player.addLetters(4);
    for (const int view : {1, 0, 1}) {
        player.click(player.form.pctLBoxDownUp);
        CHECK(player.firstRow() == view);
    }
    for (const int view : {0, 1, 0}) {
        player.click(player.form.pctLBoxUpUp);
        CHECK(player.firstRow() == view);
    }
}

TEST_CASE("with three entries or fewer the scroll keys press and release and scroll nothing") {
    for (const int count : {0, 1, 2, 3}) {
        OpenPlaylist player;
        player.addLetters(count);
        FrmPlaylist& form = player.frmPlaylist();
        player.press(player.form.pctLBoxDownUp);
        CHECK(form.pctLBoxDownDown.Visible());
        CHECK(form.pctLBoxDownUp.Visible());
        simulated::release();
        CHECK_FALSE(form.pctLBoxDownDown.Visible());
        player.press(player.form.pctLBoxUpUp);
        CHECK(form.pctLboxUpDown.Visible());
        CHECK(form.pctLBoxUpUp.Visible());
        simulated::release();
        CHECK_FALSE(form.pctLboxUpDown.Visible());
        CHECK(player.firstRow() == 0);
    }
}

TEST_CASE("a scroll key is seen to go down and up again, with nothing to scroll too") {
    for (const int count : {0, 3}) {
        CAPTURE(count);
        OpenPlaylist player;
        player.addLetters(count);
        const auto face = [&] { return simulated::picture(player.playlistWindow()); };
        const platform::Picture before = face();
        std::vector<platform::Picture> sunk;
        for (const toolkit::Control* key :
             {static_cast<toolkit::Control*>(&player.form.pctLBoxDownUp),
              static_cast<toolkit::Control*>(&player.form.pctLBoxUpUp)}) {
            player.press(*key);
            sunk.push_back(face());
            CHECK_FALSE(sunk.back() == before);
            simulated::release();
            CHECK(face() == before);
        }
        CHECK_FALSE(sunk[0] == sunk[1]);
    }
}

TEST_CASE("a scroll key held down doesn't repeat, and scrolls wherever it is let go") {
    OpenPlaylist player;
    player.addLetters(10);
    const auto hold = [&](const toolkit::Control& key, int before, int after) {
        player.press(key);
        simulated::advance(5000);
        CHECK(player.firstRow() == before);
        simulated::moveToScreen(5, 5);
        simulated::release();
        CHECK(player.firstRow() == after);
    };
    hold(player.form.pctLBoxDownUp, 0, 1);
    hold(player.form.pctLBoxDownUp, 1, 2);
    hold(player.form.pctLBoxUpUp, 2, 1);
    CHECK_FALSE(player.form.pctLBoxDownDown.Visible());
    CHECK_FALSE(player.form.pctLboxUpDown.Visible());
}

TEST_CASE("the patch between the scroll keys doesn't react") {
    OpenPlaylist player;
    player.addLetters(10);
    player.list().ListIndex(0);
    const platform::Point before = simulated::window(player.playlistWindow()).position;
    const platform::Picture face = simulated::picture(player.playlistWindow());
    simulated::world.media.forgetCommands();
    player.press(player.form.pctNone);
    simulated::moveToScreen(before.x + 300, before.y);
    simulated::release();
    player.click(player.form.pctNone);
    player.doubleClick(player.form.pctNone);
    CHECK(player.firstRow() == 0);
    CHECK(player.selected() == 0);
    CHECK(player.list().ListCount() == 10);
    CHECK(simulated::window(player.playlistWindow()).position == before);
    CHECK(simulated::picture(player.playlistWindow()) == face);
    CHECK(simulated::world.media.commands().empty());
}

TEST_CASE("the patch covers the lowest row of the upper key and the highest of the lower") {
    OpenPlaylist player;
    player.addLetters(10);
    const platform::Rect patch = player.form.pctNone.area();
    const auto click = [&](int y) { simulated::click(player.playlistWindow(), patch.left + 8, y); };
    for (const int y : {patch.top, patch.bottom - 1}) {
        click(y);
        CHECK(player.firstRow() == 0);
    }
    click(patch.bottom);
    CHECK(player.firstRow() == 1);
    click(patch.top - 1);
    CHECK(player.firstRow() == 0);
}

TEST_CASE("selecting an entry out of view brings it into view") {
    OpenPlaylist player;
    player.playLetters(5);
    for (const char* path : {"b", "c", "d"}) {
        player.click(player.form.pctPlsNext);
        CHECK(player.sounding() == std::string("C:\\Music\\") + path + ".mp3");
    }
    CHECK(player.firstRow() == 1);
    player.click(player.form.pctPlsPrev);
    CHECK(player.firstRow() == 1);
}

TEST_CASE("the wheel scrolls the view and leaves the selection") {
    OpenPlaylist player;
    player.addLetters(10);
    player.list().ListIndex(1);
    player.turnWheel(3);
    CHECK(player.firstRow() == 3);
    player.turnWheel(30);
    CHECK(player.firstRow() == 7); // the wheel doesn't wrap round
    player.turnWheel(-2);
    CHECK(player.firstRow() == 5);
    player.turnWheel(-30);
    CHECK(player.firstRow() == 0);
    CHECK(player.selected() == 1);
}

TEST_CASE("the list answers to the keys of a list and starts nothing by them") {
    using simulated::Key;
    OpenPlaylist player;
    player.addLetters(10);
    const auto type = [&](Key key) {
        simulated::typeKey(player.playlistWindow(), key);
        return player.selected();
    };
    CHECK(type(Key::Down) == 0);
    CHECK(type(Key::Down) == 1);
    CHECK(type(Key::Up) == 0);
    CHECK(type(Key::Up) == 0);
    CHECK(type(Key::End) == 9);
    CHECK(player.firstRow() == 7);
    CHECK(type(Key::Down) == 9);
    CHECK(type(Key::Home) == 0);
    CHECK(player.firstRow() == 0);
    CHECK(type(Key::PageDown) == 2);
    CHECK(type(Key::PageUp) == 0);
    CHECK(type(Key::Enter) == 0);
    CHECK(type(Key::Space) == 0);
    simulated::typeText(player.playlistWindow(), "G");
    CHECK(player.selected() == 6);
    simulated::typeText(player.playlistWindow(), "x");
    CHECK(player.selected() == 6);
    CHECK(player.status() == "Idle");
}

TEST_CASE("the keys find the next entry with a letter, round the end of the list") {
    OpenPlaylist player;
    player.addTracks({"C:\\m\\alpha.mp3", "C:\\m\\beta.mp3", "C:\\m\\axel.mp3"});
    for (const int index : {0, 2, 0}) {
        simulated::typeText(player.playlistWindow(), "a");
        CHECK(player.selected() == index);
    }
}

TEST_CASE("keys on an empty list do nothing") {
    OpenPlaylist player;
    for (const auto key : {simulated::Key::Down, simulated::Key::End, simulated::Key::PageUp})
        simulated::typeKey(player.playlistWindow(), key);
    simulated::typeText(player.playlistWindow(), "a");
    CHECK(player.selected() == -1);
}

TEST_CASE("the list keeps its entries, view and selection while the window is closed") {
    OpenPlaylist player;
    player.addLetters(10);
    player.list().ListIndex(4);
    const int view = player.firstRow();
    player.click(player.frmPlayer().pctplaylistdown);
    player.addTracks({"C:\\More\\z.mp3"});
    player.click(player.frmPlayer().pctplaylist);
    CHECK(player.list().ListCount() == 11);
    CHECK(player.selected() == 4);
    CHECK(player.firstRow() == view);
}
