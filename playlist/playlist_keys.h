#pragma once

class FrmPlaylist;

/// Connects the events of all keys of the playlist window. Interface thread.
void connectKeys(FrmPlaylist& playlist);
