#pragma once

#include "platform/text.h"

#include <string>
#include <vector>

namespace simulated {

/// Text in a face of equal boxes: at 8.25 points 6 pixels a character, 13 pixels high.
struct Text {
    struct Drawn {
        std::string text;
        platform::Font font;
        platform::Pixel colour = 0;
        platform::Point origin;
        platform::Rect clip;
    };

    std::vector<Drawn> drawn; ///< every text drawn, in order
    bool leaveOut = false;    ///< texts leave no pixel, for pictures that are compared

    /// True when a drawn text reads so.
    [[nodiscard]] bool shows(const std::string& text) const;
};

} // namespace simulated
