#include "runtime/dynamic_array.h"
#include "tests/runner/error_of.h"

#include <doctest/doctest.h>

#include <cstdint>

using runtime::Int32;

TEST_CASE("an array has the elements from 0 to its upper bound, and no others") {
    runtime::DynamicArray<int> array;
    CHECK(errorOf([&] { array[Int32(0)] = 1; }) == runtime::SubscriptOutOfRange);
    array.resizeKeeping(Int32(2));
    CHECK(array.size() == 3);
    for (const std::int32_t index : {0, 1, 2})
        array[Int32(index)] = 10 * index;
    CHECK(array[Int32(2)] == 20);
    for (const std::int32_t index : {-1, 3, 4})
        CHECK(errorOf([&] { array[Int32(index)] = 1; }) == runtime::SubscriptOutOfRange);
    CHECK(errorOf([&] { array.resizeKeeping(Int32(-1)); }) == runtime::SubscriptOutOfRange);
    array.resizeKeeping(Int32(0));
    CHECK(array.size() == 1);
    array.reallocate(Int32(1));
    CHECK(array[Int32(0)] == 0);
}
