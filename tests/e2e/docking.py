"""The two windows under a real pointer: dragging, snapping, docking, showing and hiding."""

import random
import subprocess
import time

from desk import CROSS, GRIP, LIST_KEY, MINIMISE, Desk, inside, settings_line, xdotool
from scenario import scenario
from world import Screenshot, Window, activate, check, output_of, wait_until


@scenario("the main window docks from 14 pixels above the playlist, stays at 15, and lines up",
          managed=True)
def docks_from_above(world):
    desk = Desk(world, (600, 100), (100, 300))
    desk.take_main()
    for wanted, taken in [((150, 203), (150, 203)), ((150, 204), (150, 218)),
                          ((90, 204), (100, 218)), ((85, 204), (85, 218)),
                          ((600, 204), (600, 204)), ((150, 204), (150, 218))]:
        desk.drag(wanted)
        desk.stands(main=taken, listing=(100, 300))
    desk.release()
    desk.take_main()
    for place in [(400, 300), (151, 217), (600, 500)]:
        desk.drag(place)
        desk.stands(main=place, listing=(place[0] - 50, place[1] + 82))
    desk.release()
    line = desk.settings_at_exit()
    check(line == settings_line((600, 500), (550, 582), (-1, 0)), f"saved {line}")


@scenario("the main window docks at all four sides of the playlist",
          managed=True)
def docks_at_four_sides(world):
    desk = Desk(world, (100, 600), (400, 300))
    desk.take_main()
    for wanted, taken in [((460, 210), (460, 218)), ((460, 390), (460, 382)),
                          ((130, 330), (124, 330)), ((670, 330), (676, 330)),
                          ((110, 310), (124, 300)), ((114, 208), (114, 208)),
                          ((129, 208), (129, 218)), ((124, 218), (124, 218))]:
        desk.drag(wanted)
        desk.stands(main=taken, listing=(400, 300))
    desk.release()


@scenario("a stacked pair stands on the bottom of the screen and goes past it",
          managed=True)
def pair_at_the_bottom(world):
    desk = Desk(world, (300, 300), (300, 382))
    desk.take_main()
    for y, taken in [(584, 584), (585, 604), (600, 604), (623, 604), (624, 624), (590, 604)]:
        desk.drag((300, y))
        desk.stands(main=(300, taken), listing=(300, taken + 82))
    desk.drag((300, 1))
    desk.stands(main=(300, 0), listing=(300, 82))
    desk.release()


@scenario("a pair side by side, and one with the playlist on top, stop at the screen's edges",
          managed=True)
def other_pairs_at_the_edges(world):
    desk = Desk(world, (300, 300), (576, 300))
    desk.take_main()
    for wanted, main, listing in [((1, 300), (0, 300), (276, 300)),
                                  ((455, 300), (472, 300), (748, 300)),
                                  ((400, 15), (400, 0), (676, 0)),
                                  ((400, 300), (400, 300), (676, 300))]:
        desk.drag(wanted)
        desk.stands(main, listing)
    desk.release()
    desk.take_list()
    desk.drag((410, 230))
    desk.stands((400, 300), (400, 218))
    desk.release()
    desk.take_main()
    for wanted, main, listing in [((300, 101), (300, 82), (300, 0)),
                                  ((300, 667), (300, 686), (300, 604))]:
        desk.drag(wanted)
        desk.stands(main, listing)
    desk.release()


@scenario("a docked playlist stays pinned when pulled 14 pixels and comes free at 15",
          managed=True)
def pulls_away(world):
    desk = Desk(world, (300, 300), (300, 382))
    desk.take_list()
    desk.drag((330, 396))
    desk.stands((300, 300), (330, 382))
    desk.drag((330, 397))
    desk.stands((300, 300), (330, 397))
    desk.drag((310, 396))
    desk.stands((300, 300), (300, 382))
    desk.drag((300, 500))
    desk.stands((300, 300), (300, 500))
    desk.drag((570, 310))
    desk.stands((300, 300), (576, 300))
    desk.drag((330, 397))
    desk.stands((300, 300), (330, 397))
    desk.release()
    desk.take_main()
    desk.drag((400, 150))
    desk.stands((400, 150), (330, 397))
    desk.release()


