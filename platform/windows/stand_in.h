#pragma once

#include "platform/types.h"

#include <optional>

namespace platform {

/// Where the pointer counts as being; none: where it is. What the pointer itself does ends it.
inline std::optional<Point>& pointerStandIn() {
    static std::optional<Point> place;
    return place;
}

} // namespace platform
