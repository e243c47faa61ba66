#include "platform/media.h"

#include "platform/windows/handles.h"

namespace platform {
namespace {

/// The calls take a device's number in the place of an open device.
HWAVEOUT deviceOf(std::uint32_t device) {
    return reinterpret_cast<HWAVEOUT>(static_cast<std::uintptr_t>(device));
}

} // namespace

std::uint32_t mciSendStringA(const char* command, char* reply, std::uint32_t replySize,
                             WindowHandle callback) {
    return ::mciSendStringA(command, reply, replySize, windowOf(callback));
}

bool mciGetErrorStringA(std::uint32_t error, char* text, std::uint32_t size) {
    return ::mciGetErrorStringA(error, text, size) != FALSE;
}

std::uint32_t waveOutGetNumDevs() { return ::waveOutGetNumDevs(); }

std::uint32_t waveOutGetVolume(std::uint32_t device, std::uint32_t* volume) {
    DWORD both = 0;
    const MMRESULT result = ::waveOutGetVolume(deviceOf(device), &both);
    if (result == MMSYSERR_NOERROR) *volume = both;
    return result;
}

std::uint32_t waveOutSetVolume(std::uint32_t device, std::uint32_t volume) {
    return ::waveOutSetVolume(deviceOf(device), volume);
}

} // namespace platform
