#pragma once

class FrmPlayer;
class FrmPlaylist;

/// The playlist's ways onto the screen and off it. Interface thread.

/// Shows the playlist. Exact contact of the two windows decides anew whether they are docked.
void showPlaylist(FrmPlayer& player);

/// Hides the playlist and ends its dock.
void closePlaylist(FrmPlaylist& playlist);

/// Hides the playlist, its dock kept, and lifts the main window's playlist key.
void minimisePlaylist(FrmPlaylist& playlist);

/// Shows the main window's playlist key at rest.
void liftPlaylistKey(FrmPlayer& player);
