#pragma once

#include "platform/linux/media/file_window.h"
#include "platform/linux/media/mpeg_frames.h"
#include "platform/linux/media/sound_format.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

struct mpg123_handle_struct;

namespace platform::media {

/// MPEG audio of layers I to III, by libmpg123. What an encoder put before and behind the sound is
/// left out.
class MpegDecoder {
  public:
    /// Takes over a window that `narrowToMpegSound` has narrowed. False if nothing can be decoded.
    bool open(FileWindow file);

    SoundFormat format() const { return format_; }
    std::int64_t frames() const { return frames_; }
    bool seek(std::int64_t frame);
    std::size_t read(std::byte* to, std::size_t count);

  private:
    struct Closer {
        void operator()(mpg123_handle_struct* handle) const;
    };

    bool prepare();
    bool rewind();
    bool measure();
    using Until = std::chrono::steady_clock::time_point;
    bool measureByHeaders(const std::optional<EncoderPadding>& told, Until until);
    bool measureByDecoder(Until until);

    std::unique_ptr<FileWindow> file_; ///< at a fixed place: the library holds its address
    std::unique_ptr<mpg123_handle_struct, Closer> handle_;
    SoundFormat format_;
    std::int64_t samples_ = 0; ///< all that the decoder gives, per channel
    std::int64_t delay_ = 0;   ///< decoded frames before the first that counts
    int frameSamples_ = 0;
    std::vector<std::int64_t> index_; ///< the places of some frames in the file
    std::int64_t indexStep_ = 0;      ///< frames from one of them to the next
    long framesAhead_ = 0;            ///< decoded and dropped before a new place
    long decoderPreframes_ = 0;       ///< of these, the library's own
    std::int64_t frames_ = 0;
    std::int64_t at_ = 0;
};

} // namespace platform::media
