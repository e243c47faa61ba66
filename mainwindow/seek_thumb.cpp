#include "mainwindow/seek_thumb.h"

#include "app/frmPlayer.h"
#include "app/modMain.h"
#include "mainwindow/remote.h"
#include "mainwindow/seconds.h"
#include "mainwindow/seek.h"
#include "mainwindow/time_labels.h"
#include "movement/drag_scale.h"
#include "platform/system.h"
#include "playback/Mpeg.h"
#include "runtime/rounding.h"
#include "toolkit/event_loop.h"

#include <algorithm>
#include <cstdint>

namespace {

void seekDevice(FrmPlayer& player, runtime::Int32 place) {
    player.engine().MoveMPEG(place);
    player.modMain.remote->sought(place);
}

} // namespace

void moveThumb(FrmPlayer& player, toolkit::Twips left) {
    player.pctprogressbar.Move(left);
    player.pctprogressbardown.Move(left);
}

void followTrack(FrmPlayer& player) {
    const double share = runtime::divide(player.trackPositionSeconds.toDouble(),
                                         player.trackLengthSeconds.toDouble());
    if (!(player.seekOffset.toDouble() / seek::ThumbTravel < share)) return;
    player.seekOffset = runtime::Fixed(share * seek::ThumbTravel);
    moveThumb(player, static_cast<float>(player.seekOffset.toDouble() + seek::ThumbStart));
}

void seekOrSkip(FrmPlayer& player) {
    if (player.pctprogressbar.Left() > seek::ThumbEnd)
        player.nextfile();
    else
        seekDevice(player, runtime::roundToInt32(player.trackPositionSeconds * 1000));
}

void jumpTo(FrmPlayer& player, std::int64_t place) {
    if (player.engine().Status() != "Playing") return;
    const runtime::Int32 length = player.engine().Duration();
    if (length <= 0) return;
    if (place > length.value()) return player.nextfile();
    const auto inTrack = static_cast<std::int32_t>(std::max(place, std::int64_t{0}));
    player.trackLengthSeconds = secondsOf(length);
    player.trackPositionSeconds = secondsOf(runtime::Int32(inTrack));
    const float left = seek::leftOf(inTrack, length.value());
    player.seekOffset = runtime::Fixed(static_cast<double>(left - player.pctprogressbar.Left()));
    moveThumb(player, left);
    seekOrSkip(player);
    writeSeekLabels(player);
}

void keepPositionInTrack(FrmPlayer& player) {
    if (player.trackPositionSeconds < 0) player.trackPositionSeconds = 0;
}

void FrmPlayer::pctprogressbar_MouseDown() {
    pctprogressbar.Visible(false);
    pctprogressbardown.Visible(true);
    Timer1.Enabled(false);
    seekPressPosition = secondsOf(engine().CurrentPosition());
    mouseHeld = true;
    seekPressLeft = runtime::roundToInt32(static_cast<double>(pctprogressbar.Left()));
    platform::GetCursorPos(&modMain.dragCursorStart);
    trackLengthSeconds = secondsOf(engine().Duration());
    trackPositionSeconds = secondsOf(engine().CurrentPosition());
}

void FrmPlayer::pctprogressbar_MouseMove() {
    if (engine().Status() != "Playing" || !mouseHeld) return;
    platform::GetCursorPos(&modMain.dragCursorNow);
    const runtime::Int32 dx = drags::twipsTravelled(modMain.dragCursorStart, modMain.dragCursorNow);
    seekOffset =
        seek::dragOffset(dx.value(), trackLengthSeconds, trackPositionSeconds, seekPressPosition);
    // The thumb goes where the move before has asked for, one event behind the pointer.
    moveThumb(*this, seek::draggedLeft(trackPositionSeconds, seekPressPosition, trackLengthSeconds,
                                       seekPressLeft.value()));
    const runtime::Int32 heard = engine().CurrentPosition();
    trackPositionSeconds = seek::soughtPosition(trackLengthSeconds, seekOffset, heard.value());
    toolkit::yieldInDrag();
    writeSeekLabels(*this);
}

void FrmPlayer::pctprogressbar_MouseUp() {
    mouseHeld = false;
    pctprogressbar.Visible(true);
    pctprogressbardown.Visible(false);
    keepPositionInTrack(*this);
    seekOrSkip(*this);
    Timer1.Enabled(true);
}
