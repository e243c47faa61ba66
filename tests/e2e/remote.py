"""The player as the desktop's media keys and sound menus see it: by way of the message bus."""

import os
import pathlib
import re
import subprocess

from menus import FILE
from scenario import scenario
from sessions import PLAY, click, make_tones
from shell import (MINIMISE, OPEN_TITLE, STOP, escape, open_dialog, quit_player, start_with,
                   wait_until_gone)
from world import check, output_of, wait_until

ONLY_THERE = "Windows has no such bus"
NAME = "org.mpris.MediaPlayer2.orvan"
PLACE = "/org/mpris/MediaPlayer2"
STRIP = (200, 38)  # a place of the seek bar that the thumb doesn't cover at first
PAUSE = (145, 55)


def asked(*words):
    """What playerctl prints."""
    return output_of("playerctl", "--player=orvan", *map(str, words)).decode().strip()


def ask(*words):
    subprocess.run(["playerctl", "--player=orvan", *map(str, words)], check=True)


def call(method, *arguments):
    """A call that playerctl has no word for."""
    subprocess.run(["gdbus", "call", "--session", "--dest", NAME, "--object-path", PLACE,
                    "--method", method, *arguments], check=True, stdout=subprocess.DEVNULL)


def become(player, what, wanted):
    """Waits until playerctl prints this."""
    wait_until(lambda: asked(*what.split()) == wanted, f"{what}: {wanted}", player)


def on_the_bus(player):
    wait_until(lambda: asked("status"), "the player on the bus", player)


class Monitor:
    """Notes down what the player tells on the bus by itself."""

    def __init__(self, world):
        self.path = pathlib.Path(world.folder) / "signals"
        with open(self.path, "wb") as file:
            process = subprocess.Popen(["gdbus", "monitor", "--session", "--dest", NAME],
                                       stdout=file, stderr=subprocess.DEVNULL)
        world.stack.callback(world.end, process)
        wait_until(lambda: b"is owned by" in self.path.read_bytes(), "the monitor")

    def lines(self):
        return self.path.read_text(errors="replace").splitlines()

    def hears(self, words, player):
        wait_until(lambda: any(re.search(words, line) for line in self.lines()),
                   f"the signal {words}", player)


@scenario("the desktop's media keys play, skip, pause and stop, and see what plays",
          only="linux", because=ONLY_THERE)
def media_keys(world):
    tones = make_tones(world, 30)
    ear = world.listen()
    player, window = start_with(world, tones)
    on_the_bus(player)
    become(player, "status", "Stopped")
    ask("play")
    become(player, "status", "Playing")
    become(player, "metadata xesam:title", "one.mp3")
    become(player, "metadata mpris:length", "30000000")
    ear.hears_tone(440, player)
    ask("next")
    become(player, "metadata xesam:title", "two.mp3")
    wait_until(lambda: ear.next(0.4).tone_in("left", 660), "the second tone", player)
    ask("previous")
    become(player, "metadata xesam:title", "one.mp3")
    ask("pause")
    become(player, "status", "Paused")
    ask("pause")
    ask("play-pause")
    become(player, "status", "Playing")
    ask("play-pause")
    become(player, "status", "Paused")
    ask("play")
    become(player, "status", "Playing")
    ask("position", 20)
    wait_until(lambda: float(asked("position") or 0) >= 20, "the seek", player)
    ask("volume", 0.25)
    become(player, "volume", "0.250000")
    ask("stop")
    become(player, "status", "Stopped")
    check(asked("metadata", "xesam:title") == "", "a title is told though nothing plays")
    quit_player(player, window)
    wait_until(lambda: not asked("status"), "the player to leave the bus")


@scenario("what the user does on the face is told on the message bus",
          only="linux", because=ONLY_THERE)
def told_on_the_bus(world):
    tones = make_tones(world, 60)
    player, window = start_with(world, tones)
    on_the_bus(player)
    monitor = Monitor(world)
    click(window, PLAY)
    monitor.hears(r"'PlaybackStatus': <'Playing'>", player)
    monitor.hears(r"'xesam:title': <'one.mp3'>", player)
    monitor.hears(r"'mpris:length': <int64 60000000>", player)
    click(window, STRIP)
    monitor.hears(r"Player.Seeked \(int64 \d{8},\)", player)
    click(window, PAUSE)
    monitor.hears(r"'PlaybackStatus': <'Paused'>", player)
    click(window, STOP)
    monitor.hears(r"'PlaybackStatus': <'Stopped'>", player)
    check(not any("Position'" in line for line in monitor.lines()),
          "the place in the track is told without having been asked for")
    quit_player(player, window)


@scenario("the desktop brings a hidden player back, and ends it under an open dialog",
          only="linux", because=ONLY_THERE)
def raised_and_ended(world):
    player, window = start_with(world)
    on_the_bus(player)
    click(window, MINIMISE)
    wait_until_gone(player, window, "the window to hide")
    call("org.mpris.MediaPlayer2.Raise")
    window = player.face()
    ask("play")  # with an empty list, which opens the dialog
    escape(player, player.dialog(OPEN_TITLE))
    open_dialog(player, window, FILE, OPEN_TITLE)
    call("org.mpris.MediaPlayer2.Quit")
    check(player.status() == 0, f"the player ended with {player.status()}: {player.words()}")
    check(world.saved(), "nothing is saved")


@scenario("names that are no text and names in any script are told on the bus as text",
          only="linux", because=ONLY_THERE)
def odd_titles(world):
    tone = bytes(world.tone("tone.mp3"))
    names = [b"\xff\xfe caf\xe9 *.mp3", "Übung-音楽-😀.mp3".encode(), b"\xed\xa0\x80\\.mp3",
             b"line\nfeed.mp3"]
    for name in names:
        path = bytes(world.folder) + b"/" + name
        with open(tone, "rb") as source, open(path, "wb") as copy:
            copy.write(source.read())
        player = world.start(os.fsdecode(path))
        on_the_bus(player)
        become(player, "status", "Playing")
        title = asked("metadata", "xesam:title")
        check(title == name.decode(errors="replace"), f"{name!r} is told as {title!r}")
        call("org.mpris.MediaPlayer2.Quit")
        check(player.status() == 0, f"the player ended with {player.status()}: {player.words()}")


@scenario("without a message bus the player plays, and says nothing of it",
          only="linux", because=ONLY_THERE)
def without_a_bus(world):
    tone = world.tone("tone.mp3")
    for address in ("unix:path=/nonexistent/bus", "", "nonsense"):
        ear = world.listen()
        player = world.start(tone, DBUS_SESSION_BUS_ADDRESS=address)
        window = player.face()
        ear.hears(1.0, player)
        quit_player(player, window)
        check(player.words() == "", f"with the bus {address!r} the player says {player.words()!r}")
