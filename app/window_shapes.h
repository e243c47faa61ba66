#pragma once

#include "toolkit/form.h"

/// Rounded top corners, square bottom corners.
void shapeMainWindow(toolkit::Form& window);

/// Square top corners, rounded bottom corners: docked below, both windows make one rounded slab.
void shapePlaylistWindow(toolkit::Form& window);
