#pragma once

#include "platform/windows/win32.h"

namespace platform {

/// A window of no look whose messages reach it in every loop that the thread runs: the player's,
/// and those of menus, dialogs and message boxes.
HWND createMessageWindow(const wchar_t* className, WNDPROC procedure);

} // namespace platform
