#pragma once

class FrmPlayer;

/// The time of the track in both windows. Interface thread.

/// Writes `lblTimenow` from the track's length and position as they were last asked for.
void writeTime(FrmPlayer& player);

/// During a seek: that label, then the playlist's counter from the same position. Error 6 for a
/// counter above 32767 seconds.
void writeSeekLabels(FrmPlayer& player);
