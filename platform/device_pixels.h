#pragma once

#include "platform/types.h"

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

} // namespace platform
