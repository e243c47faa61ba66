#pragma once

class FrmPlayer;

/// Brings the hidden main window back. The window has no state but shown or hidden: restoring it is
/// nothing but showing it. Interface thread.
void restoreWindow(FrmPlayer& player);
