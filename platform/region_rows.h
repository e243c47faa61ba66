#pragma once

#include "platform/types.h"

#include <vector>

/// Shapes made of whole pixels, for the platforms that have no regions of their own.
namespace platform {

/// Disjoint rectangles from top to bottom and left to right; those of one band of rows share their
/// top and bottom edge. Two equal shapes have equal lists.
struct RegionRows {
    std::vector<Rect> rectangles;

    [[nodiscard]] bool empty() const { return rectangles.empty(); }
    [[nodiscard]] bool contains(Point point) const;
    friend bool operator==(const RegionRows&, const RegionRows&) = default;
};

/// The pixels from the upper left edges to the lower right ones, those outside. Edges in either
/// order.
RegionRows rectangleRows(const Rect& edges);

/// The same without the rightmost column and the lowest row, its corners cut by an ellipse of the
/// given diameters in pixels. Empty for shapes of more than 32767 pixels a side.
RegionRows roundRectangleRows(const Rect& edges, Size ellipse);

/// All pixels that lie in either shape.
RegionRows unionRows(const RegionRows& first, const RegionRows& second);

} // namespace platform
