#pragma once

#include "platform/linux/media/file_window.h"
#include "platform/linux/media/mpeg_frames.h"

#include <cstdint>
#include <optional>

namespace platform::media {

/// What the frames of a stretch of MPEG audio have in common.
struct MpegStream {
    MpegHeader first;
    int freeBytes = 0; ///< free format: a frame's size without padding

    /// The size of one of its frames.
    int bytesOf(const MpegHeader& header) const {
        if (header.bytes != 0) return header.bytes;
        return freeBytes + (header.padded() ? header.slot() : 0);
    }

    /// The frame at a place, if it is one of this stream.
    std::optional<MpegHeader> frameAt(FileWindow& file, std::int64_t position) const;
};

/// Where frames stand before a place that may be music.
enum class Before {
    Nothing, ///< it is the file's start, or behind its tags
    Frames,  ///< of another kind
    Junk,
};

/// The stream that begins at a place; none if too few frames follow each other there for what
/// stands before. `end` is where the music ends at the latest.
std::optional<MpegStream> streamAt(FileWindow& file, std::int64_t position, std::int64_t end,
                                   Before before);

/// Whether frames of a stream begin at a place, behind junk.
bool resumesAt(FileWindow& file, std::int64_t position, std::int64_t end, const MpegStream& stream);

/// The next place from `position` on whose bytes can be a header; `end` if there is none.
std::int64_t nextHeader(FileWindow& file, std::int64_t position, std::int64_t end);

/// Beyond so many bytes of anything else no music is looked for.
inline constexpr std::int64_t longestJunk = std::int64_t{8} * 1024 * 1024;

} // namespace platform::media
