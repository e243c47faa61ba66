#pragma once

#include "mainwindow/seek.h"
#include "mainwindow/volume.h"
#include "movement/drag_scale.h"
#include "runtime/rounding.h"

#include <cstdint>

/// How far a hand would have to drag a thumb to set a value, in whole pixels, and what the thumbs
/// say.
namespace sliders {

inline constexpr double WholeVolume = 100;
inline constexpr double TwipsAPercent = (volume::HighestLeft - volume::LowestLeft) / WholeVolume;
/// What one pixel of a drag is worth.
inline constexpr double VolumeStep = drags::TwipsAPixel / TwipsAPercent;

/// Seconds that one pixel stands for on a track of this length.
constexpr double seekStep(double length) {
    return length * drags::TwipsAPixel / static_cast<double>(seek::ThumbTravel);
}

/// From a position to the wanted one, seconds; the length is above 0.
inline std::int32_t seekDrag(double position, double wanted, double length) {
    return runtime::roundToInt32((wanted - position) / seekStep(length)).value();
}

/// From a thumb's place to a number of percent. The ends are reached by running into the stops, a
/// pixel beyond.
inline std::int32_t volumeDrag(float left, double percent) {
    const double wanted = volume::LowestLeft + percent * TwipsAPercent;
    const std::int32_t pixels =
        runtime::roundToInt32((wanted - static_cast<double>(left)) / drags::TwipsAPixel).value();
    if (percent <= 0) return pixels - 1;
    return percent >= WholeVolume ? pixels + 1 : pixels;
}

} // namespace sliders
