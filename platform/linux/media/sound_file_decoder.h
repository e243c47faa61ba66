#pragma once

#include "platform/linux/media/file_window.h"
#include "platform/linux/media/sound_format.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct SF_INFO;
struct sf_private_tag;

namespace platform::media {

/// WAV and its like, by libsndfile. Any number of channels, mixed down to two. Where the library
/// can't find a place in a coding, such as GSM 6.10, all before the place is decoded and dropped.
class SoundFileDecoder {
  public:
    /// Takes over a whole file, to be read as if it began with `head`. False if it is none that
    /// can be heard.
    bool open(FileWindow file, std::string head = {});

    SoundFormat format() const { return format_; }
    std::int64_t frames() const { return frames_; }
    bool seek(std::int64_t frame);
    std::size_t read(std::byte* to, std::size_t count);

    /// What the library reads: some bytes of ours, and then the file's.
    struct Source {
        std::string head;
        FileWindow file;
        std::int64_t at = 0;

        std::int64_t size() const { return static_cast<std::int64_t>(head.size()) + file.size(); }
        std::size_t read(char* to, std::size_t count);
    };

  private:
    struct Closer {
        void operator()(sf_private_tag* file) const;
    };

    bool openSound(SF_INFO& info);
    bool seekByDecoding(std::int64_t frame);
    template <class Sample>
    std::size_t readSamples(std::byte* to, std::size_t count, std::vector<Sample>& mixBuffer);

    std::unique_ptr<Source> source_; ///< at a fixed place: the library holds its address
    std::unique_ptr<sf_private_tag, Closer> sound_;
    SoundFormat format_;
    std::int64_t frames_ = 0;
    std::int64_t at_ = 0;      ///< the next frame to be read
    bool findsPlaces_ = false; ///< the library does
    std::size_t channels_ = 0;
    std::vector<short> shorts_;
    std::vector<float> floats_;
};

} // namespace platform::media
