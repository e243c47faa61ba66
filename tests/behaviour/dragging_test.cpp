#include "movement/form_places.h"
#include "tests/behaviour/strip_rows.h"
#include "tests/behaviour/window_pair.h"

#include <algorithm>
#include <vector>

using behaviour::Player;
using behaviour::Point;
using behaviour::WindowPair;
using simulated::PointerButton;
using simulated::world;
namespace strip = behaviour::strip;

namespace {

/// A main window alone, the playlist closed.
struct MainWindow : WindowPair {
    explicit MainWindow(Point place, platform::Rect workArea = {0, 0, 1024, 768})
        : WindowPair(place, {5000, 5000}, workArea) {
        closeByKey();
    }
};

/// A bare row of the main window, below its keys.
constexpr int bareRow = 70;

/// A bare column of both windows in this row; the corners are round.
int bareColumn(int row) { return row == 0 || row > 75 ? 30 : 4; }

/// Presses this bare place of the main window, in its pixels, and pulls by 50, 50.
bool placeDrags(MainWindow& window, int column, int row) {
    const Point before = window.main();
    simulated::pressAt(window.player.mainWindow(), column, row);
    simulated::moveToScreen(before.x + column + 50, before.y + row + 50);
    simulated::release();
    const bool dragged = window.main() == Point{before.x + 50, before.y + 50};
    CHECK((dragged || window.main() == before));
    return dragged;
}

/// The same at a bare place in this pixel row.
bool rowDrags(MainWindow& window, int row) { return placeDrags(window, bareColumn(row), row); }

} // namespace

TEST_CASE("the rows of the seek bar don't drag the window, all others do") {
    MainWindow window({300, 300});
    for (const int row : {0, strip::RowAbove, strip::RowBelow, 81}) {
        CAPTURE(row);
        CHECK(rowDrags(window, row));
    }
    for (const int row :
         {strip::FirstRow, strip::FirstRow + 1, strip::LastRow - 1, strip::LastRow}) {
        CAPTURE(row);
        CHECK_FALSE(rowDrags(window, row));
    }
}

TEST_CASE("the rows of the seek bar don't drag while something plays either") {
    MainWindow window({300, 300});
    window.player.addTracks({"C:\\Music\\a.mp3"});
    window.player.list().ListIndex(0);
    window.player.frmPlayer().startfile();
    CHECK(rowDrags(window, strip::RowAbove));
    CHECK_FALSE(rowDrags(window, strip::FirstRow));
    CHECK_FALSE(rowDrags(window, strip::LastRow));
    CHECK(rowDrags(window, strip::RowBelow));
}

TEST_CASE("the rows of the seek bar don't drag anywhere in them, playing, paused or stopped") {
    using Keys = std::vector<toolkit::Image FrmPlayer::*>;
    using W = FrmPlayer;
    for (const Keys& keys : {Keys{}, Keys{&W::pctPlay}, Keys{&W::pctPlay, &W::pctpause},
                             Keys{&W::pctPlay, &W::pctstop}})
        for (const int column : {4, 120, 215})
            for (const int row :
                 {strip::RowAbove, strip::FirstRow, strip::LastRow, strip::RowBelow}) {
                CAPTURE(keys.size());
                CAPTURE(column);
                CAPTURE(row);
                MainWindow window({300, 300});
                window.player.addTracks({"C:\\Music\\a.mp3"});
                window.player.list().ListIndex(0);
                for (toolkit::Image FrmPlayer::*key : keys)
                    window.player.click(window.player.frmPlayer().*key);
                CHECK(placeDrags(window, column, row) ==
                      (row == strip::RowAbove || row == strip::RowBelow));
            }
}

TEST_CASE("every button drags") {
    MainWindow window({300, 300});
    for (const auto button : {PointerButton::Left, PointerButton::Right, PointerButton::Middle}) {
        const Point before = window.main();
        window.takeMain(button);
        window.dragBy(7, -9);
        simulated::release(button);
        CHECK(window.main() == Point{before.x + 7, before.y - 9});
    }
}

