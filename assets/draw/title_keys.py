"""The two title keys: soft lights at rest, crisp marks on a dark plate when pressed."""

import frame
from canvas import Canvas, along, rgb
from glyphs import CROSS_GLYPH, draw_glyph
from shapes import rounded

BLACK = (0, 0, 0)
PLATE = rgb("272a2f")
MINIMISE_LIGHT = rgb("b3c8dd")
QUIT_LIGHT = rgb("aed3ff")
UNDERSCORE = rgb("cfdde8")
CROSS = rgb("f1f7f5")
HALO = 4.2


# How strong the underscore is along its length, unit by unit.
UNDERSCORE_SHARES = (0.35, 0.8, 1.0, 1.0, 1.0, 0.8, 0.35)


def glow(canvas, left, top, right, bottom, colour):
    """A soft block of light: a bright core with a halo that dies away within four units."""
    n = canvas.scale
    for x, y, u, v in canvas.cells(0, 3, canvas.width // n, canvas.height // n - 3):
        dx = max(left - u, u - right, 0)
        dy = max(top - v, v - bottom, 0)
        away = min(1.0, (dx * dx + dy * dy) ** 0.5 / HALO)
        canvas.tint(x, y, colour, (1.0 - away) ** 3)


def plate(width, height, scale):
    """A dark plate below the frame on which a pressed mark stands."""
    canvas = Canvas(width, height, BLACK, scale)
    for x, y, _, _ in canvas.cells(0, 3, width, 10):
        canvas.tint(x, y, PLATE, rounded(x, y, scale, 0, -9, width, 13, 2.5))
    return canvas


def minimise(scale):
    canvas = Canvas(9, 16, BLACK, scale)
    glow(canvas, 2, 8, 6, 9, MINIMISE_LIGHT)
    frame.lay(canvas, 248)
    return canvas


def minimise_down(scale):
    canvas = plate(9, 16, scale)
    for x, y, u, _ in canvas.cells(1, 10, len(UNDERSCORE_SHARES), 1):
        canvas.tint(x, y, UNDERSCORE, along(UNDERSCORE_SHARES, u - 1))
    frame.lay(canvas, 248)
    return canvas


def quit_key(scale):
    canvas = Canvas(11, 20, BLACK, scale)
    glow(canvas, 2, 6, 6, 10, QUIT_LIGHT)
    frame.lay(canvas, 264)
    return canvas


def quit_down(scale):
    canvas = plate(10, 19, scale)
    draw_glyph(canvas, 2, 6, CROSS_GLYPH, CROSS)
    frame.lay(canvas, 264)
    return canvas


def assets(scale):
    yield "pctminimise", minimise(scale)
    yield "pctminimisedown", minimise_down(scale)
    yield "pctquit", quit_key(scale)
    yield "pctquitdown", quit_down(scale)
