"""The instruments: each plays one note into a list of samples."""

import math

RATE = 44100


def pitch(note):
    """The frequency of a MIDI note number, in hertz."""
    return 440.0 * 2.0 ** ((note - 69) / 12.0)


def envelope(count, attack, release, decay=None, floor=0.0):
    """A level for each sample: a rise, a fall toward `floor` and a release; seconds."""
    rise, tail = int(attack * RATE) + 1, int(release * RATE) + 1
    fall = math.exp(-1.0 / (decay * RATE)) if decay else 1.0
    levels, level = [], 1.0
    for i in range(count):
        shape = min(1.0, i / rise, (count - i) / tail)
        levels.append((floor + (1.0 - floor) * level) * shape * (2.0 - shape))
        level *= fall
    return levels


def piano(note, seconds):
    """An electric piano: a sine bent by a second one that dies away faster."""
    step = 2.0 * math.pi * pitch(note) / RATE
    levels = envelope(int((seconds + 0.35) * RATE), 0.004, 0.35, 0.9)
    out = []
    for i, level in enumerate(levels):
        bite = 1.1 * math.exp(-i / (0.22 * RATE))
        chime = 0.10 * math.exp(-i / (0.05 * RATE)) * math.sin(step * i * 7.0)
        out.append(level * (math.sin(step * i + bite * math.sin(step * i)) + chime))
    return out


def lead(note, seconds):
    """A soft flute-like lead with a vibrato that comes in late."""
    frequency = pitch(note)
    levels = envelope(int((seconds + 0.12) * RATE), 0.025, 0.12, 0.9, 0.55)
    out, phase = [], 0.0
    for i, level in enumerate(levels):
        depth = 0.006 * min(1.0, max(0.0, i / RATE - 0.18) / 0.25)
        phase += frequency * (1.0 + depth * math.sin(2.0 * math.pi * 5.4 * i / RATE)) / RATE
        turn = 2.0 * math.pi * phase
        tone = math.sin(turn) + 0.30 * math.sin(2.0 * turn) + 0.16 * math.sin(3.0 * turn)
        out.append(0.72 * level * tone)
    return out


def bass(note, seconds):
    """A round bass: a filtered saw over its own fundamental."""
    frequency = pitch(note)
    levels = envelope(int((seconds + 0.06) * RATE), 0.006, 0.06, 0.7, 0.25)
    out, low, lower = [], 0.0, 0.0
    for i, level in enumerate(levels):
        phase = frequency * i / RATE % 1.0
        opening = 0.035 + 0.10 * math.exp(-i / (0.09 * RATE))
        low += opening * (2.0 * phase - 1.0 - low)
        lower += opening * (low - lower)
        out.append(level * (0.75 * math.sin(2.0 * math.pi * phase) - 1.1 * lower))
    return out


def pad(note, seconds):
    """A warm bed of two slightly detuned triangles."""
    frequency = pitch(note)
    levels = envelope(int((seconds + 0.7) * RATE), 0.35, 0.7)
    out = []
    for i, level in enumerate(levels):
        total = 0.0
        for detune in (0.9975, 1.0025):
            phase = frequency * detune * i / RATE % 1.0
            total += 4.0 * abs(phase - 0.5) - 1.0
        out.append(0.5 * level * total)
    return out


def pluck(note, seconds, chance):
    """A plucked string: noise going round a short, slowly softening loop.

    The softening delays by half a sample; an all-pass holds back the rest of the fraction that
    a whole number of samples would leave out of tune.
    """
    period = RATE / pitch(note) - 0.5
    length = int(period - 0.3)
    bend = (1.0 - (period - length)) / (1.0 + (period - length))
    loop = [chance.uniform(-1.0, 1.0) for _ in range(length)]
    for _ in range(2):
        loop = [(loop[i] + loop[i - 1]) / 2.0 for i in range(length)]
    mean = sum(loop) / length
    loop = [value - mean for value in loop]
    levels = envelope(int((seconds + 0.2) * RATE), 0.001, 0.2)
    out, place, last, soft_before, held = [], 0, 0.0, 0.0, 0.0
    for level in levels:
        value = loop[place]
        out.append(1.4 * level * value)
        soft = 0.4975 * (value + last)
        last = value
        held = bend * (soft - held) + soft_before
        soft_before = soft
        loop[place] = held
        place = (place + 1) % length
    return out


def kick():
    out, phase = [], 0.0
    for i, level in enumerate(envelope(int(0.26 * RATE), 0.002, 0.08, 0.10)):
        phase += (46.0 + 95.0 * math.exp(-i / (0.022 * RATE))) / RATE
        out.append(level * math.sin(2.0 * math.pi * phase))
    return out


def noise(seconds, decay, low_share, chance):
    """A burst of noise with its low part taken away; a greater `low_share` leaves it brighter."""
    out, low = [], 0.0
    for level in envelope(int(seconds * RATE), 0.001, seconds / 3.0, decay):
        raw = chance.uniform(-1.0, 1.0)
        low += low_share * (raw - low)
        out.append(level * (raw - low))
    return out


def hat(chance, opened):
    return noise(0.16 if opened else 0.06, 0.05 if opened else 0.016, 0.75, chance)


def snare(chance):
    """Brushes more than sticks: soft noise over a short low body."""
    out = noise(0.22, 0.055, 0.22, chance)
    for i in range(int(0.09 * RATE)):
        fall = math.exp(-i / (0.025 * RATE))
        out[i] += 0.55 * fall * math.sin(2.0 * math.pi * 186.0 * i / RATE)
    return out
