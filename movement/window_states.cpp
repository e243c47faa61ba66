#include "movement/window_states.h"

#include "app/frmPlayer.h"

void restoreWindow(FrmPlayer& player) { player.window.Show(); }
