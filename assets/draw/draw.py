"""Draws every picture of the player: the natural size into the folder above, and beside it, in the
folders 2x, 3x and 4x, the same pictures with as many pixels to each of theirs.

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
from png import png, unpacked

TARGET = pathlib.Path(__file__).resolve().parent.parent
LARGER = (2, 3, 4)


def pictures(scale):
    """Every bitmap as (name without its ending, canvas)."""
    for module in (face, keys, title_keys, sliders, playlist):
        yield from module.assets(scale)


def files():
    """Every drawn file as (name, bytes)."""
    for name, canvas in pictures(1):
        yield name + ".bmp", bmp(canvas)
    yield from icon.files()
    yield from pointers.files()
    for scale in LARGER:
        for name, canvas in (*pictures(scale), *icon.pictures(scale)):
            yield f"{scale}x/{name}.png", png(canvas)


def same(path, data):
    """Whether a file holds these bytes; packed ones count unpacked, as packers differ."""
    if not path.is_file():
        return False
    held = path.read_bytes()
    return unpacked(held) == unpacked(data) if path.suffix == ".png" else held == data


def check():
    drawn = dict(files())
    wrong = [name for name, data in drawn.items() if not same(TARGET / name, data)]
    for name in wrong:
        print("differs from what is drawn:", name)
    stray = [path for path in TARGET.glob("*x/*") if str(path.relative_to(TARGET)) not in drawn]
    for path in stray:
        print("is drawn by nobody:", path.name)
    return 1 if wrong or stray else 0


def write():
    for name, data in files():
        (TARGET / name).parent.mkdir(exist_ok=True)
        (TARGET / name).write_bytes(data)
    return 0


if __name__ == "__main__":
    sys.exit(check() if sys.argv[1:] == ["--check"] else write())
