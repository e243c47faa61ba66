"""The desktop's own file dialogs and its preference of light or dark, by way of its portal."""

import os
import pathlib
import subprocess
import time
import urllib.parse

from menus import DIRECTORY, FILE, Menu, numbers
from scenario import scenario
from sessions import click, list_field, settings_line, xdotool
from shell import (OPEN, OPEN_TITLE, PLAYLIST, escape, open_dialog, open_key_menu, open_playlist, quit_player, saved_list,
                   saved_paths, start_with, wait_until_gone)
from world import Screenshot, check, wait_until

NO_PORTAL = "Windows has no portal"
DARK, LIGHT = 1, 2
QUITE_DARK = 90  # of 255: the mean of a dark menu's pixels is below, of a light one's above


def uri(path):
    return "file://" + urllib.parse.quote(os.fsencode(path))


class Portal:
    """A portal whose dialogs are answered by the test."""

    def __init__(self, world, scheme=0):
        program = pathlib.Path(world.program).parent / "tests" / "e2e" / "portal_host"
        self.process = subprocess.Popen([program, str(scheme)], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True, bufsize=1)
        world.stack.callback(world.end, self.process)
        check(self.line() == "ready", "there is no portal")

    def line(self):
        return self.process.stdout.readline().strip()

    def opened(self):
        """What a dialog is asked for: window, title, modal, multiple, directory, folder, types."""
        words = self.line().split("|")
        check(words[0] == "open", f"the portal says {words}")
        return words[1:]

    def order(self, *words):
        self.process.stdin.write(" ".join(words) + "\n")


@scenario("the desktop's own dialog is asked for files, and what is chosen there plays and is listed",
          only="linux", because=NO_PORTAL)
def portal_gives_files(world):
    portal = Portal(world)
    folder = bytes(world.folder) + b"/no utf-8 \xff%41"
    os.mkdir(folder)
    tone = world.tone("one.mp3", 660)
    odd = folder + b"/b\xc3.mp3"
    os.rename(tone, odd)
    second = folder + b"/two  blanks.mp3"
    with open(odd, "rb") as source, open(second, "wb") as copy:
        copy.write(source.read())
    ear = world.listen()
    player, window = start_with(world)
    before = numbers(player)
    open_key_menu(player, window).choose(FILE)
    owner, title, modal, several, directory, _, types = portal.opened()
    check((owner, title, modal, several, directory) == ("", OPEN_TITLE, "0", "1", "0"),
          f"the dialog is asked for {owner, title, modal, several, directory}")
    check("*.[mM][pP]3" in types and "=" in types, f"its file types are {types}")
    check(numbers(player) == before, "a dialog of the player's own is up as well")
    # It disables no window.
    playlist = open_playlist(player, window)
    check(playlist is not None, "the main window takes no click")
    portal.order("Choose", uri(odd), uri(second))
    ear.hears(1.0, player)
    ear.hears_tone(660, player)
    open_key_menu(player, window).choose(FILE)
    begun = portal.opened()[5]
    check(begun == urllib.parse.quote(folder) + "%00", f"the next dialog begins in {begun}")
    portal.order("Cancel")
    quit_player(player, window)
    check(saved_paths(world) == [odd, second], f"saved {saved_list(world)!r}")


@scenario("the desktop's own folder dialog keeps the user from its owner alone",
          only="linux", because=NO_PORTAL)
def portal_gives_a_folder(world):
    portal = Portal(world)
    tone = world.tone("one.mp3")
    player, window = start_with(world)
    open_key_menu(player, window).choose(DIRECTORY)
    owner, title, modal, _, directory, begun, _ = portal.opened()
    check((owner, title) == (f"x11:{int(window.number):x}", player.build.folder_title),
          f"it is asked for {owner, title}")
    check((modal, directory) == ("1", "1"), f"it is modal {modal}, for folders {directory}")
    home = urllib.parse.quote(os.environ["HOME"])
    check(begun == home + "%00", f"it begins in {begun}")
    before = numbers(player)
    click(window, PLAYLIST)
    time.sleep(0.5)
    check(numbers(player) == before, "the dialog's owner took a click")
    portal.order("Choose", uri(world.folder) + "/")
    wait_until(lambda: clicked_open(player, window, before), "the playlist", player)
    quit_player(player, window)
    check(saved_list(world) == list_field(world, [tone]), f"saved {saved_list(world)!r}")


def clicked_open(player, window, before):
    """Whether a click opens the playlist, or has done so."""
    if numbers(player) == before:
        click(window, PLAYLIST)
        time.sleep(0.5)
    return numbers(player) != before


@scenario("a desktop's dialog that is up when the player ends, or loses its portal, is given up",
          only="linux", because=NO_PORTAL)
def portal_given_up(world):
    portal = Portal(world)
    player, window = start_with(world)
    open_key_menu(player, window).choose(DIRECTORY)
    portal.opened()
    before = numbers(player)
    portal.order("Leave")
    # The portal is gone before the player is told.
    wait_until(lambda: clicked_open(player, window, before), "the owner to take clicks", player)
    opens_own_dialog(player, window)
    portal = Portal(world)
    open_key_menu(player, window).choose(FILE)
    portal.opened()
    player.ask_to_end()
    check(player.status() == 0, f"the player ended with {player.status()}: {player.words()}")
    check(portal.line() == "closed", "the portal's dialog is left behind")


def opens_own_dialog(player, window):
    """What a player without a portal opens."""
    open_key_menu(player, window).choose(FILE)
    dialog = player.dialog(OPEN_TITLE)
    xdotool("windowfocus", "--sync", dialog.number)
    escape(player, dialog)


def brightness_of_menu(player, window):
    """The mean of the pixels of the open key's menu."""
    menu = Menu(player, lambda: click(window, OPEN))
    screen = Screenshot()
    (shown,) = menu.windows()
    rows = screen.part(shown.left, shown.top, shown.size)
    menu.close_by("Escape")
    return sum(sum(row) for row in rows) / sum(len(row) for row in rows)


@scenario("menus are dark where the desktop prefers it, and follow a change",
          only="linux", because=NO_PORTAL)
def follows_the_preference(world):
    portal = Portal(world, DARK)
    player, window = start_with(world)
    xdotool("windowfocus", "--sync", window.number)
    for scheme, is_dark in ((None, True), (LIGHT, False), (DARK, True)):
        if scheme is not None:
            portal.order("Scheme", str(scheme))
        wait_until(lambda: (brightness_of_menu(player, window) < QUITE_DARK) == is_dark,
                   f"a menu for the preference {scheme}", player)
    quit_player(player, window)


@scenario("the player's own dialogs speak the user's language, and take its letters",
          only="linux", because="Windows' own dialogs speak for themselves")
def speaks_the_users_language(world):
    tone = world.tone("tone.mp3")
    world.save(settings_line(world, []))
    ear = world.listen()
    player = world.start(LC_ALL=None, LANG="es_ES.UTF-8")
    window = player.face()
    dialog = open_dialog(player, window, FILE, OPEN_TITLE)
    xdotool("type", "--delay", 20, str(tone))
    xdotool("key", "alt+a")  # of the Spanish word for opening
    wait_until_gone(player, dialog, "the dialog to close")
    ear.hears(1.0, player)
    quit_player(player, window)
