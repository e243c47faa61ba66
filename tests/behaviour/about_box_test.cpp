#include "platform/system.h"
#include "shell/AboutBox.h"
#include "tests/behaviour/player.h"
#include "toolkit/painter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

using behaviour::commandsSent;
using behaviour::Player;
using simulated::world;

namespace {

const std::string title = "About Orvan Music Player";

/// Opens the box from the tray menu; `during` runs while it is open, then it is closed.
void showAbout(Player& player, const std::function<void()>& during = {}) {
    world.menus.choose("About");
    simulated::onModalWindow([&player, during] {
        if (during) during();
        if (player.program().aboutBox().window.loaded())
            simulated::clickButton(simulated::windowTitled(title), "&Close");
    });
    world.tray.clickRight();
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end = 0; end != std::string::npos; start = end + 2) {
        end = text.find("\r\n", start);
        lines.push_back(text.substr(start, end - start));
    }
    return lines;
}

void checkPlace(const toolkit::Control& control, const toolkit::Bounds& bounds) {
    CHECK(control.Left() == bounds.left);
    CHECK(control.Top() == bounds.top);
    CHECK(control.Width() == bounds.width);
    CHECK(control.Height() == bounds.height);
    CHECK(control.Visible());
}

} // namespace

TEST_CASE("the about box is made at its first use and not before") {
    Player player;
    player.start();
    const std::size_t before = world.windows.all.size();
    showAbout(player, [&] { CHECK(world.windows.all.size() == before + 1); });
    CHECK(world.windows.all.size() == before);
}

TEST_CASE("the about box is a titled dialog of 297 by 223 pixels in the middle of the screen") {
    Player player;
    player.start();
    showAbout(player, [&] {
        const auto& window = simulated::window(simulated::windowTitled(title));
        CHECK(window.options.frame == platform::Frame::Dialog);
        CHECK(window.size == platform::Size{297, 223});
        CHECK(player.program().aboutBox().window.Width() == 4455);
        CHECK(player.program().aboutBox().window.Height() == 3345);
        // Its middle, frame included, in halves of a pixel.
        const platform::Size frame = platform::frameSize(platform::Frame::Dialog);
        REQUIRE(frame == platform::Size{6, 20});
        CHECK(std::abs(2 * window.position.x + 297 + frame.width - 1024) <= 2);
        CHECK(std::abs(2 * window.position.y + 223 + frame.height - 768) <= 2);
        CHECK(window.visible);
    });
}

TEST_CASE("the about box has its controls at their places") {
    Player player;
    player.start();
    showAbout(player, [&] {
        AboutBox& box = player.program().aboutBox();
        checkPlace(box.Picture1, {120, 840, 4215, 1935});
        checkPlace(box.Text1, {0, 2000, 4215, 6500});
        checkPlace(box.cmdBack, {1560, 2880, 1335, 375});
        checkPlace(box.Image1, {2040, 120, 480, 480});
        checkPlace(box.Label12, {3120, 120, 1215, 255});
        CHECK(box.Label12.Caption() == "Final Version");
        CHECK(box.cmdBack.Caption() == "&Close");
        CHECK(box.Image1.pictureSize() == platform::Size{32, 32});
        const std::vector<toolkit::Control*> order = {&box.Picture1, &box.cmdBack, &box.Image1,
                                                      &box.Label12};
        CHECK(box.window.controls() == order);
    });
}

TEST_CASE("the credits have their 21 lines") {
    Player player;
    player.start();
    std::vector<std::string> lines;
    showAbout(player, [&] { lines = linesOf(player.program().aboutBox().Text1.Text()); });
    REQUIRE(lines.size() == 21);
    CHECK(lines[0] == "Orvan Music Player 2.0");
    CHECK(lines[2] == std::string(43, '-'));
    CHECK(lines[4] == "Programmer :");
    CHECK(lines[7] == "Designer :");
    CHECK(lines[10] == "Website :");
    CHECK(lines[13] == "Thanks to :");
    CHECK(lines[16] == "License :");
    CHECK(lines[17] == "This program is freeware and freely used for ");
    CHECK(lines[18] == "non commercial purposes.");
    CHECK(lines[19].starts_with('('));
    CHECK(lines[19].ends_with(')'));
    for (const std::size_t empty : {3U, 6U, 9U, 12U, 15U, 20U})
        CHECK(lines[empty].empty());
    for (const std::size_t own : {1U, 5U, 8U, 11U, 14U, 19U})
        CHECK_FALSE(lines[own].empty());
}

