"""The playlist window: its face, its scroll keys, its capsule keys and its two word keys."""

import frame
import letters
from canvas import Canvas, rgb, smooth
from glyphs import CAPSULE_GLYPHS, DOWN_WEDGE, UP_WEDGE
from keys import OUTLINE, draw_key
from shapes import rounded

BLACK = (0, 0, 0)
BAND_UPPER = rgb("272a2f")
BAND_LOWER = rgb("232a30")
INLAY = rgb("172d44")
PANEL = rgb("040905")
DECK_UPPER = rgb("303a3b")
DECK_LOWER = rgb("242e2f")
PIT = rgb("000400")
CAPSULE = rgb("6d85a9")
CAPSULE_RIM = rgb("354658")
CAPSULE_GLYPH = rgb("264059")
WORD_KEY_WIDTHS = {"CLEAR": 33, "CLEAR ALL": 50}
# First and last column of everything that hangs from the deck over the dark foot.
TABS = tuple((left, left + 19) for left in (8, 32, 56, 80, 104, 128)) + ((168, 200), (208, 256))
INLAY_LEFT, INLAY_RIGHT = 12, 228
WELL_LEFT = 234
# The row where the frame's side rails have died away.
RAIL_END = 60


def inlay(canvas, top, colour, share):
    """Lays a long capsule, seven rows high, into the title band."""
    for y in range(top, top + 7):
        for x in range(INLAY_LEFT, INLAY_RIGHT):
            inside = rounded(x, y, INLAY_LEFT, top, INLAY_RIGHT, top + 7, 3.5)
            canvas.tint(x, y, colour, share * inside)


def title_band(canvas):
    canvas.box(0, 3, 275, 6, BAND_UPPER)
    canvas.box(0, 9, 275, 7, BAND_LOWER)
    inlay(canvas, 5, BLACK, 0.55)
    inlay(canvas, 7, (255, 255, 255), 0.16)
    inlay(canvas, 6, INLAY, 1.0)
    for x in range(WELL_LEFT, 275):
        share = smooth((x - WELL_LEFT) / 11.0)
        for y in range(3, 16):
            canvas.tint(x, y, BLACK, share)


def deck(canvas):
    canvas.box(0, 70, 275, 5, DECK_UPPER)
    canvas.box(0, 75, 275, 1, DECK_LOWER)
    canvas.box(0, 76, 275, 6, PIT)
    for left, right in TABS:
        for x, y, share in ((left - 1, 76, 0.55), (left - 2, 76, 0.2), (left - 1, 77, 0.2)):
            canvas.tint(x, y, DECK_LOWER, share)
            canvas.tint(left + right - x, y, DECK_LOWER, share)


def window_face():
    canvas = Canvas(275, 82, PANEL)
    title_band(canvas)
    deck(canvas)
    frame.lay(canvas, fade=RAIL_END)
    return canvas


def scroll_key(top, wedge=None):
    canvas = Canvas(18, 16, PANEL)
    draw_key(canvas, top, 10, sunk=wedge is not None)
    if wedge:
        canvas.art((18 - len(wedge[0])) // 2, top + 3, wedge, OUTLINE)
    return canvas


def capsule_key(lines):
    canvas = Canvas(20, 9, DECK_UPPER)
    canvas.box(0, 3, 20, 3, DECK_LOWER)
    canvas.box(0, 6, 20, 3, PIT)
    for y in range(1, 8):
        for x in range(1, 19):
            canvas.tint(x, y, CAPSULE_RIM, rounded(x, y, 1, 1, 19, 8, 3.5))
            canvas.tint(x, y, CAPSULE, rounded(x, y, 2, 2, 18, 7, 2.5))
    canvas.art((20 - len(lines[0])) // 2, 2, lines, CAPSULE_GLYPH)
    return canvas


def word_key(width, height, text):
    """A word on a tab that hangs from the deck.

    Its box in the window shows only the first `width` by `height` pixels, so the tab ends there;
    one more column and row of the ground around it make up the picture.
    """
    canvas = Canvas(WORD_KEY_WIDTHS[text], 10, PIT)
    canvas.box(0, 0, canvas.width, 3, DECK_UPPER)
    canvas.box(0, 3, canvas.width, 1, DECK_LOWER)
    for y in range(4, height):
        for x in range(width):
            canvas.tint(x, y, DECK_LOWER, rounded(x, y, 0, -9, width, height, 2.5))
    letters.write(canvas, (width + 1 - letters.width(text)) // 2, 1, text)
    return canvas


def assets():
    yield "frmPlaylist.bmp", window_face()
    yield "scrollkey.bmp", scroll_key(3)
    yield "pctLboxUpDown.bmp", scroll_key(4, UP_WEDGE)
    yield "pctLBoxDownDown.bmp", scroll_key(4, DOWN_WEDGE)
    yield "pctClear.bmp", word_key(33, 9, "CLEAR")
    yield "pctClearAll.bmp", word_key(49, 9, "CLEAR ALL")
    for name, (thin, thick) in CAPSULE_GLYPHS.items():
        yield name + ".bmp", capsule_key(thin)
        yield name + "Down.bmp", capsule_key(thick)
