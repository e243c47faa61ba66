#pragma once

#include <cstddef>

namespace platform::media {

/// Mixes frames of any number of channels down to left and right. Channels are in the order of the
/// WAV format (front left, front right, front centre, low, back left, back right, ...); from nine
/// on they count as left and right in turns. One channel goes to both sides at full level.
void mixDown(const short* from, std::size_t channels, std::size_t frames, short* to);
void mixDown(const float* from, std::size_t channels, std::size_t frames, float* to);

} // namespace platform::media
