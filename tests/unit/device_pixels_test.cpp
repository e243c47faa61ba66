#include "platform/device_pixels.h"

#include <doctest/doctest.h>

#include <cstdint>
#include <vector>

using namespace platform;

namespace {

constexpr double usualPixels = 96; // an inch

/// Every scale that a desktop can be set to, from 100 to 500 %.
std::vector<double> allScales() {
    std::vector<double> scales;
    for (int pixels = 96; pixels <= 480; ++pixels)
        scales.push_back(pixels / usualPixels);
    return scales;
}

} // namespace

TEST_CASE("at the usual scale a display's pixels are the player's") {
    for (std::int32_t at = -3; at <= 3; ++at) {
        CHECK(deviceEdge(at, 1) == at);
        CHECK(pixelUnder(at, 1) == at);
        CHECK(nearestEdge(at, 1) == at);
    }
    CHECK(deviceRoom({30, 40}, {276, 82}, 1) == Size{276, 82});
    CHECK(nearestEdges({0, 30, 1024, 768}, 1) == Rect{0, 30, 1024, 768});
}

TEST_CASE("each pixel of a display belongs to one of the player's, from its edge to the next") {
    for (const double scale : allScales())
        for (std::int32_t at = -20; at < 20; ++at)
            for (std::int32_t device = deviceEdge(at, scale); device < deviceEdge(at + 1, scale);
                 ++device) {
                CAPTURE(scale);
                REQUIRE(pixelUnder(device, scale) == at);
            }
    CHECK(pixelUnder(Point{3, -1}, 1.5) == Point{2, -1});
    CHECK(pixelUnder(Point{2, -2}, 1.5) == Point{1, -1});
}

TEST_CASE("a place that was given out in a display's pixels is found again, at every scale") {
    for (const double scale : allScales())
        for (std::int32_t at = -2000; at < 2000; at += 7) {
            CAPTURE(scale);
            REQUIRE(nearestEdge(deviceEdge(at, scale), scale) == at);
        }
    CHECK(nearestEdge(Point{150, -75}, 1.5) == Point{100, -50});
}

TEST_CASE("a desktop's area ends at the edges nearest to its own") {
    CHECK(nearestEdges({0, 45, 1024, 768}, 1.5) == Rect{0, 30, 683, 512});
    CHECK(nearestEdges({-1920, 0, 0, 1080}, 1.25) == Rect{-1536, 0, 0, 864});
}

TEST_CASE("a window's room on a display holds it wherever it stands, a pixel to spare at most") {
    for (const double scale : allScales())
        for (std::int32_t at = -90; at < 90; ++at) {
            CAPTURE(scale);
            CAPTURE(at);
            const std::int32_t taken = deviceEdge(at + 82, scale) - deviceEdge(at, scale);
            const std::int32_t room = deviceRoom(at, 82, scale);
            REQUIRE(room >= taken);
            REQUIRE(room <= taken + 1);
            REQUIRE(room >= deviceEdge(82, scale));
            REQUIRE(room <= deviceEdge(82, scale) + 1);
            if (at >= 0) REQUIRE(room == deviceRoom(0, 82, scale)); // no drag changes it
        }
    CHECK(deviceRoom({0, 0}, {276, 82}, 1.75) == Size{483, 144});
    CHECK(deviceRoom({0, 0}, {276, 82}, 110 / usualPixels) == Size{317, 94});
    CHECK(deviceRoom({0, -45}, {276, 82}, 1.5) == Size{414, 124});
}
