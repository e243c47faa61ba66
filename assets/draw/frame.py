"""The steel frame that runs round the slab, its light falling from the top left.

The face and the title keys both draw from here, so that a key leaves no seam in the frame.
"""

from canvas import along, mix, ramp, rgb, smooth
from shapes import rounded

WIDTH = 275
LEFT = 3
RIGHT = 2
TOP = 3
CORNER = 7.5

# Each of the three rows of the top frame, from the lit corner to the plain right end.
TOP_ROWS = (
    ((0, rgb("8e9cb6")), (34, rgb("595f6b")), (130, rgb("525863")), (236, rgb("4a4f55"))),
    ((0, rgb("7683a0")), (34, rgb("4e5560")), (130, rgb("464c56")), (236, rgb("3f434c"))),
    ((0, rgb("66738f")), (34, rgb("595f6b")), (130, rgb("50565f")), (236, rgb("4a4f55"))),
)
SIDE = ((3, rgb("586085")), (80, rgb("6f7477")))
SIDE_LIGHT = (0.28, 0.0, -0.30)
RIGHT_COLUMNS = (rgb("3f434c"), rgb("4a4f55"))


def top_colour(u, v):
    """The frame's colour in its three top rows."""
    return along([ramp(row, u) for row in TOP_ROWS], v)


def left_colour(u, v):
    """The frame's colour down the left side, rounded like a rod."""
    base = ramp(SIDE, v)
    light = along(SIDE_LIGHT, u)
    return mix(base, (255, 255, 255) if light > 0 else (0, 0, 0), abs(light))


def steel(u, v, in_top):
    """The frame's colour at a place, as if it covered it wholly."""
    if in_top:
        return top_colour(u, v)
    if u < WIDTH // 2:
        return left_colour(u, v)
    return along(RIGHT_COLUMNS, u - (WIDTH - RIGHT))


def cover(x, y, scale, bottom):
    """The share of a pixel that the frame covers; the opening has round upper corners."""
    if y < TOP * scale:
        return 1.0
    inner = CORNER - TOP
    return 1.0 - rounded(x, y, scale, LEFT, TOP, WIDTH - RIGHT, bottom + inner, inner)


def lay(canvas, left=0, top=0, bottom=77, fade=None):
    """Draws the frame over a picture that stands at (left, top) of the window, in units.

    With `fade` its side rails die away toward that row instead of reaching the bottom.
    """
    n = canvas.scale
    height = min(canvas.height // n, bottom - top)
    for x, y, u, v in canvas.cells(0, 0, canvas.width // n, height):
        share = cover(x + left * n, y + top * n, n, bottom)
        if share > 0.0:
            row = top + y // n
            if fade and row >= TOP + 17:
                share *= 1.0 - smooth((top + v - TOP - 17) / (fade - TOP - 17))
            near = steel(left + u, top + v, row < TOP)
            if LEFT <= left + x // n < WIDTH - RIGHT and row >= TOP:
                near = fillet(left + u, top + v)
            canvas.tint(x, y, near, share)


def fillet(u, v):
    """The colour in a rounded corner of the opening, between the top and the side."""
    if u < WIDTH // 2:
        return mix(top_colour(u, 2), left_colour(2, v), smooth((v - TOP) / 5.0))
    return mix(top_colour(u, 2), RIGHT_COLUMNS[0], smooth((v - TOP) / 5.0))
