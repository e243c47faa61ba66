#pragma once

#include "platform/types.h"
#include "runtime/integers.h"
#include "toolkit/units.h"

/// The rules for the two windows together, as pure functions of their places. Whole numbers are
/// screen pixels;
/// windows as they stand are in twips.
namespace docking {

struct Place {
    runtime::Int32 x;
    runtime::Int32 y;
    friend bool operator==(const Place&, const Place&) = default;
};

/// Where a moving window comes to stand, and the docks it has found on the way.
struct Contact {
    Place place;
    bool stacked = false;    ///< above or below the other window
    bool sideBySide = false; ///< to its left or right
};

/// A window of `moving`'s size, wanted at `wanted` after the edges' snap and at `raw` before it,
/// is pulled to a free window that stands still. Of the four sides the first that is near decides,
/// also if the windows don't meet there; then it goes back to the raw place on that axis.
Contact pullTogether(const Place& wanted, const Place& raw, const toolkit::Bounds& moving,
                     const toolkit::Bounds& still);

/// Where both windows of a docked pair come to stand.
struct Pair {
    Place player;
    Place playlist;
};

/// The pair, wanted at these places, at the edges of the work area. The sizes used differ from rule
/// to rule on purpose. The playlist's free axis is left to the caller, who snaps it by itself.
Pair moveStacked(Pair wanted, const toolkit::Bounds& player, const toolkit::Bounds& playlist,
                 const platform::Rect& workArea);
Pair moveSideBySide(Pair wanted, const toolkit::Bounds& player, const toolkit::Bounds& playlist,
                    const platform::Rect& workArea);

/// Whether two windows touch exactly, above or below, whatever their sideways places.
bool touchStacked(const toolkit::Bounds& player, const toolkit::Bounds& playlist);
/// Whether they touch exactly, to the left or right, whatever their heights.
bool touchSideBySide(const toolkit::Bounds& player, const toolkit::Bounds& playlist);

} // namespace docking
