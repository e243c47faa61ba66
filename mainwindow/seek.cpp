#include "mainwindow/seek.h"

#include "runtime/rounding.h"

namespace seek {

runtime::Fixed dragOffset(std::int32_t pointerTravel, runtime::Fixed length,
                          runtime::Fixed position, runtime::Fixed pressPosition) {
    const double travelled = (position - pressPosition).toDouble() / ThumbTravel;
    return runtime::Fixed(pointerTravel - length.toDouble() * travelled);
}

float draggedLeft(runtime::Fixed position, runtime::Fixed pressPosition, runtime::Fixed length,
                  std::int32_t pressLeft) {
    const double share = runtime::divide((position - pressPosition).toDouble(), length.toDouble());
    return static_cast<float>(share * ThumbTravel + pressLeft);
}

float leftOf(std::int32_t place, std::int32_t length) {
    const double share = static_cast<double>(place) / length;
    return static_cast<float>(ThumbStart + share * ThumbTravel);
}

runtime::Fixed soughtPosition(runtime::Fixed length, runtime::Fixed offset,
                              std::int32_t devicePosition) {
    return runtime::Fixed(length.toDouble() * (offset.toDouble() / ThumbTravel) +
                          devicePosition / 1000.0);
}

} // namespace seek
