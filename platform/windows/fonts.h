#pragma once

#include "platform/text.h"
#include "platform/windows/win32.h"

namespace platform {

/// The system's font for one that is asked for. Kept until the process ends.
HFONT fontFor(const Font& font);

} // namespace platform
