#include "playlist/scrolling.h"
#include "playlist/selection_after_removal.h"

#include <doctest/doctest.h>

TEST_CASE("the view scrolls by one entry and wraps round at both ends") {
    struct Row {
        int top;
        int count;
        int below;
        int above;
    };
    constexpr Row rows[] = {{0, 0, 0, 0},
                            {0, 1, 0, 0},
                            {0, 3, 0, 0},
                            {0, 4, 1, 1},
                            {1, 4, 0, 0},
                            {0, 5, 1, 2},
                            {1, 5, 2, 0},
                            {2, 5, 0, 1},
                            {0, 10, 1, 7},
                            {6, 10, 7, 5},
                            {7, 10, 0, 6},
                            {32763, 32767, 32764, 32762},
                            {32764, 32767, 0, 32763}};
    for (const Row& row : rows) {
        CAPTURE(row.top);
        CAPTURE(row.count);
        CHECK(scrolling::below(row.top, row.count) == row.below);
        CHECK(scrolling::above(row.top, row.count) == row.above);
    }
}

TEST_CASE("after a removal the next entry is selected, after the last one the first") {
    CHECK(selectionAfterRemoval(0, 2) == 0);
    CHECK(selectionAfterRemoval(1, 2) == 0);
    CHECK(selectionAfterRemoval(0, 3) == 0);
    CHECK(selectionAfterRemoval(1, 3) == 1);
    CHECK(selectionAfterRemoval(2, 3) == 0);
    CHECK(selectionAfterRemoval(32765, 32767) == 32765);
    CHECK(selectionAfterRemoval(32766, 32767) == 0);
}
