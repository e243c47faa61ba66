#include "app/frmPlayer.h"
#include "app/settings_file.h"
#include "playback/Mpeg.h"
#include "shell/clsSysTray.h"
#include "toolkit/dir_list_box.h"
#include "toolkit/event_loop.h"
#include "toolkit/list_box.h"

void FrmPlayer::unloadmebaby() {
    window.endIfGone();
    gSysTray->RemoveFromSysTray();
    window.Unload();
    toolkit::endProgram();
}

/// Runs before the window closes, whoever closes it; closing is never refused. The settings go
/// first, while everything still stands as the user left it.
void FrmPlayer::Form_QueryUnload() {
    settings::save(*this);
    gSysTray.reset();
    DirTemp.reset();
    ListDir.reset();
    engine().StopM();
}
