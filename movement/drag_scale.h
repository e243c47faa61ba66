#pragma once

#include "platform/types.h"
#include "runtime/integers.h"
#include "toolkit/units.h"

#include <cstdint>

/// Between twips and the pixels of a drag. Every drag, of a window or a thumb, takes a pixel for 15
/// twips, whatever the screen says.
namespace drags {

inline constexpr std::int32_t TwipsAPixel = 15;

/// A length of a window in a drag's pixels, as a real number.
constexpr double pixelsOf(toolkit::Twips twips) { return static_cast<double>(twips) / TwipsAPixel; }

/// How far right the pointer has gone, twips; error 6 beyond 32 bits.
inline runtime::Int32 twipsTravelled(const platform::Point& from, const platform::Point& to) {
    return runtime::Int32(to.x) * TwipsAPixel - runtime::Int32(from.x) * TwipsAPixel;
}

} // namespace drags
