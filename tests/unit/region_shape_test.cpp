#include "platform/device_pixels.h"
#include "platform/region_shape.h"

#include <doctest/doctest.h>

#include <cstdint>

using platform::Point;
using platform::RegionRows;
using platform::RegionShape;
using platform::rowsOf;

namespace {

const double scales[] = {1, 1.25, 1.5, 1.75, 2, 2.5, 3};

// Both windows' shapes: round above and straight below, and the other way round.
const RegionShape upperRound{{{0, 15, 276, 82}, false, {}}, {{0, 0, 277, 83}, true, {15, 15}}};
const RegionShape lowerRound{{{0, 0, 276, 67}, false, {}}, {{0, 0, 277, 83}, true, {15, 15}}};

/// The shape's first and last column in a row.
struct Ends {
    std::int32_t first = -1;
    std::int32_t last = -1;
};

Ends endsOf(const RegionRows& rows, std::int32_t y) {
    Ends ends;
    for (std::int32_t x = 0; x < 1200; ++x)
        if (rows.contains({x, y})) {
            if (ends.first < 0) ends.first = x;
            ends.last = x;
        }
    return ends;
}

std::int32_t heightOf(const RegionRows& rows) { return rows.rectangles.back().bottom; }

} // namespace

TEST_CASE("at the usual scale a shape is what its calls make, wherever its window stands") {
    const RegionRows expected =
        platform::unionRows(platform::rectangleRows({0, 15, 276, 82}),
                            platform::roundRectangleRows({0, 0, 277, 83}, {15, 15}));
    for (const std::int32_t y : {-7, 0, 3, 100})
        CHECK(rowsOf(upperRound, 1, {y, y}) == expected);
}

TEST_CASE("at a whole scale a shape has the arc of a larger ellipse, not steps of several pixels") {
    const RegionRows twice = rowsOf(upperRound, 2);
    CHECK(twice == platform::unionRows(platform::rectangleRows({0, 30, 552, 164}),
                                       platform::roundRectangleRows({0, 0, 553, 165}, {30, 30})));
    // The arc's last step inwards is a single pixel on each side.
    bool odd = false;
    for (std::int32_t y = 0; y < 30; ++y)
        odd = odd || endsOf(twice, y).first % 2 == 1;
    CHECK(odd);
}

TEST_CASE("a shape is as wide and as high as its window is on the display, at every scale") {
    for (const double scale : scales)
        for (std::int32_t at = -5; at < 5; ++at) {
            CAPTURE(scale);
            CAPTURE(at);
            const RegionRows rows = rowsOf(upperRound, scale, {at, at});
            using platform::deviceEdge;
            CHECK(heightOf(rows) == deviceEdge(at + 82, scale) - deviceEdge(at, scale));
            const std::int32_t width = deviceEdge(at + 276, scale) - deviceEdge(at, scale);
            CHECK(endsOf(rows, heightOf(rows) - 1).first == 0);
            CHECK(endsOf(rows, heightOf(rows) - 1).last == width - 1);
        }
}

TEST_CASE("two docked windows make one slab without a gap, an overlap or a step, at every scale") {
    for (const double scale : scales)
        for (std::int32_t y = -90; y < 90; ++y) {
            CAPTURE(scale);
            CAPTURE(y);
            const Point upper{33, y};
            const Point lower{33, y + 82};
            const RegionRows above = rowsOf(upperRound, scale, upper);
            const RegionRows below = rowsOf(lowerRound, scale, lower);
            const std::int32_t seam = platform::deviceEdge(y, scale) + heightOf(above);
            CHECK(seam == platform::deviceEdge(y + 82, scale));
            CHECK(endsOf(above, heightOf(above) - 1).first == endsOf(below, 0).first);
            CHECK(endsOf(above, heightOf(above) - 1).last == endsOf(below, 0).last);
        }
}

TEST_CASE("a shape without a pixel has none at any scale") {
    const RegionShape nothing{{{5, 5, 5, 9}, false, {}}, {{5, 5, 5, 9}, true, {3, 3}}};
    for (const double scale : scales)
        CHECK(rowsOf(nothing, scale).empty());
    CHECK(rowsOf(RegionShape{}, 4).empty());
}
