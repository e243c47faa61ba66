"""The bytes of a PNG file."""

import struct
import zlib


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


COLOUR_TYPES = {3: 2, 4: 6}  # by the parts of a pixel: without alpha, with it


def png(canvas):
    rows = b"".join(b"\0" + bytes(part for pixel in row for part in pixel) for row in canvas.rows)
    header = struct.pack(">IIBBBBB", canvas.width, canvas.height, 8,
                         COLOUR_TYPES[len(canvas.rows[0][0])], 0, 0, 0)
    return (
        b"\x89PNG\r\n\x1a\n"
        + chunk(b"IHDR", header)
        + chunk(b"IDAT", zlib.compress(rows, 9))
        + chunk(b"IEND", b"")
    )
