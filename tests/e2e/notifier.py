"""The tray that talks over the session's message bus, which most desktops of today have."""

import pathlib
import subprocess
import time

from menus import EXIT, Menu, numbers
from scenario import scenario
from sessions import click, comes_back, xdotool
from shell import (DOUBLE_CLICK, MINIMISE, OPEN_TITLE, about_of, close_about, escape, open_playlist,
                   quit_player, start_with, wait_until_gone)
from world import check, output_of, wait_until

ONLY_THERE = "Windows has no such tray"


class BusTray:
    """Such a tray, which passes calls on to the player's icon."""

    def __init__(self, world, *arguments):
        host = pathlib.Path(world.program).parent / "tests" / "e2e" / "tray_host"
        self.process = subprocess.Popen([host, *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        text=True, bufsize=1)
        world.stack.callback(world.end, self.process)
        self.says("ready")

    def says(self, word):
        line = self.process.stdout.readline().strip()
        check(line == word, f"the tray says {line!r} instead of {word!r}")

    def icons(self):
        """How many icons have come."""
        self.process.stdin.write("Icons\n")
        return int(self.process.stdout.readline())

    def title(self):
        """What the icon calls itself; nothing without an icon."""
        self.process.stdin.write("Title\n")
        line = self.process.stdout.readline().strip()
        return self.process.stdout.readline().strip() if line == "icon" else line

    def heard(self):
        """What a program tells all who wait for one to start."""
        self.process.stdin.write("Heard\n")
        return self.process.stdout.readline().strip()

    def call(self, *names):
        for name in names:
            self.process.stdin.write(name + "\n")
        for _ in names:
            self.says("done")


def hidden_behind_an_icon(world, *desktop):
    """A tray on the message bus, and a player that has hidden behind its icon there."""
    tray = BusTray(world, *desktop)
    player, window = start_with(world)
    tray.says("icon")
    click(window, MINIMISE)
    wait_until_gone(player, window, "the window to hide")
    return tray, player, window


@scenario("a tray on the message bus has the icon: two calls bring the hidden window back, one doesn't",
          only="linux", because=ONLY_THERE,
          managed=True)
def restores_from_the_bus(world):
    tray = BusTray(world)
    player, window = start_with(world)
    tray.says("icon")
    check(tray.title() == "Orvan Music Player", f"the icon calls itself {tray.title()}")
    click(window, MINIMISE)
    wait_until_gone(player, window, "the window to hide")
    tray.call("Activate")
    time.sleep(DOUBLE_CLICK)
    check(window.number not in numbers(player), "a single call brought the window back")
    tray.call("Activate", "Activate")
    quit_player(player, comes_back(player, window))


@scenario("the menu of an icon on the message bus opens at the pointer, and ends the player",
          only="linux", because=ONLY_THERE,
          managed=True)
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


@scenario("a desktop that shows the icon's menu itself runs every entry's own handler",
          only="linux", because=ONLY_THERE)
def menu_shown_by_the_desktop(world):
    tray, player, _ = hidden_behind_an_icon(world)
    tray.call("Pick Maximized")
    player.face()
    for entry, title in (("Open File", OPEN_TITLE), ("Open Directory", player.build.folder_title)):
        tray.call("Pick " + entry)
        escape(player, player.dialog(title))
    tray.call("Pick About")
    close_about(player, about_of(player))
    tray.call("Pick Exit")
    check(player.status() == 0, f"the player ended with {player.status()}: {player.words()}")


@scenario("where the desktop tells of double clicks only, one call brings the hidden window back",
          only="linux", because=ONLY_THERE)
def restores_by_one_call(world):
    tray, player, window = hidden_behind_an_icon(world, "--gnome")
    tray.call("Activate")
    quit_player(player, comes_back(player, window))


@scenario("a desktop that waits for what a click in its tray brings is told that it is there",
          only="linux", because=ONLY_THERE)
def answers_the_desktop(world):
    tray = BusTray(world, "--gnome")
    player, window = start_with(world)
    tray.says("icon")

    def check_answered(word, *calls):
        tray.call("Give " + word, *calls)
        escaped = word.replace(" ", "\\ ")
        wait_until(lambda: tray.heard() == f"remove: ID={escaped}", f"the answer to {word}", player)

    click(window, MINIMISE)
    wait_until_gone(player, window, "the window to hide")
    check_answered("shell/Orvan Music Player/59-0_TIME100", "Activate")
    again = player.face()
    told = output_of("xprop", "-id", again.number, "-notype", "_NET_STARTUP_ID").decode()
    check('"shell/Orvan Music Player/59-0_TIME100"' in told, f"the window came by {told}")
    check_answered("about_TIME101", "Pick About")
    close_about(player, about_of(player))
    # A dialog doesn't keep the desktop waiting.
    check_answered("file_TIME102", "Pick Open File")
    escape(player, player.dialog(OPEN_TITLE))
    check_answered("exit_TIME103", "Pick Exit")
    check(player.status() == 0, f"the player ended with {player.status()}: {player.words()}")


@scenario("an icon whose tray on the message bus has ended doesn't come back with the next one",
          only="linux", because=ONLY_THERE)
def restarted_bus_tray(world):
    tray = BusTray(world)
    player, window = start_with(world)
    tray.says("icon")
    world.end(tray.process)
    again = BusTray(world)
    # The playlist shows after what the player did about the tray, if anything.
    open_playlist(player, window)
    time.sleep(1.0)  # for the icon to come
    check(again.icons() == 0, "the icon is back")
    quit_player(player, window)


@scenario("an icon is there again once its desktop has its tray back, as after a locked screen",
          only="linux", because=ONLY_THERE)
def tray_behind_a_locked_screen(world):
    tray, player, window = hidden_behind_an_icon(world, "--gnome")
    for _ in range(2):
        tray.call("Close", "Open")
        tray.says("icon")
    tray.call("Activate")
    again = comes_back(player, window)
    # Another desktop's tray has none, nor has this one from then on.
    tray.call("Close")
    other = BusTray(world)
    wait_until(lambda: other.title() == "", "the icon to go", player)
    world.end(other.process)
    tray.call("Open")
    open_playlist(player, again)
    time.sleep(1.0)  # for the icon to come
    check(tray.icons() == 3, "the icon is back")
    quit_player(player, again)
