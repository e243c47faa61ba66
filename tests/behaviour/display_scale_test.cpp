#include "platform/device_pixels.h"
#include "shell/AboutBox.h"
#include "tests/behaviour/player.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

using behaviour::Player;
using simulated::world;
using Drawn = simulated::Text::Drawn;

/// A display may have a fraction or several of its own pixels to one of a window's. Only what is
/// painted gets finer by that.
namespace {

const double scales[] = {1.25, 1.5, 1.75, 2, 2.5, 3, 4};
const std::string aboutTitle = "About Orvan Music Player";

platform::Size sizeOf(const platform::Picture& picture) { return {picture.width, picture.height}; }

/// The texts that a window draws.
std::vector<Drawn> textsOf(platform::WindowHandle window) {
    world.text.drawn.clear();
    simulated::picture(window);
    return world.text.drawn;
}

void playTwo(Player& player) {
    player.play({"C:\\Music\\a long name of a song.mp3", "C:\\Music\\b.mp3"});
    player.click(player.frmPlayer().pctplaylist);
    player.click(player.frmPlayer().pctalarm);
    simulated::advance(966);
}

std::vector<Drawn> textsAt(double scale) {
    Player player;
    world.desktop.scale = scale;
    playTwo(player);
    player.frmPlayer().window.changed();
    std::vector<Drawn> texts = textsOf(player.mainWindow());
    player.frmPlaylist().window.changed();
    for (const Drawn& text : textsOf(player.playlistWindow()))
        texts.push_back(text);
    return texts;
}

/// What a user does with both windows, and all that the player did upon it.
std::vector<std::string> sessionAt(double scale) {
    Player player;
    world.desktop.scale = scale;
    playTwo(player);
    player.click(player.frmPlayer().pctnext);
    simulated::doubleClick(player.playlistWindow(), 100, 24 + 3);
    player.press(player.frmPlayer().pctprogressbar);
    player.moveFrom(player.frmPlayer().pctprogressbar, 50);
    simulated::release();
    simulated::pressAt(player.mainWindow(), 4, 4);
    simulated::moveTo(player.mainWindow(), 4 - 117, 4 + 31);
    simulated::release();
    player.click(player.frmPlayer().pctstop);
    std::vector<std::string> all = simulated::log();
    for (const platform::WindowHandle window : {player.mainWindow(), player.playlistWindow()}) {
        const platform::Point place = simulated::window(window).position;
        all.push_back(std::to_string(place.x) + ' ' + std::to_string(place.y));
    }
    return all;
}

} // namespace

TEST_CASE("both windows paint themselves at the scale of the display") {
    Player player;
    player.start();
    for (const double scale : scales) {
        CAPTURE(scale);
        simulated::changeScale(scale);
        const auto width = platform::deviceEdge(276, scale);
        const auto height = platform::deviceEdge(82, scale);
        CHECK(sizeOf(simulated::picture(player.mainWindow())) == platform::Size{width, height});
        CHECK(sizeOf(simulated::picture(player.playlistWindow())) == platform::Size{width, height});
    }
}

TEST_CASE("a window follows the display's scale while it runs, and back") {
    Player player;
    player.play({"C:\\Music\\a.mp3"});
    const platform::Picture before = simulated::picture(player.mainWindow());
    const int paints = simulated::window(player.mainWindow()).paints;
    simulated::changeScale(2);
    CHECK(simulated::window(player.mainWindow()).paints == paints + 1);
    CHECK(sizeOf(simulated::picture(player.mainWindow())) == platform::Size{552, 164});
    simulated::changeScale(1);
    CHECK(simulated::picture(player.mainWindow()) == before);
}

TEST_CASE("texts keep their places, their cuts and their order at every scale") {
    const std::vector<Drawn> usual = textsAt(1);
    REQUIRE(usual.size() >= 9);
    for (const double scale : scales) {
        CAPTURE(scale);
        const std::vector<Drawn> fine = textsAt(scale);
        REQUIRE(fine.size() == usual.size());
        for (std::size_t i = 0; i < usual.size(); ++i) {
            CAPTURE(usual[i].text);
            CHECK(fine[i].text == usual[i].text);
            CHECK(fine[i].colour == usual[i].colour);
            CHECK(fine[i].font.scale == scale);
            CHECK(fine[i].font.points == usual[i].font.points);
            CHECK(fine[i].clip == platform::deviceRect(usual[i].clip, scale));
            CHECK(fine[i].origin.x == platform::deviceEdge(usual[i].origin.x, scale));
            CHECK(fine[i].origin.y == platform::deviceEdge(usual[i].origin.y, scale));
        }
    }
}

TEST_CASE("presses, drags, snaps and docks are the same at every scale") {
    const std::vector<std::string> usual = sessionAt(1);
    REQUIRE(usual.size() > 20);
    for (const double scale : scales) {
        CAPTURE(scale);
        CHECK(sessionAt(scale) == usual);
    }
}

TEST_CASE("the about box paints itself at the scale of the display, its credits cut by their box") {
    Player player;
    player.start();
    simulated::changeScale(1.5);
    world.menus.choose("About");
    simulated::onModalWindow([] {
        const platform::WindowHandle box = simulated::windowTitled(aboutTitle);
        simulated::advance(5000);
        world.text.drawn.clear();
        simulated::advance(50);
        const std::vector<Drawn> texts = world.text.drawn;
        const platform::Picture picture = simulated::picture(box);
        CHECK(sizeOf(picture) == platform::Size{446, 335});
        REQUIRE_FALSE(texts.empty());
        // The box of the credits lies at 8, 56 and is 281 by 129.
        for (const Drawn& text : texts)
            if (text.font.face == "Tahoma") {
                CHECK(text.font.scale == 1.5);
                CHECK(text.clip.right - text.clip.left == 434 - 12);
            }
        const platform::Pixel outside = picture.row(83)[100];
        const platform::Pixel below = picture.row(278)[100];
        CHECK(outside == picture.row(0)[0]);
        CHECK(below == picture.row(0)[0]);
        CHECK(picture.row(84)[12] != outside);
        CHECK(picture.row(277)[12] != outside);
        simulated::clickButton(box, "&Close");
    });
    world.tray.clickRight();
}

TEST_CASE("docked windows touch on the display wherever they stand") {
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0})
        for (std::int32_t y = -300; y < 300; ++y) {
            const auto main = platform::deviceRect({10, y, 286, y + 82}, scale);
            const auto list = platform::deviceRect({10, y + 82, 286, y + 164}, scale);
            CHECK(main.bottom == list.top);
            CHECK(main.left == list.left);
            CHECK(main.right == list.right);
        }
}
