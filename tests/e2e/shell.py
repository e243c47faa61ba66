"""The player on the desktop: its open key and dialogs, the tray, the menus and the about box."""

import os
import subprocess
import time

from menus import (ABOUT, DIRECTORY, EXIT, FILE, MAXIMIZED, NEXT_ENTRY, OPEN_DIRECTORY, OPEN_FILE,
                   PLAY_ENTRY, STOP_ENTRY, Menu, numbers)
from scenario import scenario
from sessions import (NEXT, OPEN_TITLE, PLAY, QUIT, click, comes_back, face_at, list_field,
                      settings_line, start, tones_heard, xdotool)
from world import (SETTINGS, Screenshot, activate, check, facts_of, output_of,
                   wait_until)

OPEN, MINIMISE, PLAYLIST, STOP = (110, 55), (252, 8), (255, 55), (65, 55)
ABOUT_TITLE = "About Orvan Music Player"
ABOUT_SIZE = (297, 223)
CLOSE = (148, 204)  # the about box's button

BESIDE_THE_DIALOG = (700, 600)  # a place of the main window that no dialog covers

# The about box's viewport: left, top, right, bottom.
VIEWPORT = (8, 56, 289, 185)
DOUBLE_CLICK = 1.0  # seconds: longer than a double click may take
SCROLL = 400 / 15  # pixels a second


def wait_for_only(player, before, what):
    wait_until(lambda: numbers(player) == before, what, player)


def wait_until_gone(player, window, what):
    wait_until(lambda: window.number not in numbers(player) and not window.frame_is_shown(), what,
               player)


def open_key_menu(player, window):
    """The open key's menu, with the keyboard in it."""
    xdotool("windowfocus", "--sync", window.number)
    return Menu(player, lambda: click(window, OPEN))


def open_dialog(player, window, entry, title):
    """Opens a dialog by this entry of the open key's menu, with the keyboard in it."""
    open_key_menu(player, window).choose(entry)
    dialog = player.dialog(title)
    xdotool("windowfocus", "--sync", dialog.number)
    return dialog


def answer(player, dialog, text):
    """Types into a dialog and confirms it."""
    xdotool("type", "--delay", 20, text)
    xdotool("key", "Return")
    wait_until_gone(player, dialog, "the dialog to close")


def escape(player, dialog):
    activate(dialog.number, player)
    xdotool("key", "Escape")
    wait_until_gone(player, dialog, "the dialog to close")


def open_playlist(player, window):
    """Opens the playlist by the main window's key, and gives its window."""
    before = numbers(player)
    click(window, PLAYLIST)
    return wait_until(lambda: next((shown for shown in player.windows()
                                    if shown.number not in before), None), "the playlist", player)


def quit_player(player, window):
    click(window, QUIT)
    check(player.status() == 0, f"the player ended with {player.status()}: {player.words()}")


def saved_list(world):
    """The track list as it stands in the settings file."""
    return world.saved().split("*")[3]


def start_with(world, paths=()):
    world.save(settings_line(world, paths))
    return start(world)


@scenario("a name typed into the open dialog plays",
          managed=True)
def opens_a_file(world):
    tone = world.tone("my tone.mp3")
    ear = world.listen()
    player, window = start_with(world)
    dialog = open_dialog(player, window, FILE, OPEN_TITLE)
    answer(player, dialog, world.build.shown(tone))
    ear.hears(1.0, player)
    ear.hears_tone(440, player)
    quit_player(player, window)
    check(saved_list(world) == list_field(world, [tone]), f"saved {world.saved()!r}")
    folder = world.build.path(world.folder) + "\\"
    check(world.saved().split("*")[8] == folder, f"saved {world.saved()!r}, not {folder!r}")