@scenario("the screen's edges pull at each window from 19 pixels and not from 20",
          managed=True)
def snaps_at_the_edges(world):
    desk = Desk(world, (300, 300), (600, 450))
    desk.take_main((270, 72))
    for wanted, taken in [((20, 300), (20, 300)), ((19, 300), (0, 300)), ((-19, 300), (0, 300)),
                          ((-20, 300), (-20, 300)), ((728, 300), (728, 300)),
                          ((729, 300), (748, 300)), ((19, 19), (0, 0)),
                          ((-130, -40), (-130, -40)), ((300, 667), (300, 686))]:
        desk.drag(wanted)
        desk.stands(main=taken, listing=(600, 450))
    desk.drag((300, 300))
    desk.stands(main=(300, 300))
    desk.release()
    desk.take_list()
    for wanted, taken in [((600, 667), (600, 686)), ((600, 666), (600, 666)),
                          ((767, 100), (748, 100)), ((768, 100), (768, 100)),
                          ((-20, 19), (-20, 0))]:
        desk.drag(wanted)
        desk.stands(main=(300, 300), listing=taken)
    desk.release()


@scenario("a panel at the top catches the windows and lets them through to the screen's edge",
          managed=True, unless={"i3": "i3 tells nobody how much room its docks leave"})
def under_a_panel(world):
    world.stack.callback(world.build.work_area_changes)
    panel = subprocess.Popen(
        ["trayer", "--edge", "top", "--align", "right", "--widthtype", "pixel", "--width", "160",
         "--heighttype", "pixel", "--height", "30", "--SetDockType", "true", "--SetPartialStrut",
         "true", "--expand", "false"], stderr=subprocess.DEVNULL)
    world.stack.callback(world.end, panel)
    wait_until(lambda: b"= 0, 30, 1024, 738" in output_of("xprop", "-root", "_NET_WORKAREA"),
               "the panel's room")
    world.build.work_area_changes()
    desk = Desk(world, (300, 300), (300, 382))
    desk.take_main()
    for wanted, main, listing in [((300, 31), (300, 0), (300, 82)),
                                  ((300, 5), (300, 5), (300, 87)),
                                  ((300, 590), (300, 604), (300, 686))]:
        desk.drag(wanted)
        desk.stands(main, listing)
    desk.release()


@scenario("the list opens and closes by every key, and each leaves the dock as it should",
          managed=True)
def opens_and_closes(world):
    desk = Desk(world, (300, 300), (300, 382))

    def carries_along(expected):
        start = desk.main()
        before = desk.list()
        desk.take_main()
        desk.drag((start[0] + 40, start[1] + 250))
        moved = (before[0] + 40, before[1] + 250) if expected else before
        desk.stands((start[0] + 40, start[1] + 250), moved)
        desk.drag(start)
        desk.stands(start, before)
        desk.release()

    carries_along(True)
    for click, key in ((desk.click_main, LIST_KEY), (desk.click_list, CROSS),
                       (desk.click_list, MINIMISE)):
        click(key)
        desk.closed()
        desk.open()
        desk.stands((300, 300), (300, 382))
        carries_along(True)

    # Minimised, it stays behind; when it is back it is free.
    desk.click_list(MINIMISE)
    desk.closed()
    desk.drag_main((500, 100))
    desk.open()
    desk.stands((500, 100), (300, 382))
    carries_along(False)


@scenario("a press on the list's own keys acts at the release, wherever that is",
          managed=True)
def slides_off_the_keys(world):
    desk = Desk(world, (300, 300), (600, 600))
    desk.click_list(MINIMISE, "mousedown", 1)
    xdotool("mousemove", 5, 5)
    time.sleep(0.3)
    check(desk.is_open(), "it closed at the press")
    xdotool("mouseup", 1)
    desk.closed()


@scenario("a click on the main window repeats a dock that has been pulled apart",
          managed=True)
def stale_dock(world):
    desk = Desk(world, (600, 100), (100, 300))
    desk.take_main()
    desk.drag((150, 204))
    desk.stands(main=(150, 218))
    desk.release()
    desk.drag_list((600, 600))
    desk.click_main(GRIP)
    desk.take_main()
    desk.drag((160, 228))
    desk.stands((160, 228), (610, 610))
    desk.release()


