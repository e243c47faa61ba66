#pragma once

#include <string>

class FrmPlayer;

/// Adds a track: its path to the player's array, its title to the playlist, then the count. Error 6
/// for the 32768th, which stands in the list then. Interface thread.
void addTrack(FrmPlayer& player, const std::string& path, const std::string& title);

/// The same for files of the open dialog, which count before they are listed: of a 32768th the list
/// is never told.
void addCountedTrack(FrmPlayer& player, const std::string& path, const std::string& title);
