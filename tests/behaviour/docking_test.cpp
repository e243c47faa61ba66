#include "tests/behaviour/window_pair.h"

#include <string>
#include <vector>

using behaviour::Point;
using behaviour::WindowPair;
using simulated::world;

TEST_CASE("the main window docks from 14 pixels above the playlist and not from 15") {
    WindowPair windows({600, 100}, {100, 300});
    windows.takeMain();
    WindowPair::dragTo(150, 203);
    CHECK(windows.main() == Point{150, 203});
    WindowPair::dragTo(150, 204);
    CHECK(windows.main() == Point{150, 218});
    CHECK(windows.free()); // not before the release
    simulated::release();
    CHECK(windows.stacked());
    CHECK_FALSE(windows.beside());
    CHECK(windows.list() == Point{100, 300});
}

TEST_CASE("a release 15 pixels away leaves the windows free") {
    WindowPair windows({600, 100}, {100, 300});
    windows.dragMain(150, 203);
    CHECK(windows.free());
}

TEST_CASE("what counts is where the main window is let go, not what it passed") {
    WindowPair windows({600, 100}, {100, 300});
    windows.takeMain();
    WindowPair::dragTo(150, 204);
    WindowPair::dragTo(150, 150);
    simulated::release();
    CHECK(windows.free());
    CHECK(windows.main() == Point{150, 150});
}

TEST_CASE("left edges 10 apart line up while docking, 15 apart they don't") {
    WindowPair windows({600, 100}, {100, 300});
    windows.takeMain();
    WindowPair::dragTo(90, 204);
    CHECK(windows.main() == Point{100, 218});
    WindowPair::dragTo(85, 204);
    CHECK(windows.main() == Point{85, 218});
}

TEST_CASE("beyond the playlist's right edge nothing sticks") {
    WindowPair windows({600, 100}, {100, 300});
    windows.dragMain(600, 204);
    CHECK(windows.main() == Point{600, 204});
    CHECK(windows.free());
}

TEST_CASE("a near edge without contact ends the search, though another side would hold") {
    // Four pixels into the other window's rows and four beyond its right edge.
    WindowPair windows({600, 100}, {100, 300});
    windows.dragMain(380, 222);
    CHECK(windows.main() == Point{380, 222});
    CHECK(windows.free());
    WindowPair turned({100, 300}, {600, 100});
    turned.dragList(380, 222);
    CHECK(turned.list() == Point{380, 222});
    CHECK(turned.free());
}

TEST_CASE("diagonally nothing sticks until the columns overlap") {
    WindowPair windows({600, 100}, {400, 300});
    windows.takeMain();
    WindowPair::dragTo(114, 208);
    CHECK(windows.main() == Point{114, 208});
    WindowPair::dragTo(129, 208);
    CHECK(windows.main() == Point{129, 218});
}

TEST_CASE("a main window that touches the playlist at a corner docks") {
    WindowPair windows({600, 100}, {400, 300});
    windows.dragMain(124, 218);
    CHECK(windows.main() == Point{124, 218});
    CHECK(windows.stacked());
}

TEST_CASE("the main window docks at all four sides") {
    struct Row {
        Point wanted;
        Point taken;
        bool stacked;
    };
    for (const Row& row :
         {Row{{460, 210}, {460, 218}, true}, Row{{460, 390}, {460, 382}, true},
          Row{{130, 330}, {124, 330}, false}, Row{{670, 330}, {676, 330}, false}}) {
        WindowPair windows({100, 600}, {400, 300});
        windows.dragMain(row.wanted.x, row.wanted.y);
        CHECK(windows.main() == row.taken);
        CHECK(windows.stacked() == row.stacked);
        CHECK(windows.beside() == !row.stacked);
    }
}

TEST_CASE("without contact the screen edge's pull on that axis is lost as well") {
    // The bottom edge pulls to 686, the playlist's top is near too, but far aside.
    WindowPair windows({300, 300}, {600, 775});
    windows.takeMain();
    WindowPair::dragTo(100, 690);
    CHECK(windows.main() == Point{100, 690});
    WindowPair::dragTo(10, 690);
    CHECK(windows.main() == Point{0, 690});
}

TEST_CASE("a docked playlist keeps its offset through a drag of the main window") {
    WindowPair windows({600, 100}, {100, 300});
    windows.dragMain(150, 204);
    windows.takeMain();
    for (const Point place : {Point{400, 300}, Point{151, 217}, Point{600, 500}, Point{300, 90}}) {
        WindowPair::dragTo(place.x, place.y);
        CHECK(windows.main() == place);
        CHECK(windows.list() == Point{place.x - 50, place.y + 82});
    }
    simulated::release();
    CHECK(windows.stacked());
}

