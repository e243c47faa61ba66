"""The seek thumb and the volume cap."""

from canvas import Canvas, along, mix, ramp, rgb
from shapes import rounded

# The thumb's metal along its length: brightest at both ends.
STEEL = (
    (0.05, rgb("838786")),
    (0.24, rgb("606564")),
    (0.5, rgb("4a4f4e")),
    (0.76, rgb("606564")),
    (0.95, rgb("838786")),
)
# and from its upper edge to its lower one.
ROW_LIGHT = (0.62, 1.0, 0.86, 0.70, 0.46)
GRIPS = (10, 12, 14)
BLACK = (0, 0, 0)
BODY = rgb("353b39")
EDGE = rgb("757b79")


def thumb(top, scale):
    """The flat capsule of the seek thumb, 25 by 5, its first row at `top`."""
    canvas = Canvas(31, 9, scale=scale)
    for y in range(9):
        canvas.box(0, y, 31, 1, (0, 1 + y * 3 // 8, 0))
    for x, y, u, v in canvas.cells(3, top, 25, 5):
        metal = mix(BLACK, ramp(STEEL, (u - 3) / 24), along(ROW_LIGHT, v - top))
        canvas.tint(x, y, metal, rounded(x, y, scale, 3, top, 28, top + 5, 2.5))
    for column in GRIPS:
        canvas.veil(3 + column, top + 1, 1, 3, BLACK, 0.45)
    return canvas


def volume(scale):
    """The cap of the volume slider, its lower end overhanging the name strip."""
    canvas = Canvas(9, 10, scale=scale)
    canvas.box(0, 0, 9, 4, rgb("303a3b"))
    canvas.box(0, 4, 9, 4, rgb("242e2f"))
    for x, y, u, v in canvas.cells(0, 0, 9, 10):
        dim = min(1.0, max(0.0, 0.6 * (v - 1) / 8) + max(0.0, 0.5 * (u - 2) / 6))
        canvas.tint(x, y, mix(EDGE, BODY, dim), rounded(x, y, scale, 0, 0, 9, 10, 2.2))
        canvas.tint(x, y, BODY, rounded(x, y, scale, 1, 1, 8, 9, 1.4))
    canvas.veil(3, 2, 1, 6, BLACK, 0.45)
    canvas.box(4, 2, 1, 6, EDGE)
    canvas.veil(5, 2, 1, 6, BLACK, 0.18)
    return canvas


def assets(scale):
    yield "pctprogressbar", thumb(2, scale)
    yield "pctprogressbardown", thumb(3, scale)
    yield "pctvolume", volume(scale)
