#include "platform/region_rows.h"
#include "platform/region_table.h"
#include "platform/regions.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <vector>

using platform::Rect;
using platform::RegionRows;

namespace {

std::vector<std::int32_t> leftEdges(const RegionRows& rows, std::int32_t count) {
    std::vector<std::int32_t> edges;
    for (std::int32_t y = 0; y < count; ++y) {
        std::int32_t x = 0;
        while (x < 1000 && !rows.contains({x, y}))
            ++x;
        edges.push_back(x);
    }
    return edges;
}

/// The pixels of a shape that is handed out.
RegionRows taken(platform::RegionTable& table, platform::RegionHandle region) {
    const auto shape = table.take(region);
    REQUIRE(shape.has_value());
    return platform::rowsOf(*shape);
}

} // namespace

TEST_CASE("a rectangle leaves out its right column and its lowest row") {
    const RegionRows rows = platform::rectangleRows({2, 3, 5, 7});
    CHECK(rows.contains({2, 3}));
    CHECK(rows.contains({4, 6}));
    CHECK_FALSE(rows.contains({5, 6}));
    CHECK_FALSE(rows.contains({4, 7}));
    CHECK_FALSE(rows.contains({1, 3}));
}

TEST_CASE("a rectangle takes its edges in either order") {
    CHECK(platform::rectangleRows({10, 20, 5, 3}) == platform::rectangleRows({5, 3, 10, 20}));
}

TEST_CASE("a rectangle without a pixel is empty") {
    CHECK(platform::rectangleRows({0, 0, 0, 0}).empty());
    CHECK(platform::rectangleRows({4, 0, 4, 9}).empty());
}

TEST_CASE("a round rectangle is one pixel smaller than the plain one of the same numbers") {
    const RegionRows rows = platform::roundRectangleRows({0, 0, 277, 83}, {15, 15});
    CHECK(rows.contains({275, 41}));
    CHECK_FALSE(rows.contains({276, 41}));
    CHECK(rows.contains({138, 81}));
    CHECK_FALSE(rows.contains({138, 82}));
}

TEST_CASE("a round rectangle's corners follow their ellipse") {
    struct Row {
        platform::Size ellipse;
        std::vector<std::int32_t> insets;
    };
    const Row rows[] = {
        {{15, 15}, {5, 3, 2, 1, 1, 0, 0, 0}},
        {{20, 20}, {7, 5, 4, 3, 2, 1, 1, 0, 0, 0}},
        {{3, 3}, {1, 0}},
        {{4, 4}, {1, 0}},
        {{5, 5}, {1, 0}},
        {{6, 6}, {2, 1, 0}},
        {{9, 5}, {2, 1, 0}},
        {{-9, -9}, {3, 1, 1, 0}},
        {{20, 7}, {5, 2, 1, 0}},
        {{7, 20}, {3, 2, 1, 1, 1, 0, 0}},
        {{16, 17}, {5, 4, 3, 2, 1, 1, 0, 0}},
        {{2, 2}, {0, 0}},
        {{1, 1}, {0, 0}},
        {{0, 5}, {0, 0}},
    };
    for (const Row& row : rows) {
        CAPTURE(row.ellipse.width);
        CAPTURE(row.ellipse.height);
        const RegionRows shape = platform::roundRectangleRows({0, 0, 101, 101}, row.ellipse);
        CHECK(leftEdges(shape, static_cast<std::int32_t>(row.insets.size())) == row.insets);
    }
}

TEST_CASE("a round rectangle's four corners mirror each other") {
    for (const platform::Size ellipse : {platform::Size{15, 15}, {16, 9}, {31, 40}}) {
        const RegionRows shape = platform::roundRectangleRows({0, 0, 61, 51}, ellipse);
        for (std::int32_t y = 0; y < 50; ++y)
            for (std::int32_t x = 0; x < 60; ++x) {
                const bool inside = shape.contains({x, y});
                REQUIRE(shape.contains({59 - x, y}) == inside);
                REQUIRE(shape.contains({x, 49 - y}) == inside);
            }
    }
}

TEST_CASE("an ellipse larger than its rectangle is cut down to it") {
    CHECK(platform::roundRectangleRows({0, 0, 41, 31}, {100, 100}) ==
          platform::roundRectangleRows({0, 0, 41, 31}, {40, 30}));
}