@scenario("places and dock are saved, come back at the next start, and contact decides anew",
          managed=True)
def keeps_places(world):
    desk = Desk(world, (300, 300), (310, 382))
    line = desk.settings_at_exit()
    check(line == settings_line((300, 300), (310, 382), (-1, 0)), f"saved {line}")
    desk.begin((300, 300))
    check(not desk.is_open(), "the playlist is open at the start")
    desk.open()
    desk.stands((300, 300), (310, 382))
    desk.take_main()
    desk.drag((400, 400))
    desk.stands((400, 400), (410, 482))
    desk.release()


@scenario("a drag leaves no trace: the windows are under the pointer at every step",
          managed=True)
def does_not_drift(world):
    chance = random.Random(7)
    desk = Desk(world, (300, 300), (300, 382))
    desk.take_main()
    for _ in range(40):
        place = (chance.randint(30, 700), chance.randint(30, 560))
        desk.drag(place)
        wait_until(lambda: desk.main() == place and desk.list() == (place[0], place[1] + 82),
                   f"the pair at {place}", desk.player)
    desk.release()
    desk.take_main()
    # Faster than the display's echoes come back.
    for n in range(60):
        xdotool("mousemove", *[side + grip + 3 * n for side, grip in zip(place, GRIP)],
                "mousemove", place[0] + GRIP[0], place[1] + GRIP[1])
    place = (place[0] - 10, place[1] - 10)  # where the windows haven't been on the way
    desk.drag(place)
    desk.stands(place, (place[0], place[1] + 82))
    desk.release()


@scenario("a window taken in a hurry doesn't slip from under the pointer",
          only="linux", because="Windows tells where the pointer is, not where it was at the press",
          managed=True)
def taken_in_a_hurry(world):
    desk = Desk(world, (300, 300), (600, 600))
    place = (300, 300)
    for number in range(10):
        further = (place[0] + (50 if number % 2 == 0 else -50), place[1] + 7)
        xdotool("mousemove", place[0] + GRIP[0], place[1] + GRIP[1], "mousedown", 1,
                "mousemove", further[0] + GRIP[0], further[1] + GRIP[1])
        desk.stands(main=further)
        desk.release()
        place = further


def bars():
    """Left, top, right and bottom of what a window manager has on the screen for itself."""
    told = output_of("xdotool", "search", "--onlyvisible", "--name", "^i3bar for output").decode()
    own = [Window(number) for number in told.split()]
    return [(bar.left, bar.top, bar.left + bar.size[0], bar.top + bar.size[1]) for bar in own]


@scenario("a dragged window is whole wherever it stops, and leaves the screen clean behind it",
          managed=True)
def whole_picture(world):
    desk = Desk(world, (300, 300), (300, 382))
    desk.click_main((20, 70), "sleep", 0.3)
    foreign = [(0, 0, *world.build.foreign_corner), *bars()]

    def picture(shot, place):
        return [shot.at(place[0] + x, place[1] + y)
                for y in range(2, 160) for x in range(2, 274, 3)]

    before = picture(Screenshot(), (300, 300))
    desk.take_main()
    for place in [(60, 60), (500, 90), (640, 540), (320, 310)]:
        desk.drag(place)
        desk.stands(place, (place[0], place[1] + 82))
        check(inside(place), "the test drags off the screen")

        def whole():
            shot = Screenshot()
            return (picture(shot, place) == before and
                    all(shot.is_root(x, y)
                        for x in range(0, 1024, 7) for y in range(0, 768, 7)
                        if not any(left <= x < right and top <= y < bottom for left, top, right, bottom
                                   in [*foreign, (*place, place[0] + 276, place[1] + 164)])))

        wait_until(whole, f"the pair's whole picture at {place} and nothing else", desk.player)
    desk.release()


@scenario("the window manager closing the list hides it, and the list opens again where it was",
          managed=True)
def closed_from_outside(world):
    desk = Desk(world, (300, 300), (300, 382))
    activate(desk.list_number, desk.player)
    xdotool("key", "alt+F4")
    desk.closed()
    desk.open()
    desk.stands((300, 300), (300, 382))
    saved = desk.settings_at_exit()
    check(saved == settings_line((300, 300), (300, 382), docked=(-1, 0)), f"saved {saved!r}")
