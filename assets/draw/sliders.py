"""The seek thumb and the volume cap."""

from canvas import Canvas, mix, ramp, rgb
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


def thumb(top):
    """The flat capsule of the seek thumb, 25 by 5, its first row at `top`."""
    canvas = Canvas(31, 9)
    for y in range(9):
        canvas.box(0, y, 31, 1, (0, 1 + y * 3 // 8, 0))
    for row in range(5):
        for column in range(25):
            x, y = 3 + column, top + row
            metal = mix(BLACK, ramp(STEEL, column / 24), ROW_LIGHT[row])
            canvas.tint(x, y, metal, rounded(x, y, 3, top, 28, top + 5, 2.5))
    for column in GRIPS:
        for row in (1, 2, 3):
            canvas.tint(3 + column, top + row, BLACK, 0.45)
    return canvas


def volume():
    """The cap of the volume slider, its lower end overhanging the name strip."""
    canvas = Canvas(9, 10)
    canvas.box(0, 0, 9, 4, rgb("303a3b"))
    canvas.box(0, 4, 9, 4, rgb("242e2f"))
    for y in range(10):
        for x in range(9):
            dim = min(1.0, max(0.0, 0.6 * (y - 1) / 8) + max(0.0, 0.5 * (x - 2) / 6))
            canvas.tint(x, y, mix(EDGE, BODY, dim), rounded(x, y, 0, 0, 9, 10, 2.2))
            canvas.tint(x, y, BODY, rounded(x, y, 1, 1, 8, 9, 1.4))
    for y in range(2, 8):
        canvas.tint(3, y, BLACK, 0.45)
        canvas.put(4, y, EDGE)
        canvas.tint(5, y, BLACK, 0.18)
    return canvas


def assets():
    yield "pctprogressbar.bmp", thumb(2)
    yield "pctprogressbardown.bmp", thumb(3)
    yield "pctvolume.bmp", volume()
