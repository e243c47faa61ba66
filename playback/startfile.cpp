#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "playback/seek_travel.h"
#include "playback/text_helpers.h"
#include "toolkit/msgbox.h"

void FrmPlayer::addTrack(const std::string& path, const std::string& title) {
    trackPaths.resizeKeeping(trackCount);
    trackPaths[trackCount] = path;
    playlist().List1.AddItem(title);
    trackCount += 1;
}

void FrmPlayer::startfile() {
    runtime::NumberedError error;
    try {
        startOrResume();
    } catch (const runtime::NumberedError& raised) {
        error = raised;
    }
    // No selection, or a cancelled dialog on an empty list: the subscript error stays silent.
    if (error.number == 0 || error.number == runtime::SubscriptOutOfRange) return;
    toolkit::MsgBox("Error: " + std::to_string(error.number) + ". " + error.description(),
                    toolkit::MsgBoxStyle::Plain, "Play");
}

void FrmPlayer::startOrResume() {
    lblTimenow.Visible(true);
    Timer1.Enabled(true);
    const bool paused = engine().Status() == "Paused";
    const bool empty = playlist().List1.ListCount() == 0;
    if (empty) openfiles();
    if (!paused || empty) openSelected();
    releasePauseImages();
    engine().PlayM();
}

/// The thumb back at the start of its bar, and the selected track in the device.
void FrmPlayer::openSelected() {
    pctprogressbar.Visible(true);
    moveThumb(seek::ThumbStart);
    seekOffset = 0;
    if (engine().Status() == "Playing") engine().StopM();
    engine().FileName(window.hWnd(), trackPaths[playlist().List1.ListIndex()]);
}

void FrmPlayer::moveThumb(toolkit::Twips left) {
    pctprogressbar.Move(left);
    pctprogressbardown.Move(left);
}

void FrmPlayer::releasePauseImages() {
    pctpausedown.Visible(false);
    playlist().pctPlsPause.Visible(true);
    playlist().pctPlsPauseDown.Visible(false);
}
