"""The two title keys: soft lights at rest, crisp marks on a dark plate when pressed."""

import frame
from canvas import Canvas, rgb
from shapes import rounded

BLACK = (0, 0, 0)
PLATE = rgb("272a2f")
MINIMISE_LIGHT = rgb("b3c8dd")
QUIT_LIGHT = rgb("aed3ff")
UNDERSCORE = rgb("cfdde8")
CROSS = rgb("f1f7f5")
HALO = 4.2


def glow(canvas, left, top, right, bottom, colour):
    """A soft block of light: a bright core with a halo that dies away within four pixels."""
    for y in range(3, canvas.height):
        for x in range(canvas.width):
            dx = max(left - x, x - right, 0)
            dy = max(top - y, y - bottom, 0)
            away = min(1.0, (dx * dx + dy * dy) ** 0.5 / HALO)
            canvas.tint(x, y, colour, (1.0 - away) ** 3)


def plate(width, height):
    """A dark plate below the frame on which a pressed mark stands."""
    canvas = Canvas(width, height, BLACK)
    for y in range(3, 13):
        for x in range(width):
            canvas.tint(x, y, PLATE, rounded(x, y, 0, -9, width, 13, 2.5))
    return canvas


def minimise():
    canvas = Canvas(9, 16, BLACK)
    glow(canvas, 2, 8, 6, 9, MINIMISE_LIGHT)
    frame.lay(canvas, 248)
    return canvas


def minimise_down():
    canvas = plate(9, 16)
    for x, share in zip(range(1, 8), (0.35, 0.8, 1.0, 1.0, 1.0, 0.8, 0.35)):
        canvas.tint(x, 10, UNDERSCORE, share)
    frame.lay(canvas, 248)
    return canvas


def quit_key():
    canvas = Canvas(11, 20, BLACK)
    glow(canvas, 2, 6, 6, 10, QUIT_LIGHT)
    frame.lay(canvas, 264)
    return canvas


def quit_down():
    canvas = plate(10, 19)
    cross = ("#-.-#", "-#-#-", ".-#-.", "-#-#-", "#-.-#")
    canvas.art(2, 6, cross, CROSS)
    frame.lay(canvas, 264)
    return canvas


def assets():
    yield "pctminimise.bmp", minimise()
    yield "pctminimisedown.bmp", minimise_down()
    yield "pctquit.bmp", quit_key()
    yield "pctquitdown.bmp", quit_down()
