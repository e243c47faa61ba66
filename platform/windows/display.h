#pragma once

#include "platform/types.h"
#include "platform/windows/win32.h"

namespace platform {

/// Pixels of the display to one of the player's, 1 or more: the resolution that the system had when
/// the user logged in, which a process keeps. Screens of another one the system sees to.
double displayScale();

/// The player's pixel that a place on the display lies in; from a window's corner as well.
Point pixelUnder(POINT place);

} // namespace platform
