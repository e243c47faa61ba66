#include "app/settings.h"

#include <doctest/doctest.h>
#include <limits>

TEST_CASE("the largest number of single precision is still one for a place") {
    const settings::Fields fields =
        settings::read("3*0*0**3.4028234663852886E38*-3.4028234663852886E38*0*0**0*0*120*1320*",
                       '.')
            .fields;
    CHECK(fields.playerLeft == std::numeric_limits<float>::max());
    CHECK(fields.playerTop == std::numeric_limits<float>::lowest());
}