TEST_CASE("a press on a key or a label drags nothing") {
    MainWindow window({300, 300});
    FrmPlayer& form = window.player.frmPlayer();
    const toolkit::Control* const controls[] = {&form.lblTimenow, &form.pctPlay, &form.lblshowtime};
    for (const toolkit::Control* control : controls) {
        CAPTURE(control->name());
        window.player.press(*control);
        simulated::moveToScreen(700, 500);
        simulated::release();
        CHECK(window.main() == Point{300, 300});
    }
}

TEST_CASE("the window follows the pointer to the pixel and stands where it is let go") {
    MainWindow window({300, 300});
    window.takeMain();
    for (const Point place : {Point{301, 300}, Point{640, 512}, Point{33, 44}, Point{1000, -60}}) {
        MainWindow::dragTo(place.x, place.y);
        CHECK(window.main() == place);
    }
    simulated::release();
    CHECK(window.main() == Point{1000, -60});
    CHECK(window.player.frmPlayer().window.Left() == 15000);
    CHECK(window.player.frmPlayer().window.Top() == -900);
}

TEST_CASE("a window dragged to 19 pixels from the edge snaps and at 20 it doesn't") {
    MainWindow window({300, 300});
    window.takeMain();
    struct Row {
        int x;
        int taken;
    };
    for (const Row& row : {Row{20, 20}, Row{19, 0}, Row{-19, 0}, Row{-20, -20}, Row{728, 728},
                           Row{729, 748}, Row{767, 748}, Row{768, 768}}) {
        CAPTURE(row.x);
        MainWindow::dragTo(row.x, 300);
        CHECK(window.main() == Point{row.taken, 300});
    }
}

TEST_CASE("top and bottom snap like the sides, and a corner takes both") {
    MainWindow window({300, 300});
    window.takeMain();
    struct Row {
        int y;
        int taken;
    };
    for (const Row& row : {Row{20, 20}, Row{19, 0}, Row{-19, 0}, Row{-20, -20}, Row{666, 666},
                           Row{667, 686}, Row{705, 686}, Row{706, 706}}) {
        CAPTURE(row.y);
        MainWindow::dragTo(300, row.y);
        CHECK(window.main() == Point{300, row.taken});
    }
    MainWindow::dragTo(15, 700);
    CHECK(window.main() == Point{0, 686});
}

TEST_CASE("with a panel on the left the window lands under the panel") {
    MainWindow window({300, 300}, {60, 0, 1024, 768});
    window.takeMain();
    MainWindow::dragTo(50, 300);
    CHECK(window.main() == Point{0, 300});
    MainWindow::dragTo(5, 300);
    CHECK(window.main() == Point{5, 300});
}

TEST_CASE("a snapped window is back under the pointer once the pointer has gone far enough") {
    MainWindow window({300, 300});
    window.takeMain();
    for (int x = 40; x >= -40; --x) {
        MainWindow::dragTo(x, 300);
        const bool near = x > -20 && x < 20;
        CHECK(window.main() == Point{near ? 0 : x, 300});
    }
}

TEST_CASE("a work area on a screen to the left pulls at its own right edge") {
    MainWindow window({-700, -500}, {-1280, -1024, 0, 0});
    window.takeMain();
    MainWindow::dragTo(-285, -500);
    CHECK(window.main() == Point{-276, -500});
    MainWindow::dragTo(-1290, -500);
    CHECK(window.main() == Point{0, -500});
    MainWindow::dragTo(-600, -90);
    CHECK(window.main() == Point{-600, -82});
}

TEST_CASE("a work area that changes during the run is not noticed") {
    MainWindow window({300, 300});
    world.desktop.workArea = {200, 200, 600, 600};
    window.takeMain();
    MainWindow::dragTo(200, 300);
    CHECK(window.main() == Point{200, 300});
    MainWindow::dragTo(10, 300);
    CHECK(window.main() == Point{0, 300});
}

