#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace runtime {

/// A number of `count` bytes (1 to 4) at `at`, the lowest byte first. All of them must be there.
constexpr std::uint32_t littleEndian(std::span<const std::byte> bytes, std::size_t at,
                                     std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value |= std::to_integer<std::uint32_t>(bytes[at + i]) << (8U * i);
    return value;
}

} // namespace runtime