TEST_CASE(
    "the credits are bold and blue on white, the version bold and italic, both in their sizes") {
    Player player;
    player.start();
    showAbout(player, [&] {
        simulated::advance(3000);
        world.text.drawn.clear();
        simulated::advance(50); // which paints the box anew
        const platform::Picture box = simulated::picture(simulated::windowTitled(title));
        const auto drawn = [](const std::string& text) {
            const auto& all = world.text.drawn;
            const auto found = std::find_if(all.begin(), all.end(),
                                            [&](const auto& one) { return one.text == text; });
            REQUIRE(found != all.end());
            return *found;
        };
        const auto credits = drawn("Programmer :");
        CHECK(credits.font == platform::Font{"Tahoma", 9, true, false});
        CHECK(credits.colour == 0xFF0000FFU);
        const auto version = drawn("Final Version");
        CHECK(version.font == platform::Font{"MS Sans Serif", 8.25, true, true});
        CHECK(version.colour == toolkit::pixelOf(platform::GetSysColor(platform::COLOR_BTNTEXT)));
        // Beside the letters: the credits' own white, the system's colours everywhere else.
        const platform::Pixel face =
            toolkit::pixelOf(platform::GetSysColor(platform::COLOR_BTNFACE));
        CHECK(box.row(184)[288] == 0xFFFFFFFFU);
        CHECK(box.row(24)[288] == face);
        CHECK(box.row(2)[2] == face);
    });
}

TEST_CASE("the credits' viewport has the system's window colour where they don't lie") {
    Player player;
    player.start();
    showAbout(player, [&] {
        AboutBox& box = player.program().aboutBox();
        REQUIRE(box.Text1.Top() > box.Picture1.Height());
        const platform::Picture shown = simulated::picture(simulated::windowTitled(title));
        const platform::Pixel colour =
            toolkit::pixelOf(platform::GetSysColor(platform::COLOR_WINDOW));
        REQUIRE(colour != toolkit::pixelOf(platform::GetSysColor(platform::COLOR_BTNFACE)));
        for (const int y : {56, 120, 184})
            CHECK(shown.row(y)[150] == colour);
    });
}

TEST_CASE("on a desktop of other colours the about box takes them, the credits keep their own") {
    Player player;
    world.desktop.colours = {0x203040, 0xA0B0C0, 0x405060, 0xD0E0F0};
    player.start();
    showAbout(player, [] {
        const platform::WindowHandle window = simulated::windowTitled(title);
        const platform::Picture shown = simulated::picture(window);
        CHECK(shown.row(2)[2] == 0xFF605040U);
        CHECK(shown.row(24)[288] == 0xFF605040U);
        CHECK(shown.row(120)[150] == 0xFF403020U);
        simulated::advance(3000);
        world.text.drawn.clear();
        simulated::advance(50); // which paints the box anew
        CHECK(simulated::picture(window).row(184)[288] == 0xFFFFFFFFU);
        int versions = 0;
        for (const auto& one : world.text.drawn) {
            const bool version = one.text == "Final Version";
            versions += version ? 1 : 0;
            CHECK(one.colour == (version ? 0xFFF0E0D0U : 0xFF0000FFU));
        }
        CHECK(versions == 1);
        CHECK(world.text.drawn.size() > 1);
    });
}

TEST_CASE("the close button is the platform's own, with a font and a pointer of its own") {
    Player player;
    player.start();
    showAbout(player, [] {
        const auto& buttons = simulated::window(simulated::windowTitled(title)).buttons;
        REQUIRE(buttons.size() == 1);
        const platform::PushButton& button = buttons[0].button;
        CHECK(button.caption == "&Close");
        CHECK(button.area == platform::Rect{104, 192, 193, 217});
        CHECK(button.font == platform::Font{"MS Sans Serif", 8.25, true, false});
        CHECK(button.pointer.picture.width == 32);
        CHECK(button.pointer.picture.height == 32);
        const auto& pixels = button.pointer.picture.pixels;
        CHECK(std::count(pixels.begin(), pixels.end(), 0U) > 0);
        CHECK(std::count(pixels.begin(), pixels.end(), 0U) < 32 * 32);
    });
}

TEST_CASE("the credits move up 20 twips every 50 ms") {
    Player player;
    player.start();
    showAbout(player, [&] {
        AboutBox& box = player.program().aboutBox();
        CHECK(box.Timer1.Interval() == 50);
        simulated::advance(49);
        CHECK(box.Text1.Top() == 2000);
        simulated::advance(1);
        CHECK(box.Text1.Top() == 1980);
        simulated::advance(950);
        CHECK(box.Text1.Top() == 1600);
        simulated::advance(1000);
        CHECK(box.Text1.Top() == 1200);
    });
}

TEST_CASE("the first pass ends after 391 ticks, the later ones after 395") {
    Player player;
    player.start();
    showAbout(player, [&] {
        AboutBox& box = player.program().aboutBox();
        simulated::advance(19500);
        CHECK(box.Text1.Top() == -5800); // not past it yet
        simulated::advance(50);
        CHECK(box.Text1.Top() == 2090);
        simulated::advance(50);
        CHECK(box.Text1.Top() == 2070);
        simulated::advance(19650);
        CHECK(box.Text1.Top() == -5790);
        simulated::advance(50);
        CHECK(box.Text1.Top() == 2090);
        simulated::advance(19750);
        CHECK(box.Text1.Top() == 2090);
    });
}

