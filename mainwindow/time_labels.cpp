#include "mainwindow/time_labels.h"

#include "app/frmPlayer.h"
#include "app/frmPlaylist.h"
#include "mainwindow/seconds.h"
#include "mainwindow/time_text.h"
#include "playback/Mpeg.h"
#include "runtime/number_text.h"
#include "runtime/rounding.h"

void writeTime(FrmPlayer& player) {
    player.lblTimenow.Caption(
        timeText(player.trackLengthSeconds, player.trackPositionSeconds, player.showElapsed));
}

void writeSeekLabels(FrmPlayer& player) {
    writeTime(player);
    const runtime::Int16 position = runtime::roundToInt16(player.trackPositionSeconds.toDouble());
    const runtime::Int16 length = wholeSecondsOf(player.engine().Duration());
    player.playlist().lblTitle.Caption(counterText(position, length));
}

/// The text changes at the next tick.
void FrmPlayer::lblTimenow_Click() { showElapsed = !showElapsed; }
