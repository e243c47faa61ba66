"""The bytes of a PNG file."""

import struct
import zlib


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


COLOUR_TYPES = {3: 2, 4: 6}  # by the parts of a pixel: without alpha, with it


def filtered(row, above, parts):
    """A row in the form that packs best of two: as it is, or as differences from its neighbours."""
    left = bytes(parts) + row[:-parts]
    corner = bytes(parts) + above[:-parts]
    guessed = bytes((x - nearest(a, b, c)) & 255 for x, a, b, c in zip(row, left, above, corner))
    cost = [sum(min(x, 256 - x) for x in form) for form in (row, guessed)]
    return b"\0" + row if cost[0] <= cost[1] else b"\4" + guessed


def nearest(left, above, corner):
    """The neighbour that lies nearest to what the three of them foretell."""
    guess = left + above - corner
    return min((left, above, corner), key=lambda x: abs(guess - x))


def png(canvas):
    parts = len(canvas.rows[0][0])
    above = bytes(canvas.width * parts)
    rows = []
    for pixels in canvas.rows:
        row = bytes(part for pixel in pixels for part in pixel)
        rows.append(filtered(row, above, parts))
        above = row
    header = struct.pack(">IIBBBBB", canvas.width, canvas.height, 8, COLOUR_TYPES[parts], 0, 0, 0)
    return (
        b"\x89PNG\r\n\x1a\n"
        + chunk(b"IHDR", header)
        + chunk(b"IDAT", zlib.compress(b"".join(rows), 9))
        + chunk(b"IEND", b"")
    )


def unpacked(data):
    """The header and the rows of a file that `png` made, whichever way they were packed."""
    (size,) = struct.unpack_from(">I", data, 33)
    return data[:33], zlib.decompress(data[41:41 + size])


def read(data):
    """The width, the height and the rows of pixels of a file that `png` made."""
    header, packed = unpacked(data)
    width, height, _, kind = struct.unpack_from(">IIBB", header, 16)
    parts = next(count for count, one in COLOUR_TYPES.items() if one == kind)
    rows = []
    above = bytes(width * parts)
    for start in range(0, len(packed), width * parts + 1):
        row = bytearray(packed[start + 1:start + 1 + width * parts])
        if packed[start]:
            for i, part in enumerate(row):
                left, corner = (row[i - parts], above[i - parts]) if i >= parts else (0, 0)
                row[i] = (part + nearest(left, above[i], corner)) & 255
        rows.append([tuple(row[i:i + parts]) for i in range(0, len(row), parts)])
        above = row
    return width, height, rows
