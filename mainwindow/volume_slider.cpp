#include "mainwindow/volume_slider.h"

#include "app/frmPlayer.h"
#include "app/modMain.h"
#include "mainwindow/volume.h"
#include "movement/drag_scale.h"
#include "platform/system.h"
#include "playback/Mpeg.h"
#include "runtime/rounding.h"
#include "toolkit/event_loop.h"

namespace {

void stopAt(FrmPlayer& player, double level, float left) {
    player.volumeLevel = level;
    player.pctvolume.Move(left);
    player.engine().AdjustVolume(player.volumeLevel);
}

/// The level is that of the thumb's place before this move: one event behind the thumb.
void followPointer(FrmPlayer& player) {
    ModMain& shared = player.modMain;
    player.volumeLevel = volume::levelOf(player.pctvolume.Left());
    player.engine().AdjustVolume(player.volumeLevel);
    platform::GetCursorPos(&shared.dragCursorNow);
    player.volumeCursorDelta = drags::twipsTravelled(shared.dragCursorStart, shared.dragCursorNow);
    const runtime::Int32 left = player.volumeThumbLeft + player.volumeCursorDelta;
    player.pctvolume.Move(static_cast<float>(left.value()));
}

} // namespace

void slideVolume(FrmPlayer& player, double share) {
    // A share that is no number at all is silence.
    if (!(share > 0))
        stopAt(player, volume::LowestLevel, volume::LowestLeft);
    else if (share >= 1)
        stopAt(player, volume::StopLevel, volume::HighestLeft);
    else
        stopAt(player, volume::levelOf(volume::leftOf(share)), volume::leftOf(share));
    player.volumeThumbLeft = runtime::roundToInt32(static_cast<double>(player.pctvolume.Left()));
}

void FrmPlayer::pctvolume_MouseDown() {
    mouseHeld = true;
    volumeCursorDelta = 0;
    volumeThumbLeft = runtime::roundToInt32(static_cast<double>(pctvolume.Left()));
    platform::GetCursorPos(&modMain.dragCursorStart);
}

void FrmPlayer::pctvolume_MouseMove() {
    if (!mouseHeld) return;
    const runtime::Int32 place = volumeThumbLeft + volumeCursorDelta;
    // The stops don't read the pointer, so a press that ran into one stays there.
    if (place < volume::LowestLeft)
        stopAt(*this, volume::LowestLevel, volume::LowestLeft);
    else if (place > volume::HighestLeft)
        stopAt(*this, volume::StopLevel, volume::HighestLeft);
    else
        followPointer(*this);
    toolkit::yieldInDrag();
}

void FrmPlayer::pctvolume_MouseUp() {
    mouseHeld = false;
    volumeThumbLeft = runtime::roundToInt32(static_cast<double>(pctvolume.Left()));
}
