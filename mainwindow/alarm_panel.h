#pragma once

class FrmPlayer;

/// The alarm's test, the last thing in a tick: starts the music when the alarm is due, and disarms
/// it. Interface thread.
void testAlarm(FrmPlayer& player);
