#include "movement/snap.h"

#include "runtime/rounding.h"

#include <cstdint>

namespace snap {
namespace {

runtime::Int32 toEdges(runtime::Int32 place, double size, std::int32_t nearEdge,
                       std::int32_t farEdge) {
    if (within(place.value(), nearEdge, EdgeDistance)) place = 0;
    if (within(place.value() + size, farEdge, EdgeDistance))
        place = runtime::roundToInt32(farEdge - size);
    return place;
}

} // namespace

bool within(double value, double target, double distance) {
    return target - distance < value && value < target + distance;
}

runtime::Int32 horizontally(runtime::Int32 x, double width, const platform::Rect& workArea) {
    return toEdges(x, width, workArea.left, workArea.right);
}

runtime::Int32 vertically(runtime::Int32 y, double height, const platform::Rect& workArea) {
    return toEdges(y, height, workArea.top, workArea.bottom);
}

} // namespace snap
