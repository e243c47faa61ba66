"""The about box among the other windows: its place, what stays within reach, and dialogs over it."""

from menus import ABOUT, MAXIMIZED, OPEN_FILE, numbers
from scenario import scenario
from sessions import click, comes_back, xdotool
from shell import (ABOUT_TITLE, MINIMISE, OPEN_TITLE, Tray, about_of, close_about, escape,
                   quit_player, start_with, wait_until_gone)
from world import check, output_of, wait_until


def open_about(tray, player):
    tray.choose(player, ABOUT)
    return about_of(player)


def frame_of(player):
    """Left, top, right and bottom of the about box's frame on the screen, once it has one."""
    def frame():
        box = player.dialog(ABOUT_TITLE)
        if any(player.build.about_frame):
            sides = [0, 0, 0, 0]
        else:
            told = output_of("xprop", "-id", box.number, "-notype", "_NET_FRAME_EXTENTS").decode()
            sides = [int(side) for side in told.partition("=")[2].split(",") if side]
        if not sides:
            return None
        left, right, top, bottom = sides
        return (box.left - left, box.top - top,
                box.left + box.size[0] + right, box.top + box.size[1] + bottom)
    return wait_until(frame, "the frame", player)


@scenario("the about box stands in the middle of the screen, its frame included",
          managed=True, unless={"i3": "i3 tells nobody how large its frames are"})
def place_of_the_about_box(world):
    tray = Tray(world)
    player, window = start_with(world)
    open_about(tray, player)
    left, top, right, bottom = frame_of(player)
    about = about_of(player)
    check(about.top - top > 10, "it has no title bar")
    check(abs(left + right - 1024) <= 2 and abs(top + bottom - 768) <= 2,
          f"its frame is at {left}, {top}, {right}, {bottom}")
    close_about(player, about)
    quit_player(player, window)


@scenario("the tray icon shows its menu and brings the window back while the about box is open",
          managed=True)
def tray_beside_the_about_box(world):
    tray = Tray(world)
    player, window = start_with(world)
    click(window, MINIMISE)
    wait_until_gone(player, window, "the window to hide")
    about = open_about(tray, player)
    tray.click(player, times=2)
    again = comes_back(player, window)
    click(again, MINIMISE)
    tray.choose(player, MAXIMIZED)
    check(again.number in numbers(player), "the main window took a click")
    close_about(player, about)
    tray.quit_player(player)


@scenario("a dialog over the about box takes keys, and outlives the box",
          managed=True)
def dialog_over_the_about_box(world):
    tray = Tray(world)
    player, window = start_with(world)
    about = open_about(tray, player)
    tray.choose(player, OPEN_FILE)
    escape(player, player.dialog(OPEN_TITLE))
    tray.choose(player, OPEN_FILE)
    dialog = player.dialog(OPEN_TITLE)
    xdotool("windowmove", "--sync", dialog.number, 390, 530)  # below the other windows
    close_about(player, about)
    click(window, MINIMISE)
    wait_until_gone(player, window, "the main window to take a click beside the dialog")
    escape(player, dialog)
    tray.quit_player(player)
