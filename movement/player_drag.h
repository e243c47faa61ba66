#pragma once

class FrmPlayer;

/// The press that begins a drag of the main window: where both windows stand, and the pointer.
/// Interface thread.
void beginDrag(FrmPlayer& player);
