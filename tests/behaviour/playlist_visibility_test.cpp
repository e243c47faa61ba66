#include "tests/behaviour/window_pair.h"

#include <string>

using behaviour::Point;
using behaviour::WindowPair;
using simulated::world;

TEST_CASE("the playlist key shows the list and shows that it is open") {
    WindowPair windows({300, 300}, {600, 600});
    FrmPlayer& main = windows.player.frmPlayer();
    CHECK(windows.isOpen());
    CHECK_FALSE(main.pctplaylist.Visible());
    CHECK(main.pctplaylistdown.Visible());
    windows.closeByKey();
    CHECK_FALSE(windows.isOpen());
    CHECK(main.pctplaylist.Visible());
    CHECK_FALSE(main.pctplaylistdown.Visible());
}

TEST_CASE("the list opens and closes at the press already") {
    WindowPair windows({300, 300}, {600, 600});
    windows.closeByKey();
    windows.player.press(windows.player.frmPlayer().pctplaylist);
    CHECK(windows.isOpen());
    simulated::release();
    CHECK(windows.isOpen());
    windows.player.press(windows.player.frmPlayer().pctplaylistdown);
    CHECK_FALSE(windows.isOpen());
    simulated::release();
    CHECK_FALSE(windows.isOpen());
}

TEST_CASE("the playlist key tells what the list will be before the list shows or hides") {
    WindowPair windows({300, 300}, {300, 382});
    const std::string list = "window " + std::to_string(windows.player.playlistWindow());
    FrmPlayer& main = windows.player.frmPlayer();
    int seen = 0;
    world.watch = [&](const std::string& note) {
        const bool shows = note == "show " + list;
        if (!shows && note != "hide " + list) return;
        ++seen;
        CHECK(main.pctplaylistdown.Visible() == shows);
        CHECK(main.pctplaylist.Visible() == !shows);
    };
    SUBCASE("by the key") { windows.closeByKey(); }
    SUBCASE("by the list's cross") { windows.closeByQuit(); }
    SUBCASE("by the list's minimise key") { windows.closeByMinimise(); }
    windows.open();
    world.watch = nullptr;
    CHECK(seen == 2);
}

TEST_CASE("closed by the key or the cross, the list is undocked before it hides") {
    for (const bool byKey : {true, false}) {
        CAPTURE(byKey);
        WindowPair windows({300, 300}, {300, 382});
        const std::string hides = "hide window " + std::to_string(windows.player.playlistWindow());
        windows.player.frmPlaylist().playlistdockY = true;
        bool freeAtTheHiding = false;
        world.watch = [&](const std::string& note) {
            if (note == hides) freeAtTheHiding = windows.free();
        };
        if (byKey)
            windows.closeByKey();
        else
            windows.closeByQuit();
        world.watch = nullptr;
        CHECK(freeAtTheHiding);
    }
}

TEST_CASE("exact contact decides at each opening") {
    struct Row {
        Point list;
        bool stacked;
        bool beside;
    };
    for (const Row& row :
         {Row{{300, 382}, true, false}, Row{{900, 382}, true, false}, Row{{300, 218}, true, false},
          Row{{576, 300}, false, true}, Row{{24, 900}, false, true}, Row{{576, 382}, true, false},
          Row{{300, 383}, false, false}, Row{{577, 300}, false, false}}) {
        WindowPair windows({300, 300}, row.list);
        CHECK(windows.stacked() == row.stacked);
        CHECK(windows.beside() == row.beside);
    }
}

TEST_CASE("opening to a contact sets one flag and leaves the other") {
    WindowPair windows({300, 300}, {300, 382});
    windows.closeByMinimise();
    windows.player.frmPlaylist().playlistdockX = false;
    windows.player.frmPlaylist().playlistdockY = true;
    windows.open();
    CHECK(windows.stacked());
    CHECK(windows.beside());
}

TEST_CASE("a twip off is no contact at the opening") {
    WindowPair windows({300, 300}, {300, 382});
    windows.closeByKey();
    windows.player.frmPlaylist().window.Top(15 * 382 + 1);
    windows.open();
    CHECK(windows.free());
}

