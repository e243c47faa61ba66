#include "toolkit/bitmap.h"

#include <cstddef>
#include <cstdint>
#include <doctest/doctest.h>
#include <span>
#include <vector>

using platform::Picture;
using platform::Pixel;
using toolkit::decodeBitmap;
using toolkit::decodeIcon;

namespace {

using Bytes = std::vector<std::byte>;

void append(Bytes& file, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i)
        file.push_back(static_cast<std::byte>(value >> (8 * i)));
}

/// What an image's header says.
struct Header {
    std::int32_t width = 2;
    std::int32_t height = 2;
    std::uint32_t bits = 24;
    std::uint32_t compression = 0;
};

void appendHeader(Bytes& file, const Header& header) {
    append(file, 40, 4);
    append(file, static_cast<std::uint32_t>(header.width), 4);
    append(file, static_cast<std::uint32_t>(header.height), 4);
    append(file, 1, 2);
    append(file, header.bits, 2);
    append(file, header.compression, 4);
    for (int i = 0; i < 5; ++i)
        append(file, 0, 4);
}

/// A bitmap file of this header and these pixels, as they lie in it.
Bytes bitmap(const Header& header, const Bytes& pixels) {
    Bytes file;
    append(file, 0x4D42, 2);
    append(file, 0, 4);
    append(file, 0, 4);
    append(file, 54, 4);
    appendHeader(file, header);
    file.insert(file.end(), pixels.begin(), pixels.end());
    return file;
}

Bytes bytes(const std::vector<std::uint32_t>& values) {
    Bytes all;
    for (const std::uint32_t value : values)
        append(all, value, 1);
    return all;
}

/// Two rows of two pixels of 24 bits, each row filled up to 8 bytes.
const Bytes fourPixels = bytes({1, 2, 3, 4, 5, 6, 0, 0, 7, 8, 9, 10, 11, 12, 0, 0});

/// An icon file of one 32-bit image for each width, all two rows high, of one colour each.
Bytes icon(const std::vector<std::int32_t>& widths, std::uint32_t bits = 32) {
    Bytes file;
    append(file, 0x10000, 4);
    append(file, static_cast<std::uint32_t>(widths.size()), 2);
    std::size_t at = 6 + 16 * widths.size();
    const auto pixelBytes = [&](std::int32_t width) {
        return (static_cast<std::size_t>(width) * bits / 8 + 3) / 4 * 4 * 2;
    };
    for (const std::int32_t width : widths) {
        append(file, 0, 4);
        append(file, 0, 4);
        append(file, 0, 4);
        append(file, static_cast<std::uint32_t>(at), 4);
        at += 40 + pixelBytes(width);
    }
    for (const std::int32_t width : widths) {
        appendHeader(file, {width, 4, bits, 0}); // the rows of the mask are counted in
        file.insert(file.end(), pixelBytes(width), static_cast<std::byte>(width));
    }
    return file;
}

std::vector<std::int32_t> widthsOf(const std::vector<Picture>& pictures) {
    std::vector<std::int32_t> widths;
    widths.reserve(pictures.size());
    for (const Picture& picture : pictures)
        widths.push_back(picture.width);
    return widths;
}

} // namespace

TEST_CASE("a bitmap's rows lie upwards, or downwards where its height is negative") {
    const std::vector<Pixel> first = {0xFF030201U, 0xFF060504U};
    const std::vector<Pixel> second = {0xFF090807U, 0xFF0C0B0AU};
    const Picture upwards = decodeBitmap(bitmap({}, fourPixels));
    REQUIRE(upwards.width == 2);
    REQUIRE(upwards.height == 2);
    CHECK(upwards.pixels == std::vector<Pixel>{second[0], second[1], first[0], first[1]});
    const Picture downwards = decodeBitmap(bitmap({2, -2}, fourPixels));
    REQUIRE(downwards.height == 2);
    CHECK(downwards.pixels == std::vector<Pixel>{first[0], first[1], second[0], second[1]});
}

