#include "runtime/fixed.h"
#include "tests/runner/error_of.h"

#include <cmath>
#include <cstdint>
#include <doctest/doctest.h>
#include <limits>

using runtime::Fixed;

namespace {

constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();

} // namespace

TEST_CASE("a real is stored to the nearest ten-thousandth, ties to the even one") {
    struct Row {
        double value;
        std::int64_t units;
    };
    const Row rows[] = {
        {0.0, 0},
        {-0.0, 0},
        {1.0, 10000},
        {-1.0, -10000},
        {0.0001, 1},
        {-0.0001, -1},
        // Exact ties: multiples of 1/32.
        {0.03125, 312},
        {0.09375, 938},
        {0.78125, 7812},
        {0.84375, 8438},
        {-0.03125, -312},
        {-0.09375, -938},
        {-0.78125, -7812},
        {1.03125, 10312},
        // No ties in truth, though the decimal text looks like one.
        {0.00005, 1},
        {-0.00005, -1},
        {0.00015, 1},
        {0.00025, 3},
        {0.00035, 3},
        {2.34565, 23457},
        {12345.67895, 123456789},
        {-12345.67895, -123456789},
        {1.0 / 3.0, 3333},
        {2.0 / 3.0, 6667},
        {-2.0 / 3.0, -6667},
        {0.1 + 0.2, 3000},
        // A ten-thousandth of a double's grain and less.
        {1e-300, 0},
        {-1e-300, 0},
        {0.00004999999, 0},
    };
    for (const Row& row : rows) {
        CAPTURE(row.value);
        CHECK(Fixed(row.value).units() == row.units);
    }
}

TEST_CASE("large reals are stored exactly as far as they go") {
    // The product needs more than the 53 bits of a double.
    CHECK(Fixed(1099511627776.000732421875).units() == 10995116277760007);
    CHECK(Fixed(900719925474099.25).units() == 9007199254740992500);
    CHECK(Fixed(-900719925474099.25).units() == -9007199254740992500);
}

TEST_CASE("what doesn't fit 64 bits raises error 6") {
    CHECK(Fixed(922337203685477.5).units() == 9223372036854775000);
    CHECK(errorOf([] { return Fixed(922337203685478.0); }) == runtime::Overflow);
    CHECK(errorOf([] { return Fixed(-922337203685478.0); }) == runtime::Overflow);
    CHECK(errorOf([] { return Fixed(1e300); }) == runtime::Overflow);
    CHECK(errorOf([] { return Fixed(std::nan("")); }) == runtime::Overflow);
    CHECK(errorOf([] { return Fixed(HUGE_VAL); }) == runtime::Overflow);
}

TEST_CASE("whole numbers are stored exactly") {
    CHECK(Fixed(86400).units() == 864000000);
    CHECK(Fixed(-1).units() == -10000);
    CHECK(Fixed(std::int32_t{2147483647}).units() == 21474836470000);
}

TEST_CASE("sums, differences and products with whole numbers are exact") {
    CHECK((Fixed(0.1) + Fixed(0.2)) == Fixed(0.3));
    CHECK((Fixed(0.1) - Fixed(0.3)) == Fixed(-0.2));
    CHECK((Fixed(0.0001) * 30000) == Fixed(3));
    CHECK((Fixed(-1.5) * -3) == Fixed(4.5));
}

TEST_CASE("sums, differences and products that don't fit raise error 6") {
    const Fixed largest = Fixed::fromUnits(most);
    const Fixed smallest = Fixed::fromUnits(least);
    const Fixed unit = Fixed::fromUnits(1);
    CHECK((largest - unit).units() == most - 1);
    CHECK(errorOf([&] { return largest + unit; }) == runtime::Overflow);
    CHECK(errorOf([&] { return smallest - unit; }) == runtime::Overflow);
    CHECK(errorOf([&] { return largest * 2; }) == runtime::Overflow);
    CHECK(errorOf([&] { return smallest * -1; }) == runtime::Overflow);
}

TEST_CASE("fixed-point numbers compare by value") {
    CHECK(Fixed(0.00014) == Fixed(0.0001));
    CHECK(Fixed(-1) < Fixed(0));
    CHECK(Fixed(5) == 5);
    CHECK(Fixed(5.0001) > 5);
}

TEST_CASE("a fixed-point number reads back as a real") {
    CHECK(Fixed(0.5).toDouble() == 0.5);
    CHECK(Fixed(-12.3456).toDouble() == -12.3456);
}

TEST_CASE("a fixed-point number rounds to the nearest whole one, ties to the even one") {
    struct Row {
        std::int64_t units;
        std::int32_t whole;
    };
    const Row rows[] = {
        {0, 0},
        {4999, 0},
        {5000, 0},
        {5001, 1},
        {15000, 2},
        {24999, 2},
        {25000, 2},
        {25001, 3},
        {-4999, 0},
        {-5000, 0},
        {-5001, -1},
        {-15000, -2},
        {-25000, -2},
        {-25001, -3},
        {-35000, -4},
        {21474836475000 - 1, 2147483647},
        {-21474836485000, -2147483648},
    };
    for (const Row& row : rows) {
        CAPTURE(row.units);
        CHECK(runtime::roundToInt32(Fixed::fromUnits(row.units)) == row.whole);
    }
}

TEST_CASE("a fixed-point number that rounds outside 32 bits raises error 6") {
    CHECK(errorOf([] { return runtime::roundToInt32(Fixed::fromUnits(21474836475000)); }) ==
          runtime::Overflow);
    CHECK(errorOf([] { return runtime::roundToInt32(Fixed::fromUnits(-21474836485001)); }) ==
          runtime::Overflow);
}
