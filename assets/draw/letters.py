"""The small capitals of the skin: seven rows high.

Each letter is told twice: as text art for one pixel a unit, where every pixel is chosen by eye, and
as an outline for all finer ones. Both fill the same box.
"""

from canvas import rgb
from outline import box, ink, mirrored, polygon, ring, union, within, without

INK = rgb("aab116")

GLYPHS = {
    "A": (".+#+.", ".#.#.", "+#.#+", "#+.+#", "#####", "#...#", "#...#"),
    "C": (".+##", "+#..", "#...", "#...", "#...", "+#..", ".+##"),
    "E": ("####", "#...", "#...", "###.", "#...", "#...", "####"),
    "I": ("###", ".#.", ".#.", ".#.", ".#.", ".#.", "###"),
    "L": ("#...", "#...", "#...", "#...", "#...", "#...", "####"),
    "M": ("#...#", "##.##", "##+##", "#.#.#", "#...#", "#...#", "#...#"),
    "N": ("#..#", "#+.#", "##.#", "#++#", "#.##", "#.+#", "#..#"),
    "O": (".###.", "#+.+#", "#...#", "#...#", "#...#", "#+.+#", ".###."),
    "P": ("###+", "#.+#", "#..#", "#.+#", "###+", "#...", "#..."),
    "R": ("###+.", "#.+#.", "#..#.", "#.+#.", "###+.", "#.+#.", "#..+#"),
    "S": ("+###", "#+..", "#+..", "+##+", "..+#", "..+#", "###+"),
    "T": ("#####", "..#..", "..#..", "..#..", "..#..", "..#..", "..#.."),
    "U": ("#..#", "#..#", "#..#", "#..#", "#..#", "#++#", "+##+"),
    "V": ("#...#", "#...#", "+#.#+", ".#.#.", ".#+#.", ".+#+.", "..#.."),
    "X": ("#...#", "+#.#+", ".+#+.", "..#..", ".+#+.", "+#.#+", "#...#"),
    "Y": ("#...#", "+#.#+", ".#+#.", "..#..", "..#..", "..#..", "..#.."),
    " ": ("...",) * 7,
}

STEM = box(0, 0, 1, 7)
DOWNSTROKE = polygon((0, 0), (1.2, 0), (5, 7), (3.8, 7))
BOWL = union(within(ring(-2, 0, 4, 5, 2.1), box(1, 0, 4, 5)), STEM)

OUTLINES = {
    "A": union(
        polygon((1.9, 0), (3.1, 0), (5, 7), (3.9, 7), (2.5, 1.4), (1.1, 7), (0, 7)),
        box(1, 4, 4, 5),
    ),
    "C": without(ring(0, 0, 5, 7, 2.4), box(2.4, 1.9, 5, 5.1)),
    "E": union(STEM, box(0, 0, 4, 1), box(0, 3, 3, 4), box(0, 6, 4, 7)),
    "I": union(box(0, 0, 3, 1), box(1, 0, 2, 7), box(0, 6, 3, 7)),
    "L": union(STEM, box(0, 6, 4, 7)),
    "M": union(
        STEM,
        box(4, 0, 5, 7),
        polygon((0, 0), (1.1, 0), (2.5, 2.7), (3.9, 0), (5, 0), (2.5, 4.7)),
    ),
    "N": union(STEM, box(3, 0, 4, 7), polygon((0, 0), (1.1, 0), (4, 7), (2.9, 7))),
    "O": ring(0, 0, 5, 7, 2.4),
    "P": BOWL,
    "R": union(BOWL, polygon((1.9, 4.6), (3.1, 4.6), (5, 7), (3.8, 7))),
    "S": union(
        without(ring(0, 0, 5, 4, 1.9), box(2, 1, 5, 3)),
        without(ring(-1, 3, 4, 7, 1.9), box(-1, 4, 2, 6)),
    ),
    "T": union(box(0, 0, 5, 1), box(2, 0, 3, 7)),
    "U": within(ring(0, -4, 4, 7, 1.9), box(0, 0, 4, 7)),
    "V": polygon((0, 0), (1.1, 0), (2.5, 5.4), (3.9, 0), (5, 0), (3.1, 7), (1.9, 7)),
    "X": union(DOWNSTROKE, mirrored(DOWNSTROKE, 5)),
    "Y": polygon(
        (0, 0), (1.15, 0), (2.5, 2.7), (3.85, 0), (5, 0), (3, 3.8), (3, 7), (2, 7), (2, 3.8)
    ),
}


def width(text, spacing=1):
    return sum(len(GLYPHS[letter][0]) for letter in text) + spacing * (len(text) - 1)


def write(canvas, x, y, text, spacing=1):
    """Prints text with its top left corner at (x, y)."""
    for letter in text:
        art = GLYPHS[letter]
        if canvas.scale == 1:
            canvas.art(x, y, art, INK)
        elif letter in OUTLINES:
            ink(canvas, x, y, len(art[0]), len(art), OUTLINES[letter], INK)
        x += len(art[0]) + spacing