TEST_CASE("a playlist is docked before it moves to its dock") {
    for (const bool beside : {true, false}) {
        CAPTURE(beside);
        WindowPair windows({300, 300}, {700, 500});
        const std::string moves = "move window " + std::to_string(windows.player.playlistWindow());
        windows.takeList();
        int looks = 0;
        world.watch = [&](const std::string& note) {
            if (note != moves) return;
            ++looks;
            CHECK((beside ? windows.beside() : windows.stacked()));
        };
        if (beside)
            WindowPair::dragTo(586, 305);
        else
            WindowPair::dragTo(305, 392);
        world.watch = nullptr;
        CHECK(looks == 1);
        simulated::release();
    }
}

TEST_CASE("a drag of the main window never undocks") {
    WindowPair windows({300, 300}, {300, 382});
    CHECK(windows.stacked());
    windows.takeMain();
    for (int y = 300; y < 760; y += 7)
        WindowPair::dragTo(300, y);
    simulated::release();
    CHECK(windows.stacked());
    CHECK_FALSE(windows.beside());
}

TEST_CASE("a pair with the main window on top stands on the bottom of the work area") {
    WindowPair windows({300, 300}, {300, 382});
    windows.takeMain();
    WindowPair::dragTo(300, 584);
    CHECK(windows.list() == Point{300, 666});
    WindowPair::dragTo(300, 585);
    CHECK(windows.list() == Point{300, 686});
    CHECK(windows.main() == Point{300, 604});
    WindowPair::dragTo(300, 623);
    CHECK(windows.list() == Point{300, 686});
    CHECK(windows.main() == Point{300, 604});
    WindowPair::dragTo(300, 624);
    CHECK(windows.list() == Point{300, 706});
    CHECK(windows.main() == Point{300, 624});
}

TEST_CASE("a pair with the main window on top stops at the top of the screen") {
    WindowPair windows({300, 300}, {300, 382});
    windows.takeMain();
    WindowPair::dragTo(300, 1);
    CHECK(windows.main() == Point{300, 0});
    CHECK(windows.list() == Point{300, 82});
}

TEST_CASE("a pair with the playlist on top stops at the top of the screen") {
    WindowPair windows({300, 382}, {300, 300});
    windows.takeMain();
    WindowPair::dragTo(300, 101);
    CHECK(windows.list() == Point{300, 0});
    CHECK(windows.main() == Point{300, 82});
}

TEST_CASE("a pair with the playlist on top stands on the bottom of the work area") {
    WindowPair windows({300, 382}, {300, 300});
    windows.takeMain();
    WindowPair::dragTo(300, 667);
    CHECK(windows.list() == Point{300, 604});
    CHECK(windows.main() == Point{300, 686});
}

TEST_CASE("a panel at the top catches a pair and lets it through to the screen's edge") {
    WindowPair windows({300, 300}, {300, 382}, {0, 30, 1024, 768});
    windows.takeMain();
    WindowPair::dragTo(300, 31);
    CHECK(windows.main() == Point{300, 0});
    CHECK(windows.list() == Point{300, 82});
}

TEST_CASE("a pair side by side stops at the sides of the screen") {
    WindowPair windows({300, 300}, {576, 300});
    CHECK(windows.beside());
    windows.takeMain();
    WindowPair::dragTo(1, 300);
    CHECK(windows.main() == Point{0, 300});
    CHECK(windows.list() == Point{276, 300});
    WindowPair::dragTo(455, 300);
    CHECK(windows.main() == Point{472, 300});
    CHECK(windows.list() == Point{748, 300});
    WindowPair::dragTo(400, 15);
    CHECK(windows.main() == Point{400, 0});
    CHECK(windows.list() == Point{676, 0});
}

TEST_CASE("a pair that isn't aligned shears while one of the two is near the edge") {
    WindowPair windows({300, 300}, {310, 382});
    windows.takeMain();
    WindowPair::dragTo(-5, 300);
    CHECK(windows.main() == Point{0, 300});
    CHECK(windows.list() == Point{0, 382});
    WindowPair::dragTo(15, 300);
    CHECK(windows.main() == Point{0, 300});
    CHECK(windows.list() == Point{25, 382});
    WindowPair::dragTo(30, 300);
    CHECK(windows.list() == Point{40, 382});
}

TEST_CASE("a stacked playlist snaps sideways by itself") {
    struct Row {
        Point main;
        Point list;
        Point wanted; ///< of the main window
        Point taken;  ///< by the playlist
    };
    for (const Row& row : {Row{{31, 300}, {25, 382}, {25, 300}, {0, 382}},
                           Row{{690, 300}, {719, 382}, {700, 300}, {748, 382}}}) {
        WindowPair windows(row.main, row.list);
        windows.dragMain(row.wanted.x, row.wanted.y);
        CHECK(windows.main() == row.wanted);
        CHECK(windows.list() == row.taken);
        CHECK(windows.stacked());
    }
}

