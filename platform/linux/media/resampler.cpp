#include "platform/linux/media/resampler.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace platform::media {
namespace {

// Frames on each side that a frame is made from, and the window over them: what lies above the
// lower rate's half comes out 80 dB down, the last tenth below it a little weaker.
constexpr std::int64_t reach = 48;
constexpr double windowShape = 8;
constexpr double passedShare = 0.92;

constexpr std::size_t roomFrames = 4096;

double bessel(double x) {
    double sum = 1;
    double term = 1;
    for (int i = 1; i < 40; ++i) {
        term *= x / (2 * i) * (x / (2 * i));
        sum += term;
    }
    return sum;
}

double weightAt(double distance, double cut) {
    const double far = distance / static_cast<double>(reach);
    if (std::abs(far) >= 1) return 0;
    const double window = bessel(windowShape * std::sqrt(1 - far * far)) / bessel(windowShape);
    const double angle = std::numbers::pi * cut * distance;
    return window * cut * (angle == 0 ? 1 : std::sin(angle) / angle);
}

std::int16_t toSample(float value) {
    return static_cast<std::int16_t>(std::lround(std::clamp(value, -32768.0F, 32767.0F)));
}

} // namespace

Resampler::Resampler(int fromRate, int toRate) {
    const int common = std::gcd(fromRate, toRate);
    from_ = fromRate / common;
    to_ = toRate / common;
}

std::int64_t Resampler::framesOf(std::int64_t frames) const {
    return (frames * to_ + from_ / 2) / from_;
}

void Resampler::layOutTaps() {
    const double cut =
        passedShare * std::min(1.0, static_cast<double>(to_) / static_cast<double>(from_));
    taps_.reserve(static_cast<std::size_t>(to_ * 2 * reach));
    for (std::int64_t phase = 0; phase < to_; ++phase) {
        const double offset = static_cast<double>(phase) / static_cast<double>(to_);
        for (std::int64_t i = 1 - reach; i <= reach; ++i)
            taps_.push_back(static_cast<float>(weightAt(static_cast<double>(i) - offset, cut)));
    }
}

bool Resampler::seek(MpegPartDecoder& part, std::int64_t frame) {
    if (taps_.empty()) layOutTaps();
    at_ = frame;
    const std::int64_t start = frame * from_ / to_ + 1 - reach;
    first_ = start;
    // Before the part nothing sounds.
    const auto silent = static_cast<std::size_t>(std::max<std::int64_t>(0, -start));
    samples_.assign(silent * 2, 0);
    return part.seek(std::max<std::int64_t>(0, start));
}

/// Has the part's frames at hand up to before `end`, silence behind its own.
bool Resampler::takeIn(MpegPartDecoder& part, std::int64_t end) {
    const std::size_t had = samples_.size();
    const std::int64_t missing = end - first_ - static_cast<std::int64_t>(had / 2);
    if (missing <= 0) return true;
    samples_.resize(had + static_cast<std::size_t>(missing) * 2);
    return part.read(reinterpret_cast<std::byte*>(samples_.data() + had),
                     static_cast<std::size_t>(missing)) > 0;
}

std::size_t Resampler::read(MpegPartDecoder& part, std::int16_t* to, std::size_t count) {
    const std::int64_t most = framesOf(part.frames()) - at_;
    count = std::min(count, static_cast<std::size_t>(std::max<std::int64_t>(0, most)));
    for (std::size_t done = 0; done < count; ++done, ++at_) {
        const std::int64_t place = at_ * from_ / to_;
        const auto skipped = static_cast<std::size_t>(place + 1 - reach - first_);
        if (skipped >= roomFrames) {
            samples_.erase(samples_.begin(),
                           samples_.begin() + static_cast<std::ptrdiff_t>(skipped * 2));
            first_ += static_cast<std::int64_t>(skipped);
        }
        takeIn(part, place + reach + 1);
        const auto row = static_cast<std::size_t>(at_ * from_ % to_ * 2 * reach);
        const float* tap = taps_.data() + row;
        const std::int16_t* sample = samples_.data() + (place + 1 - reach - first_) * 2;
        float left = 0;
        float right = 0;
        for (std::int64_t i = 0; i < 2 * reach; ++i) {
            left += tap[i] * sample[2 * i];
            right += tap[i] * sample[2 * i + 1];
        }
        to[2 * done] = toSample(left);
        to[2 * done + 1] = toSample(right);
    }
    return count;
}

} // namespace platform::media
