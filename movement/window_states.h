#pragma once

class FrmPlayer;

/// Bringing the main window back takes two steps: its normal state, then the showing. The player
/// itself only ever hides it, but a window manager may have put it away. Interface thread.

/// Both steps; the error of the first keeps the second from being taken.
void restoreWindow(FrmPlayer& player);

/// Both steps, each whatever becomes of the other, with their errors ignored.
void restoreWindowSilently(FrmPlayer& player);
