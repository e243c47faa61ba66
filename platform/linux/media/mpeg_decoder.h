#pragma once

#include "platform/linux/media/file_window.h"
#include "platform/linux/media/mpeg_layout.h"
#include "platform/linux/media/mpeg_part_decoder.h"
#include "platform/linux/media/resampler.h"
#include "platform/linux/media/sound_format.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace platform::media {

/// MPEG audio of layers I to III. Parts of other rates sound at the first one's.
class MpegDecoder {
  public:
    /// False if it is none, or nothing in it can be decoded.
    bool open(FileWindow file, const MeasurePatience& patience);

    SoundFormat format() const { return format_; }
    std::int64_t frames() const { return frames_; }
    bool seek(std::int64_t frame);
    std::size_t read(std::byte* to, std::size_t count);

  private:
    /// A part, and where it begins in the whole.
    struct Placed {
        std::int64_t start = 0;
        std::int64_t end = 0;
        std::optional<Resampler> resampler; ///< where its rate is another than the first's
    };

    bool startAt(std::size_t part, std::int64_t frame);

    std::unique_ptr<FileWindow> file_; ///< at a fixed place: the part's decoder reads it
    std::vector<MpegPart> parts_;
    std::vector<Placed> placed_; ///< each of `parts_`
    std::size_t current_ = 0;
    std::unique_ptr<MpegPartDecoder> decoder_; ///< of the current part
    SoundFormat format_;
    std::int64_t frames_ = 0;
    std::int64_t at_ = 0;
};

} // namespace platform::media
