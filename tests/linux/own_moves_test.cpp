#include "platform/linux/own_moves.h"

#include <doctest/doctest.h>

#include <cstdint>

using platform::OwnMoves;

TEST_CASE("every place of a drag is an echo when it comes back, in any order and number") {
    OwnMoves moves;
    for (std::int32_t x = 0; x < 50; ++x)
        moves.note({x, 7}, std::int64_t{10} * x);
    CHECK(moves.isEcho({49, 7}, 500));
    CHECK(moves.isEcho({3, 7}, 500));
    CHECK(moves.isEcho({3, 7}, 500));
}

TEST_CASE("a place where the program didn't put the window is no echo") {
    OwnMoves moves;
    moves.note({10, 20}, 0);
    CHECK_FALSE(moves.isEcho({10, 21}, 1));
    CHECK_FALSE(OwnMoves().isEcho({0, 0}, 0));
}

TEST_CASE("an old place is no echo any more") {
    OwnMoves moves;
    moves.note({10, 20}, 1000);
    CHECK(moves.isEcho({10, 20}, 1000 + OwnMoves::EchoTime));
    CHECK_FALSE(moves.isEcho({10, 20}, 1001 + OwnMoves::EchoTime));
}

TEST_CASE("what was done to a hidden window has no echo") {
    OwnMoves moves;
    moves.note({10, 20}, 0);
    moves.forget();
    moves.note({30, 40}, 1);
    CHECK_FALSE(moves.isEcho({10, 20}, 2));
    CHECK(moves.isEcho({30, 40}, 2));
}

TEST_CASE("a place taken again counts from the last time") {
    OwnMoves moves;
    moves.note({10, 20}, 0);
    moves.note({30, 20}, 1000);
    moves.note({10, 20}, OwnMoves::EchoTime);
    CHECK(moves.isEcho({10, 20}, 2 * OwnMoves::EchoTime));
    CHECK_FALSE(moves.isEcho({30, 20}, 2 * OwnMoves::EchoTime));
}