TEST_CASE("the main window's key and the list's own cross undock") {
    WindowPair windows({300, 300}, {300, 382});
    windows.closeByKey();
    CHECK(windows.free());
    windows.open();
    CHECK(windows.stacked());
    windows.player.press(windows.player.frmPlaylist().pctPlaylistQuit);
    CHECK(windows.player.frmPlaylist().pctPlaylistQuitDown.Visible());
    CHECK(windows.isOpen());
    CHECK(windows.stacked());
    simulated::release();
    CHECK_FALSE(windows.player.frmPlaylist().pctPlaylistQuitDown.Visible());
    CHECK_FALSE(windows.isOpen());
    CHECK(windows.free());
    CHECK(windows.player.frmPlayer().pctplaylist.Visible());
    CHECK_FALSE(windows.player.frmPlayer().pctplaylistdown.Visible());
}

TEST_CASE("the list's own minimise key keeps the flags") {
    WindowPair windows({300, 300}, {300, 382});
    windows.player.press(windows.player.frmPlaylist().pctPlaylistMini);
    CHECK(windows.player.frmPlaylist().pctPlaylistMiniDown.Visible());
    CHECK(windows.isOpen());
    behaviour::releaseFarAway();
    CHECK_FALSE(windows.player.frmPlaylist().pctPlaylistMiniDown.Visible());
    CHECK_FALSE(windows.isOpen());
    CHECK(windows.stacked());
    CHECK(windows.player.frmPlayer().pctplaylist.Visible());
    CHECK_FALSE(windows.player.frmPlayer().pctplaylistdown.Visible());
}

TEST_CASE("minimised and reopened with nothing moved, the pair is docked as before") {
    WindowPair windows({300, 300}, {300, 382});
    windows.closeByMinimise();
    windows.open();
    CHECK(windows.stacked());
    windows.dragMain(310, 310);
    CHECK(windows.list() == Point{310, 392});
}

TEST_CASE("minimised, the list stays behind and comes back free where it was") {
    WindowPair windows({300, 300}, {300, 382});
    windows.closeByMinimise();
    windows.dragMain(500, 100);
    CHECK(windows.stacked());
    CHECK(windows.list() == Point{300, 382});
    windows.open();
    CHECK(windows.free());
    CHECK(windows.list() == Point{300, 382});
}

TEST_CASE("minimised beside the main window, the list comes back free or docked by its contact") {
    for (const bool moved : {true, false}) {
        CAPTURE(moved);
        WindowPair windows({300, 300}, {576, 300});
        windows.closeByMinimise();
        CHECK(windows.beside());
        if (moved) windows.dragMain(100, 100);
        windows.open();
        CHECK(windows.beside() == !moved);
        CHECK_FALSE(windows.stacked());
        CHECK(windows.list() == Point{576, 300});
        windows.dragMain(200, 400);
        CHECK(windows.list() == (moved ? Point{576, 300} : Point{476, 400}));
    }
}

TEST_CASE("minimising the main window leaves the list's key as it is") {
    WindowPair windows({300, 300}, {300, 382});
    windows.player.click(windows.player.frmPlayer().pctminimise);
    CHECK(windows.isOpen());
    CHECK_FALSE(windows.player.frmPlayer().pctplaylist.Visible());
    CHECK(windows.player.frmPlayer().pctplaylistdown.Visible());
}

TEST_CASE("at the exit the places and the dock are saved, and come back at the next start") {
    WindowPair windows({300, 300}, {310, 382});
    simulated::closeByUser(windows.player.mainWindow());
    const std::string line = world.files.text("C:\\Orvan\\MyPlayerSettings.mps");
    CHECK(line.find("**4500*4500*") != std::string::npos);
    CHECK(line.find("*-1*0*4650*5730*") != std::string::npos);

    behaviour::Player next;
    world.files.addFile("C:\\Orvan\\MyPlayerSettings.mps", line);
    next.start();
    CHECK(simulated::window(next.mainWindow()).position == Point{300, 300});
    CHECK(simulated::window(next.playlistWindow()).position == Point{310, 382});
    CHECK_FALSE(simulated::window(next.playlistWindow()).visible);
    CHECK(next.frmPlaylist().playlistdockX);
    CHECK_FALSE(next.frmPlaylist().playlistdockY);
}

TEST_CASE("saved flags rest until the list is opened, when contact decides") {
    behaviour::Player player;
    world.files.addFile("C:\\Orvan\\MyPlayerSettings.mps",
                        "3*0*0**4500*4500*0*0**-1*0*9000*9000*\r\n");
    player.start();
    CHECK(player.frmPlaylist().playlistdockX);
    player.click(player.frmPlayer().pctplaylist);
    CHECK_FALSE(player.frmPlaylist().playlistdockX);
    CHECK_FALSE(player.frmPlaylist().playlistdockY);
}
