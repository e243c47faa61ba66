#include "movement/docking.h"
#include "movement/snap.h"
#include "tests/movement/oracle.h"

#include <doctest/doctest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <sstream>
#include <string>

using oracle::Across;
using oracle::Axis;
using oracle::Box;
using oracle::Down;
using oracle::Number;

namespace {

/// Positions at random, thickest where something happens: at the edges of the work area and of the
/// other window, a pixel to either side of each distance.
class Chance {
  public:
    explicit Chance(std::uint32_t seed) : source_(seed) {}

    Number between(Number low, Number high) {
        return std::uniform_int_distribution<Number>(low, high)(source_);
    }
    bool once(int times) { return between(1, times) == 1; }

    /// Pixels: mostly close to `target`.
    Number around(Number target) {
        return once(8) ? between(-6000, 6000) : target + between(-24, 24);
    }

    oracle::Area area() {
        if (once(3)) return {{0, 0}, {1024, 768}};
        const Number left = once(3) ? 0 : between(-3000, 3000);
        const Number top = once(3) ? 0 : between(-3000, 3000);
        return {{left, top}, {left + between(20, 2000), top + between(20, 2000)}};
    }

    /// A size in twips: the windows' own, another one in whole pixels, or one between pixels.
    Number size(Number usual, bool whole) {
        if (once(2) && whole) return 15 * usual;
        return 15 * between(20, 500) + (whole ? 0 : between(4, 11));
    }

  private:
    std::mt19937 source_;
};

/// A moving and a standing window and all places that matter between them.
struct Scene {
    oracle::Area area;
    Box player;
    Box playlist;
    oracle::Pair wantedPlayer{};
    oracle::Pair wantedPlaylist{};
    oracle::Pair raw{};

    std::string words() const {
        std::ostringstream out;
        const auto tell = [&](const char* name, const oracle::Pair& pair) {
            out << name << ' ' << pair[0] << ' ' << pair[1] << "; ";
        };
        tell("area from", area.low);
        tell("to", area.high);
        tell("player at", player.at);
        tell("size", player.size);
        tell("playlist at", playlist.at);
        tell("size", playlist.size);
        tell("player wanted", wantedPlayer);
        tell("playlist wanted", wantedPlaylist);
        tell("raw", raw);
        return out.str();
    }
};

/// Sizes and places between pixels are chosen so that no sum of them is a whole pixel: there
/// single precision may fall to either side of a distance, and both are right.
Scene scene(Chance& chance, bool whole) {
    Scene made;
    made.area = chance.area();
    constexpr oracle::Pair usual{276, 82};
    for (const Axis axis : {Across, Down}) {
        made.player.size[axis] = chance.size(usual[axis], whole);
        made.playlist.size[axis] = chance.size(usual[axis], whole);
        const Number between = whole ? 0 : chance.between(1, 3);
        const Number low = made.area.low[axis];
        const Number high = made.area.high[axis];
        made.playlist.at[axis] = 15 * chance.between(low - 700, high + 700) + between;
        const Number own = made.playlist.size[axis] / 15;
        const Number others = made.player.size[axis] / 15;
        const Number place = made.playlist.at[axis] / 15;
        const std::array<Number, 6> beside{place - others,     place + own, place,
                                           place - others / 2, low,         high - others};
        const auto pick = [&] {
            return chance.around(beside[static_cast<std::size_t>(chance.between(0, 5))]);
        };
        made.player.at[axis] = 15 * pick() + between;
        made.wantedPlayer[axis] = pick();
        made.raw[axis] = made.wantedPlayer[axis] + chance.between(-20, 20);
        const std::array<Number, 6> edges{low,        low + own,         others,
                                          high - own, high - 2 * others, high - 2 * own};
        made.wantedPlaylist[axis] =
            chance.around(edges[static_cast<std::size_t>(chance.between(0, 5))]);
    }
    return made;
}

docking::Place placeOf(const oracle::Pair& pair) { return {pair[Across], pair[Down]}; }

oracle::Pair pairOf(const docking::Place& place) { return {place.x.value(), place.y.value()}; }

toolkit::Bounds windowOf(const Box& box) {
    return {static_cast<float>(box.at[Across]), static_cast<float>(box.at[Down]),
            static_cast<float>(box.size[Across]), static_cast<float>(box.size[Down])};
}

platform::Rect rectOf(const oracle::Area& area) {
    const auto side = [](Number pixels) { return static_cast<std::int32_t>(pixels); };
    return {side(area.low[Across]), side(area.low[Down]), side(area.high[Across]),
            side(area.high[Down])};
}

bool sameSnap(const Scene& made) {
    const oracle::Pair expected = oracle::snapped(made.wantedPlayer, made.player, made.area);
    const docking::Place place = placeOf(made.wantedPlayer);
    const auto pixels = [&](Axis axis) { return static_cast<double>(made.player.size[axis]) / 15; };
    return snap::horizontally(place.x, pixels(Across), rectOf(made.area)) == expected[Across] &&
           snap::vertically(place.y, pixels(Down), rectOf(made.area)) == expected[Down];
}

bool samePair(const Scene& made, Axis axis) {
    const oracle::Docked expected = oracle::together({made.wantedPlayer, made.wantedPlaylist}, axis,
                                                     made.player, made.playlist, made.area);
    const auto rule = axis == Down ? docking::moveStacked : docking::moveSideBySide;
    const platform::Rect area = rectOf(made.area);
    docking::Pair pair = rule({placeOf(made.wantedPlayer), placeOf(made.wantedPlaylist)},
                              windowOf(made.player), windowOf(made.playlist), area);
    // The free axis, as the drag snaps it.
    docking::Place& list = pair.playlist;
    if (axis == Down)
        list.x =
            snap::horizontally(list.x, static_cast<double>(made.playlist.size[Across]) / 15, area);
    else
        list.y = snap::vertically(list.y, static_cast<double>(made.playlist.size[Down]) / 15, area);
    return pairOf(pair.player) == expected.player && pairOf(pair.playlist) == expected.playlist;
}

bool samePull(const Scene& made, const Box& moving, const Box& still) {
    const oracle::Pulled expected = oracle::pulled(made.wantedPlayer, made.raw, moving, still);
    const docking::Contact contact = docking::pullTogether(
        placeOf(made.wantedPlayer), placeOf(made.raw), windowOf(moving), windowOf(still));
    return pairOf(contact.place) == expected.place && contact.stacked == expected.docked[Down] &&
           contact.sideBySide == expected.docked[Across];
}

bool sameTouch(const Scene& made) {
    const toolkit::Bounds player = windowOf(made.player);
    const toolkit::Bounds playlist = windowOf(made.playlist);
    return docking::touchStacked(player, playlist) ==
               oracle::touch(made.player, made.playlist, Down) &&
           docking::touchSideBySide(player, playlist) ==
               oracle::touch(made.player, made.playlist, Across);
}

/// How often something happened at all, so that a comparison of nothing with nothing shows.
struct Tally {
    int snapped = 0;
    int stackedMoved = 0;
    int besideMoved = 0;
    int stacked = 0;
    int beside = 0;
    int thrownBack = 0;
    int linedUp = 0;
    int touched = 0;

