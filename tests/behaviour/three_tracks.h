#pragma once

#include "tests/behaviour/player.h"

#include <string>
#include <vector>

/// What the tests of navigation and of the stops share.
namespace behaviour::three {

using Commands = std::vector<std::string>;

inline constexpr const char* A = "C:\\Music\\a.mp3";
inline constexpr const char* B = "C:\\Music\\b.mp3";
inline constexpr const char* C = "C:\\Music\\c.mp3";
inline const Commands stopAndClose = {"Stop mpeg", "Close mpeg"};

/// A player that plays the entry with this index of a, b and c.
struct ThreeTracks {
    explicit ThreeTracks(int index) {
        player.play({A, B, C});
        if (index != 0) {
            player.list().ListIndex(index);
            player.frmPlayer().startfile();
        }
        simulated::world.media.forgetCommands();
    }
    FrmPlayer& form() { return player.frmPlayer(); }
    int index() { return player.list().ListIndex().value(); }
    Player player;
};

inline void clickNext(Player& player) { player.click(player.frmPlayer().pctnext); }
inline void clickPrevious(Player& player) { player.click(player.frmPlayer().pctprev); }
inline void clickPause(Player& player) { player.click(player.frmPlayer().pctpause); }

/// Pauses as the playlist's own key does: both windows show it.
inline void pauseInBothWindows(Player& player) {
    clickPause(player);
    REQUIRE(player.status() == "Paused");
    player.frmPlaylist().pctPlsPause.Visible(false);
    player.frmPlaylist().pctPlsPauseDown.Visible(true);
    simulated::world.media.forgetCommands();
}

inline bool pauseKeysAreUp(Player& player) {
    return !player.frmPlayer().pctpausedown.Visible() &&
           player.frmPlaylist().pctPlsPause.Visible() &&
           !player.frmPlaylist().pctPlsPauseDown.Visible();
}

} // namespace behaviour::three
