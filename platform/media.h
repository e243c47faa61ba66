#pragma once

#include "platform/types.h"

#include <cstdint>

namespace platform {

/// Sends one text command to the media layer. Interface thread only.
/// `command` ends in a nul; words in any case, blanks folded, trailing blanks ignored.
/// The reply, cut to `replySize` - 1 characters and ended by a nul, goes to `reply` (may be null
/// with size 0). Returns 0, or the number of the error; the device's state is then unchanged.
/// Lengths and positions are thousandths of a second.
std::uint32_t mciSendStringA(const char* command, char* reply, std::uint32_t replySize,
                             WindowHandle callback);

/// Writes the text of an error number, cut to `size` - 1 characters and ended by a nul.
/// False for a number that no command gives.
bool mciGetErrorStringA(std::uint32_t error, char* text, std::uint32_t size);

/// Number of wave output devices; 0 without a sound server.
std::uint32_t waveOutGetNumDevs();

/// Reads a device's volume: low word left, high word right, each 0 to 65535. 0 on success.
std::uint32_t waveOutGetVolume(std::uint32_t device, std::uint32_t* volume);

/// Sets a device's volume, as above. 0 on success.
std::uint32_t waveOutSetVolume(std::uint32_t device, std::uint32_t volume);

} // namespace platform
