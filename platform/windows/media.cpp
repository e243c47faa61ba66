#include "platform/media.h"

#include "platform/windows/handles.h"
#include "platform/windows/short_names.h"
#include "platform/windows/utf16.h"
#include "platform/windows/winmm.h"

#include <cstdint>
#include <string>

namespace platform {
namespace {

/// The calls take a device's number in the place of an open device.
HWAVEOUT deviceOf(std::uint32_t device) {
    return reinterpret_cast<HWAVEOUT>(static_cast<std::uintptr_t>(device));
}

/// Writes as much of a reply as a buffer holds together with its nul.
void writeReply(const std::string& text, char* reply, std::uint32_t size) {
    if (reply == nullptr || size == 0) return;
    reply[text.copy(reply, size - 1)] = '\0';
}

std::uint32_t sendWide(const std::wstring& command, char* reply, std::uint32_t replySize,
                       WindowHandle callback) {
    std::wstring wide(replySize + 1, L'\0');
    const std::uint32_t result =
        winmm().sendWideString(command.c_str(), wide.data(), replySize, windowOf(callback));
    writeReply(fromWide(wide.c_str()), reply, replySize);
    return result;
}

} // namespace

/// The system's device reads a file when it is opened, and not before.
void expectFile(const std::string& /*path*/) {}

std::uint32_t mciSendStringA(const char* command, char* reply, std::uint32_t replySize,
                             WindowHandle callback) {
    const std::wstring opening = commandWithPath(command);
    return opening.empty() ? winmm().sendString(command, reply, replySize, windowOf(callback))
                           : sendWide(opening, reply, reply == nullptr ? 0 : replySize, callback);
}

bool mciGetErrorStringA(std::uint32_t error, char* text, std::uint32_t size) {
    return winmm().getErrorString(error, text, size) != FALSE;
}

std::uint32_t waveOutGetNumDevs() { return winmm().countDevices(); }

std::uint32_t waveOutGetVolume(std::uint32_t device, std::uint32_t* volume) {
    DWORD both = 0;
    const MMRESULT result = winmm().getVolume(deviceOf(device), &both);
    if (result == MMSYSERR_NOERROR) *volume = both;
    return result;
}

std::uint32_t waveOutSetVolume(std::uint32_t device, std::uint32_t volume) {
    return winmm().setVolume(deviceOf(device), volume);
}

} // namespace platform
