"""The steel frame that runs round the slab, its light falling from the top left.

The face and the title keys both draw from here, so that a key leaves no seam in the frame.
"""

from canvas import mix, ramp, rgb, smooth
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


def top_colour(x, y):
    """The frame's colour in its three top rows."""
    return ramp(TOP_ROWS[y], x)


def left_colour(x, y):
    """The frame's colour down the left side, rounded like a rod."""
    base = ramp(SIDE, y)
    light = SIDE_LIGHT[x]
    return mix(base, (255, 255, 255) if light > 0 else (0, 0, 0), abs(light))


def steel(x, y):
    """The frame's colour at a place, as if it covered it wholly."""
    if y < TOP:
        return top_colour(x, y)
    if x < WIDTH // 2:
        return left_colour(min(x, LEFT - 1), y)
    return RIGHT_COLUMNS[max(0, min(1, x - (WIDTH - RIGHT)))]


def cover(x, y, bottom):
    """The share of a pixel that the frame covers; the opening has round upper corners."""
    if y < TOP:
        return 1.0
    inner = CORNER - TOP
    return 1.0 - rounded(x, y, LEFT, TOP, WIDTH - RIGHT, bottom + inner, inner)


def lay(canvas, left=0, top=0, bottom=77, fade=None):
    """Draws the frame over a picture that stands at (left, top) of the window.

    With `fade` its side rails die away toward that row instead of reaching the bottom.
    """
    for y in range(canvas.height):
        if top + y >= bottom:
            break
        for x in range(canvas.width):
            share = cover(left + x, top + y, bottom)
            if fade and top + y >= TOP + 17:
                share *= 1.0 - smooth((top + y - TOP - 17) / (fade - TOP - 17))
            if share > 0.0:
                near = steel(left + x, top + y)
                if LEFT <= left + x < WIDTH - RIGHT and top + y >= TOP:
                    near = fillet(left + x, top + y)
                canvas.tint(x, y, near, share)


def fillet(x, y):
    """The colour in a rounded corner of the opening, between the top and the side."""
    if x < WIDTH // 2:
        return mix(top_colour(x, 2), left_colour(2, y), smooth((y - TOP) / 5.0))
    return mix(top_colour(x, 2), RIGHT_COLUMNS[0], smooth((y - TOP) / 5.0))
