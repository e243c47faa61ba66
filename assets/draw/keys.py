"""The blank key of the deck, raised and sunk, and the glyphs that light up when it sinks."""

from canvas import Canvas, mix, rgb
from glyphs import KEY_GLYPHS
from shapes import rounded

OUTLINE = rgb("2b3f57")
RIM = rgb("64789d")
FACE = rgb("758fc0")
DECK = rgb("303632")
UPPER_SIDE = rgb("3c4645")
LOWER_SIDE = rgb("303a3b")
FOOT = rgb("242e2f")

# How far the face is lit toward its left end and shaded toward its right end, pixel by pixel.
LIGHT = (0.0, 0.0, 0.18, 0.13, 0.08, 0.04)
SHADE = (0.0, 0.0, 0.13, 0.09, 0.05, 0.02)
# The first and the last row of a raised face; a sunk one has them the other way round.
ROW_LIGHT, ROW_SHADE = 0.15, 0.08
WHITE, BLACK = (255, 255, 255), (0, 0, 0)


def key_bed():
    """The piece of deck on which a key lies, in its four planes."""
    canvas = Canvas(18, 16, DECK)
    canvas.box(0, 4, 18, 4, UPPER_SIDE)
    canvas.box(0, 8, 18, 4, LOWER_SIDE)
    canvas.box(0, 12, 18, 4, FOOT)
    return canvas


def lit_face(from_left, from_right, from_top, from_bottom, sunk):
    """The colour of a face pixel by its distances from the key's four sides."""
    colour = FACE
    if from_left < len(LIGHT):
        colour = mix(colour, WHITE, LIGHT[from_left])
    if from_right < len(SHADE):
        colour = mix(colour, BLACK, SHADE[from_right])
    if (from_bottom if sunk else from_top) == 2:
        colour = mix(colour, WHITE, ROW_LIGHT)
    if (from_top if sunk else from_bottom) == 2:
        colour = mix(colour, BLACK, ROW_SHADE)
    return colour


def draw_key(canvas, top, height=8, sunk=False):
    """Lays a rounded key over columns 1 to 16, its first row at `top`."""
    left, right, bottom = 1, 17, top + height
    radius = height / 2 - 0.6
    for y in range(top, bottom):
        for x in range(left, right):
            face = lit_face(x - left, right - 1 - x, y - top, bottom - 1 - y, sunk)
            for inset, colour in ((0, OUTLINE), (1, RIM), (2, face)):
                share = rounded(
                    x, y, left + inset, top + inset, right - inset, bottom - inset, radius - inset
                )
                canvas.tint(x, y, colour, share)


def up_key():
    canvas = key_bed()
    draw_key(canvas, 4)
    return canvas


def down_key(name):
    """The key one row lower, with its glyph."""
    canvas = key_bed()
    draw_key(canvas, 5, sunk=True)
    lines, row = KEY_GLYPHS[name]
    canvas.art((18 - len(lines[0])) // 2, row, lines, OUTLINE)
    return canvas


def assets():
    yield "key.bmp", up_key()
    for name in KEY_GLYPHS:
        yield name + ".bmp", down_key(name)
