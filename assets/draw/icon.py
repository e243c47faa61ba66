"""The program's icon: a steel ring, lit from the top left, round a display with a play mark."""

import dataclasses

from canvas import ramp, rgb, smooth
from ico import icon, indexed, true_colour

STEEL = (
    (0.0, rgb("18222e")),
    (0.28, rgb("3a4a60")),
    (0.5, rgb("64789d")),
    (0.72, rgb("9db0cf")),
    (1.0, rgb("f2f7ff")),
)
GLASS = ((0.0, rgb("04101c")), (0.55, rgb("0b1d30")), (1.0, rgb("28507a")))
MARK = ((0.0, rgb("f6fbff")), (0.5, rgb("c4defc")), (1.0, rgb("86b4ee")))
GLOW = rgb("4f86c8")
RIM = rgb("060b12")
RING_OUTER = 0.97
LIGHT = (-0.6, -0.8)


def length(x, y):
    return (x * x + y * y) ** 0.5


def triangle(x, y, size):
    """The distance of a point from a triangle that points right, negative inside."""
    x += size * 0.12
    slope = length(1.0, 0.577)
    upper = (x * 0.577 - y * -1.0 - size * 0.577) / slope
    lower = (x * 0.577 + y * -1.0 - size * 0.577) / slope
    return max(-x - size * 0.62, upper, lower)


def over(under, colour, share):
    """Lays a colour over a pixel with alpha."""
    share = min(1.0, max(0.0, share))
    red, green, blue, alpha = under
    total = share + alpha * (1.0 - share)
    if total <= 0.0:
        return under
    part = share / total
    return (*(a + (b - a) * part for a, b in zip((red, green, blue), colour)), total)


def ring(x, y, away, inner):
    """The ring's steel: a rounded rail, brightest where it faces the light."""
    across = (away - inner) / (RING_OUTER - inner)
    tilt = (across - 0.5) * 2.0
    facing = (x * LIGHT[0] + y * LIGHT[1]) / max(away, 0.01)
    crown = max(0.0, 1.0 - tilt * tilt)
    return ramp(STEEL, min(1.0, max(0.0, 0.44 + (0.40 * tilt + 0.22) * facing + 0.14 * crown)))


def pixel(x, y, grain, inner, mark):
    """One pixel; x and y run from -1 to 1, `grain` is the width of a pixel."""
    away = length(x, y)

    def edge(distance):
        return 0.5 - distance / grain

    result = (0.0, 0.0, 0.0, 0.0)
    result = over(result, RIM, edge(away - 1.0 + grain * 0.1))
    result = over(result, ring(x, y, away, inner), edge(away - RING_OUTER))
    result = over(result, RIM, edge(away - inner))
    glass = ramp(GLASS, smooth((y + 0.2 * x + 0.55) / 1.5))
    result = over(result, glass, edge(away - inner + max(0.03, grain * 0.5)))
    distance = triangle(x, y, mark)
    if away < inner:
        result = over(result, GLOW, 0.75 * (1.0 - min(1.0, max(0.0, distance) / 0.30)) ** 2)
        sheen = (1.0 - length(x + 0.12, y + 0.62) / 0.62) * 0.34
        if length(x, y + 0.52) < 0.80:
            result = over(result, (255, 255, 255), min(sheen, edge(away - inner + 0.07)))
    return over(result, ramp(MARK, (x + y + 0.55) / 1.2), edge(distance - mark * 0.10))


def rows(size):
    """The icon at one size as rows of (red, green, blue, alpha)."""
    grain = 2.0 / size
    inner = 0.66 if size <= 16 else 0.70
    mark = 0.50 if size <= 16 else 0.42
    out = []
    for j in range(size):
        line = []
        for i in range(size):
            drawn = pixel((i + 0.5) * grain - 1.0, (j + 0.5) * grain - 1.0, grain, inner, mark)
            line.append((*(int(part + 0.5) for part in drawn[:3]), int(drawn[3] * 255 + 0.5)))
        out.append(line)
    return out


@dataclasses.dataclass
class Picture:
    """Rows from the top, of (red, green, blue, alpha)."""

    width: int
    height: int
    rows: list


def pictures(scale):
    """The about box's picture of the program, which is the icon of 32 pixels at its natural size."""
    side = 32 * scale
    yield "icon", Picture(side, side, rows(side))


def files():
    drawn = {size: rows(size) for size in (256, 128, 48, 32, 16)}
    images = [indexed(drawn[32], 8), indexed(drawn[16], 8)]
    images += [true_colour(drawn[size]) for size in (256, 128, 48, 32, 16)]
    yield "orvan.ico", icon(images)