@scenario("several names typed into the open dialog are added, and the first of them plays")
def opens_several_files(world):
    first = world.tone("two  blanks.mp3", 660)
    second = world.tone("second.MP3", 1000)
    ear = world.listen()
    player, window = start_with(world)
    dialog = open_dialog(player, window, FILE, OPEN_TITLE)
    answer(player, dialog, f'"{first.name}" "{second.name}"')
    ear.hears(1.0, player)
    ear.hears_tone(660, player)
    click(window, NEXT)
    wait_until(lambda: [tone[0] for tone in tones_heard(ear)] == [660, 1000], "both tones", player)
    quit_player(player, window)
    check(saved_list(world) == list_field(world, [first, second]), f"saved {world.saved()!r}")
    folder = world.build.path(world.folder)
    check(world.saved().split("*")[8] == folder, f"saved {world.saved()!r}, not {folder!r}")


@scenario("the clock and the windows stay alive while the open dialog is up",
          managed=True)
def alive_during_the_dialog(world):
    ear = world.listen()
    tones = [world.tone("one.mp3", seconds=120), world.tone("two.mp3", 660)]
    world.save(settings_line(world, tones, *(15 * side for side in BESIDE_THE_DIALOG)))
    player = world.start()
    window = face_at(player, BESIDE_THE_DIALOG)
    click(window, PLAY)
    ear.hears(0.5, player)
    dialog = open_dialog(player, window, FILE, OPEN_TITLE)
    click(window, NEXT)
    wait_until(lambda: [tone[0] for tone in tones_heard(ear)] == [440, 660],
               "the next track while the dialog is up", player)
    click(window, STOP)
    wait_until(lambda: ear.next(1.0).seconds() == 0.0, "silence while the dialog is up", player)
    escape(player, dialog)
    quit_player(player, window)


@scenario("a directory is added with all below it, and nothing plays")
def opens_a_directory(world):
    top = world.folder / "some music"
    (top / "b child" / "grandchild").mkdir(parents=True)
    (top / "A child").mkdir()
    tone = world.tone("tone.mp3").read_bytes()
    own = [top / "1.MP3", top / "A child" / "2.mp3", top / "b child" / "3.mp3",
           top / "b child" / "grandchild" / "4.mp3"]
    for path in own + [top / ".hidden.mp3", top / "5.wav", top / "b child" / "6.mp3.txt"]:
        path.write_bytes(tone)
    (top / "b child" / "loop").symlink_to(top)
    (top / "b child" / "once more").symlink_to(top / "A child")
    expected = own + [top / "b child" / "once more" / "2.mp3"]
    ear = world.listen()
    player, window = start_with(world)
    dialog = open_dialog(player, window, DIRECTORY, player.build.folder_title)
    picked = world.build.pick_folder(world, top)
    wait_until_gone(player, dialog, "the dialog to close")
    check(ear.next(2.0).seconds() == 0.0, "something plays")
    quit_player(player, window)
    expected = [picked / path.relative_to(top) for path in expected]
    check(saved_list(world) == list_field(world, expected), f"saved {world.saved()!r}")


@scenario("Escape closes the open key's menu and both dialogs, and nothing is added",
          managed=True)
def escapes(world):
    player, window = start_with(world)
    before = numbers(player)
    open_key_menu(player, window).close_by("Escape")
    wait_for_only(player, before, "the main window alone")
    for entry, title in ((FILE, OPEN_TITLE), (DIRECTORY, player.build.folder_title)):
        escape(player, open_dialog(player, window, entry, title))
        wait_for_only(player, before, "the main window alone")
    open_key_menu(player, window)
    xdotool("mousemove", 900, 100, "click", 1)
    wait_for_only(player, before, "a click elsewhere to close the menu")
    quit_player(player, window)
    check(saved_list(world) == "", f"saved {world.saved()!r}")


TRAYER, BAR = '"panel"', '"i3bar for output'  # windows that take icons in


def windows_in(tray):
    """What the display tells of each window in a tray's, a line each; none if there is no tray."""
    lines = output_of("xwininfo", "-root", "-tree").decode(errors="replace").splitlines()
    depths = [len(line) - len(line.lstrip()) for line in lines]
    first = next((number for number, line in enumerate(lines) if tray in line), None)
    if first is None:
        return None
    last = next((number for number in range(first + 1, len(lines)) if depths[number] <= depths[first]),
                len(lines))
    return [line for line in lines[first + 1:last] if line.split()[-1].startswith("+")]


