#pragma once

#include "platform/types.h"

#include <cstdint>

namespace platform {

/// Hands a mouse code of the tray icon to a hook window. Nothing happens if there is none.
void deliverTrayCode(WindowHandle hook, std::int32_t code);

} // namespace platform
