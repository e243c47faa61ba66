#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "mainwindow/keys.h"
#include "mainwindow/remote.h"
#include "mainwindow/seek.h"
#include "mainwindow/seek_thumb.h"
#include "playback/Mpeg.h"
#include "toolkit/msgbox.h"

#include <string>

namespace {

/// The thumb back at the start of its bar, and the selected track in the device.
void openSelected(FrmPlayer& player) {
    player.pctprogressbar.Visible(true);
    moveThumb(player, seek::ThumbStart);
    player.seekOffset = 0;
    Mpeg& engine = player.engine();
    if (engine.Status() == "Playing") engine.StopM();
    std::string& path = player.trackPaths[player.playlist().List1.ListIndex()];
    engine.FileName(player.window.hWnd(), path);
    player.modMain.remote->trackOpened(path);
}

void startOrResume(FrmPlayer& player) {
    player.lblTimenow.Visible(true);
    player.Timer1.Enabled(true);
    const bool paused = player.engine().Status() == "Paused";
    const bool empty = player.playlist().List1.ListCount() == 0;
    if (empty) player.openfiles();
    if (!paused || empty) openSelected(player);
    releasePauseKeys(player);
    player.engine().PlayM();
}

} // namespace

void FrmPlayer::startfile() {
    runtime::NumberedError error;
    try {
        startOrResume(*this);
    } catch (const runtime::NumberedError& raised) {
        error = raised;
    }
    // No selection, or a cancelled dialog on an empty list: the subscript error stays silent.
    if (error.number == 0 || error.number == runtime::SubscriptOutOfRange) return;
    toolkit::MsgBox("Error: " + std::to_string(error.number) + ". " + error.description(),
                    toolkit::MsgBoxStyle::Plain, "Play");
}
