#include "tests/pictures/bitmap.h"

#include <doctest/doctest.h>
#include <string>

using pictures::Bitmap;
using pictures::Colour;
using pictures::read;

TEST_CASE("the playlist begins with the main window's steel frame") {
    const Bitmap face = read("frmPlayer.bmp");
    const Bitmap list = read("frmPlaylist.bmp");
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 275; ++x)
            CHECK(list.at(x, y) == face.at(x, y));
    }
}

TEST_CASE("the playlist's title band is dark, with a blue inlay") {
    const Bitmap list = read("frmPlaylist.bmp");
    CHECK(list.plain(3, 9, 230, 0x272A2FU));
    CHECK(list.plain(15, 3, 230, 0x232A30U));
    CHECK(list.plain(9, 12, 227, 0x172D44U));
    CHECK(list.plain(9, 3, 10, 0x232A30U));
}

TEST_CASE("the playlist's panel is near black down to the deck of the small keys") {
    const Bitmap list = read("frmPlaylist.bmp");
    for (int y = 16; y <= 69; ++y) {
        CAPTURE(y);
        CHECK(list.plain(y, 3, 272, 0x040905U));
    }
    for (int y = 60; y <= 69; ++y)
        CHECK(list.plain(y, 0, 274, 0x040905U));
    CHECK(list.plain(70, 0, 274, 0x303A3BU));
    CHECK(list.plain(75, 0, 274, 0x242E2FU));
    for (int y = 78; y <= 81; ++y)
        CHECK(list.plain(y, 0, 274, 0x000400U));
    CHECK(list.plain(76, 210, 254, 0x000400U));
    CHECK(list.plain(76, 260, 274, 0x000400U));
}

TEST_CASE("the scroll keys sink by one row and show their wedges") {
    const Colour ground = 0x040905U;
    const Colour ink = 0x2B3F57U;
    const Bitmap rest = read("scrollkey.bmp");
    const Bitmap up = read("pctLboxUpDown.bmp");
    const Bitmap down = read("pctLBoxDownDown.bmp");
    CHECK(rest.plain(2, 0, 17, ground));
    CHECK(rest.plain(3, 6, 11, ink));
    CHECK(rest.plain(12, 6, 11, ink));
    CHECK(rest.plain(13, 0, 17, ground));
    CHECK(rest.at(9, 7) == 0x758FC0U);
    CHECK(rest.at(9, 4) == 0x64789DU);
    for (const Bitmap& key : {up, down}) {
        CHECK(key.plain(3, 0, 17, ground));
        CHECK(key.plain(4, 6, 11, ink));
        CHECK(key.plain(13, 6, 11, ink));
        CHECK(key.plain(14, 0, 17, ground));
    }
    CHECK(up.at(5, 7) != ink);
    CHECK(up.plain(10, 5, 12, ink));
    CHECK(down.plain(7, 5, 12, ink));
    CHECK(down.at(5, 10) != ink);
}

TEST_CASE("a capsule key lies on the two planes of the deck and on the dark foot") {
    for (const char* name :
         {"pctPlsPrev", "pctPlsNext", "pctPlsStop", "pctPlsPlay", "pctPlsOpen", "pctPlsPause"}) {
        for (const char* state : {".bmp", "Down.bmp"}) {
            const std::string file = std::string(name) + state;
            CAPTURE(file);
            const Bitmap key = read(file);
            CHECK(key.plain(0, 0, 19, 0x303A3BU));
            for (int y = 0; y < 9; ++y) {
                const Colour ground = y < 3 ? 0x303A3BU : y < 6 ? 0x242E2FU : 0x000400U;
                CHECK(key.at(0, y) == ground);
                CHECK(key.at(19, y) == ground);
            }
            CHECK(key.plain(8, 0, 19, 0x000400U));
            CHECK(key.plain(1, 5, 14, 0x354658U));
            CHECK(key.plain(7, 5, 14, 0x354658U));
            CHECK(key.at(3, 4) == 0x6D85A9U);
            CHECK(key.at(16, 4) == 0x6D85A9U);
        }
    }
}

TEST_CASE("a pressed capsule key shows its glyph thicker") {
    for (const char* name :
         {"pctPlsPrev", "pctPlsNext", "pctPlsStop", "pctPlsPlay", "pctPlsOpen", "pctPlsPause"}) {
        CAPTURE(std::string(name));
        const std::string base(name);
        const std::size_t thin = read(base + ".bmp").count(0x264059U);
        CHECK(thin >= 5);
        CHECK(read(base + "Down.bmp").count(0x264059U) > thin);
    }
}

TEST_CASE("the word keys are printed in olive yellow on the deck") {
    for (const char* name : {"pctClear.bmp", "pctClearAll.bmp"}) {
        CAPTURE(std::string(name));
        const Bitmap key = read(name);
        CHECK(key.plain(0, 0, key.width - 1, 0x303A3BU));
        CHECK(key.at(1, 5) == 0x242E2FU);
        CHECK(key.count(0xAAB116U) > 50);
        CHECK(key.plain(8, 3, 30, 0x242E2FU));
    }
}
