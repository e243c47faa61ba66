#pragma once

#include "platform/remote.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace simulated {

/// The desktop's media keys: what it asks, and what it has been told.
struct Remote {
    /// Each is one event, delivered at once. Before the player has offered it, the test fails.
    void ask(platform::RemoteRequest request) const;
    void seek(std::int64_t place) const;
    void setVolume(double volume) const;
    /// Asks where the track stands, ms.
    [[nodiscard]] std::int32_t position() const;

    /// The latest state told; the one of a player that has told nothing, if none was.
    [[nodiscard]] platform::RemoteState now() const {
        return told.empty() ? platform::RemoteState() : told.back();
    }

    std::optional<platform::RemoteEvents> events;
    std::vector<platform::RemoteState> told; ///< every state, in order
    std::vector<std::int32_t> jumps;         ///< every jump told, ms
};

} // namespace simulated
