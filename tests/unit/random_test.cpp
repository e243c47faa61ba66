#include "runtime/random.h"

#include <doctest/doctest.h>

TEST_CASE("each random source draws the same sequence") {
    runtime::Random first;
    runtime::Random second;
    for (int i = 0; i < 1000; ++i) {
        const float draw = first.next();
        CHECK(draw == second.next());
    }
}

TEST_CASE("the draws of one program are those of every other") {
    runtime::Random source;
    for (const int draw : {13668795, 2272926, 15196666, 14009119, 2130485})
        CHECK(source.next() == static_cast<float>(draw) / 16777216.0F);
}

TEST_CASE("draws lie from 0 to below 1 and reach every tenth about equally often") {
    runtime::Random source;
    int tenths[10] = {};
    for (int i = 0; i < 10'000; ++i) {
        const float draw = source.next();
        REQUIRE(draw >= 0.0F);
        REQUIRE(draw < 1.0F);
        ++tenths[static_cast<int>(draw * 10.0F)];
    }
    for (const int count : tenths) {
        CHECK(count > 850);
        CHECK(count < 1150);
    }
}
