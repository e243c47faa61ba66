#include "platform/linux/media/down_mix.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace platform::media {
namespace {

struct Share {
    float left = 0;
    float right = 0;
};

constexpr Share left{1, 0};
constexpr Share right{0, 1};
constexpr Share centre{0.7071F, 0.7071F};
constexpr Share leftBehind{0.7071F, 0};
constexpr Share rightBehind{0, 0.7071F};
constexpr Share low{0, 0};

// One row for each number of channels from 3 to 8.
constexpr std::array<std::array<Share, 8>, 6> layouts{{
    {left, right, centre},
    {left, right, leftBehind, rightBehind},
    {left, right, centre, leftBehind, rightBehind},
    {left, right, centre, low, leftBehind, rightBehind},
    {left, right, centre, low, centre, leftBehind, rightBehind},
    {left, right, centre, low, leftBehind, rightBehind, leftBehind, rightBehind},
}};

std::vector<Share> sharesOf(std::size_t channels) {
    std::vector<Share> shares(channels);
    for (std::size_t i = 0; i < channels; ++i) {
        if (channels <= 8)
            shares[i] = layouts[channels - 3][i];
        else
            shares[i] = i % 2 == 0 ? left : right;
    }
    // The loudest side adds up to one, so nothing can overflow.
    Share sum;
    for (const Share& share : shares) {
        sum.left += share.left;
        sum.right += share.right;
    }
    const float most = std::max(sum.left, sum.right);
    for (Share& share : shares) {
        share.left /= most;
        share.right /= most;
    }
    return shares;
}

short toSample(float value, short) { return static_cast<short>(std::lround(value)); }
float toSample(float value, float) { return value; }

template <class Sample>
void mix(const Sample* from, std::size_t channels, std::size_t frames, Sample* to) {
    if (channels == 2) {
        std::copy_n(from, frames * 2, to);
        return;
    }
    if (channels == 1) {
        for (std::size_t i = 0; i < frames; ++i)
            to[2 * i] = to[2 * i + 1] = from[i];
        return;
    }
    const std::vector<Share> shares = sharesOf(channels);
    for (std::size_t i = 0; i < frames; ++i, from += channels) {
        Share sum;
        for (std::size_t c = 0; c < channels; ++c) {
            sum.left += static_cast<float>(from[c]) * shares[c].left;
            sum.right += static_cast<float>(from[c]) * shares[c].right;
        }
        to[2 * i] = toSample(sum.left, Sample{});
        to[2 * i + 1] = toSample(sum.right, Sample{});
    }
}

} // namespace

void mixDown(const short* from, std::size_t channels, std::size_t frames, short* to) {
    mix(from, channels, frames, to);
}

void mixDown(const float* from, std::size_t channels, std::size_t frames, float* to) {
    mix(from, channels, frames, to);
}

} // namespace platform::media
