#include "app/frmPlayer.h"
#include "app/modMain.h"
#include "mainwindow/volume.h"
#include "platform/system.h"
#include "runtime/rounding.h"
#include "toolkit/guard.h"

namespace {

constexpr std::int32_t twipsAPixel = 15;

} // namespace

void FrmPlayer::connectVolume() {
    pctvolume.MouseDown = [this](const auto&) { pctvolume_MouseDown(); };
    pctvolume.MouseMove = [this](const auto&) { pctvolume_MouseMove(); };
    pctvolume.MouseUp = [this](const auto&) { pctvolume_MouseUp(); };
}

void FrmPlayer::pctvolume_MouseDown() {
    mouseHeld = runtime::True16;
    volumeCursorDelta = 0;
    volumeThumbLeft = runtime::roundToInt32(static_cast<double>(pctvolume.Left()));
    platform::GetCursorPos(&shared_.dragCursorStart);
}

void FrmPlayer::pctvolume_MouseMove() {
    if (mouseHeld == runtime::False16) return;
    const runtime::Int32 place = volumeThumbLeft + volumeCursorDelta;
    // The stops don't read the pointer, so a press that ran into one stays there.
    if (place < volume::LowestLeft)
        stopVolumeAt(volume::LowestLevel, volume::LowestLeft);
    else if (place > volume::HighestLeft)
        stopVolumeAt(volume::StopLevel, volume::HighestLeft);
    else
        followVolumePointer();
    toolkit::yieldInDrag();
}

void FrmPlayer::stopVolumeAt(double level, std::int32_t left) {
    volumeLevel = level;
    pctvolume.Move(static_cast<float>(left));
    engine().AdjustVolume(volumeLevel);
}

/// The level is that of the thumb's place before this move: one event behind the thumb.
void FrmPlayer::followVolumePointer() {
    volumeLevel = volume::levelOf(pctvolume.Left());
    engine().AdjustVolume(volumeLevel);
    platform::GetCursorPos(&shared_.dragCursorNow);
    volumeCursorDelta = runtime::Int32(shared_.dragCursorNow.x) * twipsAPixel -
                        runtime::Int32(shared_.dragCursorStart.x) * twipsAPixel;
    pctvolume.Move(static_cast<float>((volumeThumbLeft + volumeCursorDelta).value()));
}

void FrmPlayer::pctvolume_MouseUp() {
    mouseHeld = runtime::False16;
    volumeThumbLeft = runtime::roundToInt32(static_cast<double>(pctvolume.Left()));
}
