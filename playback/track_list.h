#pragma once

#include <string>

class FrmPlayer;

/// Adds a track: its path to the player's array, its title to the playlist, then the count. Error 6
/// for the 32768th. Every way of adding takes its tracks here: what they do in another order can't
/// be seen from outside. Interface thread.
void addTrack(FrmPlayer& player, const std::string& path, const std::string& title);
