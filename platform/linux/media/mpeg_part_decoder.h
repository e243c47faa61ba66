#pragma once

#include "platform/linux/media/mpeg_layout.h"
#include "platform/linux/media/sound_format.h"

#include <cstddef>
#include <cstdint>
#include <memory>

struct mpg123_handle_struct;

namespace platform::media {

/// One part of a file of MPEG audio, by libmpg123, which is shown nothing but its frames. What an
/// encoder put before and behind the sound is left out.
class MpegPartDecoder {
  public:
    /// False if nothing can be decoded. File and part are another's, and outlive it.
    bool open(FileWindow& file, const MpegPart& part);

    SoundFormat format() const { return format_; }
    std::int64_t frames() const { return frames_; }
    bool seek(std::int64_t frame);
    std::size_t read(std::byte* to, std::size_t count);

    /// The frames that the decoder of a part will have.
    static std::int64_t framesOf(const MpegPart& part);

  private:
    struct Closer {
        void operator()(mpg123_handle_struct* handle) const;
    };

    bool rewind();

    const MpegPart* part_ = nullptr;
    std::unique_ptr<StretchedFile> bytes_; ///< at a fixed place: the library holds its address
    std::unique_ptr<mpg123_handle_struct, Closer> handle_;
    SoundFormat format_;
    std::int64_t delay_ = 0;    ///< decoded frames before the first that counts
    long framesAhead_ = 0;      ///< decoded and dropped before a new place
    long decoderPreframes_ = 0; ///< of these, the library's own
    std::int64_t frames_ = 0;
    std::int64_t at_ = 0;
};

} // namespace platform::media
