#include "platform/regions.h"
#include "platform/window.h"
#include "tests/contract/world.h"

#include <cstdint>
#include <doctest/doctest.h>
#include <string>
#include <vector>

using namespace platform;

namespace {

/// Shows the window cut to a region, and its pixels, row by row, as "#" in and "." out.
std::vector<std::string> shapeOf(WindowHandle window, std::int32_t width, std::int32_t height) {
    std::vector<std::string> rows;
    for (std::int32_t y = 0; y < height; ++y) {
        std::string row;
        for (std::int32_t x = 0; x < width; ++x)
            row += contract::inShape(window, x, y) ? '#' : '.';
        rows.push_back(row);
    }
    return rows;
}

} // namespace

TEST_CASE("a rectangle region leaves its right column and bottom row out") {
    const contract::Window window;
    showWindow(window.handle, true);
    CHECK(SetWindowRgn(window.handle, CreateRectRgn(1, 1, 4, 3), -1) != 0);
    CHECK(shapeOf(window.handle, 5, 4) ==
          std::vector<std::string>{".....", ".###.", ".###.", "....."});
}

TEST_CASE("a rounded rectangle ends one pixel before a rectangle of the same numbers") {
    const contract::Window window;
    showWindow(window.handle, true);
    SetWindowRgn(window.handle, CreateRoundRectRgn(0, 0, 41, 31, 15, 15), -1);
    CHECK(contract::inShape(window.handle, 20, 0));
    CHECK(contract::inShape(window.handle, 0, 15));
    CHECK(contract::inShape(window.handle, 39, 15));
    CHECK(contract::inShape(window.handle, 20, 29));
    CHECK_FALSE(contract::inShape(window.handle, 40, 15));
    CHECK_FALSE(contract::inShape(window.handle, 20, 30));
}

TEST_CASE("the corners of a rounded rectangle are cut, all four alike") {
    const contract::Window window;
    showWindow(window.handle, true);
    SetWindowRgn(window.handle, CreateRoundRectRgn(0, 0, 41, 31, 15, 15), -1);
    int cut = 0;
    for (std::int32_t y = 0; y < 8; ++y)
        for (std::int32_t x = 0; x < 8; ++x) {
            const bool inside = contract::inShape(window.handle, x, y);
            if (!inside) ++cut;
            CAPTURE(x);
            CAPTURE(y);
            CHECK(contract::inShape(window.handle, 39 - x, y) == inside);
            CHECK(contract::inShape(window.handle, x, 29 - y) == inside);
            CHECK(contract::inShape(window.handle, 39 - x, 29 - y) == inside);
        }
    CHECK_FALSE(contract::inShape(window.handle, 0, 0));
    CHECK(contract::inShape(window.handle, 7, 7));
    CHECK(cut >= 8);
    CHECK(cut <= 20);
}

TEST_CASE("the union of a block and a rounded shape has two round corners") {
    const contract::Window window;
    showWindow(window.handle, true);
    const RegionHandle block = CreateRectRgn(0, 15, 120, 80);
    const RegionHandle round = CreateRoundRectRgn(0, 0, 121, 81, 15, 15);
    CHECK(CombineRgn(block, round, block, RGN_OR) != 0);
    SetWindowRgn(window.handle, block, -1);
    CHECK_FALSE(contract::inShape(window.handle, 0, 0));
    CHECK_FALSE(contract::inShape(window.handle, 119, 0));
    CHECK(contract::inShape(window.handle, 0, 79));
    CHECK(contract::inShape(window.handle, 119, 79));
    CHECK(contract::inShape(window.handle, 60, 0));
}

TEST_CASE("a union covers separate pieces and nothing between them") {
    const contract::Window window;
    showWindow(window.handle, true);
    const RegionHandle target = CreateRectRgn(0, 0, 0, 0);
    CombineRgn(target, CreateRectRgn(0, 0, 2, 2), CreateRectRgn(3, 1, 5, 3), RGN_OR);
    SetWindowRgn(window.handle, target, -1);
    CHECK(shapeOf(window.handle, 5, 3) == std::vector<std::string>{"##...", "##.##", "...##"});
}

TEST_CASE("a window without a region is whole again") {
    const contract::Window window;
    showWindow(window.handle, true);
    SetWindowRgn(window.handle, CreateRectRgn(1, 1, 4, 3), -1);
    CHECK(SetWindowRgn(window.handle, 0, -1) != 0);
    CHECK(contract::inShape(window.handle, 0, 0));
    CHECK(contract::inShape(window.handle, 119, 79));
}
