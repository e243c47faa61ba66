#!/usr/bin/env -S python3 -B
"""Tells what a recording holds: seconds of sound, its level and, if asked, a tone.

hear.py RECORDING [--save FILE.wav] [--tone HERTZ]

The recording is raw: 16 bits little endian, two channels, 44100 frames a second. The status is 1
when it holds no sound, or when one of the channels is not the tone asked for: its strongest
frequency must lie within 1 % of it.
"""

import argparse
import array
import math
import sys
import wave

RATE = 44100
BLOCK = RATE // 10
SILENT_BELOW = 30.0  # root mean square of 16-bit samples, about -61 dBFS


def root_mean_square(samples):
    return math.sqrt(sum(s * s for s in samples) / len(samples)) if samples else 0.0


def power_at(samples, hertz):
    """Share of the samples' power that lies at a frequency, 0 to 1 (Goertzel)."""
    count = len(samples)
    factor = 2.0 * math.cos(2.0 * math.pi * hertz / RATE)
    before, last = 0.0, 0.0
    for sample in samples:
        before, last = last, sample + factor * last - before
    power = before * before + last * last - factor * before * last
    total = sum(s * s for s in samples)
    return 2.0 * power / (count * total) if total else 0.0


def is_tone(samples, hertz):
    """Most of the power lies at the tone, more than at 1 % above or below."""
    here = power_at(samples, hertz)
    beside = max(power_at(samples, hertz * 0.99), power_at(samples, hertz * 1.01))
    return here > 0.5 and here > beside


class Recording:
    """A recording's two channels and the blocks of a tenth of a second that sound."""

    def __init__(self, path):
        with open(path, "rb") as file:
            raw = file.read()
        self.raw = raw[: len(raw) // 4 * 4]
        samples = array.array("h", self.raw)
        if sys.byteorder == "big":
            samples.byteswap()
        self.channels = {"left": samples[0::2], "right": samples[1::2]}
        blocks = (slice(start, start + BLOCK)
                  for start in range(0, len(samples) // 2 - BLOCK + 1, BLOCK))
        self.sounding = [block for block in blocks
                         if max(map(root_mean_square, self.within(block))) >= SILENT_BELOW]

    def within(self, place):
        return [channel[place] for channel in self.channels.values()]

    def seconds(self):
        return len(self.sounding) / 10

    def level(self):
        """Root mean square of what sounds, in dB below full scale."""
        heard = [sample for block in self.sounding
                 for channel in self.within(block) for sample in channel]
        return 20.0 * math.log10(root_mean_square(heard) / 32768.0)

    def tone_in(self, name, hertz):
        """Whether the middle of the sound is a tone of this frequency, to 1 %."""
        middle = self.sounding[len(self.sounding) // 2].start
        second = slice(max(0, middle - RATE // 2), middle + RATE // 2)
        return is_tone(self.channels[name][second], hertz)

    def save(self, path):
        with wave.open(path, "wb") as out:
            out.setnchannels(2)
            out.setsampwidth(2)
            out.setframerate(RATE)
            out.writeframes(self.raw)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("recording")
    parser.add_argument("--save")
    parser.add_argument("--tone", type=float)
    options = parser.parse_args()

    recording = Recording(options.recording)
    if options.save:
        recording.save(options.save)
    if not recording.sounding:
        print("Heard:      nothing")
        return 1
    print(f"Heard:      {recording.seconds():.1f} s of sound at {recording.level():.1f} dBFS")
    good = True
    if options.tone:
        for name in recording.channels:
            tone = recording.tone_in(name, options.tone)
            print(f"  {name}: {'' if tone else 'not '}a tone of {options.tone:g} Hz")
            good = good and tone
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
