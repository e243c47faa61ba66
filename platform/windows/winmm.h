#pragma once

#include "platform/windows/win32.h"

namespace platform {

/// The system's multimedia calls. They are taken from the system's own folder: a library of that
/// name beside the program would come before it if the program named it as one that it needs.
struct Winmm {
    decltype(&::mciSendStringA) sendString;
    decltype(&::mciSendStringW) sendWideString;
    decltype(&::mciGetErrorStringA) getErrorString;
    decltype(&::waveOutGetNumDevs) countDevices;
    decltype(&::waveOutGetVolume) getVolume;
    decltype(&::waveOutSetVolume) setVolume;
};

/// Loads them at the first call; without them the process ends with a message.
const Winmm& winmm();

} // namespace platform
