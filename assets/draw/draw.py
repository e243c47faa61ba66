"""Draws every picture of the player into the folder above.

    draw.py            writes the files
    draw.py --check    writes nothing; fails if a file differs from what would be drawn
"""

import pathlib
import sys

import face
import icon
import keys
import playlist
import pointers
import sliders
import title_keys
from canvas import bmp

TARGET = pathlib.Path(__file__).resolve().parent.parent


def files():
    """Every drawn file as (name, bytes)."""
    for module in (face, keys, title_keys, sliders, playlist):
        for name, canvas in module.assets():
            yield name, bmp(canvas)
    yield from icon.files()
    yield from pointers.files()


def check():
    wrong = [
        name
        for name, data in files()
        if not (TARGET / name).is_file() or (TARGET / name).read_bytes() != data
    ]
    for name in wrong:
        print("differs from what is drawn:", name)
    return 1 if wrong else 0


def write():
    for name, data in files():
        (TARGET / name).write_bytes(data)
    return 0


if __name__ == "__main__":
    sys.exit(check() if sys.argv[1:] == ["--check"] else write())
