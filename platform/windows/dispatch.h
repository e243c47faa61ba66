#pragma once

#include "platform/windows/win32.h"

namespace platform {

/// Hands a message that a loop has taken on to its window.
void dispatchMessage(const MSG& message);

} // namespace platform