TEST_CASE("the credits show inside their viewport only") {
    Player player;
    player.start();
    showAbout(player, [&] {
        const platform::WindowHandle window = simulated::windowTitled(title);
        // The credits' white box leaves no trace outside the viewport, wherever it stands.
        const platform::Picture before = simulated::picture(window);
        const platform::Pixel blue = toolkit::pixelOf(toolkit::Blue);
        for (int second = 0; second < 25; ++second) {
            simulated::advance(1000);
            const platform::Picture now = simulated::picture(window);
            int blueInside = 0;
            for (std::int32_t y = 0; y < now.height; ++y)
                for (std::int32_t x = 0; x < now.width; ++x) {
                    const bool inside = x >= 8 && x < 289 && y >= 56 && y < 185;
                    if (inside && now.row(y)[x] == blue) ++blueInside;
                    if (!inside && now.row(y)[x] != before.row(y)[x])
                        FAIL("pixel ", x, ", ", y, " changed");
                }
            // From a fifth of a second on until the last line has left.
            if (second >= 1 && second < 15) CHECK(blueInside > 0);
        }
    });
}

TEST_CASE("opened again the credits start over") {
    Player player;
    player.start();
    showAbout(player, [&] {
        simulated::advance(3000);
        CHECK(player.program().aboutBox().Text1.Top() == 800);
    });
    showAbout(player, [&] {
        CHECK(player.program().aboutBox().Text1.Top() == 2000);
        simulated::advance(50);
        CHECK(player.program().aboutBox().Text1.Top() == 1980);
    });
}

TEST_CASE("the window's own close box closes the about box for good too") {
    Player player;
    player.start();
    showAbout(player, [] {
        simulated::advance(500);
        simulated::closeByUser(simulated::windowTitled(title));
    });
    CHECK_FALSE(player.program().aboutBox().window.loaded());
    CHECK(player.frmPlayer().window.Visible());
    showAbout(player, [&] { CHECK(player.program().aboutBox().Text1.Top() == 2000); });
}

TEST_CASE("the scroll's timer ends with the window") {
    Player player;
    player.start();
    const std::size_t before = world.events.timers.size();
    showAbout(player, [&] { CHECK(world.events.timers.size() == before + 1); });
    CHECK(world.events.timers.size() == before);
}

TEST_CASE("no window but the about box takes input while it is open") {
    Player player;
    player.start();
    player.addTracks({"C:\\a.mp3", "C:\\b.mp3"});
    player.frmPlaylist().window.Show();
    showAbout(player, [&] {
        player.click(player.frmPlayer().lblRepeat);
        player.click(player.list());
    });
    CHECK_FALSE(player.frmPlayer().repeatOn);
    CHECK(player.list().ListIndex() == -1);
    player.click(player.frmPlayer().lblRepeat);
    CHECK(player.frmPlayer().repeatOn);
}

TEST_CASE("the sound and its clock go on while the about box is open") {
    Player player;
    player.play({"C:\\a.mp3"});
    showAbout(player, [&] {
        const std::string before = player.frmPlayer().lblTimenow.Caption();
        simulated::advance(5000);
        CHECK(player.frmPlayer().lblTimenow.Caption() != before);
        CHECK(world.media.playing());
    });
    CHECK(world.media.playing());
}

TEST_CASE("the about box touches neither the device nor the list") {
    Player player;
    player.start();
    player.addTracks({"C:\\a.mp3"});
    commandsSent();
    showAbout(player, [] { simulated::advance(30'000); });
    CHECK(commandsSent().empty());
    CHECK(player.list().ListIndex() == -1);
}

TEST_CASE("the about box shows while the main window is hidden, which stays hidden") {
    Player player;
    player.start();
    player.frmPlayer().window.Hide();
    bool shown = false;
    showAbout(player, [&] { shown = simulated::window(simulated::windowTitled(title)).visible; });
    CHECK(shown);
    CHECK_FALSE(player.frmPlayer().window.Visible());
}

TEST_CASE("about asked for once more while the box is open leaves it as it is") {
    Player player;
    player.start();
    showAbout(player, [&] {
        simulated::advance(1000);
        world.menus.choose("About");
        world.tray.clickRight();
        CHECK(player.program().aboutBox().Text1.Top() == 1600);
        CHECK(player.program().aboutBox().window.Visible());
    });
    CHECK_FALSE(player.program().aboutBox().window.loaded());
}

TEST_CASE("the player can be left while the about box is open") {
    Player player;
    player.start();
    world.menus.choose("About");
    simulated::onModalWindow([] {
        world.menus.choose("Exit");
        world.tray.clickRight();
    });
    CHECK_THROWS_AS(world.tray.clickRight(), simulated::ProcessEnded);
    CHECK(world.files.exists("C:\\Orvan\\MyPlayerSettings.mps"));
}
