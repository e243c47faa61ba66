#pragma once

#include "platform/linux/media/file_window.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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

/// Whether a file that begins with these four letters may be a WAV.
bool isWaveMark(std::string_view letters);

/// Finds them, also where a program that wrote as it went along never filled in its sizes, or where
/// chunks don't keep to the even bytes. None if one of the two is missing. libsndfile is shown
/// nothing but these: over other chunks that are cut short it can go round for ever.
std::optional<WaveParts> findWaveParts(FileWindow& file);

} // namespace platform::media
