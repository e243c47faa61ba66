#pragma once

#include "tests/behaviour/player.h"

#include <string>
#include <vector>

/// What the tests of adding share.
namespace behaviour::adding {

using Texts = std::vector<std::string>;

inline constexpr const char* A = "C:\\Music\\a.mp3";
inline constexpr const char* B = "C:\\Music\\b.mp3";
inline constexpr const char* C = "C:\\Music\\c.mp3";

inline std::string nul() { return {'\0'}; }

inline Texts titles(Player& player) {
    Texts shown;
    for (runtime::Int16 i = 0; i < player.list().ListCount(); i += 1)
        shown.push_back(player.list().List(i));
    return shown;
}

inline Texts paths(Player& player) {
    Texts stored;
    for (runtime::Int16 i = 0; i < player.frmPlayer().trackCount; i += 1)
        stored.push_back(player.frmPlayer().trackPaths[i]);
    return stored;
}

/// Picks files in the open dialog; they exist as tracks of 200 seconds.
inline void pick(Player& player, const Texts& files) {
    for (const std::string& file : files)
        simulated::world.media.addFile(file, 200'000);
    simulated::world.dialogs.pickFiles(files);
    player.frmPlayer().openfiles();
}

inline void walk(Player& player, const std::string& folder) {
    simulated::world.dialogs.pickFolder(folder);
    player.frmPlayer().opendir();
}

/// Fills the list up to 32766 tracks: a folder, over and over.
inline void fillTo32766(Player& player) {
    for (int i = 0; i < 127; ++i)
        simulated::world.files.addFile("C:\\Many\\" + std::to_string(i) + ".mp3");
    for (int i = 0; i < 258; ++i)
        walk(player, "C:\\Many");
    REQUIRE(player.frmPlayer().trackCount == 32766);
    REQUIRE(player.list().ListCount() == 32766);
}

} // namespace behaviour::adding
