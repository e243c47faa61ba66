#include "mainwindow/seek.h"
#include "tests/runner/error_of.h"

#include <cmath>
#include <cstdint>
#include <doctest/doctest.h>

using runtime::Fixed;

TEST_CASE("three moves of the seek thumb on a short and on a very long track") {
    struct Row {
        int length;
        double pressPosition;
        int pressLeft;
        int travel;
        double offset;
        double left; ///< one decimal place
        double position;
    };
    // The device stands still at the position of the press; each row starts from the row before.
    const Row rows[] = {
        {200, 47.2, 1000, 150, 150, 1000, 56.5168},
        {200, 47.2, 1000, 300, 299.4213, 1150, 65.7976},
        {200, 47.2, 1000, 450, 448.8449, 1299.4, 75.0786},
        {6000, 1000, 777, 150, 150, 777, 1279.5031},
        {6000, 1000, 777, 300, -220.8132, 927, 588.5468},
        {6000, 1000, 777, 450, 1216.683, 556.2, 3267.1112},
    };
    Fixed position;
    for (const Row& row : rows) {
        CAPTURE(row.length);
        CAPTURE(row.travel);
        const Fixed pressed(row.pressPosition);
        if (row.travel == 150) position = pressed;
        const Fixed offset = seek::dragOffset(row.travel, row.length, position, pressed);
        const float left = seek::draggedLeft(position, pressed, row.length, row.pressLeft);
        position = seek::soughtPosition(row.length, offset,
                                        static_cast<int>(std::lround(row.pressPosition * 1000)));
        CHECK(offset == Fixed(row.offset));
        CHECK(std::fabs(static_cast<double>(left) - row.left) < 0.05);
        CHECK(position == Fixed(row.position));
    }
}

TEST_CASE("a thumb is never limited to its bar") {
    CHECK(seek::draggedLeft(Fixed(400), Fixed(0), Fixed(200), 240) == 6680.0F);
    CHECK(seek::draggedLeft(Fixed(-200), Fixed(0), Fixed(200), 240) == -2980.0F);
    CHECK(seek::soughtPosition(Fixed(200), Fixed(-6440), 100'000) == Fixed(-300));
}

TEST_CASE("a track without length can't be dragged through") {
    CHECK(errorOf([] { seek::draggedLeft(Fixed(1), Fixed(0), Fixed(0), 240); }) ==
          runtime::DivisionByZero);
    CHECK(errorOf([] { seek::draggedLeft(Fixed(1), Fixed(1), Fixed(0), 240); }) ==
          runtime::Overflow);
}

TEST_CASE("the dragged thumb's place is worked out in double precision and narrowed once") {
    struct Row {
        int length;
        std::int64_t position; ///< ten-thousandths of a second
        int pressLeft;
        float left;
    };
    // Single precision anywhere on the way ends one step beside these.
    const Row rows[] = {
        {200, 10, 1000, 240.09609985351562F},    {200, 2230, 1000, 243.67030334472656F},
        {187, 380, 1000, 187.90567016601562F},   {263, 1120, 1000, 423.4853210449219F},
        {3000, 49220, 1000, 954.6216430664062F},
    };
    for (const Row& row : rows) {
        CAPTURE(row.position);
        CHECK(seek::draggedLeft(Fixed::fromUnits(row.position), Fixed(47.2), row.length,
                                row.pressLeft) == row.left);
    }
}
