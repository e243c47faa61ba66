#include "app/frmPlayer.h"
#include "playback/Mpeg.h"
#include "shell/clsSysTray.h"
#include "toolkit/guard.h"

void FrmPlayer::unloadmebaby() {
    endIfClosed();
    gSysTray->RemoveFromSysTray();
    window.Unload();
    toolkit::endProgram();
}

/// Runs before the window closes, whoever closes it; closing is never refused. The settings go
/// first, while everything still stands as the user left it.
void FrmPlayer::Form_QueryUnload() {
    writeSettings();
    gSysTray.reset();
    DirTemp.reset();
    ListDir.reset();
    engine().StopM();
}
