#include "app/frmPlayer.h"
#include "mainwindow/seek.h"
#include "mainwindow/seek_thumb.h"
#include "mainwindow/time_labels.h"
#include "movement/player_drag.h"
#include "playback/Mpeg.h"
#include "runtime/rounding.h"
#include "toolkit/event_loop.h"

namespace {

/// A click on the strip in which the thumb runs: a single jump, dead unless a track plays.
void clickStrip(FrmPlayer& player, toolkit::Twips x) {
    if (player.engine().Status() != "Playing") return;
    toolkit::Image& thumb = player.pctprogressbar;
    const toolkit::Twips left = x - thumb.Width() / 2;
    const runtime::Int16 oldLeft = runtime::roundToInt16(static_cast<double>(thumb.Left()));
    moveThumb(player, left);
    player.seekOffset =
        runtime::Fixed(static_cast<double>(left - static_cast<float>(oldLeft.value())));
    const runtime::Int32 heard = player.engine().CurrentPosition();
    player.trackPositionSeconds =
        seek::soughtPosition(player.trackLengthSeconds, player.seekOffset, heard.value());
    toolkit::yieldInDrag();
    // The seek goes out before the position is kept in the track: the device refuses a negative
    // one.
    seekOrSkip(player);
    keepPositionInTrack(player);
    writeSeekLabels(player);
}

} // namespace

/// The bare background: the rows of the seek bar, whatever X is, and for the rest the drag.
void FrmPlayer::Form_MouseDown(const toolkit::MouseArguments& at) {
    if (at.Y >= seek::StripTop && at.Y <= seek::StripBottom)
        clickStrip(*this, at.X);
    else
        beginDrag(*this);
}
