#include "movement/docking.h"

#include <doctest/doctest.h>

#include <vector>

namespace {

constexpr float width = 276;
constexpr float height = 82;
constexpr platform::Rect wholeScreen{0, 0, 1024, 768};

/// One of the two windows, at a place in pixels.
toolkit::Bounds windowAt(int left, int top) {
    return {static_cast<float>(15 * left), static_cast<float>(15 * top), 15 * width, 15 * height};
}

struct Row {
    docking::Place wanted;
    docking::Contact taken;
};

void check(const toolkit::Bounds& still, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        const docking::Contact contact =
            docking::pullTogether(row.wanted, row.wanted, windowAt(0, 0), still);
        CAPTURE(row.wanted.x.value());
        CAPTURE(row.wanted.y.value());
        CHECK(contact.place.x.value() == row.taken.place.x.value());
        CHECK(contact.place.y.value() == row.taken.place.y.value());
        CHECK(contact.stacked == row.taken.stacked);
        CHECK(contact.sideBySide == row.taken.sideBySide);
    }
}

docking::Contact free(int x, int y) { return {{x, y}, false, false}; }
docking::Contact stacked(int x, int y) { return {{x, y}, true, false}; }
docking::Contact beside(int x, int y) { return {{x, y}, false, true}; }

} // namespace

TEST_CASE("a gap of 14 pixels docks and a gap of exactly 15 does not") {
    check(windowAt(100, 300), {{{150, 203}, free(150, 203)},
                               {{150, 204}, stacked(150, 218)},
                               {{150, 232}, stacked(150, 218)},
                               {{150, 233}, free(150, 233)}});
}

TEST_CASE("the other three sides dock from the same distances") {
    const toolkit::Bounds still = windowAt(400, 300);
    check(still, {{{450, 367}, free(450, 367)},
                  {{450, 368}, stacked(450, 382)},
                  {{450, 396}, stacked(450, 382)},
                  {{450, 397}, free(450, 397)}});
    check(still, {{{109, 330}, free(109, 330)},
                  {{110, 330}, beside(124, 330)},
                  {{138, 330}, beside(124, 330)},
                  {{139, 330}, free(139, 330)}});
    check(still, {{{661, 330}, free(661, 330)},
                  {{662, 330}, beside(676, 330)},
                  {{690, 330}, beside(676, 330)},
                  {{691, 330}, free(691, 330)}});
}

TEST_CASE("left edges nearer than 15 pixels line up above and below") {
    check(windowAt(100, 300), {{{85, 204}, stacked(85, 218)},
                               {{86, 204}, stacked(100, 218)},
                               {{90, 204}, stacked(100, 218)},
                               {{114, 390}, stacked(100, 382)},
                               {{115, 390}, stacked(115, 382)}});
}

TEST_CASE("top edges nearer than 15 pixels line up side by side") {
    check(windowAt(400, 300), {{{120, 285}, beside(124, 285)},
                               {{120, 286}, beside(124, 300)},
                               {{120, 314}, beside(124, 300)},
                               {{680, 315}, beside(676, 315)}});
}

TEST_CASE("beyond the other window's side nothing docks") {
    check(windowAt(100, 300), {{{600, 204}, free(600, 204)}});
    check(windowAt(400, 300), {{{120, 500}, free(120, 500)}});
}

TEST_CASE("diagonally the first near edge ends the search, and the second is not tried") {
    check(windowAt(400, 300), {{{114, 208}, free(114, 208)}, {{129, 208}, stacked(129, 218)}});
}

TEST_CASE("windows that touch at a corner are in contact") {
    check(windowAt(400, 300), {{{124, 218}, stacked(124, 218)}, {{123, 218}, free(123, 218)}});
    check(windowAt(400, 300), {{{676, 382}, stacked(676, 382)}, {{677, 382}, free(677, 382)}});
}

TEST_CASE("without contact the axis goes back to where it was before the screen's edge pulled") {
    // The height is thrown back; the left edge, of the other axis, keeps its snap.
    const docking::Contact apart =
        docking::pullTogether({0, 190}, {5, 195}, windowAt(0, 0), windowAt(400, 280));
    CHECK(apart.place == docking::Place{0, 195});
    CHECK_FALSE(apart.stacked);
    const docking::Contact aside =
        docking::pullTogether({0, 600}, {5, 605}, windowAt(0, 0), windowAt(280, 100));
    CHECK(aside.place == docking::Place{5, 600});
    CHECK_FALSE(aside.sideBySide);
}

