#include "assets/assets.h"
#include "toolkit/inflate.h"
#include "toolkit/png.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <doctest/doctest.h>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

namespace {

std::vector<std::byte> bytes(std::initializer_list<unsigned> values) {
    std::vector<std::byte> all;
    for (const unsigned value : values)
        all.push_back(static_cast<std::byte>(value));
    return all;
}

std::string unpacked(std::initializer_list<unsigned> packed, std::size_t size) {
    std::string text;
    for (const std::byte byte : toolkit::inflate(bytes(packed), size))
        text += std::to_integer<char>(byte);
    return text;
}

/// Bytes stored as they are, in the form of RFC 1950 and 1951.
std::vector<std::byte> stored(const std::vector<std::byte>& plain) {
    const auto size = static_cast<unsigned>(plain.size());
    std::vector<std::byte> packed =
        bytes({0x78, 0x01, 1, size & 0xFFU, size >> 8U, ~size & 0xFFU, ~size >> 8U & 0xFFU});
    packed.insert(packed.end(), plain.begin(), plain.end());
    unsigned sum = 1;
    unsigned sumOfSums = 0;
    for (const std::byte byte : plain) {
        sum = (sum + std::to_integer<unsigned>(byte)) % 65521;
        sumOfSums = (sumOfSums + sum) % 65521;
    }
    for (const unsigned part : {sumOfSums, sum})
        for (const unsigned shift : {8U, 0U})
            packed.push_back(static_cast<std::byte>(part >> shift & 0xFFU));
    return packed;
}

/// A picture file of 24 bits a pixel, from its filtered rows. Check sums are left out.
std::vector<std::byte> fileOf(unsigned width, unsigned height, const std::vector<std::byte>& rows) {
    const std::vector<std::byte> packed = stored(rows);
    const auto size = static_cast<unsigned>(packed.size());
    std::vector<std::byte> file =
        bytes({0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I', 'H', 'D', 'R'});
    const auto add = [&](std::initializer_list<unsigned> values) {
        const std::vector<std::byte> more = bytes(values);
        file.insert(file.end(), more.begin(), more.end());
    };
    add({0, 0, width >> 8U, width & 0xFFU, 0, 0, height >> 8U, height & 0xFFU});
    add({8, 2, 0, 0, 0, 0, 0, 0, 0}); // the form, and no check sum
    add({0, 0, size >> 8U, size & 0xFFU, 'I', 'D', 'A', 'T'});
    file.insert(file.end(), packed.begin(), packed.end());
    return file;
}

std::vector<std::byte> key() {
    const std::span<const std::byte> file = assets::file("2x/key.png");
    return {file.begin(), file.end()};
}

} // namespace

TEST_CASE("what is packed comes out whole, packed in any of the three ways") {
    // By fixed codes, with a repetition that runs into itself.
    CHECK(unpacked({0x78, 0xDA, 0x4B, 0x04, 0x01, 0x00, 0x05, 0xB4, 0x01, 0xE6}, 5) == "aaaaa");
    // Stored as it is.
    CHECK(unpacked({0x78, 0x01, 1, 3, 0, 0xFC, 0xFF, 'k', 'e', 'y', 0x02, 0x87, 0x01, 0x4A}, 3) ==
          "key");
    // By codes of its own: a whole picture.
    CHECK_FALSE(toolkit::decodePng(key()).empty());
}

TEST_CASE("what is packed is refused unless it has the size that is asked for") {
    CHECK(unpacked({0x78, 0xDA, 0x4B, 0x04, 0x01, 0x00, 0x05, 0xB4, 0x01, 0xE6}, 4).empty());
    CHECK(unpacked({0x78, 0xDA, 0x4B, 0x04, 0x01, 0x00, 0x05, 0xB4, 0x01, 0xE6}, 6).empty());
    CHECK(unpacked({0x78, 0x01, 1, 3, 0, 0xFC, 0xFF, 'k', 'e', 'y', 0x02, 0x87, 0x01, 0x4A}, 2)
              .empty());
    CHECK(unpacked({0x78, 0x01, 1, 3, 0, 0xFC, 0xFE, 'k', 'e', 'y', 0x02, 0x87, 0x01, 0x4A}, 3)
              .empty());
    CHECK(unpacked({0x78, 0x01, 1, 3, 0, 0xFC, 0xFF, 'k', 'e'}, 3).empty());
    CHECK(unpacked({0x78, 0x01, 7, 0, 0}, 3).empty());
    CHECK(unpacked({0x78, 0x01, 1, 3, 0, 0xFC, 0xFF, 'k', 'e', 'Y', 0x02, 0x87, 0x01, 0x4A}, 3)
              .empty());
    CHECK(unpacked({}, 0).empty());
}

TEST_CASE("a repetition of what was before the beginning is refused") {
    // Three bytes from one byte back, as the first thing of all.
    CHECK(unpacked({0x78, 0x01, 0x03, 0x02, 0x00}, 3).empty());
}

TEST_CASE("a picture that is cut off anywhere is no picture") {
    const std::vector<std::byte> whole = key();
    constexpr std::size_t sumAndEnd =
        4 + 12; // the chunk's check sum and the last chunk aren't needed
    for (std::size_t size = 0; size < whole.size() - sumAndEnd; ++size)
        CHECK(toolkit::decodePng(std::span(whole).first(size)).empty());
}

TEST_CASE("a picture with a wrong byte never leads astray") {
    const std::vector<std::byte> whole = key();
    for (std::size_t at = 0; at < whole.size(); ++at)
        for (const unsigned bit : {0U, 3U, 7U}) {
            std::vector<std::byte> broken = whole;
            broken[at] ^= static_cast<std::byte>(1U << bit);
            const platform::Picture picture = toolkit::decodePng(broken);
            const std::size_t pixels =
                static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
            CHECK(picture.pixels.size() == pixels);
        }
}

TEST_CASE("a picture of another form is no picture") {
    constexpr std::size_t depth = 24;
    constexpr std::array<std::size_t, 5> form{depth, depth + 1, depth + 2, depth + 3, depth + 4};
    for (const std::size_t at : form) {
        CAPTURE(at);
        std::vector<std::byte> other = key();
        other[at] = std::byte{5};
        CHECK(toolkit::decodePng(other).empty());
    }
}

TEST_CASE("a picture has up to 8192 columns and rows") {
    const auto wide = [](unsigned width) {
        return fileOf(width, 1, std::vector<std::byte>(1 + std::size_t{width} * 3));
    };
    const auto high = [](unsigned height) {
        return fileOf(1, height, std::vector<std::byte>(std::size_t{height} * 4));
    };
    CHECK(toolkit::decodePng(wide(8192)).width == 8192);
    CHECK(toolkit::decodePng(wide(8193)).empty());
    CHECK(toolkit::decodePng(high(8192)).height == 8192);
    CHECK(toolkit::decodePng(high(8193)).empty());
    CHECK(toolkit::decodePng(wide(0)).empty());
    CHECK(toolkit::decodePng(high(0)).empty());
}

TEST_CASE("a row of each kind is told by what lies before and above it") {
    struct Row {
        std::vector<std::byte> file;
        std::vector<platform::Pixel> lower;
    };
    const unsigned plain = 0;
    // Above are the pixels (100, 60, 21) and (102, 60, 10). The last kind takes those above for the
    // first pixel, and for the second its left neighbour twice and the corner's once.
    const auto below = [&](unsigned kind) {
        return fileOf(2, 2, bytes({plain, 100, 60, 21, 102, 60, 10, kind, 50, 2, 13, 4, 5, 6}));
    };
    const std::vector<Row> rows = {{below(0), {0xFF32020DU, 0xFF040506U}},
                                   {below(1), {0xFF32020DU, 0xFF360713U}},
                                   {below(2), {0xFF963E22U, 0xFF6A4110U}},
                                   {below(3), {0xFF642017U, 0xFF693316U}},
                                   {below(4), {0xFF963E22U, 0xFF9A431BU}}};
    for (const Row& row : rows) {
        CAPTURE(&row - rows.data());
        const platform::Picture picture = toolkit::decodePng(row.file);
        REQUIRE(picture.pixels.size() == 4);
        CHECK(picture.pixels[0] == 0xFF643C15U);
        CHECK(picture.pixels[1] == 0xFF663C0AU);
        CHECK(picture.pixels[2] == row.lower[0]);
        CHECK(picture.pixels[3] == row.lower[1]);
    }
}
