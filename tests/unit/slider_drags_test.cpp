#include "mainwindow/slider_drags.h"

#include <doctest/doctest.h>

TEST_CASE("drags of whole pixels come as near as half a pixel") {
    CHECK(sliders::volumeDrag(2400, 50) == 20);
    CHECK(sliders::volumeDrag(3000, 50) == -20);
    CHECK(sliders::volumeDrag(2700, 51) == 0);
    CHECK(sliders::volumeDrag(2700, 100) == 21);
    CHECK(sliders::volumeDrag(2700, 1) == -20);
    CHECK(sliders::volumeDrag(2700, 0) == -21);
    CHECK(sliders::seekDrag(0, 200, 200) == 215);
    CHECK(sliders::seekDrag(100, 50, 200) == -54);
}
