#include "movement/docking.h"

#include "movement/drag_scale.h"
#include "movement/snap.h"
#include "runtime/rounding.h"

namespace docking {
namespace {

constexpr double dockDistance = 15; // pixels
using drags::pixelsOf;
using snap::EdgeDistance;
using snap::within;

runtime::Int32 rounded(double value) { return runtime::roundToInt32(value); }

/// A standing window's edges and size in pixels. Sums are made in twips.
struct Edges {
    explicit Edges(const toolkit::Bounds& window)
        : left(pixelsOf(window.left)), top(pixelsOf(window.top)),
          right(pixelsOf(window.left + window.width)),
          bottom(pixelsOf(window.top + window.height)) {}
    double left;
    double top;
    double right;
    double bottom;
};

/// Nearness as the first two sides test it: values held in single precision.
bool withinSingle(double value, double target) {
    const auto v = static_cast<float>(value);
    const auto t = static_cast<float>(target);
    const auto distance = static_cast<float>(dockDistance);
    return t - distance < v && v < t + distance;
}

} // namespace

Contact pullTogether(const Place& wanted, const Place& raw, const toolkit::Bounds& moving,
                     const toolkit::Bounds& still) {
    const double width = pixelsOf(moving.width);
    const double height = pixelsOf(moving.height);
    const Edges other(still);
    Contact result{wanted, false, false};
    runtime::Int32& x = result.place.x;
    runtime::Int32& y = result.place.y;

    // 1. Which side is near? The first of the four ends the search, and sets the place.
    // 2. Do the windows meet there? If not, that axis goes back to its raw place.
    const auto columnsMeet = [&] {
        return other.left <= x.value() + width && other.right >= x.value();
    };
    const auto rowsMeet = [&] {
        return other.top <= y.value() + height && other.bottom >= y.value();
    };
    const auto dockY = [&](double place) {
        y = rounded(place);
        result.stacked = columnsMeet();
        if (!result.stacked) y = raw.y;
    };
    const auto dockX = [&](double place) {
        x = rounded(place);
        result.sideBySide = rowsMeet();
        if (!result.sideBySide) x = raw.x;
    };
    if (withinSingle(y.value() + height, other.top))
        dockY(other.top - height);
    else if (withinSingle(x.value() + width, other.left))
        dockX(other.left - width);
    else if (within(y.value(), other.bottom, dockDistance))
        dockY(other.bottom);
    else if (within(x.value(), other.right, dockDistance))
        dockX(other.right);

    // 3. The edges along the shared side line up if they are near.
    if (result.stacked && within(x.value(), other.left, dockDistance))
        x = rounded(other.left);
    else if (result.sideBySide && within(y.value(), other.top, dockDistance))
        y = rounded(other.top);
    return result;
}

Pair moveStacked(Pair wanted, const toolkit::Bounds& player, const toolkit::Bounds& playlist,
                 const platform::Rect& workArea) {
    const double playerHeight = pixelsOf(player.height);
    const double height = pixelsOf(playlist.height);
    runtime::Int32& y = wanted.player.y;
    runtime::Int32& listY = wanted.playlist.y;
    if (player.top < playlist.top) {
        if (within(listY.value(), workArea.top + height, EdgeDistance)) listY = rounded(height);
        if (within(listY.value() + height, workArea.bottom, EdgeDistance)) {
            listY = rounded(workArea.bottom - height);
            y = rounded(workArea.bottom - 2 * height);
        }
    } else {
        if (within(listY.value(), workArea.top, EdgeDistance)) {
            listY = 0;
            y = rounded(playerHeight);
        }
        if (within(listY.value() + 2 * height, workArea.bottom, EdgeDistance)) {
            listY = rounded(workArea.bottom - 2 * height);
            y = rounded(workArea.bottom - height);
        }
    }
    return wanted;
}

Pair moveSideBySide(Pair wanted, const toolkit::Bounds& player, const toolkit::Bounds& playlist,
                    const platform::Rect& workArea) {
    const double width = pixelsOf(player.width);
    const double listWidth = pixelsOf(playlist.width);
    runtime::Int32& x = wanted.player.x;
    runtime::Int32& listX = wanted.playlist.x;
    if (player.left < playlist.left) {
        // The test takes the playlist's width and the result the main window's.
        if (within(listX.value(), workArea.left + listWidth, EdgeDistance)) listX = rounded(width);
        if (within(listX.value() + width, workArea.right, EdgeDistance)) {
            listX = rounded(workArea.right - width);
            x = rounded(workArea.right - 2 * width);
        }
    } else {
        if (within(listX.value(), workArea.left, EdgeDistance)) {
            listX = 0;
            x = rounded(width);
        }
        if (within(listX.value() + 2 * width, workArea.right, EdgeDistance)) {
            listX = rounded(workArea.right - 2 * width);
            x = rounded(workArea.right - width);
        }
    }
    return wanted;
}

bool touchStacked(const toolkit::Bounds& player, const toolkit::Bounds& playlist) {
    return player.height + player.top == playlist.top ||
           playlist.height + playlist.top == player.top;
}

bool touchSideBySide(const toolkit::Bounds& player, const toolkit::Bounds& playlist) {
    return player.width + player.left == playlist.left ||
           playlist.width + playlist.left == player.left;
}

} // namespace docking
