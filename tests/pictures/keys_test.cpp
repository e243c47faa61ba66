#include "tests/pictures/bitmap.h"

#include <algorithm>
#include <doctest/doctest.h>
#include <set>
#include <string>
#include <vector>

using pictures::Bitmap;
using pictures::brightness;
using pictures::Colour;
using pictures::read;

namespace {

constexpr Colour outline = 0x2B3F57U;
constexpr Colour rim = 0x64789DU;
constexpr Colour faceColour = 0x758FC0U;

const char* const sunkKeys[] = {"pctprevdown.bmp",  "pctnextdown.bmp",    "pctstopdown.bmp",
                                "pctplaydown.bmp",  "pctopendown.bmp",    "pctpausedown.bmp",
                                "pctalarmdown.bmp", "pctplaylistdown.bmp"};

/// The pixels of the outline's colour inside the key, column by column mirrored if asked.
std::vector<bool> glyph(const Bitmap& key, bool mirrored) {
    std::vector<bool> marks;
    for (int y = 6; y <= 11; ++y) {
        for (int x = 4; x <= 13; ++x) {
            marks.push_back(key.at(mirrored ? 17 - x : x, y) == outline);
        }
    }
    return marks;
}

} // namespace

TEST_CASE("a key at rest is blank, with an outline, a rim and a face, on the deck") {
    const Bitmap key = read("key.bmp");
    for (int y = 0; y <= 3; ++y)
        CHECK(key.plain(y, 0, 17, 0x303632U));
    for (int y = 4; y <= 7; ++y)
        CHECK(key.at(0, y) == 0x3C4645U);
    for (int y = 8; y <= 11; ++y)
        CHECK(key.at(17, y) == 0x303A3BU);
    for (int y = 12; y <= 15; ++y)
        CHECK(key.plain(y, 0, 17, 0x242E2FU));
    CHECK(key.plain(4, 4, 13, outline));
    CHECK(key.plain(5, 4, 13, rim));
    CHECK(key.plain(7, 7, 10, faceColour));
    CHECK(key.plain(8, 7, 10, faceColour));
    CHECK(key.plain(10, 4, 13, rim));
    CHECK(key.plain(11, 4, 13, outline));
    for (int y = 5; y <= 10; ++y) {
        for (int x = 4; x <= 13; ++x)
            CHECK(key.at(x, y) != outline);
    }
}

TEST_CASE("a pressed key sinks by one row") {
    for (const char* name : sunkKeys) {
        CAPTURE(std::string(name));
        const Bitmap key = read(name);
        for (int y = 0; y <= 3; ++y)
            CHECK(key.plain(y, 0, 17, 0x303632U));
        CHECK(key.plain(4, 0, 17, 0x3C4645U));
        CHECK(key.plain(5, 4, 13, outline));
        CHECK(key.at(4, 6) == rim);
        CHECK(key.at(13, 11) == rim);
        CHECK(key.plain(12, 4, 13, outline));
        for (int y = 13; y <= 15; ++y)
            CHECK(key.plain(y, 0, 17, 0x242E2FU));
    }
}

TEST_CASE("every pressed key has a glyph of its own") {
    std::set<std::vector<bool>> glyphs;
    for (const char* name : sunkKeys) {
        CAPTURE(std::string(name));
        const std::vector<bool> marks = glyph(read(name), false);
        CHECK(std::count(marks.begin(), marks.end(), true) >= 12);
        CHECK(glyphs.insert(marks).second);
    }
}

TEST_CASE("previous and next mirror each other") {
    CHECK(glyph(read("pctprevdown.bmp"), true) == glyph(read("pctnextdown.bmp"), false));
}

TEST_CASE("the glyphs of stop, pause, alarm, open and list are symmetrical") {
    for (const char* name : {"pctstopdown.bmp", "pctpausedown.bmp", "pctalarmdown.bmp",
                             "pctopendown.bmp", "pctplaylistdown.bmp"}) {
        CAPTURE(std::string(name));
        const Bitmap key = read(name);
        CHECK(glyph(key, true) == glyph(key, false));
    }
}

TEST_CASE("the list key's bar is two rows high") {
    const Bitmap key = read("pctplaylistdown.bmp");
    CHECK(key.plain(8, 4, 13, outline));
    CHECK(key.plain(9, 4, 13, outline));
    CHECK(key.count(outline) == read("key.bmp").count(outline) + 20);
}

TEST_CASE("the seek thumb is a grey capsule that sinks by one row") {
    const Bitmap up = read("pctprogressbar.bmp");
    const Bitmap down = read("pctprogressbardown.bmp");
    std::size_t brightest = 0;
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 31; ++x) {
            const bool inside = x >= 3 && x <= 27 && y >= 2 && y <= 6;
            if (!inside) CHECK(brightness(up.at(x, y)) <= 4);
            const bool insideDown = x >= 3 && x <= 27 && y >= 3 && y <= 7;
            if (!insideDown) CHECK(brightness(down.at(x, y)) <= 4);
            brightest += up.at(x, y) == 0x838786U ? 1U : 0U;
            CHECK(brightness(up.at(x, y)) <= brightness(0x838786U));
        }
    }
    CHECK(brightest > 0);
    for (int y = 2; y <= 6; ++y) {
        for (int x = 5; x <= 25; ++x)
            CHECK(up.at(x, y) == down.at(x, y + 1));
    }
    CHECK(brightness(up.at(5, 4)) > brightness(up.at(16, 4)));
    CHECK(brightness(up.at(25, 4)) > brightness(up.at(14, 4)));
}

TEST_CASE("the volume cap is dark grey with lighter edges") {
    const Bitmap cap = read("pctvolume.bmp");
    CHECK(cap.count(0x353B39U) > 20);
    CHECK(cap.count(0x757B79U) > 4);
    for (const Colour c : cap.pixels)
        CHECK(brightness(c) <= brightness(0x757B79U));
}
