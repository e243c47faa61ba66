#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "mainwindow/alarm_panel.h"
#include "mainwindow/remote.h"
#include "mainwindow/seconds.h"
#include "mainwindow/seek.h"
#include "mainwindow/seek_thumb.h"
#include "mainwindow/time_labels.h"
#include "mainwindow/time_text.h"
#include "playback/Mpeg.h"

#include <string>

namespace {

/// The device is asked for each number twice, and its answers may differ.
void showProgress(FrmPlayer& player) {
    Mpeg& engine = player.engine();
    FrmPlaylist& playlist = player.playlist();
    playlist.lblPlaying.Caption("Playing");
    const runtime::Int16 position = wholeSecondsOf(engine.CurrentPosition());
    const runtime::Int16 length = wholeSecondsOf(engine.Duration());
    playlist.lblTitle.Caption(counterText(position, length));
    player.trackLengthSeconds = secondsOf(engine.Duration());
    player.trackPositionSeconds = secondsOf(engine.CurrentPosition());
    player.modMain.remote->lengthRead();
    writeTime(player);
    followTrack(player);
}

enum class AfterEnd { GoesOn, Stopped };

AfterEnd testEndOfTrack(FrmPlayer& player) {
    if (player.trackLengthSeconds != player.trackPositionSeconds) return AfterEnd::GoesOn;
    moveThumb(player, seek::ThumbEnd);
    toolkit::ListBox& list = player.playlist().List1;
    const bool last = list.ListIndex() == list.ListCount() - 1;
    if (!last || player.repeatOn) {
        player.nextfile();
        return AfterEnd::GoesOn;
    }
    player.pctstop_MouseUp();
    // Frozen values that are equal would be taken for another end.
    player.trackPositionSeconds = player.trackPositionSeconds + runtime::Fixed(1);
    return AfterEnd::Stopped;
}

} // namespace

void FrmPlayer::Timer1_Timer() {
    const std::string status = engine().Status();
    if (status == "Playing") showProgress(*this);
    if (status == "Idle")
        playlist().lblPlaying.Caption("Idle");
    else if (testEndOfTrack(*this) == AfterEnd::Stopped)
        return;
    testAlarm(*this);
}
