"""Displays with more pixels than a window's own: the face, its shape, and the pointer on them."""

import math
import pathlib
import re
import subprocess

from desk import Desk, xdotool
from scenario import scenario
from world import WINDOW, Screenshot, Window, check, output_of, wait_until

ONLY = {"only": "linux", "because": "a program for Windows keeps the scale that its session has"}


def edge(side, scale):
    """The display's pixel at which a window's pixel begins."""
    return int(math.copysign(math.floor(abs(side) * scale + 0.5), side))


def scaled(place, scale):
    return tuple(edge(side, scale) for side in place)


class ScaledDesk(Desk):
    """Places count the windows' own pixels, as they do for the player."""

    def __init__(self, world, scale, main, listing, **environment):
        self.scale = scale
        self.environment = environment or world.build.scaled(world, scale)
        super().__init__(world, main, listing)

    def begin(self, main):
        self.player = self.world.start(**self.environment)
        self.list_number = None
        wait_until(self.shown, "the player's window", self.player)
        self.main_number = self.shown()[0]
        wait_until(lambda: self.main() == main, f"the main window at {main}", self.player)

    def shown(self):
        return [window.number for window in self.player.windows()
                if window.size == scaled(WINDOW, self.scale)]

    def corner(self, number):
        """Where the window begins on the display."""
        return super().place(number)

    def place(self, number):
        corner = self.corner(number)
        place = tuple(round(side / self.scale) for side in corner)
        check(scaled(place, self.scale) == corner, f"{corner} is no place at {self.scale}")
        return place

    def click(self, number, place, *more):
        corner = self.corner(number)
        xdotool("mousemove", *(at + int((side + 0.5) * self.scale)
                               for at, side in zip(corner, place)), *(more or ("click", 1)))

    def press(self, number, *more):
        at = [side + inside for side, inside in zip(self.place(number), self.grip)]
        xdotool("mousemove", *scaled(at, self.scale), "mousedown", 1, *more)

    def drag(self, place):
        at = [side + inside for side, inside in zip(place, self.grip)]
        xdotool("mousemove", *scaled(at, self.scale))

    def shape(self, number):
        """The box of what the window is cut to, on the display: left, top, right, bottom."""
        told = output_of("xwininfo", "-shape", "-id", number).decode()
        found = re.search(r"Window shape extents: +(\d+)x(\d+)\+(-?\d+)\+(-?\d+)", told)
        check(found is not None, f"no shape: {told}")
        width, height, x, y = map(int, found.groups())
        left, top = self.corner(number)
        return left + x, top + y, left + x + width, top + y + height


def at_scales(sentence, *scales):
    """A scenario that a player acts out at each of these scales, one after the other."""
    def keep(function):
        def each(world):
            for scale in scales:
                try:
                    world.end(function(world, scale).process)
                except AssertionError as error:
                    raise AssertionError(f"at {round(100 * scale)} %: {error}") from error
        scenario(sentence)(each)
        return function
    return keep


@at_scales("on a display of a larger scale the windows drag, snap and dock by their own pixels",
           1.5, 2)
def drags(world, scale):
    desk = ScaledDesk(world, scale, (210, 90), (100, 220))
    desk.take_main()
    for wanted, taken in [((150, 123), (150, 123)), ((150, 124), (150, 138)),
                          ((90, 124), (100, 138)), ((85, 124), (85, 138)),
                          ((20, 20), (20, 20)), ((19, 20), (0, 20)), ((19, 19), (0, 0)),
                          ((150, 20), (150, 20)), ((151, 21), (151, 21)),
                          ((150, 124), (150, 138))]:
        desk.drag(wanted)
        desk.stands(main=taken, listing=(100, 220))
    desk.release()
    desk.take_main()
    for place in [(120, 61), (121, 60), (120, 138)]:
        desk.drag(place)
        desk.stands(main=place, listing=(place[0] - 50, place[1] + 82))
    desk.release()
    return desk.player


@at_scales("docked windows touch without a gap or an overlap at every scale of the display",
           1, 1.25, 1.5, 1.75, 2, 2.5, 3)
