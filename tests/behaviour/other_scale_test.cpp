#include "tests/behaviour/player.h"

using behaviour::Player;
using simulated::world;

/// On a screen with another number of twips per pixel the drags still count 15 to a pixel.
namespace {

constexpr platform::Point somewhere{600, 300}; // screen pixels
constexpr platform::Point grip{4, 4};          // a bare place of the main window, its pixels
constexpr int pulled = 20;                     // pixels

struct Pulled {
    float thumb;            ///< how far it goes, twips
    float slider;           ///< the same
    platform::Point window; ///< where it stands then, screen pixels
};

/// Presses a control, moves the pointer by so many pixels, twice as things run one move behind, and
/// lets go.
void pull(Player& player, const toolkit::Control& control) {
    player.press(control);
    const platform::Point cursor = world.desktop.cursor;
    simulated::moveToScreen(cursor.x + pulled, cursor.y);
    simulated::moveToScreen(cursor.x + pulled, cursor.y + 1);
    simulated::moveToScreen(cursor.x + pulled, cursor.y);
}

Pulled pulledAt(float twipsPerPixel) {
    Player player;
    world.desktop.workArea = {0, 0, 5000, 5000};
    world.desktop.twipsPerPixelX = world.desktop.twipsPerPixelY = twipsPerPixel;
    player.play({"C:\\Music\\a.mp3"});
    world.media.reportPosition(100'000);
    FrmPlayer& form = player.frmPlayer();
    form.window.Left(static_cast<float>(somewhere.x) * twipsPerPixel);
    form.window.Top(static_cast<float>(somewhere.y) * twipsPerPixel);

    form.pctprogressbar.Left(1000);
    form.pctprogressbardown.Left(1000);
    pull(player, form.pctprogressbar);
    const float thumb = form.pctprogressbar.Left() - 1000;
    simulated::release();

    form.pctvolume.Left(2500);
    pull(player, form.pctvolume);
    const float slider = form.pctvolume.Left() - 2500;
    simulated::release();

    simulated::pressAt(player.mainWindow(), grip.x, grip.y);
    simulated::moveToScreen(world.desktop.cursor.x + pulled, world.desktop.cursor.y);
    simulated::release();
    return {thumb, slider, simulated::window(player.mainWindow()).position};
}

} // namespace

TEST_CASE("thumb, slider and window take 15 twips for a pixel, whatever the screen counts") {
    for (const int twipsPerPixel : {15, 12}) {
        CAPTURE(twipsPerPixel);
        const Pulled places = pulledAt(static_cast<float>(twipsPerPixel));
        // The thumb's way is reckoned by a time of four decimal places.
        CHECK(places.thumb == doctest::Approx(300).epsilon(0.01));
        CHECK(places.slider == 300);
        // Where the window is taken for standing, and from there.
        CHECK(places.window.x == somewhere.x * twipsPerPixel / 15 + pulled);
        CHECK(places.window.y == somewhere.y * twipsPerPixel / 15);
    }
}

TEST_CASE("the playlist takes 15 twips for a pixel as well, and so do its snap and its dock") {
    // A pixel of 12 twips: 4140 twips are 345 pixels here, and drags take them for 276.
    constexpr float twipsPerPixel = 12;
    Player player;
    world.desktop.workArea = {0, 0, 2000, 1500};
    world.desktop.twipsPerPixelX = world.desktop.twipsPerPixelY = twipsPerPixel;
    player.start();
    toolkit::Form& main = player.frmPlayer().window;
    toolkit::Form& list = player.frmPlaylist().window;
    main.Left(15 * 600);
    main.Top(15 * 600);
    list.Left(15 * 300);
    list.Top(15 * 200);
    player.click(player.frmPlayer().pctplaylist);
    const auto place = [&] { return simulated::window(player.playlistWindow()).position; };
    REQUIRE(place() == platform::Point{375, 250});

    simulated::pressAt(player.playlistWindow(), grip.x, grip.y);
    const platform::Point cursor = world.desktop.cursor;
    const auto moveBy = [&](int x, int y) { simulated::moveToScreen(cursor.x + x, cursor.y + y); };
    moveBy(30, 20);
    CHECK(place() == platform::Point{330, 220});
    CHECK(simulated::window(player.playlistWindow()).size == platform::Size{276, 82});
    moveBy(1410, 20); // 1710 and 276 are 14 short of the right edge
    CHECK(place() == platform::Point{1724, 220});
    // The main window's edge is taken for 600 pixels, the playlist's lower one for 82 further down.
    moveBy(310, 600 - 82 - 10 - 200);
    CHECK(place() == platform::Point{600, 518});
    CHECK(player.frmPlaylist().playlistdockX);
    simulated::release();
}

TEST_CASE("the rows of the seek bar go from 510 to 600 twips on every screen") {
    struct Row {
        float twipsPerPixel;
        int row;
        bool drags;
    };
    for (const Row& row :
         {Row{1, 509, true}, Row{1, 510, false}, Row{1, 600, false}, Row{1, 601, true},
          Row{12, 42, true}, Row{12, 43, false}, Row{12, 50, false}, Row{12, 51, true}}) {
        CAPTURE(row.twipsPerPixel);
        CAPTURE(row.row);
        Player player;
        world.desktop.twipsPerPixelX = world.desktop.twipsPerPixelY = row.twipsPerPixel;
        player.start();
        simulated::pressAt(player.mainWindow(), grip.x, row.row);
        CHECK((player.frmPlayer().mouseHeld != 0) == row.drags);
        simulated::release();
    }
}
