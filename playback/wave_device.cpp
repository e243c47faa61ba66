#include "app/modMain.h"
#include "mainwindow/volume.h"
#include "platform/media.h"
#include "playback/Mpeg.h"
#include "playback/volume_words.h"
#include "toolkit/msgbox.h"

#include <cstdint>

namespace {

/// How far each per cent of volume moves the thumb.
constexpr double twipsAPercent = 6;

} // namespace

bool Mpeg::DevicesPresent() {
    const runtime::Int16 count(platform::waveOutGetNumDevs());
    if (count == 0) {
        toolkit::MsgBox("Unable to detect a wave output device.\n\nTerminating...",
                        toolkit::MsgBoxStyle::Critical, "Blah - Error");
        return false;
    }
    for (runtime::Int16 device = 0; device < count; device += 1) {
        const auto number = static_cast<std::uint32_t>(device.value());
        if (platform::waveOutGetVolume(number, &shared_.waveVolumeWord) != 0) continue;
        shared_.waveDeviceId = device;
        break;
    }
    shared_.waveVolumeWord = volume::safeWord(shared_.waveVolumeWord);
    shared_.wavePercent = volume::percentOf(shared_.waveVolumeWord);
    shared_.frmPlayer.pctvolume.Left(
        static_cast<float>(shared_.wavePercent * twipsAPercent + volume::LowestLeft));
    return true;
}

void Mpeg::AdjustVolume(double volume) {
    shared_.waveVolumeWord = volume::safeWord(volume::wordOf(volume));
    platform::waveOutSetVolume(static_cast<std::uint32_t>(shared_.waveDeviceId.value()),
                               shared_.waveVolumeWord);
}
