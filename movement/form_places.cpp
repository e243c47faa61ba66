#include "movement/form_places.h"

#include "movement/drag_scale.h"
#include "platform/system.h"
#include "runtime/rounding.h"

namespace places {
namespace {

runtime::Int32 wholePixelsOf(toolkit::Twips twips) {
    return runtime::roundToInt32(drags::pixelsOf(twips));
}

} // namespace

toolkit::Bounds boundsOf(toolkit::Form& form) {
    return {form.Left(), form.Top(), form.Width(), form.Height()};
}

docking::Place placeOf(toolkit::Form& form) {
    return {wholePixelsOf(form.Left()), wholePixelsOf(form.Top())};
}

void move(toolkit::Form& form, const docking::Place& place) {
    platform::MoveWindow(form.hWnd(), place.x.value(), place.y.value(),
                         wholePixelsOf(form.Width()).value(), wholePixelsOf(form.Height()).value(),
                         true);
}

docking::Place moved(const docking::Place& start, const platform::Point& from,
                     const platform::Point& to) {
    using runtime::Int32;
    return {start.x + (Int32(to.x) - Int32(from.x)), start.y + (Int32(to.y) - Int32(from.y))};
}

} // namespace places
