#pragma once

#include "toolkit/units.h"

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

/// Keeps the position asked for from lying before the track.
void keepPositionInTrack(FrmPlayer& player);
