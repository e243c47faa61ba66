#pragma once

#include <cstdint>

/// A volume word has the left channel in its low 16 bits and the right one in its high 16 bits,
/// each 0 to 65535. The server counts 0 to 65536 for its 0 to 100 %.
namespace platform::media {

struct ServerVolume {
    std::uint32_t left = 0;
    std::uint32_t right = 0;
};

ServerVolume serverVolumeOf(std::uint32_t word);

/// Above 100 % counts as full.
std::uint32_t volumeWordOf(ServerVolume volume);

} // namespace platform::media
