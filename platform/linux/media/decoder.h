#pragma once

#include "platform/linux/media/mpeg_decoder.h"
#include "platform/linux/media/sound_file_decoder.h"
#include "platform/linux/media/sound_format.h"
#include "platform/media_commands.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>

namespace platform::media {

/// A file that can be heard: its length, and its sound from any place on. One thread at a time.
class Decoder {
  public:
    /// Finds out what the file is, and its length. Reads as much of it as that takes.
    /// `patience` says when what the file tells of its length is enough.
    MediaError open(const std::string& hostPath, const MeasurePatience& patience = {endless(), {}});

    SoundFormat format() const;

    /// What can be heard, in samples per channel.
    std::int64_t frames() const;

    /// Makes `frame` (0 to `frames()`) the next one to be read.
    bool seek(std::int64_t frame);

    /// Decodes up to `count` frames; fewer only where the sound ends.
    std::size_t read(std::byte* to, std::size_t count);

  private:
    static std::chrono::steady_clock::time_point endless() {
        return std::chrono::steady_clock::time_point::max();
    }

    MediaError openMpeg(FileWindow file, const MeasurePatience& patience);
    MediaError openWave(FileWindow file, const MeasurePatience& patience);

    std::variant<std::monostate, MpegDecoder, SoundFileDecoder> source_;
};

} // namespace platform::media
