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
};

/// All pixels that lie in any of the parts.
using RegionShape = std::vector<RegionPart>;

/// The pixels of a shape on a display of `scale` pixels to one of the shape's, for a window whose
/// top left corner stands at a place of the screen. They count from that corner.
RegionRows rowsOf(const RegionShape& shape, double scale = 1, Point corner = {});

} // namespace platform
