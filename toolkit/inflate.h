#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace toolkit {

/// Unpacks a stream of the zlib format (RFC 1950), which must hold exactly `size` bytes. Empty for
/// anything else.
std::vector<std::byte> inflate(std::span<const std::byte> packed, std::size_t size);

} // namespace toolkit
