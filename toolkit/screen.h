#pragma once

#include "toolkit/units.h"

/// The screen object. Every value is read afresh.
namespace toolkit::Screen {

/// Twips in one pixel; 15 on a standard display.
float TwipsPerPixelX();
float TwipsPerPixelY();

/// The main screen's size in twips.
Twips Width();
Twips Height();

} // namespace toolkit::Screen
