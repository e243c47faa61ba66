"""The windows and what a window manager does with them: where it puts them, what it lists."""

import time

from desk import Desk, MINIMISE, settings_line
from notifier import BusTray
from scenario import scenario
from world import SCREEN, check, output_of, wait_until

MANAGED = "a program for Windows places and lists its windows by itself"
NOWHERE = (2000, 300)  # a place on no screen
LEFT_GRIP = (20, 72)  # a bare place of the main window, for one that shows its left edge only


def at_rest_on_screen(desk):
    """The main window's place, once the window manager has done with it; i3 comes by (-15, -15)."""
    place = desk.main()
    if not (0 <= place[0] < SCREEN[0] and 0 <= place[1] < SCREEN[1]):
        return None
    time.sleep(1)
    return place if desk.main() == place else None


@scenario("a window whose saved place is on no screen is dragged and saved from where it has been put",
          only="linux", because=MANAGED, managed=True)
def saved_on_no_screen(world):
    world.save(settings_line(NOWHERE, (100, 600)))
    player = world.start()
    window = player.face()
    desk = Desk.of(world, player, window)
    put = wait_until(lambda: at_rest_on_screen(desk), "the window on the screen", player)
    desk.stands(main=put)
    desk.take_main(LEFT_GRIP)
    there = (put[0] - 50, put[1] + 40)
    desk.drag(there)
    desk.stands(main=there)
    desk.drag((300, 200))
    desk.stands(main=(300, 200))
    desk.release()
    line = desk.settings_at_exit()
    check(line == settings_line((300, 200), (100, 600)), f"saved {line}")


@scenario("windows stand to the pixel where they stood, hidden and shown or started anew",
          only="linux", because=MANAGED, managed=True)
def stands_where_it_stood(world):
    tray = BusTray(world)
    main, listing = (301, 233), (602, 447)
    desk = Desk(world, main, listing)
    tray.says("icon")
    for _ in range(2):
        desk.click_list(MINIMISE)
        desk.closed()
        desk.open()
        desk.stands(main, listing)
        desk.click_main(MINIMISE)
        wait_until(lambda: desk.main_number not in desk.shown(), "the main window to hide",
                   desk.player)
        tray.call("Activate", "Activate")
        wait_until(lambda: desk.main_number in desk.shown(), "the main window", desk.player)
        desk.stands(main, listing)
        line = desk.settings_at_exit()
        check(line == settings_line(main, listing), f"saved {line}")
        desk.begin(main)
        tray.says("icon")
        desk.open()
        desk.stands(main, listing)


def states(number):
    told = output_of("xprop", "-id", number, "-notype", "_NET_WM_STATE").decode()
    return told.partition("=")[2].replace(",", " ").split()


@scenario("the task bar and Alt-Tab have one entry, the main window's, and no window is nameless",
          only="linux", because=MANAGED, managed=True)
def one_entry(world):
    BusTray(world)  # with which the icon goes by the name, too
    desk = Desk(world, (300, 300), (600, 500))
    for _ in range(2):
        check(not any("SKIP" in state for state in states(desk.main_number)),
              f"the main window has {states(desk.main_number)}")
        for state in ("_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"):
            wait_until(lambda: state in states(desk.list_number), f"the playlist with {state}",
                       desk.player)
        for number in (desk.main_number, desk.list_number):
            name = output_of("xprop", "-id", number, "-notype", "_NET_WM_NAME").decode()
            check(name.strip().endswith('"Orvan Music Player"'), f"a window says {name}")
            group = output_of("xprop", "-id", number, "-notype", "WM_CLASS").decode()
            check(group.strip().endswith('"orvan", "orvan"'), f"a window belongs to {group}")
        desk.click_list(MINIMISE)
        desk.closed()
        desk.open()
