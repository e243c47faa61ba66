#include "platform/device_pixels.h"
#include "platform/text.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

using namespace platform;

namespace {

constexpr Pixel back = 0xFF000000U;
constexpr Pixel yellow = 0xFFFFFF00U;

/// The smallest rectangle that holds every pixel that isn't background; empty if there is none.
Rect inked(const Picture& picture) {
    Rect box{picture.width, picture.height, 0, 0};
    for (std::int32_t y = 0; y < picture.height; ++y)
        for (std::int32_t x = 0; x < picture.width; ++x)
            if (picture.row(y)[x] != back)
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                       std::max(box.bottom, y + 1)};
    return box;
}

bool empty(const Rect& box) { return box.left >= box.right; }

} // namespace

TEST_CASE("a longer text is wider, and a face has one height") {
    const Font font;
    CHECK(measureText(font, "").width == 0);
    CHECK(measureText(font, "Unset").width > measureText(font, "Set").width);
    CHECK(measureText(font, "").height == measureText(font, "Minute").height);
    CHECK(measureText(font, "Minute").height > 0);
}

TEST_CASE("a larger font measures larger") {
    const Size small = measureText({"MS Sans Serif", 8.25, false, false}, "Timer Off");
    const Size large = measureText({"MS Sans Serif", 12, false, false}, "Timer Off");
    CHECK(large.width > small.width);
    CHECK(large.height > small.height);
}

TEST_CASE("a text is drawn below and to the right of its origin, within its measures") {
    Picture picture(120, 60, back);
    const Font font;
    const Size size = measureText(font, "HEX");
    drawText(picture, {0, 0, 120, 60}, {20, 10}, font, yellow, "HEX");
    const Rect box = inked(picture);
    REQUIRE_FALSE(empty(box));
    CHECK(box.left >= 19);
    CHECK(box.top >= 10);
    CHECK(box.right <= 20 + size.width + 1);
    CHECK(box.bottom <= 10 + size.height);
}

TEST_CASE("a text is drawn only inside its clip and its picture") {
    Picture picture(40, 20, back);
    drawText(picture, {5, 4, 15, 9}, {-3, -2}, {"MS Sans Serif", 24, true, false}, yellow, "MMMM");
    const Rect box = inked(picture);
    REQUIRE_FALSE(empty(box));
    CHECK(box.left >= 5);
    CHECK(box.top >= 4);
    CHECK(box.right <= 15);
    CHECK(box.bottom <= 9);
    drawText(picture, {-50, -50, 500, 500}, {-30, -2}, Font(), yellow, "Much longer than that");
}

TEST_CASE("a clip without a pixel shows nothing") {
    Picture picture(40, 20, back);
    drawText(picture, {5, 5, 5, 15}, {0, 0}, Font(), yellow, "MMMM");
    drawText(picture, {100, 100, 120, 120}, {0, 0}, Font(), yellow, "MMMM");
    CHECK(empty(inked(picture)));
}

TEST_CASE("text leaves an opaque picture opaque, in shades of its own colour") {
    Picture picture(80, 20, back);
    drawText(picture, {0, 0, 80, 20}, {2, 2}, Font(), yellow, "Shuffle");
    for (const Pixel pixel : picture.pixels) {
        REQUIRE((pixel >> 24U) == 0xFFU);
        REQUIRE((pixel & 0xFFU) == 0);
        const Pixel red = pixel >> 16U & 0xFFU;
        const Pixel green = pixel >> 8U & 0xFFU;
        REQUIRE(red == green);
    }
}

TEST_CASE("a text of a larger scale measures the same, and takes as many times the room") {
    for (const char* const face : {"MS Sans Serif", "Terminal", "Tahoma"})
        for (const double scale : {1.25, 1.5, 2.0, 3.0}) {
            CAPTURE(std::string(face));
            CAPTURE(scale);
            const Font font{face, 9, false, false};
            Font scaled = font;
            scaled.scale = scale;
            const Size size = measureText(font, "Hit the Hood");
            CHECK(measureText(scaled, "Hit the Hood") == size);
            Picture usual(200, 40, back);
            drawText(usual, {0, 0, 200, 40}, {10, 5}, font, yellow, "Hit the Hood");
            Picture larger(600, 120, back);
            const Point origin{deviceEdge(10, scale), deviceEdge(5, scale)};
            drawText(larger, {0, 0, 600, 120}, origin, scaled, yellow, "Hit the Hood");
            const Rect box = inked(usual);
            const Rect large = inked(larger);
            REQUIRE_FALSE(empty(box));
            REQUIRE_FALSE(empty(large));
            // Letters are drawn anew, and may end up to a pixel of the text's sooner or later.
            const double tolerance = 1.5 * scale;
            CHECK(std::abs(large.left - box.left * scale) <= tolerance);
            CHECK(std::abs(large.right - box.right * scale) <= tolerance);
            CHECK(std::abs(large.bottom - box.bottom * scale) <= tolerance);
            // Where a face of outlines stands in for one of bitmaps, its capitals may be lower.
            CHECK(std::abs(large.top - box.top * scale) <= 2 * scale);
        }
}

TEST_CASE("bytes that are no UTF-8 take the room of replacement characters") {
    const Font font;
    CHECK(measureText(font, "a\xFFz").width == measureText(font, "a\xEF\xBF\xBDz").width);
}
