#pragma once

#include "platform/linux/media/file_window.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace platform::media {

/// What the four bytes before a frame of MPEG audio tell.
struct MpegHeader {
    static constexpr std::size_t size = 4;

    std::uint32_t word = 0;
    int layer = 0;
    int rate = 0;    ///< samples a second
    int bitRate = 0; ///< bits a second; 0 for free format
    int channels = 0;
    int samples = 0;   ///< in one frame, per channel
    int bytes = 0;     ///< the frame's size with its header; 0 for free format
    int sideBytes = 0; ///< layer III: size of the side information

    bool hasChecksum() const { return (word & 0x10000) == 0; }
    bool isMpeg1() const { return (word & 0x80000) != 0; }
    bool padded() const { return (word & 0x200) != 0; }
    int slot() const { return layer == 1 ? 4 : 1; } ///< bytes that padding adds
};

/// Reads a header; none if the four bytes can't be one.
std::optional<MpegHeader> readMpegHeader(std::uint32_t word);

/// Whether two headers can follow each other in one stream of one rate.
bool sameStream(std::uint32_t one, std::uint32_t other);

/// The header at a place of the file; none if there is none.
std::optional<MpegHeader> mpegHeaderAt(FileWindow& file, std::int64_t position);

/// The samples that an encoder put before and behind the sound, as its info frame tells them.
struct EncoderPadding {
    std::int64_t frames = 0; ///< announced, without the info frame itself; 0 if not told
    std::int64_t bytes = 0;  ///< announced, of all frames with the info frame; 0 if not told
    std::int64_t delay = 0;
    std::int64_t padding = 0;
};

/// Reads the info frame at a place; none if the frame there is none.
std::optional<EncoderPadding> readEncoderPadding(FileWindow& file, std::int64_t position);

} // namespace platform::media
