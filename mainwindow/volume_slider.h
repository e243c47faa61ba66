#pragma once

class FrmPlayer;

/// Puts the volume thumb at a share of its travel, 0 to 1, and sends its level, as a drag there
/// does; beyond either end it runs into the stop. Interface thread.
void slideVolume(FrmPlayer& player, double share);
