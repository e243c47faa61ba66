#pragma once

#include "platform/picture.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace toolkit {

/// Decodes an uncompressed bitmap file of 24 or 32 bits, stored upwards or downwards. An empty
/// picture for anything else.
platform::Picture decodeBitmap(std::span<const std::byte> file);

/// The 32-bit images of an icon file, in the file's order, up to `largestSide` pixels wide; images
/// in other forms are left out. Empty for anything that is no icon file.
std::vector<platform::Picture> decodeIcon(std::span<const std::byte> file,
                                          std::int32_t largestSide);

} // namespace toolkit
