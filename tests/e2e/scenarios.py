#!/usr/bin/env -S python3 -B
"""The shipped program in a real window, heard and seen from outside.

scenarios.py --list SYSTEM      the scenarios that drive the program of linux or windows, a line each
scenarios.py --list SYSTEM MANAGER   of these, those that run under this window manager too
scenarios.py --check-list FILE  whether a file tells of each scenario that one system leaves out
scenarios.py --check-managers FILE   the same of those that a window manager can't have
scenarios.py PROGRAM SENTENCE   runs one
"""

import subprocess

import desktops_dialogs  # noqa: F401
import display_scale  # noqa: F401
import docking  # noqa: F401
import face  # noqa: F401
import modality  # noqa: F401
import notifier  # noqa: F401
import placing  # noqa: F401
import playlist  # noqa: F401
import reading  # noqa: F401
import remote  # noqa: F401
import restarted_tray  # noqa: F401
import sessions  # noqa: F401
import shell  # noqa: F401
from scenario import run, scenario
from sessions import list_field
from world import WINDOW, Screenshot, World, check, wait_until


@scenario("a file named on the command line sounds in both channels")
def plays_the_file(world):
    tone = world.tone("tone.mp3")
    ear = world.listen()
    player = world.start(tone)
    ear.hears(3.0, player)
    for channel in ("left", "right"):
        ear.hears_tone(440, player, channel)


@scenario("a path with blanks, relative to the working folder, plays too")
def plays_a_relative_path(world):
    name = f"two{world.build.blanks}words.MP3"
    world.tone(name, 660)
    ear = world.listen()
    player = world.start(*world.build.tail(name))
    ear.hears(2.0, player)
    ear.hears_tone(660, player)


@scenario("the main window's top corners are cut and its bottom corners are square")
def shape_of_the_window(world):
    player = world.start()
    window = player.face()
    width, height = WINDOW
    wait_until(lambda: not Screenshot().is_root(window.left + width // 2, window.top + height // 2),
               "the window's picture", player)
    screen = Screenshot()

    # The corner is a quarter of a circle of 15 pixels across: what lies a pixel or more outside
    # shows the desktop, what lies a pixel or more inside shows the player.
    radius = 7.5
    for y in range(height):
        for x in range(width):
            across = radius - min(x + 0.5, width - x - 0.5)
            down = radius - (y + 0.5)
            beyond = -radius
            if across > 0 and down > 0:
                beyond = (across * across + down * down) ** 0.5 - radius
            root = screen.is_root(window.left + x, window.top + y)
            if beyond >= 1.0:
                check(root, f"pixel {x}, {y} should be cut off")
            if beyond <= -1.0:
                check(not root, f"pixel {x}, {y} shows the desktop")

    for x in (-1, width):
        for y in range(height):
            check(screen.is_root(window.left + x, window.top + y), "the window is too wide")
    for x in range(width):
        for y in (-1, height):
            check(screen.is_root(window.left + x, window.top + y), "the window is too high")


@scenario("the main window opens in the middle of the screen, 276 by 82 pixels, and alone")
def place_of_the_window(world):
    player = world.start()
    window = player.face()
    check(window.size == WINDOW, f"its size is {window.size}")
    check(abs(window.left - (1024 - 276) // 2) <= 1, f"its left edge is {window.left}")
    check(abs(window.top - (768 - 82) // 2) <= 1, f"its top edge is {window.top}")
    check(len(player.windows()) == 1, "another window is on the screen")


@scenario("a second copy exits at once and disturbs nothing")
def second_copy(world):
    first_tone = world.tone("first.mp3", 440)
    second_tone = world.tone("second.mp3", 1000)
    ear = world.listen()
    first = world.start(first_tone)
    first.face()
    ear.hears(1.0, first)
    second = world.start(second_tone)
    check(second.status() == 0, f"the second copy ended with {second.status()}")
    after = ear.next(2.0)
    check(first.alive(), "the first copy ended")
    check(after.seconds() >= 1.8, "the first copy fell silent")
    check(after.tone_in("left", 440), "the first copy's sound changed")
    check(len(first.windows()) == 1, "the first copy shows another window")
    check("second" not in first.words(), "the second copy had something to say")


@scenario("a missing file leaves the player silent and alive")
def missing_file(world):
    ear = world.listen()
    player = world.start(world.folder / "missing.mp3")
    player.face()
    check(ear.next(3.0).seconds() == 0.0, "something sounds")
    check(player.alive(), "the player ended")
    check(len(player.windows()) == 1, "the player shows another window")


@scenario("a file that is no audio leaves the player silent and alive")
def no_audio(world):
    (world.folder / "text.mp3").write_text("These are words, not sounds.\n" * 1000)
    ear = world.listen()
    player = world.start("text.mp3")
    player.face()
    check(ear.next(3.0).seconds() == 0.0, "something sounds")
    check(player.alive(), "the player ended")


@scenario("without a sound server a message says so and the player goes on")
def no_sound_server(world):
    player = world.start(PULSE_SERVER=f"unix:{world.folder}/nobody")
    box = player.dialog("Blah - Error")
    subprocess.run(["xdotool", "windowfocus", "--sync", box.number, "key", "Return"], check=True)
    wait_until(lambda: all(window.number != box.number for window in player.windows()),
               "the message to go", player)
    player.face()
    player.ask_to_end()
    check(player.status() == 0, f"the player ended with {player.status()}")


@scenario("asked to end while it plays, the player saves, falls silent and ends in order")
def termination(world):
    tone = world.tone("tone.mp3")
    ear = world.listen()
    player = world.start(tone)
    player.face()
    ear.hears(1.0, player)
    player.ask_to_end()
    check(player.status() == 0, f"the player ended with {player.status()}")
    check(ear.next(1.5).seconds() <= 0.5, "it still sounds")
    check(world.saved().split("*")[3] == list_field(world, [tone]), f"saved {world.saved()!r}")


@scenario("without a display the player says so and ends with status 1",
          only="linux", because="a program for Windows always has a desktop")
def no_display(world):
    player = world.start(DISPLAY=None)
    check(player.status() == 1, f"the player ended with {player.status()}")
    check("display" in player.words().lower(), f"it said: {player.words()!r}")


@scenario("a display that does not answer is as good as none",
          only="linux", because="a program for Windows always has a desktop")
def dead_display(world):
    player = world.start(DISPLAY=":4711")
    check(player.status() == 1, f"the player ended with {player.status()}")
    check("display" in player.words().lower(), f"it said: {player.words()!r}")


run(World)
