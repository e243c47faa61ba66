#include "platform/region_shape.h"

#include "platform/device_pixels.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace platform {
namespace {

std::int32_t scaled(std::int32_t length, double scale) {
    return static_cast<std::int32_t>(std::lround(length * scale));
}

RegionRows rowsOf(const RegionPart& part) {
    return part.round ? roundRectangleRows(part.edges, part.ellipse) : rectangleRows(part.edges);
}

RegionPart onDisplay(const RegionPart& part, double scale, Point corner) {
    const Rect& e = part.edges;
    // A round shape leaves out its last column and row, whatever the scale.
    const std::int32_t left = part.round ? 1 : 0;
    const auto across = [&](std::int32_t x) {
        return deviceEdge(corner.x + x, scale) - deviceEdge(corner.x, scale);
    };
    const auto down = [&](std::int32_t y) {
        return deviceEdge(corner.y + y, scale) - deviceEdge(corner.y, scale);
    };
    return {{across(std::min(e.left, e.right)), down(std::min(e.top, e.bottom)),
             across(std::max(e.left, e.right) - left) + left,
             down(std::max(e.top, e.bottom) - left) + left},
            part.round,
            {scaled(part.ellipse.width, scale), scaled(part.ellipse.height, scale)}};
}

} // namespace

RegionShape onDisplay(const RegionShape& shape, double scale, Point corner) {
    if (scale == 1) return shape;
    RegionShape scaled;
    for (const RegionPart& part : shape)
        if (!rowsOf(part).empty()) // nothing doesn't grow
            scaled.push_back(onDisplay(part, scale, corner));
    return scaled;
}

RegionRows rowsOf(const RegionShape& shape, double scale, Point corner) {
    RegionRows rows;
    for (const RegionPart& part : onDisplay(shape, scale, corner))
        rows = unionRows(rows, rowsOf(part));
    return rows;
}

} // namespace platform
