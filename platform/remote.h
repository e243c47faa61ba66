#pragma once

#include <cstdint>
#include <functional>
#include <string>

/// What the desktop may show of the player and ask of it: media keys, headsets, lock screens, sound
/// menus. Interface thread only, events included.
namespace platform {

enum class RemoteStatus { Stopped, Playing, Paused };

/// What the player tells of itself.
struct RemoteState {
    RemoteStatus status = RemoteStatus::Stopped;
    std::uint32_t track = 0; ///< counts the starts of tracks; 0 when none is started
    std::string title;       ///< of that track, in the player's path form
    std::int32_t length = 0; ///< of that track, ms; 0 while it isn't known
    bool hasNext = false;    ///< the request for the next track would start one
    bool hasPrevious = false;
    double volume = 0; ///< 0 to 1
    friend bool operator==(const RemoteState&, const RemoteState&) = default;
};

enum class RemoteRequest { Play, Pause, PlayOrPause, Stop, Next, Previous, Raise, Quit };

/// What the desktop asks. All but `position` run from the event loop, in that of dialogs and menus
/// too, and never while the asker waits for an answer.
struct RemoteEvents {
    std::function<void(RemoteRequest)> asked;
    std::function<void(std::int64_t)> seek; ///< to a place in the track, ms; below 0 or beyond the
                                            ///< end if that is what was asked for
    std::function<void(double)> volume;     ///< to be set; any number at all
    std::function<std::int32_t()> position; ///< for those who want to know: what has been heard, ms
};

/// Lets the desktop ask from now on, in place of whom it could ask before. Called once a window is
/// shown; nothing happens where there is nobody to ask.
void offerRemote(RemoteEvents events);

/// Tells the present state; called when it has changed.
void tellRemote(const RemoteState& state);

/// Tells of a jump to another place in the track, ms.
void tellRemoteSeek(std::int32_t position);

} // namespace platform