TEST_CASE("a small overlap is pushed out and a deep one is left alone") {
    check(windowAt(100, 300), {{{150, 230}, stacked(150, 218)}, {{150, 250}, free(150, 250)}});
}

TEST_CASE("windows of different sizes use each its own") {
    const toolkit::Bounds small{0, 0, 15 * 100, 15 * 40};
    const toolkit::Bounds still = windowAt(400, 300);
    const auto pull = [&](int x, int y) {
        return docking::pullTogether({x, y}, {x, y}, small, still).place;
    };
    CHECK(pull(450, 255) == docking::Place{450, 260});
    CHECK(pull(290, 330) == docking::Place{300, 330});
    CHECK(pull(450, 390) == docking::Place{450, 382});
    CHECK(pull(680, 330) == docking::Place{676, 330});
}

namespace {

struct PairRow {
    docking::Place player;
    docking::Place playlist;
    docking::Place takenPlayer;
    docking::Place takenPlaylist;
};

using Rule = docking::Pair (*)(docking::Pair, const toolkit::Bounds&, const toolkit::Bounds&,
                               const platform::Rect&);

/// `player` and `playlist` stand at the first row's places; only their order counts.
void check(Rule rule, const toolkit::Bounds& player, const toolkit::Bounds& playlist,
           const platform::Rect& workArea, const std::vector<PairRow>& rows) {
    for (const PairRow& row : rows) {
        const docking::Pair pair = rule({row.player, row.playlist}, player, playlist, workArea);
        CAPTURE(row.playlist.x.value());
        CAPTURE(row.playlist.y.value());
        CHECK(pair.player.x.value() == row.takenPlayer.x.value());
        CHECK(pair.player.y.value() == row.takenPlayer.y.value());
        CHECK(pair.playlist.x.value() == row.takenPlaylist.x.value());
        CHECK(pair.playlist.y.value() == row.takenPlaylist.y.value());
    }
}

const toolkit::Bounds first = windowAt(300, 300);
const toolkit::Bounds below = windowAt(300, 382);
const toolkit::Bounds right = windowAt(576, 300);

} // namespace

TEST_CASE("a pair with the main window on top stands on the bottom of the work area") {
    check(docking::moveStacked, first, below, wholeScreen,
          {{{300, 584}, {300, 666}, {300, 584}, {300, 666}},
           {{300, 585}, {300, 667}, {300, 604}, {300, 686}},
           {{300, 623}, {300, 705}, {300, 604}, {300, 686}},
           {{300, 624}, {300, 706}, {300, 624}, {300, 706}}});
}

TEST_CASE("a pair with the main window on top stops at the top of the screen") {
    check(docking::moveStacked, first, below, wholeScreen,
          {{{300, 0}, {300, 83}, {300, 0}, {300, 82}},
           {{300, 0}, {300, 63}, {300, 0}, {300, 82}},
           {{300, -20}, {300, 62}, {300, -20}, {300, 62}},
           {{300, 20}, {300, 102}, {300, 20}, {300, 102}}});
}

TEST_CASE("a panel at the top counts where a pair is caught, not where it goes") {
    check(docking::moveStacked, first, below, {0, 30, 1024, 768},
          {{{300, 0}, {300, 113}, {300, 0}, {300, 82}},
           {{300, 10}, {300, 92}, {300, 10}, {300, 92}}});
    check(docking::moveStacked, below, first, {0, 30, 1024, 768},
          {{{300, 92}, {300, 10}, {300, 92}, {300, 10}},
           {{300, 93}, {300, 11}, {300, 82}, {300, 0}},
           {{300, 131}, {300, 49}, {300, 82}, {300, 0}},
           {{300, 132}, {300, 50}, {300, 132}, {300, 50}}});
}

TEST_CASE("a panel on the left counts where a pair is caught, not where it goes") {
    check(docking::moveSideBySide, first, right, {60, 0, 1024, 768},
          {{{40, 300}, {316, 300}, {40, 300}, {316, 300}},
           {{41, 300}, {317, 300}, {41, 300}, {276, 300}},
           {{79, 300}, {355, 300}, {79, 300}, {276, 300}},
           {{80, 300}, {356, 300}, {80, 300}, {356, 300}}});
    check(docking::moveSideBySide, right, first, {60, 0, 1024, 768},
          {{{316, 300}, {40, 300}, {316, 300}, {40, 300}},
           {{317, 300}, {41, 300}, {276, 300}, {0, 300}},
           {{355, 300}, {79, 300}, {276, 300}, {0, 300}},
           {{356, 300}, {80, 300}, {356, 300}, {80, 300}}});
}

