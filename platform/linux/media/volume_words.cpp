#include "platform/linux/media/volume_words.h"

#include <algorithm>

namespace platform::media {
namespace {

constexpr std::uint64_t fullWord = 65535;
constexpr std::uint64_t fullServer = 65536;

std::uint32_t toServer(std::uint32_t word) {
    return static_cast<std::uint32_t>((word * fullServer + fullWord / 2) / fullWord);
}

std::uint32_t toWord(std::uint32_t volume) {
    const std::uint64_t capped = std::min<std::uint64_t>(volume, fullServer);
    return static_cast<std::uint32_t>((capped * fullWord + fullServer / 2) / fullServer);
}

} // namespace

ServerVolume serverVolumeOf(std::uint32_t word) {
    return {toServer(word & 0xFFFF), toServer(word >> 16)};
}

std::uint32_t volumeWordOf(ServerVolume volume) {
    return toWord(volume.left) | toWord(volume.right) << 16;
}

} // namespace platform::media
