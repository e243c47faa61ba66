"""The bytes of icon and pointer files: uncompressed images, each with its mask."""

import struct

from palette import reduce


def mask_rows(opaque):
    """One bit a pixel, set where the screen shines through; rows from the bottom."""
    out = b""
    for row in reversed(opaque):
        bits = "".join("0" if solid else "1" for solid in row)
        bits += "0" * (-len(bits) % 32)
        out += int(bits, 2).to_bytes(len(bits) // 8, "big")
    return out


def header(width, height, depth, size, colours):
    return struct.pack(
        "<IiiHHIIiiII", 40, width, 2 * height, 1, depth, 0, size, 0, 0, colours, 0
    )


def true_colour(rows):
    """A 32-bit image from rows of (red, green, blue, alpha)."""
    body = b"".join(
        b"".join(bytes((blue, green, red, alpha)) for red, green, blue, alpha in row)
        for row in reversed(rows)
    )
    body += mask_rows([[pixel[3] > 0 for pixel in row] for row in rows])
    return len(rows[0]), len(rows), 32, header(len(rows[0]), len(rows), 32, len(body), 0) + body


def indexed(rows, depth):
    """A 4- or 8-bit image: pixels at least half opaque are kept, the others are cut away."""
    solid = [[pixel[3] >= 128 for pixel in row] for row in rows]
    wanted = sorted({pixel[:3] for row in rows for pixel in row if pixel[3] >= 128})
    colours, index_of = reduce(wanted, (1 << depth) - 1)
    table = [(0, 0, 0)] + colours
    table += [(0, 0, 0)] * ((1 << depth) - len(table))
    body = b""
    for row in reversed(rows):
        indices = [index_of[pixel[:3]] + 1 if pixel[3] >= 128 else 0 for pixel in row]
        if depth == 4:
            indices += [0] * (len(indices) % 2)
            line = bytes(high << 4 | low for high, low in zip(indices[::2], indices[1::2]))
        else:
            line = bytes(indices)
        body += line + b"\0" * (-len(line) % 4)
    body += mask_rows(solid)
    colour_table = b"".join(bytes((blue, green, red, 0)) for red, green, blue in table)
    width, height = len(rows[0]), len(rows)
    return width, height, depth, header(width, height, depth, len(body), 0) + colour_table + body


def directory(kind, images, fields):
    """The file: a directory of the images, then the images."""
    head = struct.pack("<HHH", 0, kind, len(images))
    place = len(head) + 16 * len(images)
    body = b""
    for (width, height, depth, data), (first, second) in zip(images, fields):
        head += struct.pack(
            "<BBBBHHII", width % 256, height % 256, 16 if depth == 4 else 0, 0,
            first, second, len(data), place,
        )
        place += len(data)
        body += data
    return head + body


def icon(images):
    return directory(1, images, [(1, image[2]) for image in images])


def pointer(image, hot_spot):
    return directory(2, [image], [hot_spot])
