#pragma once

#include "platform/types.h"

#include <vector>

namespace platform {

class WindowWidget;

/// The window of a handle; null if there is none.
WindowWidget* findWindow(WindowHandle window);

/// All windows, in the order of their making.
std::vector<WindowWidget*> allWindows();

/// The window made first of those that are still there; null if there is none.
WindowWidget* firstWindow();

} // namespace platform