TEST_CASE("a pointer that crosses the window without a button changes nothing") {
    MainWindow window({300, 300});
    window.dragMain(310, 310);
    const Point asked = window.player.program().dragCursorNow;
    simulated::moveTo(window.player.mainWindow(), WindowPair::gripX - 50, bareRow);
    simulated::moveTo(window.player.mainWindow(), WindowPair::gripX + 50, WindowPair::gripY);
    CHECK(window.main() == Point{310, 310});
    CHECK(window.player.program().dragCursorNow == asked);
}

TEST_CASE("after the release the pointer goes its own way") {
    MainWindow window({300, 300});
    window.dragMain(320, 330);
    simulated::moveToScreen(600, 600);
    CHECK(window.main() == Point{320, 330});
}

TEST_CASE("moves that arrive while another one is handled end where the pointer last was") {
    MainWindow window({300, 300});
    window.takeMain();
    simulated::post([] { MainWindow::dragTo(400, 400); });
    simulated::post([] { MainWindow::dragTo(450, 470); });
    MainWindow::dragTo(350, 350);
    CHECK(window.main() == Point{450, 470});
    MainWindow::dragTo(500, 500);
    CHECK(window.main() == Point{500, 500});
}

TEST_CASE("what waits in a drag runs once the window has moved") {
    MainWindow window({300, 300});
    window.takeMain();
    Point seen;
    simulated::post([&] { seen = window.main(); });
    MainWindow::dragTo(350, 360);
    CHECK(seen == Point{350, 360});
    simulated::release();
}

TEST_CASE("a pointer that never rests drags to where it ends") {
    MainWindow window({300, 300});
    window.takeMain();
    constexpr int moves = 20'000;
    for (int n = 1; n <= moves; ++n)
        simulated::post([n] { MainWindow::dragTo(40 + n % 600, 40 + n % 400); });
    MainWindow::dragTo(350, 350);
    CHECK(window.main() == Point{40 + moves % 600, 40 + moves % 400});
    simulated::release();
    CHECK_FALSE(window.player.frmPlayer().mouseHeld);
}

TEST_CASE("a release that arrives while a move is handled ends the drag") {
    MainWindow window({300, 300});
    window.takeMain();
    simulated::post([] { simulated::release(); });
    MainWindow::dragTo(350, 350);
    CHECK(window.main() == Point{350, 350});
    simulated::moveToScreen(600, 600);
    CHECK(window.main() == Point{350, 350});
}

TEST_CASE("a drag whose release is taken away lets the window go at the pointer's next move") {
    WindowPair windows({100, 100}, {600, 500});
    windows.takeMain();
    WindowPair::dragTo(150, 120);
    simulated::loseReleases();
    CHECK(windows.player.frmPlayer().mouseHeld);
    WindowPair::dragTo(160, 125);
    CHECK_FALSE(windows.player.frmPlayer().mouseHeld);
    WindowPair::dragTo(170, 130);
    CHECK(windows.main() == Point{150, 120});
    windows.takeList();
    simulated::loseReleases();
    WindowPair::dragTo(610, 505);
    CHECK(windows.list() == Point{600, 500});
    CHECK_FALSE(windows.player.frmPlaylist().playlistDragging);
}

TEST_CASE("the clock goes on during a drag") {
    MainWindow window({300, 300});
    window.player.addTracks({"C:\\Music\\a.mp3"});
    window.player.list().ListIndex(0);
    window.player.frmPlayer().startfile();
    window.takeMain();
    simulated::advance(966);
    CHECK(window.player.frmPlaylist().lblPlaying.Caption() == "Playing");
    MainWindow::dragTo(350, 350);
    CHECK(window.main() == Point{350, 350});
}

TEST_CASE("a second button pressed during a drag takes the window anew and its release ends it") {
    MainWindow window({300, 300});
    window.takeMain();
    MainWindow::dragTo(400, 400);
    simulated::pressAt(window.player.mainWindow(), WindowPair::gripX, WindowPair::gripY,
                       PointerButton::Right);
    MainWindow::dragTo(420, 410);
    CHECK(window.main() == Point{420, 410});
    simulated::release(PointerButton::Left);
    MainWindow::dragTo(500, 500);
    CHECK(window.main() == Point{420, 410});
    simulated::release(PointerButton::Right);
}