def docked(world, scale):
    desk = ScaledDesk(world, scale, (30, 50), (30, 132))
    desk.take_main((20, 6))
    for x, y in [(30, 51), (31, 52), (32, 53), (33, 54), (30, 50)]:
        desk.drag((x, y))
        desk.stands(main=(x, y), listing=(x, y + 82))
        touches(desk)
    desk.release()
    return desk.player


def touches(desk):
    def seam():
        upper, lower = desk.shape(desk.main_number), desk.shape(desk.list_number)
        return (upper[0], upper[3], upper[2]) == (lower[0], lower[1], lower[2])
    wait_until(seam, "the windows to touch", desk.player)
    left, top, right, _ = desk.shape(desk.list_number)

    def closed():
        screen = Screenshot()
        return not any(screen.is_root(x, y) for y in range(top - 3, top + 3)
                       for x in range(left, right))
    wait_until(closed, "no desktop between the windows", desk.player)


class Settings:
    """The desktop's settings, which the user changes while others run."""

    def __init__(self, world):
        program = pathlib.Path(world.program).parent / "tests" / "e2e" / "desktop_settings"
        self.process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        text=True)
        world.stack.callback(world.end, self.process)

    def scale(self, scale):
        self.process.stdin.write(f"{round(96 * scale)}\n")
        self.process.stdin.flush()
        check(self.process.stdout.readline() == "told\n", "the settings aren't told")


@scenario("both windows follow the display's scale while they run, and stay docked", **ONLY)
def follows(world):
    settings = Settings(world)
    settings.scale(1)
    desk = ScaledDesk(world, 1, (30, 31), (30, 113), QT_FONT_DPI=None)
    for scale in (2, 1.5, 1.75, 1):
        settings.scale(scale)
        desk.scale = scale
        wait_until(lambda: len(desk.shown()) == 2, f"the windows at {scale}", desk.player)
        wait_until(lambda: desk.corner(desk.main_number) == scaled((30, 31), desk.scale) and
                   desk.corner(desk.list_number) == scaled((30, 113), desk.scale),
                   f"the windows' places at {scale}", desk.player)
        touches(desk)
        desk.take_main((20, 6))
        desk.drag((41, 42))
        desk.stands(main=(41, 42), listing=(41, 124))
        desk.drag((30, 31))
        desk.stands(main=(30, 31), listing=(30, 113))
        desk.release()


@at_scales("the face and its cut corners are as fine as the display", 1.5, 2, 3)
def fine(world, scale):
    player = world.start(**world.build.scaled(world, scale))
    width, height = size = scaled(WINDOW, scale)
    window = wait_until(lambda: next((one for one in player.windows() if one.size == size), None),
                        "the player's window", player)
    wait_until(lambda: not Screenshot().is_root(window.left + width // 2, window.top + height // 2),
               "the window's picture", player)
    screen = Screenshot()
    check_corners(screen, window, 7.5 * scale)
    # Steps as wide as the window's pixels would begin where these do, and nowhere else.
    coarse = {edge(one, scale) for one in range(WINDOW[0])}
    steps = {x for y in range(height) for x in range(1, width)
             if screen.at(window.left + x, window.top + y) !=
             screen.at(window.left + x - 1, window.top + y)}
    check(len(steps - coarse) > width // 20, f"the face has the steps {sorted(steps)} only")
    arc = {next(x for x in range(width) if not screen.is_root(window.left + x, window.top + y))
           for y in range(height)}
    check(arc - coarse, f"the corner has the steps {sorted(arc)} only")
    return player


def check_corners(screen, window: Window, radius):
    """What lies a pixel or more outside the arc shows the desktop, a pixel inside the player."""
    width, height = window.size
    for y in range(int(radius) + 1):
        for x in range(width):
            across = radius - min(x + 0.5, width - x - 0.5)
            down = radius - (y + 0.5)
            beyond = (across * across + down * down) ** 0.5 - radius if across > 0 else -radius
            root = screen.is_root(window.left + x, window.top + y)
            if beyond >= 1.2:
                check(root, f"pixel {x}, {y} should be cut off")
            if beyond <= -1.2:
                check(not root, f"pixel {x}, {y} shows the desktop")
