#include "runtime/rounding.h"
#include "tests/runner/error_of.h"

#include <cfenv>
#include <cmath>
#include <cstdint>
#include <doctest/doctest.h>
#include <limits>

namespace {

struct Row {
    double value;
    int whole;
};

constexpr Row rows[] = {
    {0.0, 0},           {0.49999999999999994, 0},
    {0.5, 0},           {0.50000000000000011, 1},
    {1.5, 2},           {2.5, 2},
    {3.5, 4},           {-0.5, 0},
    {-1.5, -2},         {-2.5, -2},
    {-2.51, -3},        {-0.49, 0},
    {32766.5, 32766},   {32767.49, 32767},
    {-32768.5, -32768},
};

} // namespace

TEST_CASE("reals round to the nearest integer, ties to the even one") {
    for (const Row& row : rows) {
        CAPTURE(row.value);
        CHECK(runtime::roundToInt16(row.value) == row.whole);
        CHECK(runtime::roundToInt32(row.value) == row.whole);
    }
}

TEST_CASE("rounding does not follow the process's rounding mode") {
    const int mode = std::fegetround();
    std::fesetround(FE_UPWARD);
    for (const Row& row : rows) {
        CAPTURE(row.value);
        CHECK(runtime::roundToInt32(row.value) == row.whole);
    }
    std::fesetround(mode);
}

TEST_CASE("a real outside 16 bits raises error 6") {
    CHECK(errorOf([] { return runtime::roundToInt16(32767.5); }) == runtime::Overflow);
    CHECK(errorOf([] { return runtime::roundToInt16(-32768.51); }) == runtime::Overflow);
    CHECK(errorOf([] { return runtime::roundToInt16(1e300); }) == runtime::Overflow);
}

TEST_CASE("a real outside 32 bits raises error 6") {
    CHECK(runtime::roundToInt32(2147483647.49) == 2147483647);
    CHECK(runtime::roundToInt32(-2147483648.5) == std::numeric_limits<std::int32_t>::min());
    CHECK(errorOf([] { return runtime::roundToInt32(2147483647.5); }) == runtime::Overflow);
    CHECK(errorOf([] { return runtime::roundToInt32(-2147483648.51); }) == runtime::Overflow);
    CHECK(errorOf([] { return runtime::roundToInt32(std::nan("")); }) == runtime::Overflow);
    CHECK(errorOf([] { return runtime::roundToInt32(HUGE_VAL); }) == runtime::Overflow);
    CHECK(errorOf([] { return runtime::roundToInt32(-HUGE_VAL); }) == runtime::Overflow);
}

TEST_CASE("a division by 0 has its own error, 0 by 0 and too large a quotient are overflows") {
    CHECK(runtime::divide(1.0, 4.0) == 0.25);
    CHECK(runtime::divide(0.0, 4.0) == 0.0);
    CHECK(errorOf([] { return runtime::divide(1.0, 0.0); }) == runtime::DivisionByZero);
    CHECK(errorOf([] { return runtime::divide(-1.0, -0.0); }) == runtime::DivisionByZero);
    CHECK(errorOf([] { return runtime::divide(0.0, 0.0); }) == runtime::Overflow);
    CHECK(errorOf([] { return runtime::divide(1e300, 1e-300); }) == runtime::Overflow);
}
