#pragma once

#include "platform/window.h"

#include <cstddef>
#include <span>

namespace toolkit {

/// Decodes a pointer file whose image is 32 by 32 pixels of 16 colours, as the assets are. Pixels
/// that its mask leaves out are transparent. An empty shape for anything else.
platform::PointerShape decodeCursor(std::span<const std::byte> file);

} // namespace toolkit
