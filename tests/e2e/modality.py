"""The about box among the other windows: its place, what stays within reach, and dialogs over it."""

from scenario import scenario
from sessions import click
from shell import (ABOUT, ABOUT_TITLE, CLOSE, EXIT, MINIMISE, OPEN_FILE, OPEN_TITLE, Tray, escape,
                   numbers, quit_player, start_with, wait_for_another, wait_until_gone, xdotool)
from world import check, output_of, wait_until


def open_about(tray, player):
    tray.choose(player, *ABOUT)
    return player.dialog(ABOUT_TITLE)


def frame_extents(window):
    """What the window manager's frame takes on the left, right, top and bottom."""
    told = output_of("xprop", "-id", window.number, "-notype", "_NET_FRAME_EXTENTS").decode()
    if "=" not in told:
        return None
    return [int(side) for side in told.split("=")[1].split(",")]


@scenario("the about box stands in the middle of the screen, its frame included")
def place_of_the_about_box(world):
    tray = Tray(world)
    player, window = start_with(world)
    about = open_about(tray, player)
    left, right, top, bottom = wait_until(lambda: frame_extents(about), "the frame", player)
    check(top > 0, "it has no title bar")
    about = player.dialog(ABOUT_TITLE)
    across = (about.left - left) + (about.left + about.size[0] + right)
    down = (about.top - top) + (about.top + about.size[1] + bottom)
    check(abs(across - 1024) <= 2 and abs(down - 768) <= 2,
          f"its middle is at {across / 2}, {down / 2}")
    click(about, CLOSE)
    wait_until_gone(player, about, "the about box to close")
    quit_player(player, window)


@scenario("the tray icon shows its menu and brings the window back while the about box is open")
def tray_beside_the_about_box(world):
    tray = Tray(world)
    player, window = start_with(world)
    click(window, MINIMISE)
    wait_until_gone(player, window, "the window to hide")
    about = open_about(tray, player)
    tray.click(player, times=2)
    again = player.face()
    click(again, MINIMISE)
    before = numbers(player)
    tray.click(player, button=3)
    wait_for_another(player, before, "the tray menu")
    check(again.number in before, "the main window took a click")
    xdotool("key", "Escape")
    click(about, CLOSE)
    wait_until_gone(player, about, "the about box to close")
    tray.choose(player, *EXIT)
    check(player.status() == 0, f"the player ended with {player.status()}: {player.words()}")


@scenario("a dialog over the about box takes keys, and outlives the box")
def dialog_over_the_about_box(world):
    tray = Tray(world)
    player, window = start_with(world)
    about = open_about(tray, player)
    tray.choose(player, *OPEN_FILE)
    escape(player, player.dialog(OPEN_TITLE))
    tray.choose(player, *OPEN_FILE)
    dialog = player.dialog(OPEN_TITLE)
    xdotool("windowfocus", "--sync", about.number, "key", "alt+c")
    wait_until_gone(player, about, "the about box to close")
    xdotool("windowmove", "--sync", dialog.number, 390, 300)
    click(window, MINIMISE)
    wait_until_gone(player, window, "the main window to take a click beside the dialog")
    escape(player, dialog)
    tray.click(player, times=2)
    quit_player(player, player.face())
