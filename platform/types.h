#pragma once

#include <cstdint>

/// Plain records that cross the seam. Handles are 32-bit numbers on every platform; 0 is none.
namespace platform {

using WindowHandle = std::int32_t;
using RegionHandle = std::int32_t;
using TimerHandle = std::int32_t;

/// A place in whole pixels: of the screen, or of a window's client area where a function says so.
struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    std::int32_t width = 0;
    std::int32_t height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

/// Edges in whole pixels; `right` and `bottom` lie outside.
struct Rect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

} // namespace platform
