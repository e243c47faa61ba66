"""Pictures as grids of RGB triples, colours in hexadecimal, and their 24-bit BMP form.

A picture is described in units, the pixels of its natural size, and drawn with `scale` pixels to a
unit. Places between units count as the units' own numbers do: the middle of unit 3 is 3.
"""

import struct


def rgb(text):
    """The colour that six hexadecimal digits name."""
    return (int(text[0:2], 16), int(text[2:4], 16), int(text[4:6], 16))


def mix(first, second, share):
    """The colour `share` of the way from first (0) to second (1)."""
    return tuple(int(a + (b - a) * share + 0.5) for a, b in zip(first, second))


def ramp(stops, place):
    """The colour at `place` of a gradient: stops are (place, colour) in rising order."""
    if place <= stops[0][0]:
        return stops[0][1]
    for (left, first), (right, second) in zip(stops, stops[1:]):
        if place <= right:
            return mix(first, second, (place - left) / (right - left))
    return stops[-1][1]


def along(row, place):
    """The value at `place` of a row of values, the first at 0; the last ones go on at both ends."""
    place = min(max(place, 0), len(row) - 1)
    left = int(place)
    if left == place:
        return row[left]
    first, second = row[left], row[left + 1]
    if isinstance(first, tuple):
        return mix(first, second, place - left)
    return first + (second - first) * (place - left)


def smooth(share):
    """An S-shaped way from 0 to 1, flat at both ends."""
    share = min(1.0, max(0.0, share))
    return share * share * (3.0 - 2.0 * share)


class Canvas:
    """A picture being drawn; rows count from the top. Sizes and boxes are in units."""

    def __init__(self, width, height, fill=(0, 0, 0), scale=1):
        self.scale = scale
        self.width = width * scale
        self.height = height * scale
        self.rows = [[fill] * self.width for _ in range(self.height)]

    def get(self, x, y):
        return self.rows[y][x]

    def put(self, x, y, colour):
        self.rows[y][x] = colour

    def tint(self, x, y, colour, share):
        """Lays a colour over a pixel, covering `share` of it."""
        if share > 0.0:
            self.rows[y][x] = mix(self.rows[y][x], colour, min(1.0, share))

    def cells(self, left, top, width, height):
        """The pixels of a box, each as (x, y, u, v): its pixel numbers and its place in units."""
        n = self.scale
        for y in range(top * n, (top + height) * n):
            v = (y + 0.5) / n - 0.5
            for x in range(left * n, (left + width) * n):
                yield x, y, (x + 0.5) / n - 0.5, v

    def box(self, x, y, width, height, colour):
        for column, row, _, _ in self.cells(x, y, width, height):
            self.rows[row][column] = colour

    def veil(self, x, y, width, height, colour, share):
        """Lays a colour over a box, covering `share` of it."""
        for column, row, _, _ in self.cells(x, y, width, height):
            self.tint(column, row, colour, share)

    def paste(self, x, y, other):
        """Lays another picture of this scale over this one, cropped to it."""
        x, y = x * self.scale, y * self.scale
        for row in range(max(0, -y), min(other.height, self.height - y)):
            for column in range(max(0, -x), min(other.width, self.width - x)):
                self.rows[y + row][x + column] = other.rows[row][column]

    def art(self, x, y, lines, colour):
        """Draws text art of one pixel a unit: '#' covers it, '+' six tenths, '-' three tenths."""
        shares = {"#": 1.0, "+": 0.6, "-": 0.3}
        for row, line in enumerate(lines):
            for column, mark in enumerate(line):
                if mark in shares:
                    self.tint(x + column, y + row, colour, shares[mark])


def bmp(canvas):
    """The bytes of an uncompressed 24-bit Windows bitmap."""
    padding = b"\0" * (-canvas.width * 3 % 4)
    body = b"".join(
        b"".join(bytes((blue, green, red)) for red, green, blue in row) + padding
        for row in reversed(canvas.rows)
    )
    info = struct.pack(
        "<IiiHHIIiiII", 40, canvas.width, canvas.height, 1, 24, 0, len(body), 3780, 3780, 0, 0
    )
    return struct.pack("<2sIHHI", b"BM", 54 + len(body), 0, 0, 54) + info + body
