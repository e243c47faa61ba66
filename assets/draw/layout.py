"""Where the pictures stand in the two windows, in pixels, topmost first, for the contact sheet."""

from shapes import rounded

SIZE = (276, 82)
KEY = "key.bmp"

# (picture, left, top, shown at rest)
PLAYER = (
    ("pctvolume.bmp", 200, 56, True),
    ("pctprogressbar.bmp", 16, 32, True),
    ("pctprogressbardown.bmp", 16, 32, False),
    ("pctprevdown.bmp", 8, 48, False),
    ("pctnextdown.bmp", 32, 48, False),
    ("pctstopdown.bmp", 56, 48, False),
    ("pctplaydown.bmp", 80, 48, False),
    ("pctopendown.bmp", 104, 48, False),
    ("pctpausedown.bmp", 136, 48, False),
    ("pctalarmdown.bmp", 216, 48, False),
    ("pctplaylistdown.bmp", 248, 48, False),
    (KEY, 136, 48, True),
    (KEY, 104, 48, True),
    (KEY, 80, 48, True),
    (KEY, 56, 48, True),
    (KEY, 32, 48, True),
    (KEY, 248, 48, True),
    (KEY, 8, 48, True),
    (KEY, 216, 48, True),
    ("pctminimisedown.bmp", 248, 0, False),
    ("pctquitdown.bmp", 264, 0, False),
    ("pctquit.bmp", 264, 0, True),
    ("pctminimise.bmp", 248, 0, True),
)

# (picture, left, top, shown at rest, and the width and height of the box that crops it)
PLAYLIST = (
    ("pctLboxUpDown.bmp", 256, 24, False, 17, 17),
    ("pctLBoxDownDown.bmp", 256, 48, False, 17, 17),
    (None, 256, 40, True, 17, 9),
    ("scrollkey.bmp", 256, 24, True, 17, 17),
    ("scrollkey.bmp", 256, 48, True, 17, 17),
    ("pctClearAll.bmp", 208, 72, True, 49, 9),
    ("pctClear.bmp", 168, 72, True, 33, 9),
    (None, 8, 24, True, 265, 41),
    (None, 192, 16, True, 73, 9),
    (None, 32, 16, True, 49, 9),
    ("pctquitdown.bmp", 264, 0, False),
    ("pctminimise.bmp", 248, 0, True),
    ("pctminimisedown.bmp", 248, 0, False),
    ("pctquit.bmp", 264, 0, True),
    ("pctPlsOpenDown.bmp", 104, 72, False),
    ("pctPlsPlayDown.bmp", 80, 72, False),
    ("pctPlsStopDown.bmp", 56, 72, False),
    ("pctPlsNextDown.bmp", 32, 72, False),
    ("pctPlsPrevDown.bmp", 8, 72, False),
    ("pctPlsOpen.bmp", 104, 72, True),
    ("pctPlsPlay.bmp", 80, 72, True),
    ("pctPlsStop.bmp", 56, 72, True),
    ("pctPlsNext.bmp", 32, 72, True),
    ("pctPlsPrev.bmp", 8, 72, True),
    ("pctPlsPause.bmp", 128, 72, True),
    ("pctPlsPauseDown.bmp", 128, 72, False),
)


def shaped(canvas, upper, ground):
    """Cuts the round corners of one end of a window, as its region does."""
    width, height = SIZE
    scale = canvas.scale
    for x, y, _, _ in canvas.cells(0, 0 if upper else height - 15, width, 15):
        if rounded(x, y, scale, 0, 0, width, height, 7.5) < 0.5:
            canvas.put(x, y, ground)
