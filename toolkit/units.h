#pragma once

#include "platform/types.h"

/// Skin geometry is in twips, single precision, with the origin at the window's top left corner.
/// Pixels are whole numbers everywhere, so that neither slips into the other's place unseen.
namespace toolkit {

using Twips = float;

/// A place and a size in twips.
struct Bounds {
    Twips left = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;
};

/// The screen's own conversion, by its twips per pixel, rounded to the nearest pixel.
platform::Rect toPixels(const Bounds& bounds);
platform::Point toPixels(Twips left, Twips top);

/// The pixel in the middle of an area.
inline platform::Point middleOf(const platform::Rect& area) {
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

} // namespace toolkit
