#include "runtime/bool16.h"
#include "runtime/integers.h"
#include "tests/runner/error_of.h"

#include <cstdint>
#include <doctest/doctest.h>
#include <limits>

using runtime::Int16;
using runtime::Int32;

namespace {

constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();

} // namespace

TEST_CASE("a 16-bit integer starts as 0 and holds -32768 to 32767") {
    CHECK(Int16().value() == 0);
    CHECK(Int16(32767).value() == 32767);
    CHECK(Int16(-32768).value() == -32768);
    CHECK(errorOf([] { return Int16(32768); }) == runtime::Overflow);
    CHECK(errorOf([] { return Int16(-32769); }) == runtime::Overflow);
}

TEST_CASE("a 32-bit integer holds what 32 bits hold") {
    CHECK(Int32(most).value() == most);
    CHECK(Int32(least).value() == least);
    CHECK(errorOf([] { return Int32(std::int64_t{most} + 1); }) == runtime::Overflow);
    CHECK(errorOf([] { return Int32(std::int64_t{least} - 1); }) == runtime::Overflow);
}

TEST_CASE("unsigned numbers are checked by their value, not by their bits") {
    CHECK(Int16(std::uint16_t{32767}).value() == 32767);
    CHECK(errorOf([] { return Int16(std::uint16_t{65535}); }) == runtime::Overflow);
    CHECK(errorOf([] { return Int32(std::uint32_t{0xFFFFFFFF}); }) == runtime::Overflow);
    CHECK(errorOf([] { return Int32(std::numeric_limits<std::uint64_t>::max()); }) ==
          runtime::Overflow);
}

TEST_CASE("16-bit arithmetic raises error 6 at its limits and not before") {
    CHECK((Int16(32766) + 1) == 32767);
    CHECK(errorOf([] { return Int16(32767) + 1; }) == runtime::Overflow);
    CHECK((Int16(-32767) - 1) == -32768);
    CHECK(errorOf([] { return Int16(-32768) - 1; }) == runtime::Overflow);
    CHECK((Int16(181) * 181) == 32761);
    CHECK(errorOf([] { return Int16(182) * 182; }) == runtime::Overflow);
    CHECK((-Int16(32767)) == -32767);
    CHECK(errorOf([] { return -Int16(-32768); }) == runtime::Overflow);
}

TEST_CASE("32-bit arithmetic raises error 6 at its limits and not before") {
    CHECK((Int32(most - 1) + 1) == most);
    CHECK(errorOf([] { return Int32(most) + 1; }) == runtime::Overflow);
    CHECK((Int32(least + 1) - 1) == least);
    CHECK(errorOf([] { return Int32(least) - 1; }) == runtime::Overflow);
    CHECK((Int32(46340) * 46340) == 2147395600);
    CHECK(errorOf([] { return Int32(46341) * 46341; }) == runtime::Overflow);
    CHECK(errorOf([] { return Int32(least) * least; }) == runtime::Overflow);
    CHECK(errorOf([] { return -Int32(least); }) == runtime::Overflow);
}

TEST_CASE("a failed step leaves the counter as it was") {
    Int16 counter = 32767;
    CHECK(errorOf([&] { return counter += 1; }) == runtime::Overflow);
    CHECK(counter == 32767);
    counter -= 7;
    CHECK(counter == 32760);
}

TEST_CASE("widths convert both ways, narrowing checked") {
    CHECK(Int32(Int16(-5)).value() == -5);
    CHECK(Int16(Int32(-32768)).value() == -32768);
    CHECK(errorOf([] { return Int16(Int32(40000)); }) == runtime::Overflow);
}

TEST_CASE("comparing raises nothing, whatever stands on the other side") {
    CHECK(Int16(5) < 40000);
    CHECK(Int16(5) > -40000);
    CHECK(Int16(-1) != 65535U);
    CHECK(Int32(-1) < 0U);
    CHECK(40000 > Int16(5));
    CHECK(Int16(7) == 7);
    CHECK(Int16(7) <= Int16(7));
    CHECK(Int16(-7) < Int16(7));
}

TEST_CASE("a 16-bit boolean is -1 or 0") {
    CHECK(runtime::Bool16(true).value() == -1);
    CHECK(runtime::Bool16(false).value() == 0);
}
