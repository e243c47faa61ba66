#pragma once

#include "tests/behaviour/player.h"

#include <cstdint>
#include <optional>
#include <string>

/// What the tests of the clock share: short tracks, single ticks, and what the player shows.
namespace behaviour {

inline constexpr std::uint64_t tick = 966; // ms
inline constexpr const char* A = "C:\\Music\\a.mp3";
inline constexpr const char* B = "C:\\Music\\b.mp3";
inline constexpr const char* C = "C:\\Music\\c.mp3";

/// A player that plays one track of this length, in ms.
inline void playOne(Player& player, std::int64_t length) {
    player.start();
    player.addTracks({A});
    simulated::world.media.addFile(A, length);
    player.list().ListIndex(0);
    player.frmPlayer().startfile();
    simulated::world.media.forgetCommands();
}

/// A player that plays the entry with this index of a, b and c, each 2 seconds long.
inline void playShortTracks(Player& player, int index) {
    player.start();
    player.addTracks({A, B, C});
    for (const char* path : {A, B, C})
        simulated::world.media.addFile(path, 2000);
    player.list().ListIndex(index);
    player.frmPlayer().startfile();
    simulated::world.media.forgetCommands();
}

/// One tick, with the device at this position.
inline void tickAt(std::int64_t position) {
    simulated::world.media.reportPosition(position);
    simulated::advance(tick);
    simulated::world.media.reportPosition(std::nullopt);
}

inline std::string timeNow(Player& player) { return player.frmPlayer().lblTimenow.Caption(); }
inline std::string statusText(Player& player) { return player.frmPlaylist().lblPlaying.Caption(); }
inline std::string counter(Player& player) { return player.frmPlaylist().lblTitle.Caption(); }

inline void clickTime(Player& player) { player.click(player.frmPlayer().lblTimenow); }

inline void pauseByKey(Player& player) { player.click(player.frmPlayer().pctpause); }

} // namespace behaviour
