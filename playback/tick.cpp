#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "playback/seconds.h"
#include "playback/seek_travel.h"
#include "playback/time_text.h"
#include "runtime/number_text.h"
#include "runtime/rounding.h"

void FrmPlayer::Timer1_Timer() {
    const std::string status = engine().Status();
    if (status == "Playing") showProgress();
    if (status == "Idle")
        playlist().lblPlaying.Caption("Idle");
    else if (endOfTrack() == AfterEnd::Stopped)
        return;
    testAlarm();
}

void FrmPlayer::showProgress() {
    playlist().lblPlaying.Caption("Playing");
    const runtime::Int16 position = wholeSecondsOf(engine().CurrentPosition());
    const runtime::Int16 length = wholeSecondsOf(engine().Duration());
    playlist().lblTitle.Caption(runtime::textOf(position) + " / " + runtime::textOf(length));
    trackLengthSeconds = secondsOf(engine().Duration());
    trackPositionSeconds = secondsOf(engine().CurrentPosition());
    lblTimenow.Caption(
        timeText(trackLengthSeconds, trackPositionSeconds, showElapsed == runtime::True16));
    followTrack();
}

/// The thumb only ever goes forward, and only by what the share of the track has grown.
void FrmPlayer::followTrack() {
    const double share =
        runtime::divide(trackPositionSeconds.toDouble(), trackLengthSeconds.toDouble());
    if (!(seekOffset.toDouble() / seek::ThumbTravel < share)) return;
    seekOffset = runtime::Fixed(share * seek::ThumbTravel);
    moveThumb(static_cast<float>(seekOffset.toDouble() + seek::ThumbStart));
}

FrmPlayer::AfterEnd FrmPlayer::endOfTrack() {
    if (trackLengthSeconds != trackPositionSeconds) return AfterEnd::GoesOn;
    moveThumb(seek::ThumbEnd);
    const bool last = playlist().List1.ListIndex() == playlist().List1.ListCount() - 1;
    if (!last || repeatOn != runtime::False16) {
        nextfile();
        return AfterEnd::GoesOn;
    }
    pctstop_MouseUp();
    // Frozen values that are equal would be taken for another end.
    trackPositionSeconds = trackPositionSeconds + runtime::Fixed(1);
    return AfterEnd::Stopped;
}

void FrmPlayer::lblTimenow_Click() {
    showElapsed = showElapsed == runtime::True16 ? runtime::False16 : runtime::True16;
}
