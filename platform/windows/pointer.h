#pragma once

#include "platform/windows/window_table.h"

namespace platform {

/// Tells the window of a message of the pointer's; false for other messages.
bool tellPointer(WindowState& state, UINT message, WPARAM first, LPARAM second);

} // namespace platform