TEST_CASE("a window saved between two pixels drags from the nearest one") {
    MainWindow window({300, 300});
    window.player.frmPlayer().window.Left(4507);
    window.player.frmPlayer().window.Top(4508);
    window.takeMain();
    MainWindow::dragTo(310, 311);
    CHECK(window.main() == Point{310, 311});
}

TEST_CASE("a drag keeps the window's size") {
    MainWindow window({300, 300});
    window.dragMain(10, 690);
    CHECK(simulated::window(window.player.mainWindow()).size == platform::Size{276, 82});
}

TEST_CASE("a closed playlist stays where it is, whatever its flags say, and pulls nothing") {
    MainWindow window({300, 300});
    window.player.frmPlaylist().window.Left(15 * 300);
    window.player.frmPlaylist().window.Top(15 * 500);
    window.player.frmPlaylist().playlistdockX = true;
    window.takeMain();
    MainWindow::dragTo(310, 410);
    CHECK(window.main() == Point{310, 410});
    CHECK(window.list() == Point{300, 500});
    simulated::release();
    window.player.frmPlaylist().playlistdockX = false;
    window.dragMain(310, 411);
    CHECK(window.free());
}

TEST_CASE("beside and below a closed playlist a drag sets no dock and moves one window only") {
    for (const bool below : {true, false})
        for (const bool beside : {true, false})
            for (const Point list : {Point{300, 500}, Point{580, 300}}) {
                CAPTURE(below);
                CAPTURE(beside);
                MainWindow window({300, 200});
                FrmPlaylist& playlist = window.player.frmPlaylist();
                playlist.window.Left(static_cast<float>(15 * list.x));
                playlist.window.Top(static_cast<float>(15 * list.y));
                playlist.playlistdockX = below;
                playlist.playlistdockY = beside;
                window.takeMain();
                // Each is within a dock's reach of one of the two places.
                for (const Point near : {Point{310, 410}, Point{295, 310}}) {
                    MainWindow::dragTo(near.x, near.y);
                    CHECK(window.main() == near);
                    CHECK(window.list() == list);
                    CHECK_FALSE(window.player.frmPlayer().pendingDockX);
                    CHECK_FALSE(window.player.frmPlayer().pendingDockY);
                }
                simulated::release();
                CHECK(window.stacked() == below);
                CHECK(window.beside() == beside);
            }
}

TEST_CASE("the playlist's own drag snaps like the main window's") {
    WindowPair windows({600, 400}, {300, 100});
    windows.takeList();
    struct Row {
        Point wanted;
        Point taken;
    };
    for (const Row& row :
         {Row{{20, 100}, {20, 100}}, Row{{19, 100}, {0, 100}}, Row{{-19, 100}, {0, 100}},
          Row{{-20, 100}, {-20, 100}}, Row{{729, 100}, {748, 100}}, Row{{728, 100}, {728, 100}},
          Row{{300, 19}, {300, 0}}, Row{{300, 20}, {300, 20}}, Row{{200, 667}, {200, 686}},
          Row{{200, 666}, {200, 666}}}) {
        WindowPair::dragTo(row.wanted.x, row.wanted.y);
        CHECK(windows.list() == row.taken);
    }
}

TEST_CASE("the playlist drags by any bare row and with any button") {
    WindowPair windows({600, 600}, {300, 100});
    int x = 300;
    for (const int row : {0, 20, 34, 40, 68, 81}) {
        for (const auto button : {PointerButton::Left, PointerButton::Right}) {
            CAPTURE(row);
            simulated::pressAt(windows.player.playlistWindow(), bareColumn(row), row, button);
            simulated::moveToScreen(x + 3 + bareColumn(row), 100 + row);
            simulated::release(button);
            x += 3;
            CHECK(windows.list() == Point{x, 100});
        }
    }
}

