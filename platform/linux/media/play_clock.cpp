#include "platform/linux/media/play_clock.h"

#include <algorithm>

namespace platform::media {

void PlayClock::restart(int framesPerSecond) {
    *this = PlayClock();
    framesPerSecond_ = framesPerSecond;
}

void PlayClock::correct(std::int64_t heard, std::int64_t microseconds, Motion motion) {
    base_ = std::max<std::int64_t>(0, heard);
    baseTime_ = microseconds;
    motion_ = motion;
}

void PlayClock::halt(std::int64_t microseconds) {
    base_ = carried(microseconds);
    baseTime_ = microseconds;
    motion_ = Motion::Standing;
}

std::int64_t PlayClock::carried(std::int64_t microseconds) const {
    if (motion_ == Motion::Standing) return base_;
    const std::int64_t passed = std::max<std::int64_t>(0, microseconds - baseTime_);
    return base_ + passed * framesPerSecond_ / 1'000'000;
}

std::int64_t PlayClock::heard(std::int64_t microseconds, std::int64_t limit) {
    told_ = std::max(told_, std::min(carried(microseconds), limit));
    return told_;
}

std::int64_t framesOfThousandths(std::int64_t thousandths, int framesPerSecond) {
    return (thousandths * framesPerSecond + 500) / 1000;
}

std::int64_t thousandthsOfFrames(std::int64_t frames, int framesPerSecond) {
    return frames * 1000 / framesPerSecond;
}

std::int64_t lengthInThousandths(std::int64_t frames, int framesPerSecond) {
    return (frames * 1000 + framesPerSecond / 2) / framesPerSecond;
}

} // namespace platform::media
