#pragma once

#include "platform/picture.h"
#include "platform/types.h"

#include <cstdint>

/// Drawing on a picture, always cut to the picture and to `clip`, in pixels.
namespace toolkit {

/// A colour as window data store it: 0x00BBGGRR.
using StoredColour = std::uint32_t;

inline constexpr StoredColour Black = 0x000000;
inline constexpr StoredColour White = 0xFFFFFF;
inline constexpr StoredColour Blue = 0xFF0000;
inline constexpr StoredColour Yellow = 0x00FFFF;
inline constexpr StoredColour Red = 0x0000FF;
inline constexpr StoredColour LightBlue = 0xFF8080;

/// The opaque pixel of a stored colour.
constexpr platform::Pixel pixelOf(StoredColour colour) {
    return 0xFF000000U | (colour & 0xFFU) << 16U | (colour & 0xFF00U) | (colour >> 16U & 0xFFU);
}

/// The part that both rectangles share; empty rectangles have no area.
platform::Rect intersection(const platform::Rect& a, const platform::Rect& b);

/// Fills an area with a colour.
void fill(platform::Picture& target, const platform::Rect& area, platform::Pixel colour);

/// Copies a picture with its top left corner at `corner`, only inside `clip`.
void blit(platform::Picture& target, const platform::Rect& clip, platform::Point corner,
          const platform::Picture& source);

/// The same with the source's alpha: what shines through it stays.
void blend(platform::Picture& target, const platform::Rect& clip, platform::Point corner,
           const platform::Picture& source);

} // namespace toolkit
