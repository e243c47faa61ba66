#pragma once

#include "platform/linux/media/file_window.h"

#include <cstdint>

/// What stands around and between the frames of MPEG audio: ID3, APE and lyrics tags.
namespace platform::media {

/// Where the tags end that a file may begin with; 0 if it begins with none. A tag that claims to
/// fill the file, or more, doesn't count.
std::int64_t bytesOfLeadingTags(FileWindow& file);

/// Bytes of the tag at a place, of any kind that can follow music; 0 if none.
std::int64_t tagSizeAt(FileWindow& file, std::int64_t position);

/// Where the tags at the end begin.
std::int64_t beforeTrailingTags(FileWindow& file);

} // namespace platform::media
