"""Outlines of glyphs and letters, in units, and how they are drawn where a unit has several pixels.

An outline is a function of a point that tells whether the point is inked.
"""

from shapes import coverage


def box(left, top, right, bottom):
    return lambda x, y: left <= x < right and top <= y < bottom


def polygon(*corners):
    """A closed line of straight edges; what it surrounds."""
    edges = list(zip(corners, corners[1:] + corners[:1]))

    def inked(x, y):
        inside = False
        for (ax, ay), (bx, by) in edges:
            if (ay > y) != (by > y) and x < ax + (bx - ax) * (y - ay) / (by - ay):
                inside = not inside
        return inside

    return inked


def round_box(left, top, right, bottom, radius):
    def inked(x, y):
        dx = max(left + radius - x, x - (right - radius), 0.0)
        dy = max(top + radius - y, y - (bottom - radius), 0.0)
        return dx * dx + dy * dy <= radius * radius

    return inked


def ring(left, top, right, bottom, radius):
    """A line, a unit wide, along the inner side of a box with round corners."""
    inner = round_box(left + 1, top + 1, right - 1, bottom - 1, radius - 1)
    return without(round_box(left, top, right, bottom, radius), inner)


def union(*parts):
    return lambda x, y: any(part(x, y) for part in parts)


def within(part, *limits):
    return lambda x, y: part(x, y) and all(limit(x, y) for limit in limits)


def without(part, hole):
    return lambda x, y: part(x, y) and not hole(x, y)


def mirrored(part, width):
    """The outline with left and right exchanged, in a box of that width."""
    return lambda x, y: part(width - x, y)


def moved(part, right, down=0):
    return lambda x, y: part(x - right, y - down)


def ink(canvas, left, top, width, height, outline, colour):
    """Lays an outline's ink on a picture, its box's top left corner at (left, top)."""
    n = canvas.scale
    for x, y, _, _ in canvas.cells(left, top, width, height):
        canvas.tint(x, y, colour, coverage(x - left * n, y - top * n, n, outline))