    void count(const Scene& made) {
        if (oracle::snapped(made.wantedPlayer, made.player, made.area) != made.wantedPlayer)
            ++snapped;
        const auto moves = [&](Axis axis) {
            const oracle::Docked wanted{made.wantedPlayer, made.wantedPlaylist};
            return oracle::together(wanted, axis, made.player, made.playlist, made.area)
                       .playlist[axis] != made.wantedPlaylist[axis];
        };
        if (moves(Down)) ++stackedMoved;
        if (moves(Across)) ++besideMoved;
        const oracle::Pulled pull =
            oracle::pulled(made.wantedPlayer, made.raw, made.player, made.playlist);
        if (pull.docked[Down]) ++stacked;
        if (pull.docked[Across]) ++beside;
        if (!pull.docked[Down] && !pull.docked[Across] && pull.place != made.wantedPlayer)
            ++thrownBack;
        if (pull.docked[Down] && pull.place[Across] != made.wantedPlayer[Across]) ++linedUp;
        if (oracle::touch(made.player, made.playlist, Down)) ++touched;
    }
};

/// Compares the player's answers with the second opinion on so many scenes.
Tally compare(std::uint32_t seed, int scenes, bool whole) {
    Chance chance(seed);
    Tally tally;
    for (int n = 0; n < scenes; ++n) {
        const Scene made = scene(chance, whole);
        tally.count(made);
        if (sameSnap(made) && samePair(made, Down) && samePair(made, Across) &&
            samePull(made, made.player, made.playlist) &&
            samePull(made, made.playlist, made.player) && sameTouch(made))
            continue;
        CAPTURE(sameSnap(made));
        CAPTURE(samePair(made, Down));
        CAPTURE(samePair(made, Across));
        CAPTURE(samePull(made, made.player, made.playlist));
        CAPTURE(samePull(made, made.playlist, made.player));
        CAPTURE(sameTouch(made));
        FAIL("scene " << n << " of seed " << seed << ": " << made.words());
    }
    return tally;
}

} // namespace

TEST_CASE("a second opinion agrees on every move in whole pixels") {
    const Tally tally = compare(1, 1'200'000, true);
    CHECK(tally.snapped > 100'000);
    CHECK(tally.stackedMoved > 50'000);
    CHECK(tally.besideMoved > 50'000);
    CHECK(tally.stacked > 50'000);
    CHECK(tally.beside > 50'000);
    CHECK(tally.thrownBack > 20'000);
    CHECK(tally.linedUp > 10'000);
    CHECK(tally.touched > 1'000);
}

TEST_CASE("a second opinion agrees on windows that stand between two pixels") {
    const Tally tally = compare(2, 300'000, false);
    CHECK(tally.snapped > 20'000);
    CHECK(tally.stackedMoved > 10'000);
    CHECK(tally.stacked > 10'000);
    CHECK(tally.beside > 10'000);
}
