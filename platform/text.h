#pragma once

#include "platform/picture.h"
#include "platform/types.h"

#include <string>
#include <string_view>

/// Text as the platform draws it. Interface thread only.
namespace platform {

struct Font {
    std::string face = "MS Sans Serif"; ///< a platform maps faces that it lacks to like ones
    double points = 8.25;               ///< 1/72 inch at 96 pixels an inch
    bool bold = false;
    bool italic = false;
    double scale = 1; ///< pixels of the picture that is drawn on to one of the text's own
    friend bool operator==(const Font&, const Font&) = default;
};

/// Advance width of a line and height of the face, in the text's own pixels, whatever its scale.
Size measureText(const Font& font, std::string_view text);

/// Draws one line of UTF-8 text with its top left corner at `origin`, only inside `clip` and the
/// picture. Bytes that are no UTF-8 show as replacement characters. A text of a larger scale takes
/// as many times the room that it measures, so that it is cut where it would be without.
void drawText(Picture& picture, const Rect& clip, Point origin, const Font& font, Pixel colour,
              std::string_view text);

} // namespace platform
