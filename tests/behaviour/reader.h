#pragma once

#include "tests/behaviour/open_playlist.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace behaviour {

/// A screen reader before both windows, the playlist open.
class Reading : public OpenPlaylist {
  public:
    using Thing = platform::AccessibleThing;

    std::vector<std::string> names(platform::WindowHandle window) {
        std::vector<std::string> all;
        for (const Thing& thing : simulated::accessibleThings(window))
            all.push_back(thing.name);
        return all;
    }
    bool tells(const std::string& name) {
        const std::vector<std::string> all = names(mainWindow());
        return std::find(all.begin(), all.end(), name) != all.end();
    }

    Thing main(const std::string& name) { return simulated::accessibleThing(mainWindow(), name); }
    Thing listed(const std::string& name) {
        return simulated::accessibleThing(playlistWindow(), name);
    }
    Thing rowAt(std::int32_t row) {
        return simulated::accessibleRow(playlistWindow(), "Tracks", row);
    }

    void act(const std::string& name) { simulated::act(mainWindow(), name); }
    void actInList(const std::string& name) { simulated::act(playlistWindow(), name); }
    void actOnRow(std::int32_t row) { simulated::actOnRow(playlistWindow(), "Tracks", row); }
    void set(const std::string& slider, double number) {
        simulated::setNumber(mainWindow(), slider, number);
    }
};

} // namespace behaviour
