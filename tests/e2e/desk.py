"""The player's two windows on the desk, and a hand on the pointer and the keyboard.

Places are the windows' top left corners in screen pixels, read back from the display.
"""

import subprocess
import time

from world import WINDOW, check, output_of, wait_until

GRIP = (100, 6)  # a bare place of both windows
BEYOND_SNAPPING = 25  # pixels
LIST_KEY = (255, 55)  # of the main window
CROSS, MINIMISE = (268, 8), (251, 8)  # of both windows


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


def settings_line(main, listing, docked=(0, 0), paths=()):
    """A settings line with the windows at these places; the paths as the player writes them."""
    names = "".join(path + "/" for path in paths)
    names += "/" if names else ""
    places = [side * 15 for side in (*main, *listing)]
    return (f"3*0*0*{names}*{places[0]}*{places[1]}*0*0**{docked[0]}*{docked[1]}*"
            f"{places[2]}*{places[3]}*")


class Desk:
    """A player that was started with its windows at these places, the playlist open."""

    def __init__(self, world, main, listing, docked=(0, 0), paths=()):
        self.world = world
        paths = [world.build.path(path) for path in paths]
        world.save(settings_line(main, listing, docked, paths))
        self.begin(main)
        self.open()
        self.comes_to_stand(self.list, listing, "the playlist")

    @classmethod
    def of(cls, world, player, window):
        """A player that has been started, the playlist closed."""
        desk = cls.__new__(cls)
        desk.world, desk.player = world, player
        desk.main_number, desk.list_number = window.number, None
        return desk

    def begin(self, main):
        """Starts the player, the playlist closed."""
        self.player = self.world.start()
        self.main_number = self.player.face().number
        self.list_number = None
        self.comes_to_stand(self.main, main, "the main window")

    def comes_to_stand(self, place, wanted, what):
        """Some window managers have to be asked twice."""
        wait_until(lambda: place() == wanted, f"{what} at {wanted}, not at {place()}", self.player)

    def shown(self):
        """The numbers of the windows on the screen, not of the tray's icon."""
        return [window.number for window in self.player.windows() if window.size == WINDOW]

    def place(self, number):
        facts = output_of("xwininfo", "-id", number).decode()
        side = {line.split(":")[0].strip(): line.split(":")[1] for line in facts.splitlines()
                if line.strip().startswith("Absolute")}
        return int(side["Absolute upper-left X"]), int(side["Absolute upper-left Y"])

    def main(self):
        return self.place(self.main_number)

    def list(self):
        return self.place(self.list_number)

    def is_open(self):
        return any(number != self.main_number for number in self.shown())

    def click(self, number, place, *more):
        left, top = self.place(number)
        xdotool("mousemove", left + place[0], top + place[1], *(more or ("click", 1)))

    def click_main(self, place, *more):
        self.click(self.main_number, place, *more)

    def click_list(self, place, *more):
        self.click(self.list_number, place, *more)

    def open(self):
        self.click_main(LIST_KEY)
        wait_until(self.is_open, "the playlist", self.player)
        self.list_number = next(number for number in self.shown() if number != self.main_number)

    def closed(self):
        wait_until(lambda: not self.is_open(), "the playlist to go", self.player)

    def take(self, number, grip):
        """Presses the left button on a window's background."""
        self.grip = grip
        if self.world.build.reads_pointer_late:
            start = self.place(number)
            wait_until(lambda: self.follows(number, start), "a window to be taken", self.player)
        else:
            self.press(number)

    def press(self, number, *more):
        """Presses the left button on the window's grip."""
        self.click(number, self.grip, "mousedown", 1, *more)

    def follows(self, number, start):
        """Presses, and tells whether the window goes along with a move; else lets go of it."""
        self.press(number, "sleep", 0.2)
        self.drag((start[0] + BEYOND_SNAPPING, start[1]))
        patience = time.monotonic() + 1.0
        while time.monotonic() < patience:
            if self.place(number) != start:
                return True
            time.sleep(0.02)
        self.release()
        return False

    def take_main(self, grip=GRIP):
        self.take(self.main_number, grip)

    def take_list(self, grip=GRIP):
        self.take(self.list_number, grip)

    def drag(self, place):
        """Moves the pointer so that the held window would stand there if nothing pulled at it."""
        xdotool("mousemove", place[0] + self.grip[0], place[1] + self.grip[1])

    def release(self):
        xdotool("mouseup", 1)

    def stands(self, main=None, listing=None):
        """Waits until the windows stand there, and makes sure that they stay."""
        def there():
            return ((main is None or self.main() == main) and
                    (listing is None or self.list() == listing))

        def where():
            return f"main {self.main()}, list {self.list() if self.list_number else 'closed'}"

        try:
            wait_until(there, f"main {main}, list {listing}", self.player)
        except AssertionError as error:
            raise AssertionError(f"{error}; they stand: {where()}") from error
        time.sleep(0.15)
        check(there(), f"not for long: {where()}, not main {main}, list {listing}")

    def drag_main(self, to):
        """A whole drag of the main window alone, to where nothing pulls at it."""
        self.take_main()
        self.drag(to)
        self.stands(main=to)
        self.release()

    def drag_list(self, to):
        self.take_list()
        self.drag(to)
        self.stands(listing=to)
        self.release()

    def settings_at_exit(self):
        """Quits by the main window's cross; the line that was saved."""
        self.click_main(CROSS)
        status = self.player.status()
        check(status == 0, f"the player ended with {status}")
        return self.world.saved()


def inside(place):
    """Whether a window at this place lies wholly on the screen."""
    return 0 <= place[0] <= 1024 - WINDOW[0] and 0 <= place[1] <= 768 - WINDOW[1]
