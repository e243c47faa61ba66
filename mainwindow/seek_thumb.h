#pragma once

#include "toolkit/units.h"

#include <cstdint>

class FrmPlayer;

/// The seek thumb: a pair of images that always move together. Interface thread.

/// Puts the thumb at a `Left`, twips.
void moveThumb(FrmPlayer& player, toolkit::Twips left);

/// A tick's move: the thumb only ever goes forward, and only by what the share of the track has
/// grown. Error 11 or 6 for a length of 0.
void followTrack(FrmPlayer& player);

/// A thumb past the end of its travel skips to the next track, any other seeks to
/// `trackPositionSeconds`.
void seekOrSkip(FrmPlayer& player);

/// A jump to a place in the track, ms, dead unless a track plays: the thumb goes there and the
/// device is sent after it. What lies beyond the end is the next track, as it is for the thumb.
void jumpTo(FrmPlayer& player, std::int64_t place);

/// Keeps the position asked for from lying before the track.
void keepPositionInTrack(FrmPlayer& player);
