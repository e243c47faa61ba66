#pragma once

#include "platform/linux/media/file_window.h"

#include <cstdint>
#include <optional>

namespace platform::media {

/// What the four bytes before a frame of MPEG audio tell.
struct MpegHeader {
    std::uint32_t word = 0;
    int rate = 0; ///< samples a second
    int channels = 0;
    int samples = 0;   ///< in one frame, per channel
    int bytes = 0;     ///< the frame's size with its header; 0 for free format
    int sideBytes = 0; ///< layer III: size of the side information
};

/// Reads a header; none if the four bytes can't be one.
std::optional<MpegHeader> readMpegHeader(std::uint32_t word);

/// Whether two headers can follow each other in one stream of one rate.
bool sameStream(std::uint32_t one, std::uint32_t other);

/// The header at a place of the file; none if there is none.
std::optional<MpegHeader> mpegHeaderAt(FileWindow& file, std::int64_t position);

/// Where the tags end that a file may begin with; 0 if it begins with none.
std::int64_t bytesOfLeadingTags(FileWindow& file);

/// Narrows the window to the bytes between the first frame and the tags at the end. False, with
/// the window as it was, if no run of frames is found.
bool narrowToMpegSound(FileWindow& file);

/// The samples that an encoder put before and behind the sound, as its info frame tells them.
struct EncoderPadding {
    std::int64_t frames = 0; ///< announced, without the info frame itself; 0 if not told
    std::int64_t bytes = 0;  ///< announced, of all frames with the info frame; 0 if not told
    std::int64_t delay = 0;
    std::int64_t padding = 0;
};

/// Reads the info frame at the window's start; none if there is no such frame.
std::optional<EncoderPadding> readEncoderPadding(FileWindow& file);

} // namespace platform::media
