#pragma once

#include "platform/windows/window_table.h"

namespace platform {

/// Runs the handler of a window's push button that was clicked.
void tellClicked(const WindowState& state, HWND button);

/// Gives the pointer the shape that the push button under it asks for; false if none does.
bool shapePointer(const WindowState& state, HWND under);

/// The keyboard is the push button's while its window has it.
void focusButton(const WindowState& state);

} // namespace platform
