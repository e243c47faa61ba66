#pragma once

#include "platform/types.h"

#include <optional>

namespace platform {

/// While a press is being handled, the pointer counts as being where the press was. The display
/// tells where it is by now, and by then a quick hand, or a window manager that looks at the press
/// first, has moved it on: what is dragged would trail behind the pointer.
class PressPlace {
  public:
    /// A pointer event begins to be handled: a press with its screen place, any other without.
    explicit PressPlace(std::optional<Point> place) { current() = place; }
    ~PressPlace() { current().reset(); }
    PressPlace(const PressPlace&) = delete;
    PressPlace& operator=(const PressPlace&) = delete;

    /// The screen place of the press that is being handled, unless another event came since.
    static std::optional<Point>& current() {
        static std::optional<Point> place;
        return place;
    }
};

} // namespace platform