TEST_CASE("a pair with the playlist on top takes both windows to the edges") {
    check(docking::moveStacked, below, first, wholeScreen,
          {{{300, 101}, {300, 19}, {300, 82}, {300, 0}},
           {{300, 63}, {300, -19}, {300, 82}, {300, 0}},
           {{300, 102}, {300, 20}, {300, 102}, {300, 20}},
           {{300, 667}, {300, 585}, {300, 686}, {300, 604}},
           {{300, 666}, {300, 584}, {300, 666}, {300, 584}}});
}

TEST_CASE("with equal tops the playlist counts as the upper one") {
    check(docking::moveStacked, first, first, wholeScreen,
          {{{300, 10}, {300, 10}, {300, 82}, {300, 0}}});
}

TEST_CASE("a pair with the main window on the left stops at the sides of the screen") {
    check(docking::moveSideBySide, first, right, wholeScreen,
          {{{0, 300}, {277, 300}, {0, 300}, {276, 300}},
           {{0, 300}, {257, 300}, {0, 300}, {276, 300}},
           {{20, 300}, {296, 300}, {20, 300}, {296, 300}},
           {{453, 300}, {729, 300}, {472, 300}, {748, 300}},
           {{452, 300}, {728, 300}, {452, 300}, {728, 300}},
           {{491, 300}, {767, 300}, {472, 300}, {748, 300}},
           {{492, 300}, {768, 300}, {492, 300}, {768, 300}}});
}

TEST_CASE("a pair with the playlist on the left takes both windows to the edges") {
    check(docking::moveSideBySide, right, first, wholeScreen,
          {{{295, 300}, {19, 300}, {276, 300}, {0, 300}},
           {{296, 300}, {20, 300}, {296, 300}, {20, 300}},
           {{729, 300}, {453, 300}, {748, 300}, {472, 300}}});
}

TEST_CASE("side by side the sizes differ from step to step") {
    const toolkit::Bounds wide{0, 0, 15 * 400, 15 * 82};
    const toolkit::Bounds narrow{15 * 400, 0, 15 * 100, 15 * 82};
    const auto list = [](const docking::Pair& pair) { return pair.playlist.x.value(); };
    const auto move = [&](int x) {
        return docking::moveSideBySide({{0, 300}, {x, 300}}, wide, narrow, wholeScreen);
    };
    // Caught by the playlist's own width, put by the main window's.
    CHECK(list(move(119)) == 400);
    CHECK(list(move(410)) == 410);
    // At the right both count the main window's width.
    CHECK(list(move(610)) == 624);
    CHECK(move(610).player.x == 224);
}

TEST_CASE("stacked, the playlist's height is what counts at the bottom") {
    const toolkit::Bounds high{0, 0, 15 * 276, 15 * 200};
    const toolkit::Bounds low{0, 15 * 200, 15 * 276, 15 * 50};
    const docking::Pair down =
        docking::moveStacked({{300, 600}, {300, 710}}, high, low, wholeScreen);
    CHECK(down.playlist.y == 718);
    CHECK(down.player.y == 668);
    const toolkit::Bounds under{0, 15 * 50, 15 * 276, 15 * 200};
    const toolkit::Bounds over{0, 0, 15 * 276, 15 * 50};
    const docking::Pair up = docking::moveStacked({{300, 60}, {300, 10}}, under, over, wholeScreen);
    CHECK(up.playlist.y == 0);
    CHECK(up.player.y == 200);
}

TEST_CASE("exact contact counts whatever the sideways place") {
    CHECK(docking::touchStacked(windowAt(0, 100), windowAt(700, 182)));
    CHECK(docking::touchStacked(windowAt(0, 182), windowAt(700, 100)));
    CHECK_FALSE(docking::touchStacked(windowAt(0, 100), windowAt(0, 183)));
    CHECK(docking::touchSideBySide(windowAt(100, 0), windowAt(376, 700)));
    CHECK(docking::touchSideBySide(windowAt(376, 0), windowAt(100, 700)));
    CHECK_FALSE(docking::touchSideBySide(windowAt(100, 0), windowAt(375, 0)));
}

TEST_CASE("a twip off is no contact") {
    toolkit::Bounds other = windowAt(0, 182);
    other.top += 1;
    CHECK_FALSE(docking::touchStacked(windowAt(0, 100), other));
}
