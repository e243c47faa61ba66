"""Lays every picture and every state of both windows on one sheet, for a person to look at.

    contact_sheet.py [FILE]     the sheet goes to build/contact-sheet.png unless told otherwise

Both windows stand there at each scale, then all their states, small and large, and each picture at
1x enlarged to the largest scale, then as it is drawn at every scale. The windows are composed from
the files in the folder above, cut to their shape, captions left out.
"""

import pathlib
import struct
import sys

import layout
from canvas import Canvas, rgb
from png import png, read

ASSETS = pathlib.Path(__file__).resolve().parent.parent
GROUND = rgb("8a9096")
SCALES = (1, 2, 3, 4)
ZOOM = SCALES[-1]
MARGIN = 12


def read_bmp(path):
    data = path.read_bytes()
    start, width, height = struct.unpack("<10xI4xii", data[:26])
    stride = (width * 3 + 3) // 4 * 4
    canvas = Canvas(width, height)
    for y in range(height):
        line = start + (height - 1 - y) * stride
        for x in range(width):
            blue, green, red = data[line + 3 * x : line + 3 * x + 3]
            canvas.put(x, y, (red, green, blue))
    return canvas


def read_png(path, scale):
    width, height, rows = read(path.read_bytes())
    canvas = Canvas(width // scale, height // scale, scale=scale)
    canvas.rows = rows
    return canvas


def read_pictures(scale):
    """Every picture of a scale, by the name of its natural size."""
    if scale == 1:
        return {path.name: read_bmp(path) for path in sorted(ASSETS.glob("*.bmp"))}
    paths = sorted(ASSETS.glob(f"{scale}x/*.png"))
    pictures = {path.stem + ".bmp": read_png(path, scale) for path in paths}
    pictures.pop("icon.bmp")
    return pictures


def read_icon(path):
    """Every image of an icon or pointer file, laid over the sheet's ground by its transparency."""
    data = path.read_bytes()
    (count,) = struct.unpack("<4xH", data[:6])
    starts = [struct.unpack("<12xI", data[6 + 16 * i : 22 + 16 * i])[0] for i in range(count)]
    return [read_icon_image(data[start:]) for start in starts]


def read_icon_image(data):
    width, height, bits = struct.unpack("<4xii2xH", data[:16])
    height //= 2
    table = 40
    pixels = table + (4 << bits if bits <= 8 else 0)
    stride = (width * bits + 31) // 32 * 4
    mask, mask_stride = pixels + stride * height, (width + 31) // 32 * 4
    canvas = Canvas(width, height, GROUND)
    for y in range(height):
        up = height - 1 - y
        for x in range(width):
            at = pixels + up * stride + x * bits // 8
            share = 1.0
            if bits <= 8:
                index = data[at] if bits == 8 else data[at] >> (0 if x % 2 else 4) & 15
                at = table + 4 * index
                share = 1.0 - (data[mask + up * mask_stride + x // 8] >> (7 - x % 8) & 1)
            else:
                share = data[at + 3] / 255
            canvas.tint(x, y, (data[at + 2], data[at + 1], data[at]), share)
    return canvas


def crop(canvas, width, height):
    box = Canvas(width, height, scale=canvas.scale)
    box.paste(0, 0, canvas)
    return box


def enlarge(canvas, times):
    large = Canvas(canvas.width * times, canvas.height * times)
    large.rows = [
        [pixel for pixel in row for _ in range(times)] for row in canvas.rows for _ in range(times)
    ]
    return large


class Sheet:
    """Pictures flow from left to right and break into lines."""

    def __init__(self, width):
        self.width = width
        self.placed = []
        self.x = self.y = MARGIN
        self.line = 0

    def add(self, canvas):
        if self.x + canvas.width + MARGIN > self.width and self.line:
            self.end_line()
        self.placed.append((self.x, self.y, canvas))
        self.x += canvas.width + MARGIN
        self.line = max(self.line, canvas.height)

    def end_line(self):
        self.x = MARGIN
        self.y += self.line + MARGIN if self.line else 0
        self.line = 0

    def picture(self):
        self.end_line()
        canvas = Canvas(self.width, self.y, GROUND)
        for x, y, part in self.placed:
            canvas.paste(x, y, part)
        return canvas


WINDOWS = (
    ("frmPlayer.bmp", layout.PLAYER, True),
    ("frmPlaylist.bmp", layout.PLAYLIST, False),
)


def window(face, table, pictures, upper, pressed=None):
    """One window; `pressed` names a down picture that shows besides those at rest."""
    scale = pictures[face].scale
    canvas = Canvas(*layout.SIZE, scale=scale)
    canvas.paste(0, 0, pictures[face])
    for name, left, top, at_rest, *box in reversed(table):
        if not at_rest and name != pressed:
            continue
        part = pictures[name] if name else Canvas(*box, scale=scale)
        canvas.paste(left, top, crop(part, *box) if box else part)
    layout.shaped(canvas, upper, GROUND)
    return canvas


def states(table):
    return [None] + [name for name, _, _, at_rest, *_ in table if not at_rest]


def add_windows(page, sets):
    for scale in reversed(SCALES):
        for face, table, upper in WINDOWS:
            page.add(window(face, table, sets[scale], upper))
        page.end_line()
    for scale in SCALES[:2]:
        for face, table, upper in WINDOWS:
            page.end_line()
            for pressed in states(table):
                page.add(window(face, table, sets[scale], upper, pressed))
    page.end_line()


def sheet():
    sets = {scale: read_pictures(scale) for scale in SCALES}
    page = Sheet(2 * ZOOM * layout.SIZE[0] + 3 * MARGIN)
    add_windows(page, sets)
    for name, picture in sets[1].items():
        page.add(enlarge(picture, ZOOM))
        for scale in reversed(SCALES):
            page.add(sets[scale][name])
    page.end_line()
    for path in sorted(ASSETS.glob("*.ico")) + sorted(ASSETS.glob("*.cur")):
        for image in read_icon(path):
            page.add(image)
            if image.width <= 48:
                page.add(enlarge(image, ZOOM))
    return page.picture()


def main():
    default = ASSETS.parent / "build" / "contact-sheet.png"
    target = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else default
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(png(sheet()))
    print(target)


if __name__ == "__main__":
    main()
