#include "toolkit/cursor.h"

#include "runtime/little_endian.h"

#include <cstdint>

namespace toolkit {
namespace {

using runtime::littleEndian;

constexpr std::int32_t side = 32; // pixels
constexpr std::size_t header = 22;
constexpr std::size_t colours = header + 40;
constexpr std::size_t pixels = colours + std::size_t{16} * 4;
constexpr std::size_t mask = pixels + std::size_t{side} * side / 2;
constexpr std::size_t fileSize = mask + std::size_t{side} * side / 8;

bool isPointer(std::span<const std::byte> file) {
    constexpr std::uint32_t pointerType = 0x20000;
    return file.size() == fileSize && littleEndian(file, 0, 4) == pointerType &&
           littleEndian(file, 18, 4) == header && littleEndian(file, header + 4, 4) == side &&
           littleEndian(file, header + 14, 2) == 4 && littleEndian(file, header + 16, 4) == 0;
}

/// The pixel in row-major order from the lower left corner, as the file counts.
platform::Pixel pixelAt(std::span<const std::byte> file, std::size_t index) {
    const std::uint32_t maskByte = littleEndian(file, mask + index / 8, 1);
    if ((maskByte >> (7U - index % 8) & 1U) != 0) return 0;
    const std::uint32_t pair = littleEndian(file, pixels + index / 2, 1);
    const std::size_t colour = index % 2 == 0 ? pair >> 4U : pair & 0xFU;
    return 0xFF000000U | littleEndian(file, colours + colour * 4, 3);
}

} // namespace

platform::PointerShape decodeCursor(std::span<const std::byte> file) {
    if (!isPointer(file)) return {};
    platform::PointerShape shape;
    shape.hotSpot = {static_cast<std::int32_t>(littleEndian(file, 10, 2)),
                     static_cast<std::int32_t>(littleEndian(file, 12, 2))};
    shape.picture = platform::Picture(side, side);
    for (std::int32_t y = 0; y < side; ++y)
        for (std::int32_t x = 0; x < side; ++x)
            shape.picture.row(y)[x] = pixelAt(file, static_cast<std::size_t>(side - 1 - y) * side +
                                                        static_cast<std::size_t>(x));
    return shape;
}

} // namespace toolkit
