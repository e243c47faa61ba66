#include "toolkit/painter.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <vector>

using platform::Picture;
using platform::Pixel;
using platform::Rect;

namespace {

constexpr Pixel ground = 0xFF000000U;
constexpr Pixel opaqueInk = 0xFF80C040U;
constexpr Pixel halfInk = 0x8080C040U;

bool holds(const Rect& area, std::int32_t x, std::int32_t y) {
    return x >= area.left && x < area.right && y >= area.top && y < area.bottom;
}

/// Whether exactly the pixels inside both rectangles were painted.
bool onlyInside(const Picture& picture, const Rect& one, const Rect& other) {
    for (std::int32_t y = 0; y < picture.height; ++y)
        for (std::int32_t x = 0; x < picture.width; ++x)
            if ((picture.row(y)[x] != ground) != (holds(one, x, y) && holds(other, x, y)))
                return false;
    return true;
}

// Inside a picture of 8 x 6 pixels, over each of its edges, and away from it.
const std::vector<Rect> areas = {{2, 1, 5, 4},   {0, 0, 8, 6},  {-3, -2, 2, 2}, {6, 4, 12, 9},
                                 {-2, 2, 10, 3}, {3, -5, 4, 9}, {9, 1, 12, 3},  {-4, 1, 0, 3},
                                 {1, 6, 3, 8},   {1, -3, 3, 0}, {4, 2, 4, 5}};

} // namespace

TEST_CASE(
    "a picture is laid where it is cut to, to the pixel, whether it lets shine through or not") {
    for (const Pixel ink : {opaqueInk, halfInk})
        for (const Rect& place : areas)
            for (const Rect& clip : areas) {
                CAPTURE(ink);
                CAPTURE(place.left);
                CAPTURE(place.top);
                CAPTURE(clip.left);
                CAPTURE(clip.top);
                Picture picture(8, 6, ground);
                const toolkit::Artwork artwork(
                    Picture(place.right - place.left, place.bottom - place.top, ink));
                toolkit::lay({picture}, clip, {place.left, place.top}, artwork);
                CHECK(onlyInside(picture, place, clip));
            }
}

TEST_CASE("a colour fills an area of the picture, to the pixel") {
    for (const Rect& area : areas) {
        CAPTURE(area.left);
        CAPTURE(area.top);
        Picture picture(8, 6, ground);
        toolkit::fill({picture}, area, opaqueInk);
        CHECK(onlyInside(picture, area, {0, 0, 8, 6}));
    }
}

TEST_CASE("what shines through is mixed by the share of each") {
    Picture picture(1, 1, 0xFF0080FFU);
    toolkit::lay({picture}, {0, 0, 1, 1}, {0, 0}, toolkit::Artwork(Picture(1, 1, 0x40FF8000U)));
    CHECK(picture.row(0)[0] == Pixel{0xFF4080BFU});
    toolkit::lay({picture}, {0, 0, 1, 1}, {0, 0}, toolkit::Artwork(Picture(1, 1, 0x00FFFFFFU)));
    CHECK(picture.row(0)[0] == Pixel{0xFF4080BFU});
}
