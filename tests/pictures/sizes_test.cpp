#include "assets/assets.h"
#include "tests/pictures/bitmap.h"
#include "tests/pictures/sizes.h"

#include <doctest/doctest.h>
#include <string>

TEST_CASE("every bitmap is there, uncompressed, with 24 bits a pixel, in its own size") {
    for (const pictures::SizeRow& row : pictures::sizes) {
        CAPTURE(std::string(row.name));
        const pictures::Bitmap bitmap = pictures::read(row.name);
        CHECK(bitmap.width == row.width);
        CHECK(bitmap.height == row.height);
    }
}

TEST_CASE("an asset that isn't there gives no bytes") {
    CHECK(assets::file("pctnone.bmp").empty());
    CHECK(assets::file("").empty());
    CHECK(assets::file("key.bm").empty());
}
