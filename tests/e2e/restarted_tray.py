"""The tray ends and comes again while the player runs."""

import time

from scenario import scenario
from sessions import xdotool
from shell import Tray, open_playlist, quit_player, start_with
from world import SCREEN, check, output_of, wait_until


def panel():
    """The number of the tray's window; none if there is no tray."""
    lines = output_of("xwininfo", "-root", "-tree").decode(errors="replace").splitlines()
    return next((line.split()[0] for line in lines if '"panel"' in line), None)


def icons(player):
    """What the player shows in the tray, which is 30 pixels high and at the bottom."""
    return [window for window in player.windows() if window.top >= SCREEN[1] - 30]


@scenario("an icon whose tray has ended doesn't come back with the next tray",
          only="linux", because="under Wine the icon is one of Wine's own windows, which Wine keeps")
def restarted_tray(world):
    Tray(world)
    player, window = start_with(world)
    wait_until(lambda: icons(player), "the icon", player)
    xdotool("windowkill", panel())
    wait_until(lambda: panel() is None and not icons(player), "the tray to end", player)
    Tray(world)
    # The playlist shows after what the player did about the tray, if anything.
    open_playlist(player, window)
    time.sleep(1.0)  # for the tray to take an icon in
    check(not icons(player), "the icon is back")
    quit_player(player, window)
