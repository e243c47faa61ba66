#include "tests/behaviour/player.h"

#include <string>

using behaviour::commandsSent;
using behaviour::Player;
using platform::Point;
using simulated::PointerButton;
using simulated::world;

namespace {

/// Bare places of the windows, client pixels.
constexpr Point mainGrip{20, 72};
constexpr Point listGrip{5, 50};

void minimise(Player& player) { player.click(player.frmPlayer().pctminimise); }

void restoreByMenu() {
    world.menus.choose("Maximized");
    world.tray.clickRight();
}

bool shown(Player& player) {
    const bool visible = player.frmPlayer().window.Visible();
    CHECK(simulated::window(player.mainWindow()).visible == visible);
    return visible;
}

Point placeOf(platform::WindowHandle window) { return simulated::window(window).position; }

/// Opens the playlist exactly below the main window, docked.
void dockPlaylist(Player& player) {
    const Point corner = placeOf(player.mainWindow());
    FrmPlaylist& list = player.frmPlaylist();
    list.window.Left(static_cast<float>(corner.x) * 15);
    list.window.Top(static_cast<float>(corner.y + 82) * 15);
    player.click(player.frmPlayer().pctplaylist);
    REQUIRE(list.window.Visible());
    REQUIRE(list.playlistdockX);
}

} // namespace

TEST_CASE("the minimise key shows its pressed look until the release, then the window hides") {
    Player player;
    player.start();
    player.press(player.frmPlayer().pctminimise);
    CHECK(player.frmPlayer().pctminimisedown.Visible());
    CHECK(player.frmPlayer().pctminimise.Visible());
    CHECK(shown(player));
    simulated::release();
    CHECK_FALSE(player.frmPlayer().pctminimisedown.Visible());
    CHECK_FALSE(shown(player));
}

TEST_CASE("any button on the minimise key hides the window") {
    for (const PointerButton button :
         {PointerButton::Left, PointerButton::Right, PointerButton::Middle}) {
        Player player;
        player.start();
        player.click(player.frmPlayer().pctminimise, button);
        CHECK_FALSE(shown(player));
    }
}

TEST_CASE("a press on the minimise key can't be withdrawn by sliding off it") {
    Player player;
    player.start();
    player.press(player.frmPlayer().pctminimise);
    behaviour::releaseFarAway();
    CHECK_FALSE(shown(player));
    CHECK_FALSE(player.frmPlayer().pctminimisedown.Visible());
}

TEST_CASE("the quit key shows its pressed look until the release, wherever that is") {
    Player player;
    player.start();
    player.press(player.frmPlayer().pctquit, PointerButton::Right);
    CHECK(player.frmPlayer().pctquitdown.Visible());
    CHECK(player.frmPlayer().pctquit.Visible());
    CHECK_THROWS_AS(behaviour::releaseFarAway(PointerButton::Right), simulated::ProcessEnded);
    CHECK_FALSE(player.frmPlayer().pctquitdown.shown());
}

TEST_CASE("the tray menu and a double click on the icon bring the hidden window back in place") {
    Player player;
    player.start();
    simulated::moveByWindowManager(player.mainWindow(), {3, 5});
    for (const bool byMenu : {true, false}) {
        minimise(player);
        REQUIRE_FALSE(shown(player));
        byMenu ? restoreByMenu() : world.tray.doubleClick();
        CHECK(shown(player));
        // So near the edges a drag would snap; a restore doesn't.
        CHECK(placeOf(player.mainWindow()) == Point{3, 5});
    }
}

TEST_CASE("restoring a window that shows leaves it at its place and size") {
    Player player;
    player.start();
    const Point place = placeOf(player.mainWindow());
    restoreByMenu();
    world.tray.doubleClick();
    CHECK(shown(player));
    CHECK(placeOf(player.mainWindow()) == place);
    CHECK(simulated::window(player.mainWindow()).size == platform::Size{276, 82});
}

