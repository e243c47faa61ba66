#include "assets/assets.h"
#include "tests/pictures/bitmap.h"
#include "tests/pictures/sizes.h"
#include "toolkit/png.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <doctest/doctest.h>
#include <string>

using pictures::Bitmap;
using pictures::brightness;
using pictures::Colour;
using pictures::read;

namespace {

constexpr std::int32_t largerScales[] = {2, 3, 4};

struct Box {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right; ///< lies outside, as `bottom` does
    std::int32_t bottom;
    friend bool operator==(const Box&, const Box&) = default;
};

doctest::String toString(const Box& box) {
    const auto text = [](std::int32_t n) { return std::to_string(n) + ' '; };
    return (text(box.left) + text(box.top) + text(box.right) + text(box.bottom)).c_str();
}

Box times(const Box& box, std::int32_t n) {
    return {box.left * n, box.top * n, box.right * n, box.bottom * n};
}

/// The box of the pixels inside `part` that pass a test.
template <class Test>
Box boxOf(const Bitmap& picture, const Box& part, Test passes) {
    Box box{part.right, part.bottom, part.left, part.top};
    for (std::int32_t y = part.top; y < part.bottom; ++y)
        for (std::int32_t x = part.left; x < part.right; ++x)
            if (passes(picture.at(x, y)))
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                       std::max(box.bottom, y + 1)};
    return box;
}

/// Checks that what passes a test has its box at every scale where it has it at the natural size.
template <class Test>
void checkBox(const char* name, const Box& part, Test passes) {
    CAPTURE(std::string(name));
    const Box natural = boxOf(read(name), part, passes);
    REQUIRE(natural.left < natural.right);
    for (const std::int32_t n : largerScales) {
        CAPTURE(n);
        CHECK(boxOf(read(name, n), times(part, n), passes) == times(natural, n));
    }
}

/// One of the three channels of a pixel, averaged over the block that stands for it.
double averaged(const Bitmap& picture, std::int32_t scale, std::int32_t x, std::int32_t y,
                std::uint32_t shift) {
    std::uint32_t sum = 0;
    for (std::int32_t j = 0; j < scale; ++j)
        for (std::int32_t i = 0; i < scale; ++i)
            sum += picture.at(x * scale + i, y * scale + j) >> shift & 0xFFU;
    return static_cast<double>(sum) / (scale * scale);
}

/// How far a larger picture, averaged down to the natural size, is from it: channel steps a pixel.
double difference(const Bitmap& natural, const Bitmap& larger, std::int32_t scale) {
    double sum = 0;
    for (std::int32_t y = 0; y < natural.height; ++y)
        for (std::int32_t x = 0; x < natural.width; ++x)
            for (const std::uint32_t shift : {0U, 8U, 16U})
                sum += std::abs(averaged(larger, scale, x, y, shift) -
                                static_cast<double>(natural.at(x, y) >> shift & 0xFFU));
    return sum / (3.0 * natural.width * natural.height);
}

bool inked(Colour c) { return brightness(c) > 60; }

} // namespace

TEST_CASE("every picture is there at two, three and four times its size") {
    for (const pictures::SizeRow& row : pictures::sizes) {
        CAPTURE(std::string(row.name));
        for (const std::int32_t n : largerScales) {
            const Bitmap larger = read(row.name, n);
            CHECK(larger.width == row.width * n);
            CHECK(larger.height == row.height * n);
        }
    }
}

TEST_CASE(
    "a larger picture has the light and the colours of its natural size, all in their places") {
    // What is left is the roughness of letters and thin glyphs at one pixel a unit.
    constexpr double roughness = 6.0;
    for (const pictures::SizeRow& row : pictures::sizes) {
        CAPTURE(std::string(row.name));
        for (const std::int32_t n : largerScales)
            CHECK(difference(read(row.name), read(row.name, n), n) < roughness);
    }
}

TEST_CASE("a larger picture is drawn at its size, not enlarged") {
    for (const pictures::SizeRow& row : pictures::sizes) {
        CAPTURE(std::string(row.name));
        for (const std::int32_t n : largerScales) {
            const Bitmap larger = read(row.name, n);
            bool enlarged = true;
            for (std::int32_t y = 0; y < larger.height; ++y)
                for (std::int32_t x = 0; x < larger.width; ++x)
                    enlarged = enlarged && larger.at(x, y) == larger.at(x - x % n, y - y % n);
            CHECK_FALSE(enlarged);
        }
    }
}

