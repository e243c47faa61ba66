#pragma once

#include "platform/types.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

/// Where pixels of a window lie on a display that has more of its own to each of them.
namespace platform {

/// The device pixel that begins at the edge of a pixel, at `scale` device pixels a pixel; halves go
/// away from 0. Edges are rounded, never sizes: areas that touch in pixels touch on every display.
inline std::int32_t deviceEdge(std::int32_t edge, double scale) {
    return static_cast<std::int32_t>(std::lround(edge * scale));
}

inline Rect deviceRect(const Rect& area, double scale) {
    return {deviceEdge(area.left, scale), deviceEdge(area.top, scale),
            deviceEdge(area.right, scale), deviceEdge(area.bottom, scale)};
}

/// The pixel that a device pixel belongs to, at a scale of 1 or more.
inline std::int32_t pixelUnder(std::int32_t device, double scale) {
    auto pixel = static_cast<std::int32_t>(std::floor((device + 0.5) / scale));
    if (deviceEdge(pixel, scale) > device) --pixel;
    if (deviceEdge(pixel + 1, scale) <= device) ++pixel;
    return pixel;
}

inline Point pixelUnder(Point device, double scale) {
    return {pixelUnder(device.x, scale), pixelUnder(device.y, scale)};
}

/// The edge of a pixel that lies nearest to that of a device pixel, at a scale of 1 or more: the
/// one that `deviceEdge` was given, if there is one.
inline std::int32_t nearestEdge(std::int32_t device, double scale) {
    return static_cast<std::int32_t>(std::lround(device / scale));
}

inline Point nearestEdge(Point device, double scale) {
    return {nearestEdge(device.x, scale), nearestEdge(device.y, scale)};
}

inline Rect nearestEdges(const Rect& device, double scale) {
    return {nearestEdge(device.left, scale), nearestEdge(device.top, scale),
            nearestEdge(device.right, scale), nearestEdge(device.bottom, scale)};
}

/// Device pixels that hold so many pixels from an edge on, at a scale of 1 or more: as many
/// wherever that lies, but for one more where halves are rounded away from 0 on both of its sides.
inline std::int32_t deviceRoom(std::int32_t edge, std::int32_t length, double scale) {
    constexpr double rounding = 1e-6; // of the product
    return std::max(static_cast<std::int32_t>(std::ceil(length * scale - rounding)),
                    deviceEdge(edge + length, scale) - deviceEdge(edge, scale));
}

inline Size deviceRoom(Point corner, Size size, double scale) {
    return {deviceRoom(corner.x, size.width, scale), deviceRoom(corner.y, size.height, scale)};
}

} // namespace platform
