#pragma once

#include "platform/linux/media/mpeg_part_decoder.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace platform::media {

/// A part's sound at another rate. Each frame is made from the same frames around it, wherever
/// reading started, so a place sounds the same however it was come to.
class Resampler {
  public:
    Resampler(int fromRate, int toRate);

    /// What `frames` of the part become, to the nearest.
    std::int64_t framesOf(std::int64_t frames) const;

    /// Makes `frame`, counted at the new rate, the next to be read.
    bool seek(MpegPartDecoder& part, std::int64_t frame);

    /// Gives up to `count` frames of 16 bits on two sides.
    std::size_t read(MpegPartDecoder& part, std::int16_t* to, std::size_t count);

  private:
    void layOutTaps();
    bool takeIn(MpegPartDecoder& part, std::int64_t end);

    std::int64_t from_ = 0; ///< the two rates without what they have in common
    std::int64_t to_ = 0;
    std::vector<float> taps_;           ///< a row for each place between two frames
    std::vector<std::int16_t> samples_; ///< of the part, from `first_` on
    std::int64_t first_ = 0;
    std::int64_t at_ = 0;
};

} // namespace platform::media
