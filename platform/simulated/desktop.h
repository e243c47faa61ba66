#pragma once

#include "platform/types.h"

#include <cstdint>
#include <string>

namespace simulated {

/// The desktop's colours, as 0x00BBGGRR.
struct Colours {
    std::uint32_t window = 0xFFFFFF;
    std::uint32_t windowText = 0;
    std::uint32_t face = 0xC8D0D4;
    std::uint32_t faceText = 0;
};

/// What the process is told about itself and the desktop; set it before the player starts.
struct Desktop {
    bool display = true; ///< without one `platform::start` fails
    bool previousInstance = false;
    std::string commandLine;
    std::string applicationFolder = "C:\\Orvan";
    char decimalSign = '.';
    float twipsPerPixelX = 15.0F;
    float twipsPerPixelY = 15.0F;
    double scale = 1; ///< pixels of the display to one of a window's, 1 to 4
    platform::Size screen{1024, 768};
    platform::Rect workArea{0, 0, 1024, 738};
    Colours colours;
    platform::Point cursor; ///< the pointer, screen pixels; follows the pointer events
    int cursorsAsked = 0;   ///< how often the program has asked for it
};

} // namespace simulated
