#pragma once

#include "platform/windows/window_table.h"

namespace platform {

/// The answer to a reader that asks for a window, or for one of its lists, by WM_GETOBJECT; 0 where
/// the system's own answer has to do.
LRESULT answerReader(const WindowState& state, WPARAM first, LPARAM second);

} // namespace platform
