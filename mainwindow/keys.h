#pragma once

class FrmPlayer;

/// The main window's keys. Interface thread.

/// Connects the events of all keys of the face.
void connectKeys(FrmPlayer& player);

/// Lifts the pause keys of both windows.
void releasePauseKeys(FrmPlayer& player);
