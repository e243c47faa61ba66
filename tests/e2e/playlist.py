"""The playlist window under a real pointer and keyboard, and what is heard of it."""

from desk import Desk, xdotool
from scenario import scenario
from world import check, hear, wait_until

TONES = {"a.mp3": 300, "b.mp3": 440, "c.mp3": 660, "d.mp3": 1000, "e.mp3": 1500}

# Places inside the playlist window, pixels.
PREVIOUS, NEXT, STOP, PLAY, PAUSE = (18, 76), (42, 76), (66, 76), (90, 76), (138, 76)
REMOVE, REMOVE_ALL = (184, 76), (232, 76)
UP, PATCH, DOWN = (264, 30), (264, 44), (264, 58)
ROWS = [(60, 30), (60, 43), (60, 57)]
DOUBLE = ("click", "--repeat", 2, "--delay", 60, 1)


class Listening(Desk):
    """A player with five tracks, each a tone of its own, the first selected."""

    def __init__(self, world):
        paths = [world.tone(name, hertz, 60) for name, hertz in TONES.items()]
        super().__init__(world, (300, 100), (300, 400), paths=paths)
        self.paths = paths
        self.ear = world.listen()

    def hears(self, name):
        """Waits until half a second is this track's tone and no other."""
        def heard():
            recording = self.ear.next(0.5)
            if len(recording.sounding) < 4:
                return None
            samples = [sample for block in recording.sounding
                       for sample in recording.channels["left"][block]]
            return max(TONES, key=lambda one: hear.power_at(samples, TONES[one]))
        wait_until(lambda: heard() == name, f"the tone of {name}", self.player)

    def hears_nothing(self):
        wait_until(lambda: self.ear.next(0.5).seconds() == 0, "silence", self.player)

    def tracks_at_exit(self):
        field = self.settings_at_exit().split("*")[3]
        return [path.rsplit("\\", 1)[-1] for path in field.split("/") if path]


@scenario("a double click in the list plays that entry, and the scroll keys wrap the view round")
def scrolls(world):
    desk = Listening(world)
    desk.click_list(ROWS[1], *DOUBLE)
    desk.hears("b.mp3")
    desk.click_list(DOWN)
    desk.click_list(DOWN)
    desk.click_list(PATCH)
    desk.click_list(ROWS[0], *DOUBLE)
    desk.hears("c.mp3")
    desk.click_list(DOWN)
    desk.click_list(ROWS[0], *DOUBLE)
    desk.hears("a.mp3")
    desk.click_list(UP)
    desk.click_list(ROWS[2], *DOUBLE)
    desk.hears("e.mp3")


@scenario("the wheel scrolls the list, and a click selects what play starts")
def wheel(world):
    desk = Listening(world)
    desk.click_list(ROWS[1], "click", "--repeat", 3, "--delay", 50, 5)
    desk.click_list(ROWS[1])
    desk.click_list(PLAY)
    desk.hears("d.mp3")
    desk.click_list(ROWS[1], "click", "--repeat", 3, "--delay", 50, 4)
    desk.click_list(ROWS[0])
    desk.hears("d.mp3")
    desk.click_list(PLAY)
    desk.hears("a.mp3")


@scenario("the keyboard moves the list's selection")
def keyboard(world):
    desk = Listening(world)
    desk.click_list(ROWS[0])
    xdotool("windowfocus", "--sync", desk.list_number, "key", "Down", "key", "Down", "key", "Down")
    desk.click_list(PLAY)
    desk.hears("d.mp3")
    xdotool("key", "Home")
    desk.click_list(PLAY)
    desk.hears("a.mp3")
    xdotool("key", "End", "key", "Up", "key", "Page_Up")
    desk.click_list(PLAY)
    desk.hears("b.mp3")
    xdotool("key", "e")
    desk.click_list(PLAY)
    desk.hears("e.mp3")


@scenario("the playlist's own keys step, pause, go on and stop")
def transport(world):
    desk = Listening(world)
    desk.click_list(PLAY)
    desk.hears("a.mp3")
    desk.click_list(NEXT)
    desk.hears("b.mp3")
    desk.click_list(PREVIOUS)
    desk.click_list(PREVIOUS)
    desk.hears("e.mp3")
    desk.click_list(PAUSE)
    desk.hears_nothing()
    desk.click_list(PAUSE)
    desk.hears("e.mp3")
    desk.click_list(STOP)
    desk.hears_nothing()


@scenario("a track removed while it plays goes on sounding, and the list is saved without it")
def removes(world):
    desk = Listening(world)
    desk.click_list(PLAY)
    desk.hears("a.mp3")
    desk.click_list(REMOVE)
    desk.click_list(REMOVE)
    desk.hears("a.mp3")
    desk.click_list(PLAY)
    desk.hears("c.mp3")
    left = desk.tracks_at_exit()
    check(left == ["c.mp3", "d.mp3", "e.mp3"], f"saved {left}")


@scenario("the whole list removed while it plays leaves the sound alone and saves nothing")
def removes_all(world):
    desk = Listening(world)
    desk.click_list(PLAY)
    desk.hears("a.mp3")
    desk.click_list(REMOVE_ALL)
    desk.hears("a.mp3")
    left = desk.tracks_at_exit()
    check(left == [], f"saved {left}")
