#pragma once

#include "platform/windows/win32.h"

namespace platform {

/// Takes a `WM_APPCOMMAND` that has come to a window of the player. False if it is no command of
/// the media keys'.
bool tellAppCommand(LPARAM command);

} // namespace platform
