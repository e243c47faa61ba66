#pragma once

#include "platform/types.h"
#include "runtime/integers.h"

/// The rules for the two windows together, as pure functions of their places. Whole numbers are
/// screen pixels.
namespace docking {

/// A window as it stands, in twips.
struct Window {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
};

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
Contact pullTogether(const Place& wanted, const Place& raw, const Window& moving,
                     const Window& still);

/// Where both windows of a docked pair come to stand.
struct Pair {
    Place player;
    Place playlist;
};

/// The pair, wanted at these places, at the edges of the work area. The sizes used differ from rule
/// to rule on purpose. The playlist's free axis snaps by itself.
Pair moveStacked(Pair wanted, const Window& player, const Window& playlist,
                 const platform::Rect& workArea);
Pair moveSideBySide(Pair wanted, const Window& player, const Window& playlist,
                    const platform::Rect& workArea);

/// Whether two windows touch exactly, above or below, whatever their sideways places.
bool touchStacked(const Window& player, const Window& playlist);
/// Whether they touch exactly, to the left or right, whatever their heights.
bool touchSideBySide(const Window& player, const Window& playlist);

} // namespace docking
