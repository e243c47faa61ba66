#include "runtime/text.h"

#include <doctest/doctest.h>

using runtime::equalIgnoringCase;

TEST_CASE("the case of no letter from A to Z counts, and nothing beside them has one") {
    CHECK(equalIgnoringCase("ABCXYZ", "abcxyz"));
    CHECK(equalIgnoringCase("abcxyz", "ABCXYZ"));
    CHECK_FALSE(equalIgnoringCase("@", "`"));
    CHECK_FALSE(equalIgnoringCase("[", "{"));
    CHECK_FALSE(equalIgnoringCase("ab", "abc"));
}
