#pragma once

#include <cstddef>
#include <cstdint>

namespace platform::media {

/// How a sample is stored: what the file gives without loss, and no wider.
enum class SampleKind { Signed16, Float32 };

/// The sound of a track as it goes to the server: always left and right, in turns.
struct SoundFormat {
    int rate = 0; ///< frames a second
    SampleKind kind = SampleKind::Signed16;

    std::size_t bytesPerFrame() const { return kind == SampleKind::Signed16 ? 4 : 8; }
    friend bool operator==(const SoundFormat&, const SoundFormat&) = default;
};

/// The rates that a sound server takes.
inline constexpr int lowestRate = 1000;
inline constexpr int highestRate = 384000;

} // namespace platform::media
