"""The player under a screen reader: what it tells, and what is done by actions alone."""

import pathlib
import subprocess

from desk import settings_line
from playlist import TONES
from scenario import scenario
from world import PATIENCE, check, hear, wait_until

READER = pathlib.Path(__file__).with_name("reader")
MAIN, LIST = "Orvan Music Player", "Playlist"

# With the volume at the half, the list open and its first track selected.
TREE = """\
orvan
  frame 'Orvan Music Player' 0,0 276x82 sensitive showing
    label 'Alarm state' 8,16 73x17 sensitive showing = 'Timer off'
    label 'Time' 88,16 49x17 sensitive showing
    check box 'Shuffle' 216,16 49x9 sensitive showing
    check box 'Repeat' 216,24 49x9 checked sensitive showing
    slider 'Position' 16,32 246x9 showing = 0
    push button 'Previous' 8,48 18x16 sensitive showing
    push button 'Next' 32,48 18x16 sensitive showing
    push button 'Stop' 56,48 18x16 sensitive showing
    push button 'Play' 80,48 18x16 sensitive showing
    push button 'Open' 104,48 18x16 sensitive showing
    push button 'Pause' 136,48 18x16 sensitive showing
    slider 'Volume' 160,56 49x10 sensitive showing = 50
    push button 'Alarm' 216,48 18x16 sensitive showing
    push button 'Playlist' 248,48 18x16 pressed checked sensitive showing
    push button 'Minimise' 248,0 9x16 sensitive showing
    push button 'Quit' 264,0 11x20 sensitive showing
  frame 'Playlist' 0,0 276x82 sensitive showing
    label 'Status' 32,16 49x9 sensitive showing
    label 'Counter' 192,16 73x9 sensitive showing
    list 'Tracks' 8,24 265x41 sensitive showing
      list item 'a.mp3' 8,24 265x13 selected sensitive showing
      list item 'b.mp3' 8,37 265x13 sensitive showing
      list item 'c.mp3' 8,50 265x13 sensitive showing
      list item 'd.mp3' 8,63 265x13 sensitive
      list item 'e.mp3' 8,76 265x13 sensitive
    push button 'Scroll up' 256,24 17x17 sensitive showing
    push button 'Scroll down' 256,48 17x17 sensitive showing
    push button 'Previous' 8,72 20x9 sensitive showing
    push button 'Next' 32,72 20x9 sensitive showing
    push button 'Stop' 56,72 20x9 sensitive showing
    push button 'Play' 80,72 20x9 sensitive showing
    push button 'Open' 104,72 20x9 sensitive showing
    push button 'Pause' 128,72 20x9 sensitive showing
    push button 'Clear' 168,72 33x9 sensitive showing
    push button 'Clear all' 208,72 49x9 sensitive showing
    push button 'Minimise' 248,0 9x16 sensitive showing
    push button 'Quit' 264,0 11x20 sensitive showing
"""


class Reading:
    """A player with five tracks, each a tone of its own, that nobody touches but a reader."""

    def __init__(self, world):
        self.file = world.build.file
        self.world = world
        paths = [world.build.path(world.tone(name, hertz, 60)) for name, hertz in TONES.items()]
        world.save(settings_line((300, 100), (300, 400), paths=paths))
        self.ask("on")
        world.stack.callback(self.ask, "off")
        self.player = world.start()
        self.player.face()
        self.wait_for(lambda: self.tries("read", MAIN, "Play"), "the player to tell of itself")

    def run(self, command, *words):
        words = [self.file, *map(str, words)] if command not in ("on", "off") else []
        return subprocess.run([READER, command, *words], timeout=PATIENCE, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)

    def listen(self):
        """Has changes written down; gives what tells the lines so far."""
        path = self.world.folder / "changes"
        with open(path, "wb") as file:
            process = subprocess.Popen([READER, "listen", self.file], stdout=file)
        self.world.stack.callback(self.world.end, process)
        return lambda: path.read_text().splitlines()

    def hears_of(self, lines, *wanted):
        for line in wanted:
            self.wait_for(lambda line=line: line in lines(), f"{line!r} among {lines()}")

    def ask(self, command, *words):
        done = self.run(command, *words)
        check(done.returncode == 0, f"the reader failed at {command} {words}: {done.stderr}")
        return done.stdout

    def tries(self, command, *words):
        return self.run(command, *words).returncode == 0

    def act(self, window, *words):
        self.ask("act", window, *words)

    def number(self, name):
        return float(self.ask("read", MAIN, name).splitlines()[0])

    def wait_for(self, condition, what):
        wait_until(condition, what, self.player)

    def sets(self, name, number, within):
        """Puts a slider there, and waits until it tells so."""
        self.ask("set", MAIN, name, number)
        self.wait_for(lambda: abs(self.number(name) - number) <= within, f"{name} at {number}")

    def hears(self, ear, name):
        """Waits until half a second is this track's tone."""
        def heard():
            recording = ear.next(0.5)
            if len(recording.sounding) < 4:
                return False
            samples = [sample for block in recording.sounding
                       for sample in recording.channels["left"][block]]
            return max(TONES, key=lambda one: hear.power_at(samples, TONES[one])) == name
        self.wait_for(heard, f"the tone of {name}")


