#pragma once

#include "platform/window.h"

class QKeyEvent;

namespace platform {

/// A key press in the seam's words.
KeyEvent keyEventOf(const QKeyEvent& event);

} // namespace platform
