"""The face of the main window."""

import frame
import letters
from canvas import Canvas, along, mix, rgb, smooth
from shapes import rounded

WIDTH = 275
BLACK = (0, 0, 0)
WHITE = (255, 255, 255)
GROOVE = (rgb("213550"), rgb("364c73"), rgb("6479a6"), rgb("a2b6d9"))
GROOVE_LEFT, GROOVE_RIGHT = 16, 257
# The groove near its two ends, as a share of its brightness in the middle.
FAINTEST = 0.16
LEDGE = rgb("000b05")
BAND = rgb("172d44")
DECK = (rgb("2c3638"), rgb("3b4546"), rgb("303a3b"), rgb("242e2f"))
KEY_BED = rgb("303632")
SEAMS = (128, 157, 212, 241)
VOLUME = (rgb("7081b5"), rgb("7585b8"), rgb("7a8abd"))
VOLUME_LEFT, VOLUME_RIGHT = 161, 208
NAMES = (
    ("PREV", 7, 1),
    ("NEXT", 31, 1),
    ("STOP", 55, 1),
    ("PLAY", 79, 1),
    ("OPEN", 103, 1),
    ("PAUSE", 131, 1),
    ("VOLUME", 165, 2),
    ("ALARM", 211, 1),
    ("LIST", 248, 1),
)
FOOT = (rgb("5f6164"), rgb("6c6d70"), rgb("646466"), rgb("55565a"))


# The left rail's shadow beside it, unit by unit.
RAIL_SHADOW = (0.45, 0.25, 0.1)


def seek_groove(canvas):
    middle = (GROOVE_LEFT + GROOVE_RIGHT) / 2
    half = (GROOVE_RIGHT - GROOVE_LEFT) / 2
    width = GROOVE_RIGHT + 1 - GROOVE_LEFT
    for x, y, u, v in canvas.cells(GROOVE_LEFT, 36, width, len(GROOVE)):
        away = abs(u - middle) / half
        share = FAINTEST + (1.0 - FAINTEST) * (1.0 - smooth((away - 0.06) / 0.94))
        share *= smooth((min(u - GROOVE_LEFT, GROOVE_RIGHT - u) + 1) / 4.0)
        canvas.put(x, y, mix(BLACK, along(GROOVE, v - 36), share))


def deck(canvas):
    for plane, colour in enumerate(DECK):
        canvas.box(0, 48 + 4 * plane, WIDTH, 4, colour)
    for x, y, _, v in canvas.cells(0, 49, WIDTH, 3):
        canvas.put(x, y, mix(DECK[0], KEY_BED, min(1.0, v - 48.5)))
    for x in SEAMS:
        canvas.veil(x, 50, 1, 12, BLACK, 0.45)
        canvas.veil(x + 1, 50, 1, 12, WHITE, 0.10)


def volume_groove(canvas):
    """A bright groove with a shadow along its upper lip and light along its lower one."""
    left, right = VOLUME_LEFT, VOLUME_RIGHT + 1
    canvas.veil(left, 58, right - left, 1, BLACK, 0.42)
    canvas.veil(left, 62, right - left, 1, WHITE, 0.13)
    for x, y, _, v in canvas.cells(left, 59, right - left, len(VOLUME)):
        inside = rounded(x, y, canvas.scale, left, 59, right, 62, 1.2)
        canvas.tint(x, y, along(VOLUME, v - 59), inside)


def frame_shadow(canvas):
    """The left rail's shadow on the band and the deck, and the band's sheen beside it."""
    for x, y, u, _ in canvas.cells(3, 41, 61, 7):
        canvas.tint(x, y, WHITE, 0.045 * (1.0 - smooth((u - 3) / 60.0)))
    for x, y, u, _ in canvas.cells(3, 41, len(RAIL_SHADOW), 23):
        canvas.tint(x, y, BLACK, along(RAIL_SHADOW, u - 3))


def foot(canvas):
    """The lower frame, a rod lit a little more toward the left."""
    for x, y, u, v in canvas.cells(0, 77, WIDTH, len(FOOT)):
        light = 0.10 * (1.0 - smooth(u / 120.0))
        canvas.put(x, y, mix(along(FOOT, v - 77), WHITE, light))


def main_face(scale):
    canvas = Canvas(WIDTH, 81, BLACK, scale)
    seek_groove(canvas)
    canvas.box(0, 40, WIDTH, 1, LEDGE)
    canvas.box(0, 41, WIDTH, 7, BAND)
    deck(canvas)
    volume_groove(canvas)
    for text, x, spacing in NAMES:
        letters.write(canvas, x, 66, text, spacing)
    frame_shadow(canvas)
    foot(canvas)
    frame.lay(canvas)
    return canvas


def assets(scale):
    yield "frmPlayer", main_face(scale)
