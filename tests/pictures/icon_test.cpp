#include "assets/assets.h"
#include "tests/pictures/bitmap.h"

#include <doctest/doctest.h>

#include <cstddef>
#include <cstdint>
#include <span>

using pictures::number;

namespace {

struct Image {
    std::uint32_t size;
    std::uint32_t bits;
};

using Bytes = std::span<const std::byte>;

/// Where the image of a directory's entry begins.
std::size_t imageAt(Bytes data, std::size_t entry) { return number(data, 6 + 16 * entry + 12, 4); }

/// The bytes of an image of this size and depth: header, colours, pixels and mask.
std::uint32_t imageBytes(const Image& image) {
    const std::uint32_t colours = image.bits <= 8 ? 4U << image.bits : 0U;
    const std::uint32_t maskStride = (image.size + 31) / 32 * 4;
    return 40 + colours + image.size * image.size * image.bits / 8 + maskStride * image.size;
}

void checkImage(Bytes data, std::size_t entry, const Image& expected) {
    const std::size_t at = imageAt(data, entry);
    CHECK(number(data, 6 + 16 * entry, 1) == expected.size % 256);
    CHECK(number(data, 6 + 16 * entry + 1, 1) == expected.size % 256);
    CHECK(number(data, 6 + 16 * entry + 8, 4) == imageBytes(expected));
    CHECK(number(data, at, 4) == 40);
    CHECK(number(data, at + 4, 4) == expected.size);
    CHECK(number(data, at + 8, 4) == 2 * expected.size);
    CHECK(number(data, at + 14, 2) == expected.bits);
    CHECK(number(data, at + 16, 4) == 0);
}

/// Whether the mask of an image lets the screen through at a pixel.
bool shinesThrough(Bytes data, std::size_t entry, const Image& image, std::uint32_t x,
                   std::uint32_t y) {
    const std::uint32_t stride = (image.size + 31) / 32 * 4;
    const std::uint32_t rowsBelow = (image.size - 1 - y) * stride;
    const std::uint32_t maskBytes = stride * image.size;
    const std::size_t mask = imageAt(data, entry) + imageBytes(image) - maskBytes;
    const std::uint32_t row = number(data, mask + rowsBelow + x / 8, 1);
    return (row >> (7 - x % 8) & 1U) != 0;
}

} // namespace

TEST_CASE("the icon has its seven images") {
    const Bytes data = assets::file("orvan.ico");
    const Image images[] = {{32, 8}, {16, 8}, {256, 32}, {128, 32}, {48, 32}, {32, 32}, {16, 32}};
    REQUIRE(number(data, 0, 2) == 0);
    REQUIRE(number(data, 2, 2) == 1);
    REQUIRE(number(data, 4, 2) == 7);
    for (std::size_t entry = 0; entry < 7; ++entry) {
        CAPTURE(entry);
        const Image& image = images[entry];
        CHECK(number(data, 6 + 16 * entry + 6, 2) == image.bits);
        checkImage(data, entry, image);
        CHECK(shinesThrough(data, entry, image, 0, 0));
        CHECK_FALSE(shinesThrough(data, entry, image, image.size / 2, image.size / 2));
    }
    CHECK(data.size() == imageAt(data, 6) + imageBytes(images[6]));
}

TEST_CASE("the pointer is an arrow of 18 rows with its hot spot at its tip") {
    const Bytes data = assets::file("pointer.cur");
    const Image image{32, 4};
    REQUIRE(number(data, 2, 2) == 2);
    REQUIRE(number(data, 4, 2) == 1);
    CHECK(number(data, 10, 2) == 0);
    CHECK(number(data, 12, 2) == 0);
    checkImage(data, 0, image);
    CHECK_FALSE(shinesThrough(data, 0, image, 0, 0));
    for (std::uint32_t y = 0; y < 32; ++y) {
        CAPTURE(y);
        bool drawn = false;
        for (std::uint32_t x = 0; x < 32; ++x) {
            drawn = drawn || !shinesThrough(data, 0, image, x, y);
        }
        CHECK(drawn == (y < 18));
    }
}

TEST_CASE("the about box has a pointer of its own") {
    const Bytes data = assets::file("close.cur");
    const Image image{32, 4};
    REQUIRE(number(data, 2, 2) == 2);
    checkImage(data, 0, image);
    CHECK_FALSE(shinesThrough(data, 0, image, number(data, 10, 2), number(data, 12, 2)));
}
