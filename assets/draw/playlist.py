"""The playlist window: its face, its scroll keys, its capsule keys and its two word keys."""

import frame
import letters
from canvas import Canvas, rgb, smooth
from glyphs import CAPSULE_GLYPHS, DOWN_WEDGE, UP_WEDGE, draw_glyph
from keys import OUTLINE, draw_key
from shapes import coverage, rounded

WIDTH = 275
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
    for x, y, _, _ in canvas.cells(INLAY_LEFT, top, INLAY_RIGHT - INLAY_LEFT, 7):
        inside = rounded(x, y, canvas.scale, INLAY_LEFT, top, INLAY_RIGHT, top + 7, 3.5)
        canvas.tint(x, y, colour, share * inside)


def title_band(canvas):
    canvas.box(0, 3, WIDTH, 6, BAND_UPPER)
    canvas.box(0, 9, WIDTH, 7, BAND_LOWER)
    inlay(canvas, 5, BLACK, 0.55)
    inlay(canvas, 7, (255, 255, 255), 0.16)
    inlay(canvas, 6, INLAY, 1.0)
    for x, y, u, _ in canvas.cells(WELL_LEFT, 3, WIDTH - WELL_LEFT, 13):
        canvas.tint(x, y, BLACK, smooth((u - WELL_LEFT) / 11.0))


def web(canvas, left, corner):
    """The small web, two units wide and high, that joins a tab to the deck over it.

    `left` is its first column and `corner` the column of the tab's side. One pixel a unit has no
    room for its round, so there the shares of three pixels stand for it.
    """
    if canvas.scale == 1:
        beside, beyond = (left, left + 1) if corner == left else (left + 1, left)
        for x, y, share in ((beside, 76, 0.55), (beyond, 76, 0.2), (beside, 77, 0.2)):
            canvas.tint(x, y, DECK_LOWER, share)
        return
    middle = left + 2 if corner == left else left
    for x, y, _, _ in canvas.cells(left, 76, 2, 2):
        outside = coverage(
            x, y, canvas.scale, lambda px, py: (px - middle) ** 2 + (py - 78) ** 2 >= 4.0
        )
        canvas.tint(x, y, DECK_LOWER, outside)


def deck(canvas):
    canvas.box(0, 70, WIDTH, 5, DECK_UPPER)
    canvas.box(0, 75, WIDTH, 1, DECK_LOWER)
    canvas.box(0, 76, WIDTH, 6, PIT)
    for left, right in TABS:
        web(canvas, left - 2, left)
        web(canvas, right + 1, right + 1)


def window_face(scale):
    canvas = Canvas(WIDTH, 82, PANEL, scale)
    title_band(canvas)
    deck(canvas)
    frame.lay(canvas, fade=RAIL_END)
    return canvas


def scroll_key(top, scale, wedge=None):
    canvas = Canvas(18, 16, PANEL, scale)
    draw_key(canvas, top, 10, sunk=wedge is not None)
    if wedge:
        draw_glyph(canvas, (18 - wedge.width) // 2, top + 3, wedge, OUTLINE)
    return canvas


def capsule_key(glyph, scale):
    canvas = Canvas(20, 9, DECK_UPPER, scale)
    canvas.box(0, 3, 20, 3, DECK_LOWER)
    canvas.box(0, 6, 20, 3, PIT)
    for x, y, _, _ in canvas.cells(1, 1, 18, 7):
        canvas.tint(x, y, CAPSULE_RIM, rounded(x, y, scale, 1, 1, 19, 8, 3.5))
        canvas.tint(x, y, CAPSULE, rounded(x, y, scale, 2, 2, 18, 7, 2.5))
    draw_glyph(canvas, (20 - glyph.width) // 2, 2, glyph, CAPSULE_GLYPH)
    return canvas


def word_key(width, height, text, scale):
    """A word on a tab that hangs from the deck.

    Its box in the window shows only the first `width` by `height` units, so the tab ends there;
    one more column and row of the ground around it make up the picture.
    """
    whole = WORD_KEY_WIDTHS[text]
    canvas = Canvas(whole, 10, PIT, scale)
    canvas.box(0, 0, whole, 3, DECK_UPPER)
    canvas.box(0, 3, whole, 1, DECK_LOWER)
    for x, y, _, _ in canvas.cells(0, 4, width, height - 4):
        canvas.tint(x, y, DECK_LOWER, rounded(x, y, scale, 0, -9, width, height, 2.5))
    letters.write(canvas, (width + 1 - letters.width(text)) // 2, 1, text)
    return canvas


def assets(scale):
    yield "frmPlaylist", window_face(scale)
    yield "scrollkey", scroll_key(3, scale)
    yield "pctLboxUpDown", scroll_key(4, scale, UP_WEDGE)
    yield "pctLBoxDownDown", scroll_key(4, scale, DOWN_WEDGE)
    yield "pctClear", word_key(33, 9, "CLEAR", scale)
    yield "pctClearAll", word_key(49, 9, "CLEAR ALL", scale)
    for name, (thin, thick) in CAPSULE_GLYPHS.items():
        yield name, capsule_key(thin, scale)
        yield name + "Down", capsule_key(thick, scale)
