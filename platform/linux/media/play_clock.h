#pragma once

#include <cstdint>

namespace platform::media {

/// How far the listener has come in a span, in frames from the span's start: the server's last
/// report, carried on by the clock. Never runs backwards.
class PlayClock {
  public:
    enum class Motion { Standing, Running };

    /// A new span: nothing of it has been heard.
    void restart(int framesPerSecond);

    /// The server's report: `heard` frames at the time `microseconds`.
    void correct(std::int64_t heard, std::int64_t microseconds, Motion motion);

    /// The sound stands still from this time on.
    void halt(std::int64_t microseconds);

    Motion motion() const { return motion_; }
    std::int64_t correctedAt() const { return baseTime_; }

    /// Frames heard by that time, no more than `limit`.
    std::int64_t heard(std::int64_t microseconds, std::int64_t limit);

    /// What `heard` gave last.
    std::int64_t told() const { return told_; }

    /// What the last report alone says, even if more has been told already.
    std::int64_t carried(std::int64_t microseconds) const;

  private:
    int framesPerSecond_ = 0;
    Motion motion_ = Motion::Standing;
    std::int64_t base_ = 0;
    std::int64_t baseTime_ = 0;
    std::int64_t told_ = 0;
};

/// Thousandths of a second to frames and back. The nearest frame; the last thousandth begun.
std::int64_t framesOfThousandths(std::int64_t thousandths, int framesPerSecond);
std::int64_t thousandthsOfFrames(std::int64_t frames, int framesPerSecond);

/// A length in thousandths, rounded to the nearest.
std::int64_t lengthInThousandths(std::int64_t frames, int framesPerSecond);

} // namespace platform::media
