#pragma once

#include "toolkit/accessible.h"

class FrmPlayer;
class FrmPlaylist;

/// What screen readers are told of the two windows, in the order of reading. Interface thread.
toolkit::AccessibleTable accessibleTableOf(FrmPlayer& player);
toolkit::AccessibleTable accessibleTableOf(FrmPlaylist& playlist);
