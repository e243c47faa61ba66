#include "platform/accessibility.h"

#include "platform/linux/input_barrier.h"
#include "platform/linux/press_place.h"
#include "platform/linux/window_table.h"
#include "platform/linux/window_widget.h"

#include <optional>

namespace platform {

bool readerListens() { return false; }

void tellReaders(WindowHandle /*window*/, AccessiblePlace /*place*/, AccessibleChange /*change*/) {}

bool takesInput(WindowHandle window) {
    const WindowWidget* const widget = findWindow(window);
    return widget != nullptr && widget->isVisible() && !InputBarrier::bars(*widget);
}

void standInForPointer(std::optional<Point> place) { PressPlace::current() = place; }

} // namespace platform
