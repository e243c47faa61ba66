#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "app/modMain.h"
#include "mainwindow/seek.h"
#include "platform/system.h"
#include "playback/seconds.h"
#include "playback/seek_travel.h"
#include "playback/time_text.h"
#include "runtime/number_text.h"
#include "runtime/rounding.h"
#include "toolkit/guard.h"

namespace {

/// Drags take a pixel for this many twips, whatever the screen says.
constexpr std::int32_t twipsAPixel = 15;

/// The pointer's travel in twips; error 6 beyond 32 bits.
runtime::Int32 travel(const platform::Point& from, const platform::Point& to) {
    return runtime::Int32(to.x) * twipsAPixel - runtime::Int32(from.x) * twipsAPixel;
}

} // namespace

void FrmPlayer::connectSeekBar() {
    pctprogressbar.MouseDown = [this](const auto&) { pctprogressbar_MouseDown(); };
    pctprogressbar.MouseMove = [this](const auto&) { pctprogressbar_MouseMove(); };
    pctprogressbar.MouseUp = [this](const auto&) { pctprogressbar_MouseUp(); };
}

void FrmPlayer::pctprogressbar_MouseDown() {
    pctprogressbar.Visible(false);
    pctprogressbardown.Visible(true);
    Timer1.Enabled(false);
    seekPressPosition = secondsOf(engine().CurrentPosition());
    mouseHeld = runtime::True16;
    seekPressLeft = runtime::roundToInt32(static_cast<double>(pctprogressbar.Left()));
    platform::GetCursorPos(&shared_.dragCursorStart);
    trackLengthSeconds = secondsOf(engine().Duration());
    trackPositionSeconds = secondsOf(engine().CurrentPosition());
}

void FrmPlayer::pctprogressbar_MouseMove() {
    if (engine().Status() != "Playing" || mouseHeld != runtime::True16) return;
    platform::GetCursorPos(&shared_.dragCursorNow);
    const runtime::Int32 dx = travel(shared_.dragCursorStart, shared_.dragCursorNow);
    seekOffset =
        seek::dragOffset(dx.value(), trackLengthSeconds, trackPositionSeconds, seekPressPosition);
    // The thumb goes where the move before has asked for, one event behind the pointer.
    moveThumb(seek::draggedLeft(trackPositionSeconds, seekPressPosition, trackLengthSeconds,
                                seekPressLeft.value()));
    const runtime::Int32 heard = engine().CurrentPosition();
    trackPositionSeconds = seek::soughtPosition(trackLengthSeconds, seekOffset, heard.value());
    toolkit::yieldInDrag();
    writeSeekTexts();
}

void FrmPlayer::pctprogressbar_MouseUp() {
    mouseHeld = runtime::False16;
    pctprogressbar.Visible(true);
    pctprogressbardown.Visible(false);
    keepPositionInTrack();
    if (pctprogressbar.Left() > seek::ThumbEnd)
        nextfile();
    else
        seekToPosition();
    Timer1.Enabled(true);
}

void FrmPlayer::clickSeekStrip(toolkit::Twips x) {
    if (engine().Status() != "Playing") return;
    const toolkit::Twips left = x - pctprogressbar.Width() / 2;
    const runtime::Int16 oldLeft =
        runtime::roundToInt16(static_cast<double>(pctprogressbar.Left()));
    moveThumb(left);
    seekOffset = runtime::Fixed(static_cast<double>(left - static_cast<float>(oldLeft.value())));
    const runtime::Int32 heard = engine().CurrentPosition();
    trackPositionSeconds = seek::soughtPosition(trackLengthSeconds, seekOffset, heard.value());
    toolkit::yieldInDrag();
    // The seek goes out before the position is kept in the track: the device refuses a negative
    // one.
    if (pctprogressbar.Left() > seek::ThumbEnd)
        nextfile();
    else
        seekToPosition();
    keepPositionInTrack();
    writeSeekTexts();
}

void FrmPlayer::keepPositionInTrack() {
    if (trackPositionSeconds < 0) trackPositionSeconds = 0;
}

void FrmPlayer::seekToPosition() {
    engine().MoveMPEG(runtime::roundToInt32(trackPositionSeconds * 1000));
}

void FrmPlayer::writeSeekTexts() {
    lblTimenow.Caption(
        timeText(trackLengthSeconds, trackPositionSeconds, showElapsed == runtime::True16));
    const runtime::Int16 position = runtime::roundToInt16(trackPositionSeconds.toDouble());
    const runtime::Int16 length = wholeSecondsOf(engine().Duration());
    playlist().lblTitle.Caption(runtime::textOf(position) + " / " + runtime::textOf(length));
}
