#include "toolkit/artwork.h"
#include "toolkit/reduce.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <doctest/doctest.h>
#include <vector>

using platform::Picture;
using platform::Pixel;
using toolkit::Artwork;

namespace {

constexpr Pixel black = 0xFF000000U;
constexpr Pixel white = 0xFFFFFFFFU;
constexpr Pixel red = 0xFFFF0000U;
const double fractions[] = {1.25, 1.5, 1.75, 2.25, 2.5, 2.75, 3.5};

/// 10 x 20 black pixels, the row 7 and the column 4 white.
Picture crossed(std::int32_t times) {
    Picture picture(10 * times, 20 * times, black);
    for (std::int32_t y = 0; y < picture.height; ++y)
        for (std::int32_t x = 0; x < picture.width; ++x)
            if (y / times == 7 || x / times == 4) picture.row(y)[x] = white;
    return picture;
}

std::int32_t whitesAlongTheLeftEdge(const Picture& picture) {
    std::int32_t count = 0;
    for (std::int32_t y = 0; y < picture.height; ++y)
        count += picture.row(y)[0] == white ? 1 : 0;
    return count;
}

} // namespace

TEST_CASE("a display of the usual scale never asks for a larger picture") {
    int asked = 0;
    const Artwork artwork(crossed(1), [&](std::int32_t times) {
        ++asked;
        return crossed(times);
    });
    for (std::int32_t x = 0; x < 3; ++x)
        CHECK(artwork.at(1, {x, 0}) == crossed(1));
    CHECK(asked == 0);
}

TEST_CASE("a picture is made when it is first needed, and no more than once") {
    std::vector<std::int32_t> asked;
    const Artwork artwork([&](std::int32_t times) {
        asked.push_back(times);
        return crossed(times);
    });
    CHECK(asked.empty());
    CHECK(artwork.opaque());
    for (std::int32_t x = 0; x < 3; ++x)
        CHECK(artwork.at(1, {x, 0}) == crossed(1));
    CHECK(artwork.natural() == crossed(1));
    CHECK(asked == std::vector<std::int32_t>{1});
}

TEST_CASE("at a whole scale the picture that is drawn for it shows as it is, made once") {
    int asked = 0;
    const Artwork artwork(crossed(1), [&](std::int32_t times) {
        ++asked;
        return Picture(10 * times, 20 * times, red);
    });
    for (const std::int32_t times : {2, 3, 4}) {
        CAPTURE(times);
        asked = 0;
        for (std::int32_t x = 0; x < 3; ++x)
            CHECK(artwork.at(times, {x, 5}) == Picture(10 * times, 20 * times, red));
        CHECK(asked == 1);
    }
}

TEST_CASE("a picture that has no larger form is enlarged") {
    CHECK(Artwork(crossed(1)).at(3, {0, 0}) == crossed(3));
    CHECK(Artwork(Picture()).at(3, {0, 0}).empty());
    const Artwork artwork(crossed(1));
    for (const std::int32_t times : {2, 4, 3})
        CHECK(artwork.at(times, {0, 0}) == crossed(times));
    const Artwork without(crossed(1), [](std::int32_t) { return Picture(); });
    CHECK(without.at(3, {0, 0}) == crossed(3));
}

TEST_CASE("a line one pixel wide stays whole at every fraction, wherever the picture stands") {
    const Artwork artwork(crossed(1), crossed);
    for (const double scale : fractions)
        for (std::int32_t y = -4; y < 4; ++y) {
            CAPTURE(scale);
            CAPTURE(y);
            const Picture& fitted = artwork.at(scale, {0, y});
            for (const Pixel pixel : fitted.pixels)
                CHECK((pixel == black || pixel == white));
            const std::int32_t thick = whitesAlongTheLeftEdge(fitted);
            CHECK(thick >= static_cast<std::int32_t>(std::floor(scale)));
            CHECK(thick <= static_cast<std::int32_t>(std::ceil(scale)));
        }
}

TEST_CASE("pictures side by side neither overlap nor leave a gap at any fraction") {
    const Artwork artwork(crossed(1), crossed);
    for (const double scale : fractions)
        for (std::int32_t x = 0; x < 8; ++x) {
            CAPTURE(scale);
            const std::int32_t both =
                artwork.at(scale, {x, 0}).width + artwork.at(scale, {x + 10, 0}).width;
            const double end = std::floor((x + 20) * scale + 0.5);
            CHECK(both == static_cast<std::int32_t>(end - std::floor(x * scale + 0.5)));
        }
}

TEST_CASE("what has no lines is reduced smoothly, and keeps its light") {
    // Stripes so fine that only their mean can be shown.
    const Picture natural(8, 8, 0xFF808080U);
    Picture stripes(16, 16, black);
    for (std::int32_t y = 0; y < 16; ++y)
        for (std::int32_t x = 0; x < 16; x += 2)
            stripes.row(y)[x] = white;
    const Picture fitted = toolkit::reduced(natural, stripes, 1.5, {0, 0});
    REQUIRE(fitted.width == 12);
    double sum = 0;
    for (std::int32_t x = 0; x < fitted.width; ++x)
        sum += fitted.row(5)[x] & 0xFFU;
    CHECK(sum / fitted.width == doctest::Approx(127.5).epsilon(0.01));
    CHECK(fitted.row(5)[0] != black);
    CHECK(fitted.row(5)[1] != white);
}

TEST_CASE("what shines through stays out of the colours when a picture is reduced") {
    Picture half(4, 4, 0x00FFFFFFU);
    for (std::int32_t y = 0; y < 4; ++y)
        half.row(y)[0] = half.row(y)[1] = red;
    const Picture fitted = toolkit::reduced(Picture(2, 2, 0x80FF0000U), half, 1.5, {0, 0});
    REQUIRE(fitted.width == 3);
    CHECK(fitted.row(1)[0] == red);
    CHECK((fitted.row(1)[1] & 0xFFFFFFU) == (red & 0xFFFFFFU));
    CHECK(fitted.row(1)[2] == 0U);
}

TEST_CASE("a line counts if it runs along half of a picture") {
    Picture picture(6, 4, black);
    for (std::int32_t x = 0; x < 3; ++x)
        picture.row(2)[x] = white;
    picture.row(0)[5] = white;
    CHECK(toolkit::linesBetweenRows(picture) == std::vector<bool>{true, false, true, true, true});
    CHECK(toolkit::linesBetweenColumns(picture) ==
          std::vector<bool>{true, false, false, false, false, false, true});
}

TEST_CASE("edges without a line lie evenly between those that have one") {
    const std::vector<double> edges =
        toolkit::fittedEdges({true, false, true, false, false, true}, 1.5, 1);
    // The places 1, 3 and 6 of the window lie at 1.5, 4.5 and 9 pixels: 2, 5 and 9 in whole ones.
    const std::vector<double> expected{0, 1.5, 3, 3 + 4.0 / 3, 3 + 8.0 / 3, 7};
    REQUIRE(edges.size() == expected.size());
    for (std::size_t i = 0; i < edges.size(); ++i)
        CHECK(edges[i] == doctest::Approx(expected[i]));
}
