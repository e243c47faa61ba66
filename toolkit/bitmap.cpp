#include "toolkit/bitmap.h"

#include "runtime/little_endian.h"

#include <cstdint>

namespace toolkit {
namespace {

using runtime::littleEndian;

constexpr std::size_t fileHeaderSize = 14;
constexpr std::size_t infoHeaderSize = 40;
constexpr std::size_t iconHeaderSize = 6;
constexpr std::size_t iconEntrySize = 16;
constexpr std::int32_t largestWidth = 4096;
constexpr std::int32_t largestHeight = 8192;

/// How an image's pixels lie in its file.
struct Layout {
    std::size_t start = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool upwards = true;
    std::size_t bytesAPixel = 0;
    std::size_t bytesARow = 0;
};

/// Reads the image header at `header`; the pixels start at `start`. Icons count their mask's rows
/// in the height too, so that `rowsAHeight` is 2 there.
bool readLayout(std::span<const std::byte> file, std::size_t header, std::size_t start,
                std::int32_t rowsAHeight, Layout& layout) {
    if (header > file.size() || file.size() - header < infoHeaderSize) return false;
    layout.start = start;
    layout.width = static_cast<std::int32_t>(littleEndian(file, header + 4, 4));
    const auto height = static_cast<std::int32_t>(littleEndian(file, header + 8, 4));
    if (height < -largestHeight || height > largestHeight || height == 0) return false;
    if (layout.width < 1 || layout.width > largestWidth) return false;
    layout.upwards = height > 0;
    layout.height = (height > 0 ? height : -height) / rowsAHeight;
    const std::uint32_t bits = littleEndian(file, header + 14, 2);
    const std::uint32_t compression = littleEndian(file, header + 16, 4);
    if ((bits != 24 && bits != 32) || compression != 0) return false;
    layout.bytesAPixel = bits / 8;
    layout.bytesARow = (static_cast<std::size_t>(layout.width) * layout.bytesAPixel + 3) / 4 * 4;
    const std::size_t needed = layout.bytesARow * static_cast<std::size_t>(layout.height);
    return layout.start <= file.size() && needed <= file.size() - layout.start;
}

platform::Picture readPixels(std::span<const std::byte> file, const Layout& layout) {
    platform::Picture picture(layout.width, layout.height);
    for (std::int32_t y = 0; y < layout.height; ++y) {
        const std::int32_t storedRow = layout.upwards ? layout.height - 1 - y : y;
        std::size_t at = layout.start + layout.bytesARow * static_cast<std::size_t>(storedRow);
        for (std::int32_t x = 0; x < layout.width; ++x, at += layout.bytesAPixel) {
            const std::uint32_t alpha =
                layout.bytesAPixel == 4 ? littleEndian(file, at + 3, 1) : 0xFFU;
            picture.row(y)[x] = alpha << 24U | littleEndian(file, at, 3);
        }
    }
    return picture;
}

} // namespace

platform::Picture decodeBitmap(std::span<const std::byte> file) {
    if (file.size() < fileHeaderSize || littleEndian(file, 0, 2) != 0x4D42) return {};
    Layout layout;
    if (!readLayout(file, fileHeaderSize, littleEndian(file, 10, 4), 1, layout)) return {};
    return readPixels(file, layout);
}

std::vector<platform::Picture> decodeIcon(std::span<const std::byte> file,
                                          std::int32_t largestSide) {
    std::vector<platform::Picture> pictures;
    if (file.size() < iconHeaderSize || littleEndian(file, 0, 4) != 0x10000) return pictures;
    const std::size_t count = littleEndian(file, 4, 2);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = iconHeaderSize + i * iconEntrySize;
        if (entry + iconEntrySize > file.size()) break;
        const std::size_t header = littleEndian(file, entry + 12, 4);
        Layout layout;
        if (!readLayout(file, header, header + infoHeaderSize, 2, layout)) continue;
        if (layout.bytesAPixel == 4 && layout.width <= largestSide)
            pictures.push_back(readPixels(file, layout));
    }
    return pictures;
}

} // namespace toolkit
