#pragma once

/// Geometry of the seek bar, in twips.
namespace seek {

inline constexpr float ThumbStart = 240;                    ///< thumb at the start of a track
inline constexpr float ThumbTravel = 3220;                  ///< from the start to the end
inline constexpr float ThumbEnd = ThumbStart + ThumbTravel; ///< beyond it lies the next track

} // namespace seek
