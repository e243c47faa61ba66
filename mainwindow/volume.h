#pragma once

#include <cmath>

/// The volume slider's travel, in twips, and its levels.
namespace volume {

inline constexpr int LowestLeft = 2400;
inline constexpr int HighestLeft = 3000;
inline constexpr double LowestLevel = 0;
inline constexpr double StopLevel = 32767; ///< sent only by running into the top stop

/// The level of a thumb's place: 54 a twip, in single precision.
constexpr double levelOf(float left) { return (left - LowestLeft) * 54.0F; }

/// The share of its travel at which the thumb stands, kept within 0 to 1.
constexpr double shareOf(float left) {
    const double share = (static_cast<double>(left) - LowestLeft) / (HighestLeft - LowestLeft);
    return share < 0 ? 0 : share > 1 ? 1 : share;
}

/// The thumb's place for a share of 0 to 1, in whole twips.
inline float leftOf(double share) {
    return static_cast<float>(LowestLeft + std::lround(share * (HighestLeft - LowestLeft)));
}

} // namespace volume
