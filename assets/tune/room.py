"""The room round the instruments: an echo that swings from side to side, and a reverb."""

import copy

from voices import RATE


def delay(track, seconds, level):
    """Adds echoes in place, each on the other side and softer than the one before."""
    gap = int(seconds * RATE)
    left, right = track.left, track.right
    for i in range(gap, len(left)):
        echo_left, echo_right = level * right[i - gap], level * left[i - gap]
        left[i] += echo_left
        right[i] += echo_right


def comb(channel, gap, level, damping):
    out, low = list(channel), 0.0
    for i in range(gap, len(out)):
        low += damping * (out[i - gap] - low)
        out[i] += level * low
    return out


def allpass(channel, gap, level):
    out = [0.0] * len(channel)
    for i, value in enumerate(channel):
        before = out[i - gap] if i >= gap else 0.0
        early = channel[i - gap] if i >= gap else 0.0
        out[i] = early + level * before - level * value
    return out


def reverb(track):
    """What the room gives back of a track."""
    wet = copy.copy(track)
    for name, spread in (("left", 0), ("right", 23)):
        channel = getattr(track, name)
        total = [0.0] * len(channel)
        for gap in (1687, 1601, 2053, 2251):
            part = comb(channel, gap + spread, 0.80, 0.55)
            total = [a + 0.25 * b for a, b in zip(total, part)]
        for gap in (347, 113):
            total = allpass(total, gap + spread, 0.6)
        setattr(wet, name, total)
    return wet
