"""Plays the demo tune and encodes it.

To rebuild the tune: `python3 compose.py`, with lame installed; it writes orvan.mp3 beside
itself. `python3 compose.py FILE.wav` writes the unencoded sound instead.
"""

import array
import pathlib
import random
import subprocess
import sys
import tempfile
import wave

import score
import voices
from room import delay, reverb
from voices import RATE

BEAT = 60.0 / score.BEATS_PER_MINUTE
TAIL = 1.0
SECONDS = score.BARS * 4 * BEAT + TAIL
FADE = 2.4
PEAK = 10.0 ** (-3.0 / 20.0)


class Track:
    """Two channels of sound."""

    def __init__(self):
        self.left = [0.0] * int(SECONDS * RATE)
        self.right = list(self.left)

    def add(self, seconds, sound, level, pan=0.0):
        """Mixes a sound in; pan runs from -1 (left) to 1 (right)."""
        start = int(seconds * RATE)
        sound = sound[: len(self.left) - start]
        to_left, to_right = level * (1.0 - pan) ** 0.5, level * (1.0 + pan) ** 0.5
        for i, value in enumerate(sound, start):
            self.left[i] += to_left * value
            self.right[i] += to_right * value

    def mix(self, other, level):
        self.left = [a + level * b for a, b in zip(self.left, other.left)]
        self.right = [a + level * b for a, b in zip(self.right, other.right)]


def time_of(bar, beat):
    return (bar * 4 + beat) * BEAT


def chords(dry, wet, chance):
    for bar, parts in enumerate(score.CHORDS):
        last = bar == score.BARS - 1
        for start, beats, _, notes in parts:
            for note in notes:
                wet.add(time_of(bar, start), voices.pad(note, beats * BEAT - 0.2), 0.045)
            hits = ((0, 4),) if last else score.PIANO_RHYTHM
            for beat, length in hits:
                if start <= beat < start + beats:
                    strum(dry, bar, beat, length, notes, last)
            arpeggio(wet, bar, start, beats, notes, chance)


def strum(track, bar, beat, length, notes, slow):
    """The piano's chord, each note a moment after the one below it."""
    for place, note in enumerate(notes):
        late = place * (0.045 if slow else 0.006)
        sound = voices.piano(note, length * BEAT)
        track.add(time_of(bar, beat) + late, sound, 0.075, -0.35 + 0.1 * place)


def arpeggio(track, bar, start, beats, notes, chance):
    """Plucked sixteenths that run up and down the chord an octave higher."""
    if bar == score.BARS - 1:
        return
    order = (0, 1, 2, 3, 2, 1)
    for step in range(beats * 4):
        place = (start * 4 + step) % len(order)
        level = 0.125 if step % 4 == 0 else 0.085
        sound = voices.pluck(notes[order[place]] + 12, 0.22, chance)
        track.add(time_of(bar, start + step / 4), sound, level, 0.45)


def bass(dry):
    for bar, parts in enumerate(score.CHORDS):
        rhythm = ((0, 4, 0),) if bar == score.BARS - 1 else score.BASS_RHYTHM
        for beat, beats, above in rhythm:
            root = [part[2] for part in parts if part[0] <= beat][-1]
            dry.add(time_of(bar, beat), voices.bass(root + above, beats * BEAT * 0.9), 0.15)


def melody(wet):
    for notes, level, pan in ((score.MELODY, 0.17, -0.05), (score.ANSWER, 0.065, 0.25)):
        for bar, line in enumerate(notes):
            for beat, beats, note in line:
                wet.add(time_of(bar, beat), voices.lead(note, beats * BEAT * 0.92), level, pan)


def drums(dry, chance):
    kick = voices.kick()
    for bar in range(score.BARS - 1):
        for beat in (0, 1.5, 2) if bar % 2 else (0, 2):
            dry.add(time_of(bar, beat), kick, 0.30)
        for beat in (1, 3):
            dry.add(time_of(bar, beat), voices.snare(chance), 0.15, 0.08)
        for step in range(8):
            level = 0.115 if step % 2 else 0.075
            dry.add(time_of(bar, step / 2), voices.hat(chance, step == 7), level, -0.25)
    dry.add(time_of(score.BARS - 1, 0), kick, 0.30)


def play():
    """The finished piece as one track, levelled and faded out."""
    chance = random.Random(2001)
    dry, wet = Track(), Track()
    chords(dry, wet, chance)
    bass(dry)
    melody(wet)
    drums(dry, chance)
    delay(wet, 0.75 * BEAT, 0.28)
    dry.mix(wet, 1.0)
    dry.mix(reverb(wet), 0.16)
    finish(dry)
    return dry


def finish(track):
    """Fades the end away, without a step, and brings the loudest sample to the peak level."""
    count, faded = len(track.left), int(FADE * RATE)
    loudest = max(max(map(abs, track.left)), max(map(abs, track.right)))
    for channel in (track.left, track.right):
        for i in range(count):
            share = min(1.0, (count - 1 - i) / faded)
            channel[i] *= PEAK / loudest * share * share * (3.0 - 2.0 * share)


def write_wav(track, path):
    samples = array.array("h")
    for left, right in zip(track.left, track.right):
        samples.append(round(left * 32767.0))
        samples.append(round(right * 32767.0))
    if sys.byteorder == "big":
        samples.byteswap()
    with wave.open(str(path), "wb") as out:
        out.setnchannels(2)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(samples.tobytes())


def encode(wav, mp3):
    tags = ["--add-id3v2", "--tt", "Steel and Blue", "--ta", "Orvan Music Player"]
    subprocess.run(
        ["lame", "--quiet", "-m", "j", "-b", "160", *tags, str(wav), str(mp3)], check=True
    )


def main():
    track = play()
    if len(sys.argv) > 1:
        write_wav(track, sys.argv[1])
        return
    with tempfile.TemporaryDirectory() as folder:
        wav = pathlib.Path(folder) / "orvan.wav"
        write_wav(track, wav)
        encode(wav, pathlib.Path(__file__).resolve().parent / "orvan.mp3")


if __name__ == "__main__":
    main()