TEST_CASE("a playlist at the side snaps up and down by itself") {
    struct Row {
        Point main;
        Point list;
        Point wanted; ///< of the main window
        Point taken;  ///< by the playlist
    };
    for (const Row& row : {Row{{300, 31}, {576, 25}, {300, 25}, {576, 0}},
                           Row{{300, 640}, {576, 657}, {300, 650}, {576, 686}}}) {
        WindowPair windows(row.main, row.list);
        windows.dragMain(row.wanted.x, row.wanted.y);
        CHECK(windows.main() == row.wanted);
        CHECK(windows.list() == row.taken);
        CHECK(windows.beside());
    }
}

TEST_CASE("the playlist moves before the main window does") {
    WindowPair windows({300, 300}, {300, 382});
    windows.takeMain();
    simulated::clearLog();
    WindowPair::dragTo(350, 350);
    const std::string list = std::to_string(windows.player.playlistWindow());
    const std::string main = std::to_string(windows.player.mainWindow());
    CHECK(simulated::log() ==
          std::vector<std::string>{"move window " + list, "move window " + main});
}

TEST_CASE("with both flags set the pair counts as stacked") {
    WindowPair windows({300, 300}, {300, 382});
    windows.player.frmPlaylist().playlistdockY = true;
    windows.takeMain();
    WindowPair::dragTo(300, 590);
    CHECK(windows.main() == Point{300, 604});
    CHECK(windows.list() == Point{300, 686});
}

TEST_CASE("a docked playlist stays pinned at 14 pixels and comes free at 15") {
    WindowPair windows({300, 300}, {300, 382});
    windows.takeList();
    WindowPair::dragTo(300, 396);
    CHECK(windows.list() == Point{300, 382});
    CHECK(windows.stacked());
    WindowPair::dragTo(300, 397);
    CHECK(windows.list() == Point{300, 397});
    CHECK(windows.free());
    simulated::release();
    CHECK(windows.free());
}

TEST_CASE("a playlist docked at any side stays pinned at 14 pixels and comes free at 15") {
    struct Row {
        Point docked;
        Point away; ///< by one pixel
    };
    for (const Row& row : {Row{{400, 382}, {0, 1}}, Row{{400, 218}, {0, -1}},
                           Row{{676, 300}, {1, 0}}, Row{{124, 300}, {-1, 0}}}) {
        WindowPair windows({400, 300}, row.docked);
        const bool stacked = row.away.x == 0;
        windows.takeList();
        for (const int pixels : {14, 1, 14}) {
            windows.dragBy(pixels * row.away.x, pixels * row.away.y);
            CHECK(windows.list() == row.docked);
            CHECK(windows.stacked() == stacked);
            CHECK(windows.beside() == !stacked);
        }
        for (const int pixels : {15, 16, 40}) {
            windows.dragBy(pixels * row.away.x, pixels * row.away.y);
            CHECK(windows.list() ==
                  Point{row.docked.x + pixels * row.away.x, row.docked.y + pixels * row.away.y});
            CHECK(windows.free());
        }
        simulated::release();
        CHECK(windows.free());
    }
}

TEST_CASE("every move of the playlist writes both of its docks anew") {
    WindowPair windows({300, 300}, {300, 382});
    windows.takeList();
    for (const int down : {1, 2, 60}) {
        windows.player.frmPlaylist().playlistdockX = false;
        windows.player.frmPlaylist().playlistdockY = true;
        windows.dragBy(0, down);
        CHECK(windows.stacked() == (down < 15));
        CHECK_FALSE(windows.beside());
    }
    simulated::release();
}

TEST_CASE("a playlist pulled away docks again within the same drag") {
    WindowPair windows({300, 300}, {300, 382});
    windows.takeList();
    WindowPair::dragTo(300, 500);
    CHECK(windows.free());
    WindowPair::dragTo(570, 310);
    CHECK(windows.list() == Point{576, 300});
    CHECK(windows.beside());
    CHECK_FALSE(windows.stacked());
    WindowPair::dragTo(310, 225);
    CHECK(windows.list() == Point{300, 218});
    CHECK(windows.stacked());
    CHECK_FALSE(windows.beside());
}

