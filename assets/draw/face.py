"""The face of the main window."""

import frame
import letters
from canvas import Canvas, mix, rgb, smooth
from shapes import rounded

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


def seek_groove(canvas):
    middle = (GROOVE_LEFT + GROOVE_RIGHT) / 2
    half = (GROOVE_RIGHT - GROOVE_LEFT) / 2
    for x in range(GROOVE_LEFT, GROOVE_RIGHT + 1):
        away = abs(x - middle) / half
        share = FAINTEST + (1.0 - FAINTEST) * (1.0 - smooth((away - 0.06) / 0.94))
        share *= smooth((min(x - GROOVE_LEFT, GROOVE_RIGHT - x) + 1) / 4.0)
        for row, colour in enumerate(GROOVE):
            canvas.put(x, 36 + row, mix(BLACK, colour, share))


def deck(canvas):
    for plane, colour in enumerate(DECK):
        canvas.box(0, 48 + 4 * plane, canvas.width, 4, colour)
    for y, share in ((49, 0.5), (50, 1.0), (51, 1.0)):
        canvas.box(0, y, canvas.width, 1, mix(DECK[0], KEY_BED, share))
    for x in SEAMS:
        for y in range(50, 62):
            canvas.tint(x, y, BLACK, 0.45)
            canvas.tint(x + 1, y, WHITE, 0.10)


def volume_groove(canvas):
    """A bright groove with a shadow along its upper lip and light along its lower one."""
    left, right = VOLUME_LEFT, VOLUME_RIGHT + 1
    for x in range(left, right):
        canvas.tint(x, 58, BLACK, 0.42)
        canvas.tint(x, 62, WHITE, 0.13)
        for row, colour in enumerate(VOLUME):
            canvas.tint(x, 59 + row, colour, rounded(x, 59 + row, left, 59, right, 62, 1.2))


def frame_shadow(canvas):
    """The left rail's shadow on the band and the deck, and the band's sheen beside it."""
    for x in range(3, 64):
        for y in range(41, 48):
            canvas.tint(x, y, WHITE, 0.045 * (1.0 - smooth((x - 3) / 60.0)))
    for x, share in ((3, 0.45), (4, 0.25), (5, 0.1)):
        for y in range(41, 64):
            canvas.tint(x, y, BLACK, share)


def foot(canvas):
    """The lower frame, a rod lit a little more toward the left."""
    for row, colour in enumerate(FOOT):
        for x in range(275):
            canvas.put(x, 77 + row, mix(colour, WHITE, 0.10 * (1.0 - smooth(x / 120.0))))


def main_face():
    canvas = Canvas(275, 81, BLACK)
    seek_groove(canvas)
    canvas.box(0, 40, 275, 1, LEDGE)
    canvas.box(0, 41, 275, 7, BAND)
    deck(canvas)
    volume_groove(canvas)
    for text, x, spacing in NAMES:
        letters.write(canvas, x, 66, text, spacing)
    frame_shadow(canvas)
    foot(canvas)
    frame.lay(canvas)
    return canvas


def assets():
    yield "frmPlayer.bmp", main_face()
