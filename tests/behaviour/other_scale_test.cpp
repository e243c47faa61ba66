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