TEST_CASE("a bitmap of 32 bits has its pixels' alpha, side by side") {
    const Picture picture = decodeBitmap(bitmap({2, 1, 32}, bytes({1, 2, 3, 4, 5, 6, 7, 8})));
    CHECK(picture.pixels == std::vector<Pixel>{0x04030201U, 0x08070605U});
}

TEST_CASE("a bitmap that is cut, packed, of other depths or none is no picture") {
    const Bytes whole = bitmap({}, fourPixels);
    REQUIRE_FALSE(decodeBitmap(whole).empty());
    for (std::size_t size = 0; size < whole.size(); ++size)
        CHECK(decodeBitmap(std::span(whole).first(size)).empty());
    Bytes fromItsStart = whole;
    fromItsStart[10] = std::byte{0}; // where its pixels start
    REQUIRE_FALSE(decodeBitmap(fromItsStart).empty());
    for (std::size_t size = 0; size < 54; ++size)
        CHECK(decodeBitmap(std::span(fromItsStart).first(size)).empty());
    for (const Header& header : {Header{2, 2, 8}, Header{2, 2, 16}, Header{2, 2, 24, 1},
                                 Header{2, 2, 32, 3}, Header{0, 2}, Header{-1, 2}, Header{2, 0}})
        CHECK(decodeBitmap(bitmap(header, fourPixels)).empty());
    Bytes otherMark = whole;
    otherMark[0] = std::byte{'X'};
    CHECK(decodeBitmap(otherMark).empty());
    Bytes farAway = whole;
    farAway[13] = std::byte{0xFF}; // where its pixels start
    CHECK(decodeBitmap(farAway).empty());
}

TEST_CASE("a bitmap has up to 4096 columns and 8192 rows") {
    const Bytes row(4097 * 3 + 1);
    CHECK(decodeBitmap(bitmap({4096, 1}, row)).width == 4096);
    CHECK(decodeBitmap(bitmap({4097, 1}, row)).empty());
    const Bytes column(std::size_t{8193} * 4);
    CHECK(decodeBitmap(bitmap({1, 8192}, column)).height == 8192);
    CHECK(decodeBitmap(bitmap({1, -8192}, column)).height == 8192);
    CHECK(decodeBitmap(bitmap({1, 8193}, column)).empty());
    CHECK(decodeBitmap(bitmap({1, -8193}, column)).empty());
}

TEST_CASE("an icon's images come in their order, up to the size that is asked for") {
    const Bytes file = icon({16, 48, 32});
    CHECK(widthsOf(decodeIcon(file, 48)) == std::vector<std::int32_t>{16, 48, 32});
    CHECK(widthsOf(decodeIcon(file, 47)) == std::vector<std::int32_t>{16, 32});
    CHECK(decodeIcon(file, 15).empty());
    const Picture largest = decodeIcon(file, 48).at(1);
    CHECK(largest.height == 2);
    CHECK(largest.pixels == std::vector<Pixel>(std::size_t{48} * 2, 0x30303030U));
}

TEST_CASE("an icon has as many images as it says, whatever follows that") {
    Bytes file = icon({16, 32});
    file[4] = std::byte{1};
    file[6] = std::byte{1}; // of the first image's own
    CHECK(widthsOf(decodeIcon(file, 48)) == std::vector<std::int32_t>{16});
}

TEST_CASE("an icon's images of other depths, or cut ones, are left out") {
    CHECK(decodeIcon(icon({16}, 24), 48).empty());
    const Bytes file = icon({16, 32});
    const std::span<const std::byte> all(file);
    CHECK(widthsOf(decodeIcon(all.first(all.size() - 1), 48)) == std::vector<std::int32_t>{16});
    CHECK(decodeIcon(all.first(6 + 16), 48).empty());
    CHECK(decodeIcon(all.first(5), 48).empty());
    Bytes farAway = file;
    farAway[6 + 12 + 3] = std::byte{0xFF}; // where its first image starts
    CHECK(widthsOf(decodeIcon(farAway, 48)) == std::vector<std::int32_t>{32});
    CHECK(decodeIcon(bitmap({}, fourPixels), 48).empty());
    CHECK(decodeIcon({}, 48).empty());
}