TEST_CASE("every key name stands in its box at every scale") {
    const std::int32_t starts[] = {7, 31, 55, 79, 103, 131, 165, 211, 248, 272};
    for (std::size_t i = 0; i + 1 < std::size(starts); ++i)
        checkBox("frmPlayer.bmp", {starts[i] - 1, 64, starts[i + 1] - 1, 76}, inked);
    for (const char* name : {"pctClear.bmp", "pctClearAll.bmp"})
        checkBox(name, {0, 0, 32, 10}, [](Colour c) { return (c >> 16U & 0xFFU) > 0x60U; });
}

TEST_CASE("every glyph fills its box at every scale") {
    const auto dark = [](Colour c) { return brightness(c) < 0x140; };
    for (const char* name : {"pctprevdown.bmp", "pctnextdown.bmp", "pctstopdown.bmp",
                             "pctopendown.bmp", "pctpausedown.bmp", "pctplaylistdown.bmp"})
        checkBox(name, {4, 6, 14, 12}, dark);
    for (const char* name :
         {"pctPlsPrev.bmp", "pctPlsNext.bmp", "pctPlsStop.bmp", "pctPlsPlay.bmp", "pctPlsOpen.bmp",
          "pctPlsPause.bmp", "pctPlsStopDown.bmp", "pctPlsOpenDown.bmp", "pctPlsPauseDown.bmp"})
        checkBox(name, {5, 2, 15, 7}, dark);
    checkBox("pctquitdown.bmp", {1, 5, 8, 12}, [](Colour c) { return brightness(c) > 300; });
}

TEST_CASE("the capsules, the caps and the grooves keep their boxes at every scale") {
    checkBox("pctprogressbar.bmp", {0, 0, 31, 9}, inked);
    checkBox("pctprogressbardown.bmp", {0, 0, 31, 9}, inked);
    checkBox("pctClear.bmp", {0, 0, 33, 10}, inked);
    const auto blue = [](Colour c) { return (c & 0xFFU) > 0x80U; };
    checkBox("frmPlayer.bmp", {129, 57, 240, 64}, blue); // the volume groove
    checkBox("frmPlayer.bmp", {60, 30, 214, 41}, inked); // the seek groove's middle
    checkBox("frmPlaylist.bmp", {10, 4, 229, 14}, [](Colour c) { return (c & 0xFFU) == 0x44U; });
}

TEST_CASE("the planes of the deck meet in the same places at every scale") {
    for (const std::int32_t n : largerScales) {
        CAPTURE(n);
        const Bitmap face = read("frmPlayer.bmp", n);
        const auto plain = [&](std::int32_t from, std::int32_t to, Colour colour) {
            for (std::int32_t y = from * n; y < to * n; ++y)
                CHECK(face.plain(y, 64 * n, 127 * n, colour));
        };
        plain(40, 41, 0x000B05U);
        plain(41, 48, 0x172D44U);
        plain(48, 49, 0x2C3638U);
        plain(50, 52, 0x303632U);
        plain(52, 56, 0x3B4546U);
        plain(56, 60, 0x303A3BU);
        plain(60, 64, 0x242E2FU);
        plain(64, 66, 0U);
        plain(73, 77, 0U);
    }
}

TEST_CASE("a key at rest has a whole outline and a whole rim at every scale") {
    for (const std::int32_t n : largerScales) {
        CAPTURE(n);
        const Bitmap key = read("key.bmp", n);
        for (std::int32_t i = 0; i < n; ++i) {
            CHECK(key.plain(4 * n + i, 5 * n, 13 * n - 1, 0x2B3F57U));
            CHECK(key.plain(5 * n + i, 5 * n, 13 * n - 1, 0x64789DU));
            CHECK(key.plain(10 * n + i, 5 * n, 13 * n - 1, 0x64789DU));
            CHECK(key.plain(11 * n + i, 5 * n, 13 * n - 1, 0x2B3F57U));
        }
    }
}

TEST_CASE("the program's picture in the about box is there at every scale, with its alpha") {
    for (const std::int32_t n : largerScales) {
        CAPTURE(n);
        const auto icon = toolkit::decodePng(assets::file(std::to_string(n) + "x/icon.png"));
        REQUIRE(icon.width == 32 * n);
        REQUIRE(icon.height == 32 * n);
        CHECK(icon.row(0)[0] < 0x01000000U);
        const std::int32_t middle = 16 * n;
        CHECK(icon.row(middle)[middle] >= 0xFF000000U);
    }
}