class Tray:
    """A tray with the player's icon in it: the window manager's, or else trayer."""

    def __init__(self, world):
        self.clicked = 0.0
        self.window = TRAYER if windows_in(BAR) is None else BAR
        if self.window == BAR:
            return
        process = subprocess.Popen(
            ["trayer", "--edge", "bottom", "--align", "right", "--widthtype", "pixel", "--width",
             "160", "--heighttype", "pixel", "--height", "30", "--expand", "false"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        world.stack.callback(world.end, process)
        wait_until(lambda: windows_in(TRAYER) is not None, "the tray")

    def icon(self, player):
        """The middle of the icon, once it is there. A tray takes its window in before it shows it."""
        def place():
            for icon in windows_in(self.window) or []:
                if facts_of(icon.split()[0]).get("Map State") != "IsViewable":
                    continue
                size, corner = icon.split()[-2:]
                width, height = (int(side) for side in size.split("+")[0].split("x"))
                left, top = (int(side) for side in corner[1:].split("+"))
                return left + width // 2, top + height // 2
            return None
        return wait_until(place, "the tray icon", player)

    def click(self, player, button=1, times=1):
        x, y = self.icon(player)
        # Two clicks in a hurry are a double click.
        time.sleep(max(0.0, self.clicked + DOUBLE_CLICK - time.monotonic()))
        self.clicked = time.monotonic()
        xdotool("mousemove", x, y, "click", "--repeat", times, "--delay", 80, button)

    def choose(self, player, entry):
        """Picks an entry of the tray menu."""
        menu = Menu(player, lambda: self.click(player, button=3))
        if player.build.tray_menu_has_keys:
            menu.choose(entry)
        else:
            menu.point_at(entry)

    def quit_player(self, player):
        self.choose(player, EXIT)
        check(player.status() == 0, f"the player ended with {player.status()}: {player.words()}")


def restored_from_the_tray(world, tray):
    """A player that was hidden and brought back, and its window."""
    player, window = start_with(world)
    click(window, MINIMISE)
    wait_until_gone(player, window, "the window to hide")
    tray.click(player)
    time.sleep(DOUBLE_CLICK)
    check(window.number not in numbers(player), "a single click brought the window back")
    tray.click(player, times=2)
    return player, comes_back(player, window)


@scenario("a double click on the tray icon brings the hidden window back, a single one does not",
          managed=True)
def restores_from_the_tray(world):
    tray = Tray(world)
    player, _ = restored_from_the_tray(world, tray)
    tray.quit_player(player)


@scenario("a window that the tray icon brought back takes clicks where it stands", managed=True)
def restored_window_takes_clicks(world):
    quit_player(*restored_from_the_tray(world, Tray(world)))


@scenario("every entry of the tray menu does its work, and the last one ends the player",
          managed=True)
def tray_menu(world):
    tray = Tray(world)
    ear = world.listen()
    tones = [world.tone("one.mp3"), world.tone("two.mp3", 660)]
    player, window = start_with(world, tones)
    click(window, MINIMISE)
    wait_until_gone(player, window, "the window to hide")
    tray.choose(player, MAXIMIZED)
    player.face()
    for entry, title in ((OPEN_FILE, OPEN_TITLE), (OPEN_DIRECTORY, player.build.folder_title)):
        tray.choose(player, entry)
        escape(player, player.dialog(title))
    tray.choose(player, PLAY_ENTRY)
    wait_until(lambda: [tone[0] for tone in tones_heard(ear)] == [440], "the first track", player)
    tray.choose(player, NEXT_ENTRY)
    wait_until(lambda: [tone[0] for tone in tones_heard(ear)] == [440, 660], "the next", player)
    tray.choose(player, STOP_ENTRY)
    wait_until(lambda: ear.next(1.0).seconds() == 0.0, "silence", player)
    tray.choose(player, ABOUT)
    about = about_of(player)
    close_about(player, about)
    tray.quit_player(player)
    check(saved_list(world) == list_field(world, tones), f"saved {world.saved()!r}")


@scenario("the tray menu opens at every right click, however fast they come",
          only="linux", because="under Wine the keys don't reach the tray menu, to close it in a hurry",
          managed=True)
def tray_menu_in_a_hurry(world):
    tray = Tray(world)
    player, window = start_with(world)
    Menu(player, lambda: tray.click(player, button=3)).close_by("Escape")
    Menu(player, lambda: xdotool("click", 3)).close_by("Escape")
    quit_player(player, window)


def about_of(player):
    """The about box, by its client area."""
    box = player.dialog(ABOUT_TITLE)
    left, top, right, bottom = player.build.about_frame
    box.left, box.top = box.left + left, box.top + top
    box.size = (box.size[0] - left - right, box.size[1] - top - bottom)
    return box


def close_about(player, about):
    # A window manager may have put it elsewhere since it was first seen.
    click(about_of(player), CLOSE)
    wait_until_gone(player, about, "the about box to close")


def is_blue(colour):
    return colour[2] > 150 and colour[0] < 110 and colour[1] < 110


def blue_rows(screen, window):
    """The rows of the about box's viewport with letters, and a check that none are outside."""
    left, top, right, bottom = VIEWPORT
    inside = [y for y in range(top, bottom)
              if any(is_blue(screen.at(window.left + x, window.top + y))
                     for x in range(left, right))]
    for y in range(window.size[1]):
        for x in range(window.size[0]):
            if not (left <= x < right and top <= y < bottom):
                pixel = screen.at(window.left + x, window.top + y)
                check(pixel != (0, 0, 255), f"a letter shows outside the viewport at {x}, {y}")
    return inside


def look(about):
    """The first row with letters, none if there are none, and between which instants it was so."""
    begun = time.monotonic()
    screen = Screenshot()
    ended = time.monotonic()
    return next(iter(blue_rows(screen, about)), None), begun, ended


@scenario("the about box's credits scroll up by 400 twips a second inside their viewport",
          managed=True)
def about_box(world):
    tray = Tray(world)
    player, window = start_with(world)
    tray.choose(player, ABOUT)
    about = about_of(player)
    check(about.size == ABOUT_SIZE, f"its size is {about.size}")
    check(abs(about.left - (1024 - 297) // 2) <= 8, f"its left edge is {about.left}")
    check(abs(about.top - (768 - 223) // 2) <= 40, f"its top edge is {about.top}")
    first = wait_until(lambda: next((seen for seen in [look(about)] if seen[0] is not None), None),
                       "the first line of the credits", player)
    time.sleep(max(0.0, first[1] + 2.0 - time.monotonic()))
    second = look(about)
    check(second[0] is not None, "the credits have gone")
    moved = first[0] - second[0]
    least, most = (second[1] - first[2]) * SCROLL, (second[2] - first[1]) * SCROLL
    # A busy machine may drop ticks, but never adds any.
    check(0.8 * least - 3 <= moved <= most + 3,
          f"the credits moved {moved} pixels, not {least:.0f} to {most:.0f}")
    # The main window takes no input meanwhile.
    click(window, MINIMISE)
    time.sleep(0.5)
    check(window.number in numbers(player), "the main window took a click")
    xdotool("windowfocus", "--sync", about.number, "key", "alt+c")
    wait_until_gone(player, about, "Alt+C to close the box")
    click(window, MINIMISE)
    wait_until_gone(player, window, "the main window to take a click again")
    # Shown while the main window is hidden too, and closed by its own close box.
    tray.choose(player, ABOUT)
    about = about_of(player)
    activate(about.number, player)
    xdotool("key", "alt+F4")
    wait_until_gone(player, about, "the close box to close it")
    check(player.alive(), "the player ended with the about box")
    tray.quit_player(player)


@scenario("asked to end while the about box is open, the player saves and ends",
          managed=True)
def ended_in_the_about_box(world):
    tray = Tray(world)
    player, _ = start_with(world)
    (world.folder / SETTINGS).unlink()
    tray.choose(player, ABOUT)
    about_of(player)
    player.ask_to_end()
    check(player.status() == 0, f"the player ended with {player.status()}: {player.words()}")
    check(world.saved() == settings_line(world, []), f"saved {world.saved()!r}")


ODD_NAMES = [
    b" two  blanks .mp3", b'"quoted".mp3', b"it's.mp3", "ümläut.mp3".encode(),
    "u\u0308 apart.mp3".encode(), "音乐.mp3".encode(), "🎵.mp3".encode(), b"a*b?.mp3",
    b"back\\slash.mp3", b"new\nline.mp3", b"no utf-8 \xff\xfe\xc3.mp3", b"\xed\xa0\x80.mp3",
    "\uf02a stands for itself.mp3".encode(),
]
HERTZ = [440, 660, 1000]


def host_path(text):
    """The bytes of a path that the player wrote."""
    path = b""
    for character in text:
        byte = ord(character) - 0xF000
        if character == "\\":
            path += b"/"
        elif 0x80 <= byte <= 0xFF or 0 < byte < 0x20 or byte in (0x2A, 0x5C):
            path += bytes([byte])
        else:
            path += character.encode()
    return path


def saved_paths(world):
    return [host_path(path) for path in saved_list(world).split("/") if path]


@scenario("a file named with umlauts, Chinese letters and an emoji plays, and is saved by its name")
def letters_of_the_world(world):
    tone = world.tone("Übung-音楽-😀.mp3", 660)
    ear = world.listen()
    player = world.start(tone)
    window = player.face()
    ear.hears(1.0, player)
    ear.hears_tone(660, player)
    quit_player(player, window)
    check(saved_list(world) == list_field(world, [tone]), f"saved {world.saved()!r}")


@scenario("files with odd names are added, shown, played, saved and loaded byte for byte",
          only="linux", because="on Windows a name is text, without the signs that are odd here")
def odd_names(world):
    top = bytes(world.folder / "odd")
    os.mkdir(top)
    tones = [world.tone(f"{hertz}.mp3", hertz, 6).read_bytes() for hertz in HERTZ]
    pitch = {}
    for place, name in enumerate(ODD_NAMES):
        pitch[top + b"/" + name] = HERTZ[place % 3]
        with open(top + b"/" + name, "wb") as file:
            file.write(tones[place % 3])
    player, window = start_with(world)
    dialog = open_dialog(player, window, DIRECTORY, player.build.folder_title)
    answer(player, dialog, world.build.shown(world.folder / "odd"))
    quit_player(player, window)
    paths = saved_paths(world)
    check(sorted(paths) == sorted(pitch), f"saved {saved_list(world)!r}")
    line = world.saved()

    ear = world.listen()
    player, window = start(world)
    check_rows(player, window)
    click(window, PLAY)
    for place, path in enumerate(paths):
        if place:
            click(window, NEXT)
        before = ear.length()
        hertz = pitch[path]
        wait_until(lambda: ear.next(0.4).tone_in("left", hertz), f"{hertz} Hz of {path!r}", player)
    quit_player(player, window)
    check(world.saved() == line, f"saved {world.saved()!r}, not {line!r}")


def check_rows(player, window):
    """The playlist shows text in each of its three rows."""
    playlist = open_playlist(player, window)

    def all_written():
        screen = Screenshot()
        return all(any(sum(screen.at(playlist.left + x, playlist.top + y)) > 300
                       for x in range(10, 250) for y in range(24 + 13 * row, 24 + 13 * row + 13))
                   for row in range(3))
    wait_until(all_written, "text in all rows", player)
    click(window, PLAYLIST)
    wait_until_gone(player, playlist, "the playlist to hide")
