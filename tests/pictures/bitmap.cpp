#include "tests/pictures/bitmap.h"

#include "assets/assets.h"
#include "toolkit/png.h"

#include <algorithm>
#include <doctest/doctest.h>
#include <string>

namespace pictures {

Colour Bitmap::at(std::int32_t x, std::int32_t y) const {
    REQUIRE(x >= 0);
    REQUIRE(x < width);
    REQUIRE(y >= 0);
    REQUIRE(y < height);
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
}

bool Bitmap::plain(std::int32_t y, std::int32_t from, std::int32_t to, Colour c) const {
    for (std::int32_t x = from; x <= to; ++x) {
        if (at(x, y) != c) return false;
    }
    return true;
}

std::size_t Bitmap::count(Colour c) const {
    return static_cast<std::size_t>(std::count(pixels.begin(), pixels.end(), c));
}

std::uint32_t number(std::span<const std::byte> data, std::size_t place, std::size_t size) {
    REQUIRE(place + size <= data.size());
    std::uint32_t value = 0;
    for (std::size_t i = size; i > 0; --i) {
        value = value << 8U | std::to_integer<std::uint32_t>(data[place + i - 1]);
    }
    return value;
}

Bitmap read(std::string_view name) {
    const std::span<const std::byte> data = assets::file(name);
    CAPTURE(std::string(name));
    REQUIRE_FALSE(data.empty());
    REQUIRE(number(data, 0, 2) == 0x4D42U);
    REQUIRE(number(data, 2, 4) == data.size());
    Bitmap bitmap;
    bitmap.width = static_cast<std::int32_t>(number(data, 18, 4));
    bitmap.height = static_cast<std::int32_t>(number(data, 22, 4));
    bitmap.bits = number(data, 28, 2);
    bitmap.compression = number(data, 30, 4);
    REQUIRE(bitmap.bits == 24);
    REQUIRE(bitmap.compression == 0);
    const std::size_t start = number(data, 10, 4);
    const auto width = static_cast<std::size_t>(bitmap.width);
    const auto height = static_cast<std::size_t>(bitmap.height);
    const std::size_t stride = (width * 3 + 3) / 4 * 4;
    REQUIRE(data.size() == start + stride * height);
    for (std::size_t y = 0; y < height; ++y) {
        for (std::size_t x = 0; x < width; ++x) {
            bitmap.pixels.push_back(number(data, start + (height - 1 - y) * stride + x * 3, 3));
        }
    }
    return bitmap;
}

Bitmap read(std::string_view name, std::int32_t scale) {
    if (scale == 1) return read(name);
    const std::string stem(name.substr(0, name.rfind('.')));
    const std::string path = std::to_string(scale) + "x/" + stem + ".png";
    CAPTURE(path);
    const platform::Picture picture = toolkit::decodePng(assets::file(path));
    REQUIRE_FALSE(picture.empty());
    Bitmap bitmap;
    bitmap.width = picture.width;
    bitmap.height = picture.height;
    for (const platform::Pixel pixel : picture.pixels)
        bitmap.pixels.push_back(pixel & 0xFFFFFFU);
    return bitmap;
}

int brightness(Colour c) {
    return static_cast<int>((c >> 16U & 0xFFU) + (c >> 8U & 0xFFU) + (c & 0xFFU));
}

} // namespace pictures
