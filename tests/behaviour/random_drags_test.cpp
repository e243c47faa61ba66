#include "tests/behaviour/window_pair.h"
#include "tests/movement/oracle.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <sstream>
#include <string>

using behaviour::Point;
using behaviour::WindowPair;
using oracle::Across;
using oracle::Axis;
using oracle::Down;
using oracle::Number;

namespace {

/// What the two windows have to do, told a second time: places, flags, presses and releases.
struct Expected {
    oracle::Area area;
    oracle::Box player{{}, {4140, 1230}};
    oracle::Box playlist{{}, {4140, 1230}};
    std::array<bool, 2> docked{};  // by the axis of docking
    std::array<bool, 2> pending{}; // found by the main window's latest move
    bool open = false;
    oracle::Pair startPlayer{};
    oracle::Pair startPlaylist{};

    static oracle::Pair plus(const oracle::Pair& start, Point way) {
        return {start[Across] + way.x, start[Down] + way.y};
    }
    static void put(oracle::Box& window, const oracle::Pair& pixels) {
        window.at = {15 * pixels[Across], 15 * pixels[Down]};
    }

    void press() {
        for (const Axis axis : {Across, Down}) {
            startPlayer[axis] = oracle::rounded(player.at[axis]);
            startPlaylist[axis] = oracle::rounded(playlist.at[axis]);
        }
    }

    void movePlayer(Point way) {
        pending = {};
        const oracle::Pair raw = plus(startPlayer, way);
        const oracle::Pair wanted = oracle::snapped(raw, player, area);
        if (!open) return put(player, wanted);
        if (docked[Down] || docked[Across]) {
            const Axis axis = docked[Down] ? Down : Across;
            const oracle::Docked pair =
                oracle::together({wanted, plus(startPlaylist, way)}, axis, player, playlist, area);
            put(playlist, pair.playlist);
            return put(player, pair.player);
        }
        const oracle::Pulled pull = oracle::pulled(wanted, raw, player, playlist);
        pending = pull.docked;
        put(player, pull.place);
    }

    void releasePlayer() {
        for (const Axis axis : {Across, Down})
            docked[axis] = docked[axis] || pending[axis];
    }

    void movePlaylist(Point way) {
        const oracle::Pair raw = plus(startPlaylist, way);
        const oracle::Pulled pull =
            oracle::pulled(oracle::snapped(raw, playlist, area), raw, playlist, player);
        docked = pull.docked;
        put(playlist, pull.place);
    }

    void show() {
        open = true;
        if (oracle::touch(player, playlist, Down))
            docked[Down] = true;
        else if (oracle::touch(player, playlist, Across))
            docked[Across] = true;
        else
            docked = {};
    }

    void hide(bool undocks) {
        open = false;
        if (undocks) docked = {};
    }
};

/// A user at the windows, and what is expected of them.
class Afternoon {
  public:
    Afternoon(std::uint32_t seed, const platform::Rect& workArea)
        : source_(seed), windows_({300, 300}, {300, 382}, workArea) {
        expected_.area = {{workArea.left, workArea.top}, {workArea.right, workArea.bottom}};
        Expected::put(expected_.player, {300, 300});
        Expected::put(expected_.playlist, {300, 382});
        expected_.show();
    }

    /// One thing that a user may do next.
    void step() {
        switch (between(0, expected_.open ? 9 : 4)) {
        case 0:
            if (expected_.open) {
                windows_.closeByKey();
                expected_.hide(true);
            } else {
                windows_.open();
                expected_.show();
            }
            break;
        case 1:
        case 2:
        case 3:
        case 4:
            dragPlayer();
            break;
        case 5:
            if (between(0, 1) == 0) {
                windows_.closeByQuit();
                expected_.hide(true);
            } else {
                windows_.closeByMinimise();
                expected_.hide(false);
            }
            break;
        default:
            dragPlaylist();
            break;
        }
    }

    [[nodiscard]] bool agrees() {
        return same(windows_.main(), expected_.player) &&
               same(windows_.list(), expected_.playlist) && windows_.isOpen() == expected_.open &&
               windows_.stacked() == expected_.docked[Down] &&
               windows_.beside() == expected_.docked[Across];
    }

    std::string words() {
        std::ostringstream out;
        const auto tell = [&](const char* name, Point there, const oracle::Box& wanted, bool dock,
                              bool wantedDock) {
            out << name << " at " << there.x << ' ' << there.y << ", expected "
                << wanted.at[Across] / 15 << ' ' << wanted.at[Down] / 15 << "; flag " << dock
                << ", expected " << wantedDock << "\n";
        };
        tell("main", windows_.main(), expected_.player, windows_.stacked(), expected_.docked[Down]);
        tell("list", windows_.list(), expected_.playlist, windows_.beside(),
             expected_.docked[Across]);
        return out.str();
    }

    int stackedMoves = 0;
    int besideMoves = 0;

  private:
    std::int32_t between(std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution<std::int32_t>(low, high)(source_);
    }

    static bool same(Point place, const oracle::Box& box) {
        return box.at == oracle::Pair{15 * Number{place.x}, 15 * Number{place.y}};
    }

    /// Where to drag: close to the other window or to an edge of the work area, or anywhere.
    Point target(Point other) {
        const auto pick = [&](Axis axis, std::int32_t size, std::int32_t at) {
            const auto low = static_cast<std::int32_t>(expected_.area.low[axis]);
            const auto high = static_cast<std::int32_t>(expected_.area.high[axis]);
            const std::array<std::int32_t, 7> places{low, high - size,     at - size, at + size,
                                                     at,  high - 2 * size, low + size};
            return places[static_cast<std::size_t>(between(0, 6))] + between(-22, 22);
        };
        if (between(0, 9) == 0) return {between(-3000, 3000), between(-3000, 3000)};
        return {pick(Across, 276, other.x), pick(Down, 82, other.y)};
    }

    template <class Move>
    void drag(Point start, Point other, const Move& move) {
        expected_.press();
        for (int moves = between(0, 6); moves > 0; --moves) {
            const Point to = target(other);
            WindowPair::dragTo(to.x, to.y);
            move(Point{to.x - start.x, to.y - start.y});
            if (!agrees()) return;
        }
    }

    void dragPlayer() {
        windows_.takeMain();
        drag(windows_.main(), windows_.list(), [&](Point way) {
            expected_.movePlayer(way);
            stackedMoves += expected_.open && expected_.docked[Down] ? 1 : 0;
            besideMoves += expected_.open && expected_.docked[Across] ? 1 : 0;
        });
        simulated::release();
        expected_.releasePlayer();
    }

    void dragPlaylist() {
        windows_.takeList();
        drag(windows_.list(), windows_.main(), [&](Point way) { expected_.movePlaylist(way); });
        simulated::release();
    }

    std::mt19937 source_;
    WindowPair windows_;
    Expected expected_;
};

void spend(std::uint32_t seed, const platform::Rect& workArea) {
    Afternoon afternoon(seed, workArea);
    for (int n = 0; n < 10000; ++n) {
        afternoon.step();
        if (afternoon.agrees()) continue;
        FAIL("step " << n << " of seed " << seed << ":\n" << afternoon.words());
    }
    CHECK(afternoon.stackedMoves > 300);
    CHECK(afternoon.besideMoves > 300);
}

} // namespace

TEST_CASE("whatever a user does with the two windows, they stand where a second opinion says") {
    spend(1, {0, 0, 1024, 768});
    spend(2, {0, 30, 1024, 768});
    spend(3, {60, 0, 1024, 738});
    spend(4, {-1280, -200, 0, 824});
    spend(5, {1024, 100, 2944, 1180});
}
