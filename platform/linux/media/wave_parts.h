#pragma once

#include "platform/linux/media/file_window.h"

#include <cstdint>
#include <optional>
#include <string>

namespace platform::media {

/// The two chunks of a WAV that its sound hangs on, wherever they stand.
struct WaveParts {
    bool bigEndian = false;
    std::string format;         ///< the body of the format chunk
    std::int64_t dataStart = 0; ///< of the sound, in bytes of the window
    std::int64_t dataEnd = 0;

    /// Whether the sound is MPEG audio in a WAV's clothes.
    bool isMpeg() const;

    /// What stands before the sound in a WAV of these two chunks alone.
    std::string header() const;
};

/// Finds them in a WAV that others can't make sense of: left open by a program that wrote as it
/// went along, or with chunks that don't keep to the even bytes. None if one of them is missing.
std::optional<WaveParts> findWaveParts(FileWindow& file);

} // namespace platform::media
