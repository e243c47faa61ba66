#pragma once

#include "platform/windows/window_table.h"

namespace platform {

/// Cuts a window that has a shape as finely as the display is, for the place where it now stands.
/// What the system answers; true where nothing changes.
bool fitShape(WindowState& state);

} // namespace platform
