#pragma once

#include "platform/picture.h"

#include <cstddef>
#include <span>

namespace toolkit {

/// Decodes a PNG file as the larger pictures are stored: 8 bits a part, with or without alpha, not
/// interlaced, its pixels in one chunk. The chunks' check sums aren't looked at. An empty picture
/// for anything else.
platform::Picture decodePng(std::span<const std::byte> file);

} // namespace toolkit
