#pragma once

#include "platform/windows/window_table.h"

namespace platform {

/// Tells the window of a message of the keyboard's; false for other messages, and for keys that
/// the system has a use for itself.
bool tellKey(WindowState& state, UINT message, WPARAM first);

} // namespace platform
