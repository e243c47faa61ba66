#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace pictures {

/// 0xRRGGBB.
using Colour = std::uint32_t;

/// A picture read from a built-in bitmap file; rows count from the top.
struct Bitmap {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint32_t bits = 0;
    std::uint32_t compression = 0;
    std::vector<Colour> pixels;

    [[nodiscard]] Colour at(std::int32_t x, std::int32_t y) const;
    /// Whether a row has one colour from x `from` to x `to`, both included.
    [[nodiscard]] bool plain(std::int32_t y, std::int32_t from, std::int32_t to, Colour c) const;
    [[nodiscard]] std::size_t count(Colour c) const;
};

/// Reads an uncompressed 24-bit bitmap; fails the running test if there is no such asset.
Bitmap read(std::string_view name);

/// Reads the same picture with `scale` pixels to each of its own, by the name of its bitmap; of
/// scale 1 the bitmap itself.
Bitmap read(std::string_view name, std::int32_t scale);

/// The little-endian number of `size` bytes at `place`.
std::uint32_t number(std::span<const std::byte> data, std::size_t place, std::size_t size);

/// The sum of a colour's three channels.
int brightness(Colour c);

} // namespace pictures
