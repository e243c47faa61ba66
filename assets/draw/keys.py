"""The blank key of the deck, raised and sunk, and the glyphs that light up when it sinks."""

from canvas import Canvas, along, mix, rgb
from glyphs import KEY_GLYPHS, draw_glyph
from shapes import rounded

OUTLINE = rgb("2b3f57")
RIM = rgb("64789d")
FACE = rgb("758fc0")
DECK = rgb("303632")
UPPER_SIDE = rgb("3c4645")
LOWER_SIDE = rgb("303a3b")
FOOT = rgb("242e2f")

# How far the face is lit toward its left end and shaded toward its right end, unit by unit.
LIGHT = (0.0, 0.0, 0.18, 0.13, 0.08, 0.04, 0.0)
SHADE = (0.0, 0.0, 0.13, 0.09, 0.05, 0.02, 0.0)
# The first and the last row of a raised face; a sunk one has them the other way round.
ROW_LIGHT, ROW_SHADE = 0.15, 0.08
WHITE, BLACK = (255, 255, 255), (0, 0, 0)


def key_bed(scale):
    """The piece of deck on which a key lies, in its four planes."""
    canvas = Canvas(18, 16, DECK, scale)
    canvas.box(0, 4, 18, 4, UPPER_SIDE)
    canvas.box(0, 8, 18, 4, LOWER_SIDE)
    canvas.box(0, 12, 18, 4, FOOT)
    return canvas


def edge_row(distance):
    """How much of a place at this distance from a side belongs to the face's outermost row."""
    return max(0.0, 1.0 - abs(distance - 2))


def lit_face(from_left, from_right, from_top, from_bottom, sunk):
    """The colour of a face at its distances from the key's four sides."""
    colour = mix(FACE, WHITE, along(LIGHT, from_left))
    colour = mix(colour, BLACK, along(SHADE, from_right))
    lit, shaded = (from_bottom, from_top) if sunk else (from_top, from_bottom)
    colour = mix(colour, WHITE, ROW_LIGHT * edge_row(lit))
    return mix(colour, BLACK, ROW_SHADE * edge_row(shaded))


def draw_key(canvas, top, height=8, sunk=False):
    """Lays a rounded key over columns 1 to 16, its first row at `top`."""
    left, right, bottom = 1, 17, top + height
    radius = height / 2 - 0.6
    for x, y, u, v in canvas.cells(left, top, right - left, height):
        face = lit_face(u - left, right - 1 - u, v - top, bottom - 1 - v, sunk)
        for inset, colour in ((0, OUTLINE), (1, RIM), (2, face)):
            share = rounded(
                x, y, canvas.scale, left + inset, top + inset, right - inset, bottom - inset,
                radius - inset,
            )
            canvas.tint(x, y, colour, share)


def up_key(scale):
    canvas = key_bed(scale)
    draw_key(canvas, 4)
    return canvas


def down_key(name, scale):
    """The key one row lower, with its glyph."""
    canvas = key_bed(scale)
    draw_key(canvas, 5, sunk=True)
    glyph, row = KEY_GLYPHS[name]
    draw_glyph(canvas, (18 - glyph.width) // 2, row, glyph, OUTLINE)
    return canvas


def assets(scale):
    yield "key", up_key(scale)
    for name in KEY_GLYPHS:
        yield name, down_key(name, scale)
