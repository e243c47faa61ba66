#pragma once

#include "platform/simulated/world.h"

#include <cstddef>
#include <string>

namespace behaviour {

/// The list field of the line that the player has saved: each path with its end, and one more end.
inline std::string savedList() {
    const std::string& line = simulated::world.files.text("C:\\Orvan\\MyPlayerSettings.mps");
    std::size_t start = 0;
    for (int field = 0; field < 3; ++field)
        start = line.find('*', start) + 1;
    return line.substr(start, line.find('*', start) - start);
}

} // namespace behaviour
