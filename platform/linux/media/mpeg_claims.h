#pragma once

#include "platform/linux/media/file_window.h"
#include "platform/linux/media/mpeg_layout.h"

#include <cstdint>

namespace platform::media {

/// Completes a part, of which only the first frames have been counted, without a look at each of
/// the others. Two kinds of files can be trusted so far: those whose info frame tells the very size
/// of the file, and those of one bit rate, whose frames stand where they must wherever one looks.
/// False, with the part as it was, if it is neither. `end` is where the music ends.
bool takeClaims(FileWindow& file, std::int64_t end, MpegPart& part);

} // namespace platform::media
