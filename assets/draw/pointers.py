"""The window's arrow and the hand over the about box's button."""

from canvas import rgb
from ico import indexed, pointer

INKS = {
    "#": rgb("10161e"),
    "o": rgb("ffffff"),
    "b": rgb("c9d8ee"),
    "c": rgb("9db4d8"),
    "d": rgb("758fc0"),
    "e": rgb("4a618a"),
}

ARROW = (
    "#",
    "##",
    "#o#",
    "#oo#",
    "#oob#",
    "#oobb#",
    "#oobbb#",
    "#oobbbc#",
    "#oobbbcc#",
    "#oobbbccc#",
    "#oobbbcccc#",
    "#oobbc######",
    "#ob#bc#",
    "#o##bbc#",
    "##  #bc#",
    "#   #bbc#",
    "     #bc#",
    "      ##",
)

HAND = (
    "      ##",
    "     #ob#",
    "     #ob#",
    "     #ob#",
    "     #ob#",
    "     #ob###",
    "     #ob#ob###",
    "     #ob#ob#ob##",
    "     #ob#ob#ob#b#",
    " ### #ob#ob#ob#bc#",
    "#oob##oobbobbob#bc#",
    "#ooob#ooobbbbbbbbc#",
    " #oob#oobbbbbbbbbc#",
    "  #oooobbbbbbbbbbc#",
    "  #ooobbbbbbbbbbcc#",
    "   #oobbbbbbbbbbc#",
    "   #ooobbbbbbbbcc#",
    "    #oobbbbbbbbc#",
    "     #obbbbbbbcc#",
    "     #oobbbbbbc#",
    "     ###########",
    "     #dddddddee#",
    "     #dddddddee#",
    "     ###########",
)


def rows(art):
    """Text art in the top left corner of a picture of 32 x 32."""
    padded = [line.ljust(32) for line in art] + [" " * 32] * (32 - len(art))
    clear = (0, 0, 0, 0)
    return [
        [(*INKS[mark], 255) if mark in INKS else clear for mark in line] for line in padded
    ]


def files():
    yield "pointer.cur", pointer(indexed(rows(ARROW), 4), (0, 0))
    yield "close.cur", pointer(indexed(rows(HAND), 4), (6, 0))
