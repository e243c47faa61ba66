#include "toolkit/png.h"

#include "toolkit/inflate.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace toolkit {
namespace {

using Bytes = std::span<const std::byte>;

constexpr std::array<std::uint8_t, 16> beginning{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
                                                 0,    0,   0,   13,  'I',  'H',  'D',  'R'};
constexpr std::size_t headerEnd = 33;
constexpr std::size_t chunkHead = 8; // length and name
constexpr std::uint32_t largestSide = 8192;

std::uint32_t bigEndian(Bytes file, std::size_t at) {
    std::uint32_t value = 0;
    for (const std::byte byte : file.subspan(at, 4))
        value = value << 8U | std::to_integer<std::uint32_t>(byte);
    return value;
}

struct Header {
    std::size_t width = 0;
    std::size_t height = 0;
    std::size_t parts = 0; ///< bytes a pixel; 0 for a form that isn't known
};

Header readHeader(Bytes file) {
    if (file.size() < headerEnd + chunkHead) return {};
    const bool begins = std::equal(beginning.begin(), beginning.end(), file.begin(),
                                   [](std::uint8_t a, std::byte b) { return std::byte{a} == b; });
    const std::uint32_t width = bigEndian(file, 16);
    const std::uint32_t height = bigEndian(file, 20);
    const bool sized = width - 1 < largestSide && height - 1 < largestSide;
    const auto form = [&](std::size_t i) { return std::to_integer<int>(file[24 + i]); };
    const bool plain = form(0) == 8 && form(2) == 0 && form(3) == 0 && form(4) == 0;
    if (!begins || !sized || !plain) return {};
    const std::size_t parts = form(1) == 2 ? 3U : form(1) == 6 ? 4U : 0U;
    return {width, height, parts};
}

/// What a neighbour of each kind foretells; all three count for the fourth filter.
int foretold(int filter, int left, int above, int corner) {
    switch (filter) {
    case 1:
        return left;
    case 2:
        return above;
    case 3:
        return (left + above) / 2;
    case 4: {
        const int guess = left + above - corner;
        const int fromLeft = std::abs(guess - left);
        const int fromAbove = std::abs(guess - above);
        const int fromCorner = std::abs(guess - corner);
        if (fromLeft <= fromAbove && fromLeft <= fromCorner) return left;
        return fromAbove <= fromCorner ? above : corner;
    }
    default:
        return 0;
    }
}

/// Makes a row of differences the row itself; the one above is done already.
void undoFilter(int filter, std::span<std::byte> row, Bytes above, std::size_t parts) {
    for (std::size_t i = 0; i < row.size(); ++i) {
        const auto at = [&](Bytes line) { return std::to_integer<int>(line[i]); };
        const auto before = [&](Bytes line) {
            return i < parts ? 0 : std::to_integer<int>(line[i - parts]);
        };
        const int guess = foretold(filter, before(row), at(above), before(above));
        row[i] = static_cast<std::byte>(static_cast<unsigned>(at(row) + guess) & 0xFFU);
    }
}

platform::Pixel pixelAt(Bytes row, std::size_t at, std::size_t parts) {
    const auto part = [&](std::size_t i) { return std::to_integer<std::uint32_t>(row[at + i]); };
    const std::uint32_t alpha = parts == 4 ? part(3) : 0xFFU;
    return alpha << 24U | part(0) << 16U | part(1) << 8U | part(2);
}

} // namespace

platform::Picture decodePng(Bytes file) {
    const Header header = readHeader(file);
    if (header.parts == 0) return {};
    const std::size_t packed = bigEndian(file, headerEnd);
    if (packed > file.size() - headerEnd - chunkHead) return {};
    const std::size_t rowSize = header.width * header.parts;
    std::vector<std::byte> rows =
        inflate(file.subspan(headerEnd + chunkHead, packed), (rowSize + 1) * header.height);
    if (rows.empty()) return {};
    platform::Picture picture(static_cast<std::int32_t>(header.width),
                              static_cast<std::int32_t>(header.height));
    std::vector<std::byte> nothing(rowSize);
    std::span<std::byte> above(nothing);
    for (std::size_t y = 0; y < header.height; ++y) {
        const std::span<std::byte> line = std::span(rows).subspan(y * (rowSize + 1), rowSize + 1);
        const std::span<std::byte> row = line.subspan(1);
        undoFilter(std::to_integer<int>(line[0]), row, above, header.parts);
        for (std::size_t x = 0; x < header.width; ++x)
            picture.row(static_cast<std::int32_t>(y))[x] =
                pixelAt(row, x * header.parts, header.parts);
        above = row;
    }
    return picture;
}

} // namespace toolkit
