#pragma once

#include "movement/docking.h"
#include "toolkit/form.h"

/// Between forms, which stand in twips, and a drag's whole pixels. Interface thread.
namespace places {

/// A form's place and size, twips.
toolkit::Bounds boundsOf(toolkit::Form& form);

/// A form's top left corner, rounded to whole pixels.
docking::Place placeOf(toolkit::Form& form);

/// Moves a form; its size stays.
void move(toolkit::Form& form, const docking::Place& place);

/// The pointer's way from one place to another, added to a window's place at the press.
docking::Place moved(const docking::Place& start, const platform::Point& from,
                     const platform::Point& to);

} // namespace places
