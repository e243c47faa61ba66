#pragma once

namespace platform {

/// The player's error number (see platform/files.h) for a value of `errno`; 0 for 0.
int errorNumberOf(int errnoValue);

} // namespace platform