TEST_CASE("restoring a window that shows pulls it to no edge and no pixel, and moves no list") {
    for (const bool byMenu : {true, false})
        for (const Point place : {Point{3, 5}, Point{735, 650}, Point{-700, 900}}) {
            CAPTURE(byMenu);
            Player player;
            player.start();
            dockPlaylist(player);
            simulated::moveByWindowManager(player.mainWindow(), place);
            const Point list = placeOf(player.playlistWindow());
            byMenu ? restoreByMenu() : world.tray.doubleClick();
            CHECK(shown(player));
            CHECK(placeOf(player.mainWindow()) == place);
            CHECK(simulated::window(player.mainWindow()).size == platform::Size{276, 82});
            CHECK(placeOf(player.playlistWindow()) == list);
            CHECK(player.frmPlaylist().window.Visible());
        }
}

TEST_CASE("the playlist stays as it is while the main window is hidden") {
    Player player;
    player.start();
    dockPlaylist(player);
    const Point place = placeOf(player.playlistWindow());
    minimise(player);
    CHECK(player.frmPlaylist().window.Visible());
    CHECK(placeOf(player.playlistWindow()) == place);
    CHECK(player.frmPlayer().pctplaylistdown.Visible());
    CHECK_FALSE(player.frmPlayer().pctplaylist.Visible());
    CHECK(player.frmPlaylist().playlistdockX);
    CHECK_FALSE(player.frmPlaylist().playlistdockY);
}

TEST_CASE("after a restore the docked playlist still follows the main window") {
    Player player;
    player.start();
    dockPlaylist(player);
    minimise(player);
    world.tray.doubleClick();
    const Point before = placeOf(player.playlistWindow());
    simulated::pressAt(player.mainWindow(), mainGrip.x, mainGrip.y);
    simulated::moveTo(player.mainWindow(), mainGrip.x + 37, mainGrip.y + 11);
    simulated::release();
    CHECK(placeOf(player.playlistWindow()) == Point{before.x + 37, before.y + 11});
}

TEST_CASE("a playlist moved away meanwhile stays where it was put when the main window is back") {
    Player player;
    player.start();
    dockPlaylist(player);
    const Point place = placeOf(player.mainWindow());
    minimise(player);
    simulated::moveByWindowManager(player.playlistWindow(), {100, 500});
    restoreByMenu();
    CHECK(placeOf(player.mainWindow()) == place);
    CHECK(placeOf(player.playlistWindow()) == Point{100, 500});
}

TEST_CASE("the playlist docks to the hidden main window's place") {
    Player player;
    player.start();
    dockPlaylist(player);
    const Point docked = placeOf(player.playlistWindow());
    minimise(player);
    simulated::pressAt(player.playlistWindow(), listGrip.x, listGrip.y);
    simulated::moveTo(player.playlistWindow(), listGrip.x + 60, listGrip.y + 80);
    simulated::release();
    REQUIRE_FALSE(player.frmPlaylist().playlistdockX);
    const Point away = placeOf(player.playlistWindow());
    simulated::pressAt(player.playlistWindow(), listGrip.x, listGrip.y);
    simulated::moveTo(player.playlistWindow(), listGrip.x + docked.x - away.x,
                      listGrip.y + docked.y - away.y + 6);
    simulated::release();
    CHECK(placeOf(player.playlistWindow()) == docked);
    CHECK(player.frmPlaylist().playlistdockX);
}

TEST_CASE("the sound, the clock and the icon go on while the window is hidden") {
    Player player;
    player.play({"C:\\a.mp3"});
    minimise(player);
    const std::string before = player.frmPlayer().lblTimenow.Caption();
    commandsSent();
    simulated::advance(5000);
    CHECK(player.frmPlayer().lblTimenow.Caption() != before);
    CHECK(world.media.playing());
    CHECK(player.frmPlayer().Timer1.Enabled());
    CHECK(world.tray.icon);
    CHECK(world.tray.calls.size() == 2); // from the start
}

TEST_CASE("minimise and restore send nothing to the device") {
    Player player;
    player.play({"C:\\a.mp3"});
    commandsSent();
    minimise(player);
    world.tray.doubleClick();
    CHECK(commandsSent().empty());
}

TEST_CASE("exit in the tray menu ends a hidden player") {
    Player player;
    player.start();
    minimise(player);
    world.menus.choose("Exit");
    CHECK_THROWS_AS(world.tray.clickRight(), simulated::ProcessEnded);
}
