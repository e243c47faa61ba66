#pragma once

#include "platform/region_rows.h"
#include "platform/types.h"

#include <vector>

/// Shapes as they were asked for, so that they can be cut as finely as a display is.
namespace platform {

/// A rectangle by its edges, pixels, as `rectangleRows` takes it; or, where it is round, with
/// corners cut by an ellipse of the given diameters, as `roundRectangleRows` takes both.
struct RegionPart {
    Rect edges{};
    bool round = false;
    Size ellipse{};
    friend bool operator==(const RegionPart&, const RegionPart&) = default;
};

/// All pixels that lie in any of the parts.
using RegionShape = std::vector<RegionPart>;

/// A shape in the pixels of a display that has `scale` of them to one of the shape's, for a window
/// whose top left corner stands at a place of the screen. They count from that corner.
RegionShape onDisplay(const RegionShape& shape, double scale, Point corner);

/// The pixels of a shape on a display of `scale` pixels to one of the shape's, for a window whose
/// top left corner stands at a place of the screen. They count from that corner.
RegionRows rowsOf(const RegionShape& shape, double scale = 1, Point corner = {});

} // namespace platform
