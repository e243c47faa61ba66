#pragma once

namespace platform {

/// Has Qt ask the windows what they tell readers, should one come.
void welcomeReaders();

} // namespace platform
