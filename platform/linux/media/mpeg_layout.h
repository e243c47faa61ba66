#pragma once

#include "platform/linux/media/file_window.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace platform::media {

/// Where the frames of a stream stand, found by stepping from header to header.
struct MpegLayout {
    static constexpr int indexStep = 32;

    std::int64_t frames = 0;
    int smallestFrame = 0;           ///< bytes
    std::vector<std::int64_t> index; ///< the place of each `indexStep`th frame
};

/// Steps through all frames from a place to the window's end. None if anything but frames of one
/// rate and layer is met on the way: then only the decoder can tell what will sound.
std::optional<MpegLayout> readMpegLayout(FileWindow& file, std::int64_t start);

} // namespace platform::media