TEST_CASE("a round rectangle keeps its form wherever it lies") {
    const RegionRows home = platform::roundRectangleRows({0, 0, 41, 38}, {16, 17});
    const RegionRows away = platform::roundRectangleRows({-10, -20, 31, 18}, {16, 17});
    for (std::int32_t y = -1; y < 40; ++y)
        for (std::int32_t x = -1; x < 43; ++x)
            REQUIRE(home.contains({x, y}) == away.contains({x - 10, y - 20}));
}

TEST_CASE("a round rectangle without a pixel, or beyond all screens, is empty") {
    CHECK(platform::roundRectangleRows({5, 5, 6, 6}, {3, 3}).empty());
    CHECK(platform::roundRectangleRows({5, 5, 5, 5}, {3, 3}).empty());
    CHECK(platform::roundRectangleRows({0, 0, 2147483647, 5}, {3, 3}).empty());
}

TEST_CASE("a union holds the pixels of either shape and no other") {
    const RegionRows round = platform::roundRectangleRows({0, 0, 31, 21}, {15, 15});
    const RegionRows block = platform::rectangleRows({-5, 10, 34, 25});
    const RegionRows both = platform::unionRows(round, block);
    for (std::int32_t y = -2; y < 30; ++y)
        for (std::int32_t x = -8; x < 40; ++x)
            REQUIRE(both.contains({x, y}) == (round.contains({x, y}) || block.contains({x, y})));
}

TEST_CASE("equal unions have equal lists, whatever their parts") {
    const RegionRows parts =
        platform::unionRows(platform::unionRows(platform::rectangleRows({0, 0, 5, 5}),
                                                platform::rectangleRows({5, 0, 9, 5})),
                            platform::rectangleRows({0, 5, 9, 8}));
    CHECK(parts == platform::rectangleRows({0, 0, 9, 8}));
}

TEST_CASE("a union with nothing changes nothing") {
    const RegionRows round = platform::roundRectangleRows({0, 0, 31, 21}, {15, 15});
    CHECK(platform::unionRows(round, {}) == round);
    CHECK(platform::unionRows({}, round) == round);
}

TEST_CASE("the first row of a union may continue the rows above it only as a whole") {
    const RegionRows wide = platform::unionRows(platform::rectangleRows({0, 0, 2, 4}),
                                                platform::rectangleRows({4, 0, 6, 2}));
    const std::vector<Rect> expected = {{0, 0, 2, 2}, {4, 0, 6, 2}, {0, 2, 2, 4}};
    CHECK(wide.rectangles == expected);
}

TEST_CASE("a combination may be stored in one of its operands") {
    platform::RegionTable table;
    const auto lower = table.add({{0, 4, 8, 8}});
    const auto upper = table.add({{0, 0, 8, 4}});
    CHECK(table.combine(lower, upper, lower, platform::RGN_OR) == 2);
    CHECK(taken(table, lower) == platform::rectangleRows({0, 0, 8, 8}));
    CHECK(taken(table, upper) == platform::rectangleRows({0, 0, 8, 4}));
}

TEST_CASE("a combination tells whether its result is empty, one rectangle or more") {
    platform::RegionTable table;
    const auto empty = table.add({});
    const auto block = table.add({{0, 0, 8, 4}});
    const auto apart = table.add({{9, 9, 12, 12}});
    const auto target = table.add({});
    CHECK(table.combine(target, empty, empty, platform::RGN_OR) == 1);
    CHECK(table.combine(target, block, empty, platform::RGN_OR) == 2);
    CHECK(table.combine(target, block, apart, platform::RGN_OR) == 3);
}

TEST_CASE("a combination of handles that aren't known, or in another mode, fails") {
    platform::RegionTable table;
    const auto block = table.add({{0, 0, 8, 4}});
    CHECK(table.combine(99, block, block, platform::RGN_OR) == 0);
    CHECK(table.combine(block, 0, block, platform::RGN_OR) == 0);
    CHECK(table.combine(block, block, 99, platform::RGN_OR) == 0);
    CHECK(table.combine(block, block, block, 77) == 0);
}

TEST_CASE("a region that is handed out is no longer known") {
    platform::RegionTable table;
    const auto block = table.add({{0, 0, 8, 4}});
    CHECK(table.take(block).has_value());
    CHECK_FALSE(table.take(block).has_value());
    CHECK(table.size() == 0);
}
