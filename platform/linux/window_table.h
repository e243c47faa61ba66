#pragma once

#include "platform/types.h"

namespace platform {

class WindowWidget;

/// The window of a handle; null if there is none.
WindowWidget* findWindow(WindowHandle window);

/// The window made first of those that are still there; null if there is none.
WindowWidget* firstWindow();

} // namespace platform
