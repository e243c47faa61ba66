#pragma once

#include "movement/docking.h"
#include "platform/system.h"
#include "runtime/rounding.h"
#include "toolkit/form.h"

/// Between forms, in twips, and the drags' whole pixels. A drag takes a pixel for 15 twips,
/// whatever the screen says.
namespace places {

inline docking::Window windowOf(toolkit::Form& form) {
    return {form.Left(), form.Top(), form.Width(), form.Height()};
}

inline double pixelsOf(toolkit::Twips twips) { return static_cast<double>(twips) / 15; }

inline docking::Place placeOf(toolkit::Form& form) {
    return {runtime::roundToInt32(pixelsOf(form.Left())),
            runtime::roundToInt32(pixelsOf(form.Top()))};
}

inline void move(toolkit::Form& form, const docking::Place& place) {
    platform::MoveWindow(form.hWnd(), place.x.value(), place.y.value(),
                         runtime::roundToInt32(pixelsOf(form.Width())).value(),
                         runtime::roundToInt32(pixelsOf(form.Height())).value(), true);
}

/// The pointer's way from one place to another, added to a window's place at the press.
inline docking::Place moved(const docking::Place& start, const platform::Point& from,
                            const platform::Point& to) {
    using runtime::Int32;
    return {start.x + (Int32(to.x) - Int32(from.x)), start.y + (Int32(to.y) - Int32(from.y))};
}

} // namespace places