TEST_CASE("a pointer that crosses the playlist without a button changes nothing") {
    WindowPair windows({600, 600}, {300, 100});
    windows.player.frmPlaylist().playlistdockX = true;
    simulated::moveTo(windows.player.playlistWindow(), WindowPair::gripX, WindowPair::gripY);
    simulated::moveTo(windows.player.playlistWindow(), WindowPair::gripX + 20, WindowPair::gripY);
    CHECK(windows.list() == Point{300, 100});
    CHECK(windows.stacked());
}

TEST_CASE("moves without a button don't ask where the pointer is") {
    WindowPair windows({600, 600}, {300, 100});
    ModMain& program = windows.player.program();
    program.dragCursorStart = program.dragCursorNow = {-7, -7};
    simulated::clearLog();
    for (const platform::WindowHandle window :
         {windows.player.mainWindow(), windows.player.playlistWindow()}) {
        const int asked = world.desktop.cursorsAsked;
        simulated::moveTo(window, WindowPair::gripX, WindowPair::gripY);
        simulated::moveTo(window, WindowPair::gripX + 20, WindowPair::gripY);
        CHECK(world.desktop.cursorsAsked == asked);
    }
    CHECK(simulated::log().empty());
    CHECK(program.dragCursorStart == Point{-7, -7});
    CHECK(program.dragCursorNow == Point{-7, -7});
}

TEST_CASE("moves of the playlist that arrive while another one is handled end where the last was") {
    WindowPair windows({600, 600}, {300, 100});
    windows.takeList();
    simulated::post([] { WindowPair::dragTo(100, 200); });
    simulated::post([] { WindowPair::dragTo(150, 270); });
    WindowPair::dragTo(350, 150);
    CHECK(windows.list() == Point{150, 270});
    simulated::release();
}

TEST_CASE("moves that arrive while others are handled nest sixteen deep and no deeper") {
    MainWindow window({300, 300});
    window.takeMain();
    int depth = 0;
    int deepest = 0;
    for (int n = 1; n <= 100; ++n)
        simulated::post([&, n] {
            deepest = std::max(deepest, ++depth);
            MainWindow::dragTo(40 + n, 40 + n);
            --depth;
        });
    MainWindow::dragTo(350, 350);
    CHECK(deepest == 16);
    CHECK(window.main() == Point{140, 140});
    simulated::release();
}

TEST_CASE("each window snaps and moves by its own size") {
    WindowPair windows({300, 300}, {300, 500});
    windows.player.frmPlaylist().window.Width(15 * 200);
    windows.player.frmPlaylist().window.Height(15 * 50);
    windows.dragList(815, 705);
    CHECK(windows.list() == Point{824, 718});
    CHECK(simulated::window(windows.player.playlistWindow()).size == platform::Size{200, 50});
    windows.dragMain(740, 90);
    CHECK(windows.main() == Point{748, 90});
    CHECK(simulated::window(windows.player.mainWindow()).size == platform::Size{276, 82});
}

TEST_CASE("a docked playlist of another size snaps to the edges by its own") {
    WindowPair below({300, 300}, {300, 382});
    below.player.frmPlaylist().window.Width(15 * 200);
    below.dragMain(810, 400);
    CHECK(below.main() == Point{810, 400});
    CHECK(below.list() == Point{824, 482});
    WindowPair beside({300, 300}, {576, 300});
    beside.player.frmPlaylist().window.Height(15 * 50);
    beside.dragMain(300, 707);
    CHECK(beside.main() == Point{300, 707});
    CHECK(beside.list() == Point{576, 718});
}

TEST_CASE("a window that is moved is painted anew") {
    WindowPair windows({300, 300}, {300, 382});
    simulated::advance(1);
    const auto& window = simulated::window(windows.player.mainWindow());
    REQUIRE_FALSE(window.paintWanted);
    places::move(windows.player.frmPlayer().window, {310, 300});
    CHECK(window.paintWanted);
}

TEST_CASE("dragging one window doesn't take up the other one's press") {
    WindowPair windows({600, 600}, {300, 100});
    windows.dragList(310, 120);
    windows.dragMain(500, 500);
    CHECK(windows.list() == Point{310, 120});
    CHECK(windows.main() == Point{500, 500});
}
