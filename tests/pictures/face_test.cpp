#include "tests/pictures/bitmap.h"

#include <doctest/doctest.h>

using pictures::Bitmap;
using pictures::brightness;
using pictures::Colour;
using pictures::read;

TEST_CASE("a steel frame runs along the top of the face, lightest in its left corner") {
    const Bitmap face = read("frmPlayer.bmp");
    CHECK(face.at(0, 0) == 0x8E9CB6U);
    CHECK(face.at(34, 0) == 0x595F6BU);
    CHECK(face.plain(0, 236, 274, 0x4A4F55U));
    CHECK(face.plain(1, 236, 274, 0x3F434CU));
    CHECK(face.plain(2, 236, 274, 0x4A4F55U));
    for (int y = 0; y < 3; ++y) {
        for (int x = 1; x < 275; ++x) {
            CHECK(brightness(face.at(x, y)) <= brightness(face.at(x - 1, y)));
            CHECK(brightness(face.at(x, y)) >= brightness(0x3F434CU));
        }
    }
}

TEST_CASE("the frame's left side fades from blue to grey and its right side is thin") {
    const Bitmap face = read("frmPlayer.bmp");
    CHECK(face.at(1, 3) == 0x586085U);
    CHECK(face.at(1, 76) == 0x6E7378U);
    for (int y = 8; y <= 35; ++y) {
        CHECK(brightness(face.at(0, y)) > brightness(face.at(1, y)));
        CHECK(brightness(face.at(2, y)) < brightness(face.at(1, y)));
        CHECK(face.at(3, y) == 0U);
        CHECK(face.at(272, y) == 0U);
        CHECK(face.at(273, y) == 0x3F434CU);
        CHECK(face.at(274, y) == 0x4A4F55U);
    }
}

TEST_CASE("the display is black") {
    const Bitmap face = read("frmPlayer.bmp");
    for (int y = 3; y <= 35; ++y) {
        CAPTURE(y);
        CHECK(face.plain(y, y < 8 ? 8 : 3, y < 8 ? 267 : 272, 0U));
    }
}

TEST_CASE("the seek groove brightens downward and toward the middle of its length") {
    const Bitmap face = read("frmPlayer.bmp");
    const Colour colours[] = {0x213550U, 0x364C73U, 0x6479A6U, 0xA2B6D9U};
    for (int row = 0; row < 4; ++row) {
        const int y = 36 + row;
        CAPTURE(y);
        CHECK(face.at(136, y) == colours[row]);
        CHECK(face.plain(y, 3, 15, 0U));
        CHECK(face.plain(y, 258, 272, 0U));
        CHECK(face.at(16, y) != 0U);
        CHECK(face.at(257, y) != 0U);
        for (int x = 17; x <= 136; ++x) {
            CHECK(brightness(face.at(x, y)) >= brightness(face.at(x - 1, y)));
            CHECK(face.at(x, y) == face.at(273 - x, y));
        }
        for (int x = 16; x <= 257; ++x) {
            CHECK(brightness(face.at(x, y)) >= brightness(face.at(x, y - 1)));
        }
    }
}

TEST_CASE("under the groove lie a dark ledge and a band of dark blue-green") {
    const Bitmap face = read("frmPlayer.bmp");
    CHECK(face.plain(40, 3, 272, 0x000B05U));
    for (int y = 41; y <= 47; ++y) {
        CAPTURE(y);
        CHECK(face.plain(y, 64, 272, 0x172D44U));
    }
}

TEST_CASE("the button deck is lightest in its middle and darkest at its foot") {
    const Bitmap face = read("frmPlayer.bmp");
    CHECK(face.plain(48, 6, 272, 0x2C3638U));
    CHECK(face.plain(51, 6, 127, 0x303632U));
    for (int y = 52; y <= 55; ++y)
        CHECK(face.plain(y, 6, 127, 0x3B4546U));
    for (int y = 56; y <= 59; ++y)
        CHECK(face.plain(y, 6, 127, 0x303A3BU));
    for (int y = 60; y <= 63; ++y)
        CHECK(face.plain(y, 6, 127, 0x242E2FU));
}

TEST_CASE("the volume groove lies in the deck") {
    const Bitmap face = read("frmPlayer.bmp");
    CHECK(face.plain(59, 162, 207, 0x7081B5U));
    CHECK(face.plain(60, 161, 208, 0x7585B8U));
    CHECK(face.plain(61, 162, 207, 0x7A8ABDU));
    for (int y = 59; y <= 61; ++y) {
        CHECK(brightness(face.at(161, y)) > 2 * brightness(face.at(160, y)));
        CHECK(brightness(face.at(208, y)) > 2 * brightness(face.at(209, y)));
    }
}

TEST_CASE("the key names stand in olive yellow on a black strip") {
    const Bitmap face = read("frmPlayer.bmp");
    const Colour ink = 0xAAB116U;
    for (const int y : {64, 65, 73, 74, 75, 76}) {
        CAPTURE(y);
        CHECK(face.plain(y, 3, 272, 0U));
    }
    // Each name begins in its column, with blank strip on its left.
    for (const int x : {7, 31, 55, 79, 103, 131, 165, 211, 248}) {
        CAPTURE(x);
        bool inked = false;
        for (int y = 66; y <= 72; ++y) {
            CHECK(face.at(x - 1, y) == 0U);
            inked = inked || face.at(x, y) != 0U;
        }
        CHECK(inked);
    }
    for (const int y : {66, 72}) {
        bool inked = false;
        for (int x = 3; x <= 272; ++x)
            inked = inked || face.at(x, y) == ink;
        CHECK(inked);
    }
    CHECK(face.count(ink) > 300);
}

TEST_CASE("the lower frame is grey") {
    const Bitmap face = read("frmPlayer.bmp");
    CHECK(face.plain(79, 120, 274, 0x646466U));
    for (int y = 77; y <= 80; ++y) {
        for (int x = 0; x < 275; ++x) {
            CHECK(brightness(face.at(x, y)) >= brightness(0x646466U) - 60);
            CHECK(brightness(face.at(x, y)) <= brightness(0x646466U) + 75);
        }
    }
}
