#include "tests/pictures/bitmap.h"

#include <algorithm>
#include <doctest/doctest.h>
#include <string>

using pictures::Bitmap;
using pictures::brightness;
using pictures::Colour;
using pictures::read;

namespace {

Colour brightest(const Bitmap& bitmap) {
    return *std::max_element(bitmap.pixels.begin(), bitmap.pixels.end(),
                             [](Colour a, Colour b) { return brightness(a) < brightness(b); });
}

} // namespace

TEST_CASE("the title keys go on with the frame above them") {
    const Bitmap face = read("frmPlayer.bmp");
    const Bitmap list = read("frmPlaylist.bmp");
    for (const char* name :
         {"pctminimise.bmp", "pctminimisedown.bmp", "pctquit.bmp", "pctquitdown.bmp"}) {
        CAPTURE(std::string(name));
        const Bitmap key = read(name);
        CHECK(key.plain(0, 0, key.width - 1, 0x4A4F55U));
        CHECK(key.plain(1, 0, key.width - 1, 0x3F434CU));
        CHECK(key.plain(2, 0, key.width - 1, 0x4A4F55U));
        for (int y = 0; y < 3; ++y) {
            CHECK(key.at(0, y) == face.at(248, y));
            CHECK(key.at(0, y) == list.at(248, y));
        }
    }
}

TEST_CASE("a title key at rest is a soft light on black") {
    CHECK(brightest(read("pctminimise.bmp")) == 0xB3C8DDU);
    CHECK(brightest(read("pctquit.bmp")) == 0xAED3FFU);
    CHECK(read("pctminimise.bmp").plain(15, 0, 8, 0U));
    CHECK(read("pctquit.bmp").plain(19, 0, 8, 0U));
    CHECK(read("pctminimise.bmp").plain(3, 0, 8, 0U));
}

TEST_CASE("the pressed minimise key shows a bright underscore on a dark plate") {
    const Bitmap key = read("pctminimisedown.bmp");
    CHECK(key.plain(3, 0, 8, 0x272A2FU));
    CHECK(key.plain(9, 0, 8, 0x272A2FU));
    CHECK(key.plain(10, 3, 5, 0xCFDDE8U));
    CHECK(brightest(key) == 0xCFDDE8U);
    CHECK(key.plain(15, 0, 8, 0U));
}

TEST_CASE("the pressed quit key shows a bright cross on a dark plate") {
    const Bitmap key = read("pctquitdown.bmp");
    const Colour ink = 0xF1F7F5U;
    CHECK(brightest(key) == ink);
    CHECK(key.count(ink) == 9);
    for (int step = 0; step < 5; ++step) {
        CHECK(key.at(2 + step, 6 + step) == ink);
        CHECK(key.at(6 - step, 6 + step) == ink);
    }
    CHECK(key.plain(5, 0, 6, 0x272A2FU));
    CHECK(key.plain(18, 0, 8, 0U));
}
