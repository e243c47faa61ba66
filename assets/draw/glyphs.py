"""The glyphs of the keys, each as text art for one pixel a unit and as an outline for finer ones."""

import dataclasses
from typing import Callable

from outline import box, ink, mirrored, moved, polygon, union, without


@dataclasses.dataclass(frozen=True)
class Glyph:
    """Both forms fill the box of the text art, a unit a mark."""

    art: tuple
    outline: Callable

    @property
    def width(self):
        return len(self.art[0])


def draw_glyph(canvas, left, top, glyph, colour):
    if canvas.scale == 1:
        canvas.art(left, top, glyph.art, colour)
    else:
        ink(canvas, left, top, glyph.width, len(glyph.art), glyph.outline, colour)


def pair(part, step):
    return union(part, moved(part, step))


# Chevrons that point left: of the deck's keys, of a capsule key at rest and of a pressed one.
CHEVRON = polygon((2.6, 0), (4, 0), (4, 0.5), (1.9, 3), (4, 5.5), (4, 6), (2.6, 6), (0, 3.3), (0, 2.7))
THIN_CHEVRON = polygon((2.0, 0), (3, 0), (3, 0.4), (1.2, 2.5), (3, 4.6), (3, 5), (2.0, 5), (0, 2.5))
THICK_CHEVRON = polygon((2.2, 0), (4, 0), (1.9, 2.5), (4, 5), (2.2, 5), (0, 2.5))
TWO_LEFT = pair(CHEVRON, 4)
THIN_TWO_LEFT = pair(THIN_CHEVRON, 3)
THICK_TWO_LEFT = pair(THICK_CHEVRON, 4)
WEDGE = polygon((3.4, 0), (4.6, 0), (7, 3), (1, 3))
BELL = polygon(
    (4, 0), (6, 0), (7, 1.2), (7, 2.8), (8, 3.5), (8, 4), (5.8, 4), (5.4, 5), (4.6, 5), (4.2, 4),
    (2, 4), (2, 3.5), (3, 2.8), (3, 1.2),
)
EAR = polygon((1, 0), (2, 0), (2, 0.5), (1, 1.6), (1, 3), (0, 3), (0, 1.3))

# Each with the row of the key picture where it starts.
KEY_GLYPHS = {
    "pctprevdown": (
        Glyph(
            (
                "..-#..-#",
                ".##..##.",
                "##..##..",
                "##..##..",
                ".##..##.",
                "..-#..-#",
            ),
            TWO_LEFT,
        ),
        6,
    ),
    "pctnextdown": (
        Glyph(
            (
                "#-..#-..",
                ".##..##.",
                "..##..##",
                "..##..##",
                ".##..##.",
                "#-..#-..",
            ),
            mirrored(TWO_LEFT, 8),
        ),
        6,
    ),
    "pctstopdown": (
        Glyph(
            (
                "####",
                "#..#",
                "#..#",
                "####",
            ),
            without(box(0, 0, 4, 4), box(1, 1, 3, 3)),
        ),
        7,
    ),
    "pctplaydown": (
        Glyph(
            (
                "##....",
                ".##...",
                "..##..",
                "...##.",
                "...##.",
                "..##..",
                ".##...",
                "##....",
            ),
            polygon((0, 0), (1.6, 0), (5, 3.6), (5, 4.4), (1.6, 8), (0, 8), (3.4, 4)),
        ),
        5,
    ),
    "pctopendown": (
        Glyph(
            (
                "...##...",
                "..####..",
                ".######.",
                "........",
                ".######.",
            ),
            union(polygon((3.5, 0), (4.5, 0), (7, 3), (1, 3)), box(1, 4, 7, 5)),
        ),
        6,
    ),
    "pctpausedown": (
        Glyph(
            (
                "##..##",
                "##..##",
                "##..##",
                "##..##",
            ),
            union(box(0, 0, 2, 4), box(4, 0, 6, 4)),
        ),
        7,
    ),
    "pctalarmdown": (
        Glyph(
            (
                ".#..##..#.",
                "#..####..#",
                "#..####..#",
                "..######..",
                "....++....",
            ),
            union(BELL, EAR, mirrored(EAR, 10)),
        ),
        7,
    ),
    "pctplaylistdown": (
        Glyph(
            (
                "##########",
                "##########",
            ),
            box(0, 0, 10, 2),
        ),
        8,
    ),
}

UP_WEDGE = Glyph(
    (
        "...##...",
        "..####..",
        ".######.",
        "########",
    ),
    polygon((3.4, 0), (4.6, 0), (8, 3.6), (8, 4), (0, 4), (0, 3.6)),
)
DOWN_WEDGE = Glyph(
    tuple(reversed(UP_WEDGE.art)),
    polygon((0, 0), (8, 0), (8, 0.4), (4.6, 4), (3.4, 4), (0, 0.4)),
)

CROSS_STROKE = polygon((0, 0), (0.9, 0), (5, 4.1), (5, 5), (4.1, 5), (0, 0.9))
CROSS_GLYPH = Glyph(
    ("#-.-#", "-#-#-", ".-#-.", "-#-#-", "#-.-#"),
    union(CROSS_STROKE, mirrored(CROSS_STROKE, 5)),
)

# The thin glyph of a capsule key at rest, and the thick one of the pressed key.
CAPSULE_GLYPHS = {
    "pctPlsPrev": (
        Glyph(
            ("..#..#", ".#..#.", "#..#..", ".#..#.", "..#..#"),
            THIN_TWO_LEFT,
        ),
        Glyph(
            ("..##..##", ".##..##.", "##..##..", ".##..##.", "..##..##"),
            THICK_TWO_LEFT,
        ),
    ),
    "pctPlsNext": (
        Glyph(
            ("#..#..", ".#..#.", "..#..#", ".#..#.", "#..#.."),
            mirrored(THIN_TWO_LEFT, 6),
        ),
        Glyph(
            ("##..##..", ".##..##.", "..##..##", ".##..##.", "##..##.."),
            mirrored(THICK_TWO_LEFT, 8),
        ),
    ),
    "pctPlsStop": (
        Glyph(
            ("......", "######", "#....#", "######", "......"),
            without(box(0, 1, 6, 4), box(1, 2, 5, 3)),
        ),
        Glyph(
            ("......", "######", "######", "######", "......"),
            box(0, 1, 6, 4),
        ),
    ),
    "pctPlsPlay": (
        Glyph(
            ("#...", ".#..", "..#.", ".#..", "#..."),
            mirrored(THIN_CHEVRON, 3),
        ),
        Glyph(
            ("##..", ".##.", "..##", ".##.", "##.."),
            mirrored(THICK_CHEVRON, 4),
        ),
    ),
    "pctPlsOpen": (
        Glyph(
            ("...##...", "..#..#..", ".######.", "........", ".######."),
            union(without(WEDGE, polygon((4, 0.9), (5, 2.2), (3, 2.2))), box(1, 4, 7, 5)),
        ),
        Glyph(
            ("...##...", "..####..", ".######.", "........", "########"),
            union(WEDGE, box(0, 4, 8, 5)),
        ),
    ),
    "pctPlsPause": (
        Glyph(
            ("#..#", "#..#", "#..#", "#..#", "#..#"),
            union(box(0, 0, 1, 5), box(3, 0, 4, 5)),
        ),
        Glyph(
            ("##..##", "##..##", "##..##", "##..##", "##..##"),
            union(box(0, 0, 2, 5), box(4, 0, 6, 5)),
        ),
    ),
}
