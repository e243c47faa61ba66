#!/usr/bin/env -S python3 -B
"""Takes an icon file's images of 32 bits apart, as pictures with their transparency.

    icon_pictures.py ICON FOLDER    writes FOLDER/<width>x<height>.png, an image each
"""

import dataclasses
import pathlib
import struct
import sys

from png import png

DEPTH = 32
HEADER = 40  # bytes


@dataclasses.dataclass
class Image:
    """Rows from the top, of (red, green, blue, alpha)."""

    width: int
    height: int
    rows: list


def image_at(data):
    """An image of an icon file: rows from the bottom, of blue, green, red, alpha; then a mask."""
    width, twice_height = struct.unpack("<4xii", data[:12])
    height = twice_height // 2
    pixels = data[HEADER:HEADER + 4 * width * height]
    parts = [(red, green, blue, alpha)
             for blue, green, red, alpha in struct.iter_unpack("4B", pixels)]
    rows = [parts[start:start + width] for start in range(0, len(parts), width)]
    return Image(width, height, rows[::-1])


def images(data):
    (count,) = struct.unpack("<4xH", data[:6])
    for number in range(count):
        depth, start = struct.unpack("<6xH4xI", data[6 + 16 * number:22 + 16 * number])
        if depth == DEPTH:
            yield image_at(data[start:])


def main():
    icon, folder = map(pathlib.Path, sys.argv[1:])
    folder.mkdir(parents=True, exist_ok=True)
    for image in images(icon.read_bytes()):
        (folder / f"{image.width}x{image.height}.png").write_bytes(png(image))


if __name__ == "__main__":
    main()
