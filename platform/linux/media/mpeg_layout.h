#pragma once

#include "platform/linux/media/file_window.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

namespace platform::media {

/// Where the frames of a stream stand, found by stepping from header to header.
struct MpegLayout {
    static constexpr int indexStep = 32;

    std::int64_t frames = 0;
    std::int64_t end = 0;            ///< where the last of them ends
    bool whole = true;               ///< false: time ran out before the window's end
    int smallestFrame = 0;           ///< bytes
    std::vector<std::int64_t> index; ///< the place of each `indexStep`th frame
};

/// Steps through the frames from a place to the window's end, or until time runs out. None if
/// anything but frames of one rate and layer is met on the way: then only the decoder can tell what
/// will sound.
std::optional<MpegLayout> readMpegLayout(FileWindow& file, std::int64_t start,
                                         std::chrono::steady_clock::time_point until);

} // namespace platform::media
