#include "movement/snap.h"

#include <doctest/doctest.h>

#include <vector>

namespace {

constexpr platform::Rect wholeScreen{0, 0, 1024, 768};

struct Row {
    int wanted;
    int taken;
};

void checkAcross(const platform::Rect& workArea, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        CAPTURE(row.wanted);
        CHECK(snap::horizontally(row.wanted, 276, workArea) == row.taken);
    }
}

void checkDown(const platform::Rect& workArea, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        CAPTURE(row.wanted);
        CHECK(snap::vertically(row.wanted, 82, workArea) == row.taken);
    }
}

} // namespace

TEST_CASE("the left edge snaps from nearer than 20 pixels on either side") {
    checkAcross(wholeScreen, {{20, 20}, {19, 0}, {1, 0}, {0, 0}, {-1, 0}, {-19, 0}, {-20, -20}});
}

TEST_CASE("the right edge snaps from nearer than 20 pixels on either side") {
    checkAcross(wholeScreen, {{728, 728}, {729, 748}, {748, 748}, {767, 748}, {768, 768}});
}

TEST_CASE("the top snaps from nearer than 20 pixels on either side") {
    checkDown(wholeScreen, {{20, 20}, {19, 0}, {-19, 0}, {-20, -20}});
}

TEST_CASE("the bottom snaps from nearer than 20 pixels on either side") {
    checkDown(wholeScreen, {{666, 666}, {667, 686}, {686, 686}, {705, 686}, {706, 706}});
}

TEST_CASE("beside a panel on the left a window goes to the screen's edge, under the panel") {
    checkAcross({60, 0, 1024, 768}, {{40, 40}, {41, 0}, {50, 0}, {79, 0}, {80, 80}, {5, 5}});
}

TEST_CASE("below a panel at the top a window goes to the screen's edge, under the panel") {
    checkDown({0, 30, 1024, 768}, {{10, 10}, {11, 0}, {31, 0}, {49, 0}, {50, 50}});
}

TEST_CASE("above a panel at the bottom a window stops at the panel") {
    checkDown({0, 0, 1024, 738}, {{636, 636}, {637, 656}, {675, 656}, {676, 676}});
}

TEST_CASE("in a narrow work area the right edge wins over the left one") {
    checkAcross({0, 0, 290, 768}, {{5, 14}, {19, 14}, {-5, 14}});
    // The left edge has already brought the window to 0 when the right one is asked.
    checkAcross({0, 0, 300, 768}, {{19, 0}});
}

TEST_CASE("a work area left of and above the main screen snaps at its far edges") {
    const platform::Rect workArea{-1280, -1024, 0, 0};
    checkAcross(workArea, {{-1300, -1300}, {-1299, 0}, {-1261, 0}, {-1260, -1260}});
    checkAcross(workArea, {{-296, -296}, {-295, -276}, {-257, -276}, {-256, -256}, {0, 0}});
    checkDown(workArea, {{-102, -102}, {-101, -82}, {-63, -82}, {-62, -62}});
}

TEST_CASE("a size between two pixels snaps to the nearest pixel, a half to the even one") {
    CHECK(snap::horizontally(740, 276.4, wholeScreen) == 748);
    CHECK(snap::horizontally(740, 275.5, wholeScreen) == 748);
    CHECK(snap::horizontally(740, 276.5, wholeScreen) == 748);
}

TEST_CASE("places at the end of the numbers snap nowhere and don't fail") {
    const int far = 2'147'483'647;
    CHECK(snap::horizontally(far, 276, wholeScreen) == far);
    CHECK(snap::horizontally(-far - 1, 276, wholeScreen) == -far - 1);
}
