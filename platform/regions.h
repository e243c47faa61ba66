#pragma once

#include "platform/types.h"

#include <cstdint>

/// Shapes for windows, under the names and rules of the system's own calls. Interface thread only.
namespace platform {

/// `CombineRgn` mode: the union of both operands.
inline constexpr std::int32_t RGN_OR = 2;

/// A rectangle whose `right` column and `bottom` row lie outside, its corners cut by an ellipse
/// of the given diameters, in pixels. As the system draws it, the shape is one pixel smaller to
/// the right and below than `CreateRectRgn` of the same numbers. 0 on failure.
RegionHandle CreateRoundRectRgn(std::int32_t left, std::int32_t top, std::int32_t right,
                                std::int32_t bottom, std::int32_t ellipseWidth,
                                std::int32_t ellipseHeight);

/// A rectangle in pixels; `right` and `bottom` lie outside. 0 on failure.
RegionHandle CreateRectRgn(std::int32_t left, std::int32_t top, std::int32_t right,
                           std::int32_t bottom);

/// Stores the combination of two regions in `target`, which may be one of them. 0 on failure.
std::int32_t CombineRgn(RegionHandle target, RegionHandle first, RegionHandle second,
                        std::int32_t mode);

/// Cuts a window to a region in client pixels. The region then belongs to the system.
std::int32_t SetWindowRgn(WindowHandle window, RegionHandle region, std::int32_t redraw);

} // namespace platform
