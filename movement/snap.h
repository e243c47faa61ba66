#pragma once

#include "platform/types.h"
#include "runtime/integers.h"

/// Pulling a window to the edges of the work area, in whole pixels. Distances are strict: 19 pixels
/// snap and 20 don't.
namespace snap {

/// `x` of a window `width` pixels wide. The left edge snaps to 0, wherever the work area starts;
/// the right edge to the work area's, and it wins if both are near.
runtime::Int32 horizontally(runtime::Int32 x, double width, const platform::Rect& workArea);

/// The same for `y`, the top and the bottom.
runtime::Int32 vertically(runtime::Int32 y, double height, const platform::Rect& workArea);

/// Whether `value` lies nearer than `distance` to `target`.
bool within(double value, double target, double distance);

inline constexpr double EdgeDistance = 20; ///< pixels

} // namespace snap
