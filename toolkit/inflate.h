#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace toolkit {

/// Unpacks a stream of the zlib format, which must hold exactly `size` bytes; its check sum isn't
/// looked at. Empty for anything else.
std::vector<std::byte> inflate(std::span<const std::byte> packed, std::size_t size);

} // namespace toolkit
