#pragma once

#include "platform/linux/media/file_window.h"
#include "platform/linux/media/mpeg_run.h"
#include "platform/linux/media/stretched_file.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace platform::media {

/// Frames of one stream, and where they stand.
struct MpegPart {
    static constexpr int indexStep = 32;

    MpegStream stream;
    std::optional<EncoderPadding> padding; ///< its info frame, which is not one of `frames`
    std::vector<Stretch> stretches;        ///< in bytes of the file; nothing else is in them
    std::int64_t frames = 0;
    bool whole = true;               ///< false: counted without a look at each frame
    int smallestFrame = 0;           ///< bytes
    int bitRate = 0;                 ///< bits a second, of all its frames; 0 if they differ
    std::vector<std::int64_t> index; ///< of each `indexStep`th frame, in bytes of the stretches
};

/// How much of a disk's time counting may take.
struct MeasurePatience {
    /// From then on what a file tells of itself is enough, if it holds where it is looked at.
    std::chrono::steady_clock::time_point until;
    /// Nobody wants the answer any more.
    std::function<bool()> abandoned;
};

/// Finds the music in a file and steps through its frames from header to header. Whatever else
/// stands in it is left out: tags, pictures, junk. Behind junk only frames of the same stream
/// count, else frames of another rate or kind make another part. Empty if the file is no MPEG
/// audio.
std::vector<MpegPart> readMpegLayout(FileWindow& file, const MeasurePatience& patience);

} // namespace platform::media
