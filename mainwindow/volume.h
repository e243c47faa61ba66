#pragma once

/// The volume slider's travel, in twips, and its levels.
namespace volume {

inline constexpr int LowestLeft = 2400;
inline constexpr int HighestLeft = 3000;
inline constexpr double LowestLevel = 0;
inline constexpr double StopLevel = 32767; ///< sent only by running into the top stop

/// The level of a thumb's place: 54 a twip, in single precision.
constexpr double levelOf(float left) { return (left - LowestLeft) * 54.0F; }

} // namespace volume
