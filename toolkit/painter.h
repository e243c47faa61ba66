#pragma once

#include "platform/picture.h"
#include "platform/text.h"
#include "platform/types.h"
#include "toolkit/artwork.h"

#include <cstdint>
#include <string_view>

/// Drawing on a canvas, always cut to its picture and to `clip`, in pixels of the window whatever
/// the display's scale.
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

/// What is painted on: a picture with `scale` pixels to one of the window's. Its top left corner is
/// the place `origin` of the window, from where the places that are painted at count.
struct Canvas {
    platform::Picture& picture;
    double scale = 1;
    platform::Point origin{};

    /// Where a place, or an area, lies on the picture.
    [[nodiscard]] platform::Point onPicture(platform::Point place) const;
    [[nodiscard]] platform::Rect onPicture(const platform::Rect& area) const;
    /// Whether any of an area lies on the picture.
    [[nodiscard]] bool shows(const platform::Rect& area) const;
};

/// Fills an area with a colour.
void fill(const Canvas& target, const platform::Rect& area, platform::Pixel colour);

/// Lays a picture with its top left corner at `corner`, only inside `clip`. What shines through it
/// stays.
void lay(const Canvas& target, const platform::Rect& clip, platform::Point corner,
         const Artwork& artwork);

/// Draws one line of text with its top left corner at `origin`, only inside `clip`.
void write(const Canvas& target, const platform::Rect& clip, platform::Point origin,
           const platform::Font& font, platform::Pixel colour, std::string_view text);

/// Copies from one picture into another, pixel by pixel, with the top left corner at `corner`.
void copy(platform::Picture& target, platform::Point corner, const platform::Picture& source);

} // namespace toolkit