TEST_CASE("a playlist slides along the main window and lines up within 14 pixels") {
    WindowPair windows({300, 300}, {300, 382});
    windows.takeList();
    WindowPair::dragTo(360, 382);
    CHECK(windows.list() == Point{360, 382});
    CHECK(windows.stacked());
    WindowPair::dragTo(315, 382);
    CHECK(windows.list() == Point{315, 382});
    WindowPair::dragTo(314, 382);
    CHECK(windows.list() == Point{300, 382});
    WindowPair::dragTo(576, 390);
    CHECK(windows.list() == Point{576, 382});
    CHECK(windows.stacked());
    WindowPair::dragTo(577, 390);
    CHECK(windows.list() == Point{577, 390});
    CHECK(windows.free());
}

TEST_CASE("a playlist slides up and down the main window's side and lines up within 14 pixels") {
    WindowPair windows({300, 300}, {576, 300});
    windows.takeList();
    struct Row {
        int y;
        int taken;
    };
    for (const Row& row : {Row{340, 340}, Row{315, 315}, Row{314, 300}, Row{301, 300},
                           Row{286, 300}, Row{285, 285}, Row{250, 250}}) {
        CAPTURE(row.y);
        WindowPair::dragTo(580, row.y);
        CHECK(windows.list() == Point{576, row.taken});
        CHECK(windows.beside());
        CHECK_FALSE(windows.stacked());
    }
    simulated::release();
}

TEST_CASE("dragging the playlist never moves the main window") {
    WindowPair windows({300, 300}, {300, 382});
    windows.takeList();
    for (int step = 0; step < 300; step += 9) {
        WindowPair::dragTo(300 + step, 382 - step);
        CHECK(windows.main() == Point{300, 300});
    }
}

TEST_CASE("a click on the playlist without a move keeps it docked") {
    WindowPair windows({300, 300}, {300, 382});
    windows.takeList();
    simulated::release();
    CHECK(windows.stacked());
}

TEST_CASE("the playlist docks to a main window that is hidden") {
    WindowPair windows({300, 300}, {600, 600});
    windows.player.click(windows.player.frmPlayer().pctminimise);
    REQUIRE_FALSE(simulated::window(windows.player.mainWindow()).visible);
    windows.dragList(310, 390);
    CHECK(windows.list() == Point{300, 382});
    CHECK(windows.stacked());
}

TEST_CASE("a pair stays docked while the main window is away") {
    WindowPair windows({300, 300}, {300, 382});
    windows.player.click(windows.player.frmPlayer().pctminimise);
    CHECK(windows.isOpen());
    CHECK(windows.stacked());
    world.tray.doubleClick();
    CHECK(windows.main() == Point{300, 300});
    windows.dragMain(400, 400);
    CHECK(windows.list() == Point{400, 482});
}

TEST_CASE("a main window that comes back stands alone where it stood") {
    WindowPair windows({300, 300}, {300, 382});
    windows.player.click(windows.player.frmPlayer().pctminimise);
    windows.dragList(600, 600);
    world.tray.doubleClick();
    CHECK(windows.main() == Point{300, 300});
    CHECK(windows.list() == Point{600, 600});
    CHECK(windows.free());
}

TEST_CASE("a stale dock is repeated by a click on the main window") {
    WindowPair windows({600, 100}, {100, 300});
    windows.dragMain(150, 204);
    CHECK(windows.stacked());
    windows.dragList(600, 600);
    CHECK(windows.free());
    windows.takeMain();
    simulated::release();
    CHECK(windows.stacked());
    CHECK(windows.list() == Point{600, 600});
    windows.dragMain(160, 228);
    CHECK(windows.main() == Point{160, 228});
    CHECK(windows.list() == Point{610, 610});
}

TEST_CASE("moves without a button leave a stale dock to the click behind them") {
    WindowPair windows({600, 100}, {100, 300});
    windows.dragMain(150, 204);
    windows.dragList(600, 600);
    CHECK(windows.free());
    for (int pixels = 0; pixels < 5; ++pixels)
        simulated::moveTo(windows.player.mainWindow(), WindowPair::gripX + pixels,
                          WindowPair::gripY);
    windows.takeMain();
    simulated::release();
    CHECK(windows.stacked());
}

TEST_CASE("a stale dock can leave both flags set") {
    WindowPair windows({600, 100}, {100, 300});
    windows.dragMain(150, 204);
    windows.dragList(430, 225);
    CHECK(windows.beside());
    windows.takeMain();
    simulated::release();
    CHECK(windows.beside());
    CHECK(windows.stacked());
}

TEST_CASE("the next move of the main window forgets a stale dock") {
    WindowPair windows({600, 100}, {100, 300});
    windows.dragMain(150, 204);
    windows.dragList(600, 600);
    windows.dragMain(170, 250);
    CHECK(windows.free());
    windows.takeMain();
    simulated::release();
    CHECK(windows.free());
}
