#pragma once

#include <cstdint>

/// The arithmetic between volume words (low word left channel, high word right channel, each 0 to
/// 65535), the slider's levels (0 to 32767) and per cent. Taking a word as unsigned is two off on
/// purpose, both ways, so that the two directions mirror each other.
namespace volume {

/// The word that the top level gives would silence the left channel; this one keeps both near full.
inline constexpr std::uint32_t SilencingWord = 0xFFFF0000U;
inline constexpr std::uint32_t NearlyFullWord = 0xFFFEFFFFU;

/// A word as it may stand: the silencing one is replaced.
std::uint32_t safeWord(std::uint32_t word);

/// Per cent of full volume, 0 to about 100, of a word.
double percentOf(std::uint32_t word);

/// The word that a level sends, both channels alike; not yet a safe one.
/// Error 6 for a level whose word would not fit in 32 bits.
std::uint32_t wordOf(double level);

} // namespace volume
