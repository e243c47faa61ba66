#include "platform/accessibility.h"

#include "platform/windows/handles.h"
#include "platform/windows/stand_in.h"

#include <optional>

namespace platform {

bool readerListens() { return false; }

void tellReaders(WindowHandle /*window*/, AccessiblePlace /*place*/, AccessibleChange /*change*/) {}

bool takesInput(WindowHandle window) {
    const HWND handle = windowOf(window);
    return IsWindowVisible(handle) != FALSE && IsWindowEnabled(handle) != FALSE;
}

void standInForPointer(std::optional<Point> place) { pointerStandIn() = place; }

} // namespace platform
