#!/usr/bin/env -S python3 -B
"""The icon for a program's resources: its largest image as a PNG, the others as they are.

    packed_icon.py ICON PACKED    reads the one file and writes the other
"""

import pathlib
import struct
import sys

from icon_pictures import DEPTH, image_at
from png import png

HEAD, ENTRY = 6, 16  # bytes
LARGEST = 0  # how a side of 256 pixels is told


def packed(side, depth, data):
    return png(image_at(data)) if (side, depth) == (LARGEST, DEPTH) else data


def main():
    icon, target = map(pathlib.Path, sys.argv[1:])
    data = icon.read_bytes()
    (count,) = struct.unpack_from("<4xH", data)
    head, images = data[:HEAD], b""
    for start in range(HEAD, HEAD + ENTRY * count, ENTRY):
        side, depth, size, place = struct.unpack_from("<B5xHII", data, start)
        image = packed(side, depth, data[place:place + size])
        place = HEAD + ENTRY * count + len(images)
        head += data[start:start + 8] + struct.pack("<II", len(image), place)
        images += image
    target.write_bytes(head + images)


main()
