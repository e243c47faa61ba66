#pragma once

#include "runtime/fixed.h"

#include <cstdint>

/// The seek bar's arithmetic: positions and lengths in seconds, places and distances in twips,
/// device positions in thousandths of a second.
namespace seek {

inline constexpr float ThumbStart = 240;                    ///< thumb at the start of a track
inline constexpr float ThumbTravel = 3220;                  ///< from the start to the end
inline constexpr float ThumbEnd = ThumbStart + ThumbTravel; ///< beyond it lies the next track

/// The rows of the window that belong to the seek bar, both ends included.
inline constexpr float StripTop = 510;
inline constexpr float StripBottom = 600;

/// The distance that a drag stands for. The share taken off is the travel already made times the
/// length over the bar's travel, not over the length: from about 54 minutes on it overshoots.
runtime::Fixed dragOffset(std::int32_t pointerTravel, runtime::Fixed length,
                          runtime::Fixed position, runtime::Fixed pressPosition);

/// `Left` of a dragged thumb, from the position that the move before has asked for. Nothing limits
/// it. Error 11 or 6 for a length of 0.
float draggedLeft(runtime::Fixed position, runtime::Fixed pressPosition, runtime::Fixed length,
                  std::int32_t pressLeft);

/// `Left` of the thumb at a place of a track, both ms; at the end exactly the end of the travel.
float leftOf(std::int32_t place, std::int32_t length);

/// The position that a distance asks for, from where the device stands now.
runtime::Fixed soughtPosition(runtime::Fixed length, runtime::Fixed offset,
                              std::int32_t devicePosition);

} // namespace seek