@scenario("a screen reader finds every key, slider, text and row of both windows",
          only="linux", because="Windows has no such bus; its contract suite asks in Windows' own way")
def finds_everything(world):
    reading = Reading(world)
    reading.act(MAIN, "Playlist")
    # From the stop, as a thumb moves by whole pixels from wherever the last volume has put it.
    reading.sets("Volume", 0, 0)
    reading.sets("Volume", 50, 0)
    reading.act(MAIN, "Repeat")
    reading.wait_for(lambda: reading.ask("tree") == TREE, "the whole tree")


@scenario("by a reader's actions alone a track plays, both sliders move, and a row is picked",
          only="linux", because="Windows has no such bus; its contract suite asks in Windows' own way")
def acts(world):
    reading = Reading(world)
    ear = world.listen()
    reading.sets("Volume", 100, 0)
    reading.act(MAIN, "Play")
    reading.hears(ear, "a.mp3")
    reading.wait_for(lambda: reading.number("Position") > 0, "the position to go on")
    reading.ask("set", MAIN, "Position", 40)
    reading.wait_for(lambda: 39 <= reading.number("Position") < 60, "the sought position")
    reading.hears(ear, "a.mp3")
    reading.sets("Volume", 0, 0)
    reading.wait_for(lambda: ear.next(0.5).seconds() == 0, "silence")
    reading.sets("Volume", 100, 0)
    reading.hears(ear, "a.mp3")
    reading.act(MAIN, "Playlist")
    reading.wait_for(lambda: reading.tries("read", LIST, "Tracks"), "the list")
    reading.act(LIST, "Tracks", 3)
    reading.hears(ear, "d.mp3")
    reading.act(LIST, "Tracks", 1, "Select")
    reading.hears(ear, "d.mp3")
    reading.act(LIST, "Play")
    reading.hears(ear, "b.mp3")
    reading.act(MAIN, "Pause")
    reading.wait_for(lambda: ear.next(0.5).seconds() == 0, "the pause")
    reading.act(MAIN, "Quit")
    check(reading.player.status() == 0, "the player didn't end in order")


@scenario("a screen reader hears of keys, switches, texts and rows that change",
          only="linux", because="Windows has no such bus; its contract suite listens in Windows' own way")
def hears(world):
    reading = Reading(world)
    reading.act(MAIN, "Playlist")
    reading.wait_for(lambda: reading.tries("read", LIST, "Tracks"), "the list")
    lines = reading.listen()
    reading.hears_of(lines, "listening")
    reading.ask("tree")
    reading.act(MAIN, "Shuffle")
    reading.hears_of(lines, "object:state-changed:checked 'Shuffle' 1")
    reading.act(LIST, "Tracks", 1, "Select")
    reading.hears_of(lines, "object:state-changed:selected 'b.mp3' 1")
    reading.act(MAIN, "Play")
    reading.hears_of(lines, "object:text-changed:insert 'Time' 0",
                     "object:property-change:accessible-value 'Position' 0")
