#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>

/// The rules of the two windows' movement a second time, in whole twips and axis by axis, for
/// comparing the player's own answers with. Nothing here is shared with the player's code.
namespace oracle {

using Number = std::int64_t;

enum Axis : std::size_t { Across = 0, Down = 1 };
constexpr Axis other(Axis axis) { return axis == Across ? Down : Across; }

using Pair = std::array<Number, 2>; ///< indexed by axis

/// A window: twips.
struct Box {
    Pair at{};
    Pair size{};
};

/// The work area: pixels.
struct Area {
    Pair low{};
    Pair high{};
};

/// To pixels, a tie to the even one.
inline Number rounded(Number twips) {
    Number whole = twips / 15;
    Number rest = twips % 15;
    if (rest < 0) {
        whole -= 1;
        rest += 15;
    }
    const Number doubled = 2 * rest;
    if (doubled > 15) return whole + 1;
    if (doubled < 15) return whole;
    return whole % 2 == 0 ? whole : whole + 1;
}

/// Both in twips, the distance in pixels and outside itself.
inline bool nearby(Number a, Number b, Number pixels) { return std::llabs(a - b) < 15 * pixels; }

/// A window's place on one axis, in pixels, pulled to the ends of the work area.
inline Number snapped(Number place, Number size, Axis axis, const Area& area) {
    if (nearby(15 * place, 15 * area.low[axis], 20)) place = 0;
    const Number end = 15 * area.high[axis];
    if (nearby(15 * place + size, end, 20)) place = rounded(end - size);
    return place;
}

inline Pair snapped(Pair place, const Box& window, const Area& area) {
    return {snapped(place[Across], window.size[Across], Across, area),
            snapped(place[Down], window.size[Down], Down, area)};
}

struct Docked {
    Pair player;
    Pair playlist;
};

/// A docked pair along its axis of docking: `Down` for one above the other.
inline Docked together(Docked wanted, Axis axis, const Box& player, const Box& playlist,
                       const Area& area) {
    const Number own = playlist.size[axis];
    const Number others = player.size[axis];
    const Number far = axis == Down ? own : others;
    const Number low = 15 * area.low[axis];
    const Number high = 15 * area.high[axis];
    Number& lead = wanted.player[axis];
    Number& list = wanted.playlist[axis];

    const bool playerFirst = player.at[axis] < playlist.at[axis];
    if (playerFirst) {
        if (nearby(15 * list, low + own, 20)) list = rounded(far);
        if (nearby(15 * list + far, high, 20)) {
            list = rounded(high - far);
            lead = rounded(high - 2 * far);
        }
    } else {
        if (nearby(15 * list, low, 20)) {
            list = 0;
            lead = rounded(others);
        }
        if (nearby(15 * list + 2 * far, high, 20)) {
            list = rounded(high - 2 * far);
            lead = rounded(high - far);
        }
    }
    const Axis free = other(axis);
    wanted.playlist[free] = snapped(wanted.playlist[free], playlist.size[free], free, area);
    return wanted;
}

struct Pulled {
    Pair place;
    std::array<bool, 2> docked{}; ///< by the axis of docking
};

/// A free window near one that stands still.
inline Pulled pulled(Pair place, Pair raw, const Box& moving, const Box& still) {
    Pulled result{place, {}};
    struct Side {
        Axis axis;
        bool ahead; // the moving window's far edge at the still one's near edge
    };
    constexpr std::array<Side, 4> sides{
        {{Down, true}, {Across, true}, {Down, false}, {Across, false}}};
    for (const auto& [axis, ahead] : sides) {
        const Number here = 15 * place[axis];
        const Number target =
            ahead ? still.at[axis] - moving.size[axis] : still.at[axis] + still.size[axis];
        if (!nearby(here, target, 15)) continue;
        const Axis along = other(axis);
        const Number start = 15 * place[along];
        const bool apart = start + moving.size[along] < still.at[along] ||
                           still.at[along] + still.size[along] < start;
        result.place[axis] = apart ? raw[axis] : rounded(target);
        result.docked[axis] = !apart;
        break;
    }
    for (const Axis docked : {Down, Across}) {
        const Axis along = other(docked);
        if (result.docked[docked] && nearby(15 * result.place[along], still.at[along], 15)) {
            result.place[along] = rounded(still.at[along]);
            break;
        }
    }
    return result;
}

inline bool touch(const Box& a, const Box& b, Axis axis) {
    return a.at[axis] + a.size[axis] == b.at[axis] || b.at[axis] + b.size[axis] == a.at[axis];
}

} // namespace oracle
