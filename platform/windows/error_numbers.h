#pragma once

#include "platform/windows/win32.h"

namespace platform {

/// The player's number for the system's; 0 for success.
int errorNumberOf(DWORD systemError);

} // namespace platform
