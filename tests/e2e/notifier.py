"""The tray that talks over the session's message bus, which most desktops of today have."""

import pathlib
import subprocess
import time

from menus import EXIT, Menu, numbers
from scenario import scenario
from sessions import click, xdotool
from shell import DOUBLE_CLICK, MINIMISE, quit_player, start_with, wait_until_gone
from world import check

ONLY_THERE = "Windows has no such tray"


class BusTray:
    """Such a tray, which passes calls on to the player's icon."""

    def __init__(self, world):
        host = pathlib.Path(world.program).parent / "tests" / "e2e" / "tray_host"
        self.process = subprocess.Popen([host], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        text=True, bufsize=1)
        world.stack.callback(world.end, self.process)
        self.says("ready")

    def says(self, word):
        line = self.process.stdout.readline().strip()
        check(line == word, f"the tray says {line!r} instead of {word!r}")

    def call(self, *names):
        for name in names:
            self.process.stdin.write(name + "\n")
        for _ in names:
            self.says("done")


@scenario("a tray on the message bus has the icon: two calls bring the hidden window back, one doesn't",
          only="linux", because=ONLY_THERE)
def restores_from_the_bus(world):
    tray = BusTray(world)
    player, window = start_with(world)
    tray.says("icon")
    click(window, MINIMISE)
    wait_until_gone(player, window, "the window to hide")
    tray.call("Activate")
    time.sleep(DOUBLE_CLICK)
    check(window.number not in numbers(player), "a single call brought the window back")
    tray.call("Activate", "Activate")
    quit_player(player, player.face())


@scenario("the menu of an icon on the message bus opens at the pointer, and ends the player",
          only="linux", because=ONLY_THERE)
def menu_from_the_bus(world):
    tray = BusTray(world)
    player, _ = start_with(world)
    tray.says("icon")
    xdotool("mousemove", 700, 500)
    menu = Menu(player, lambda: tray.call("ContextMenu"))
    (window,) = menu.windows()
    check(abs(window.left - 700) <= 2 and abs(window.top - 500) <= 2,
          f"the menu is at {window.left}, {window.top}")
    menu.choose(EXIT)
    check(player.status() == 0, f"the player ended with {player.status()}: {player.words()}")
