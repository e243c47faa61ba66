"""The program under test: what differs between its builds, as seen from outside.

A run of scenarios.py tests one program; its file name tells which build it is.
"""

import getpass
import os
import pathlib
import re
import signal
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
WINE = ROOT / "tests" / "wine" / "wine"


def quietly(*command, **more):
    """Runs a command of Wine's. What it leaves behind must not hold on to this program's output."""
    subprocess.run(command, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, **more)


def quietly_told(*command):
    """What a command prints."""
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          text=True).stdout


def type_into(text):
    """Types into the dialog that has the keyboard, and confirms it."""
    quietly("xdotool", "type", "--delay", "20", str(text))
    quietly("xdotool", "key", "Return")


class Linux:
    system = "linux"
    file = "orvan"
    line_end = "\n"
    blanks = "  "
    reads_pointer_late = False
    foreign_corner = (0, 0)
    folder_title = "Browse for folder"
    tray_menu_has_keys = True
    late_sound = 0.0
    sets_settings_aside = False
    about_frame = (0, 0, 0, 0)  # left, top, right, bottom, as far as it is the program's own

    def command(self, program, arguments):
        return [str(program), *map(str, arguments)]

    def tail(self, text):
        """The arguments that make the player's command-line tail this text."""
        return [text]

    def path(self, host):
        """A host's path as the player writes it."""
        return str(host).replace("/", "\\")

    def shown(self, host):
        """A path as people see and type it."""
        return str(host)

    def pick_folder(self, world, folder):
        """Picks a folder in the dialog for it, which has the keyboard; gives the path it is by then."""
        type_into(self.shown(folder))
        return folder

    def ask_to_end(self, player):
        """What the system does to a running player when the session ends."""
        player.process.send_signal(signal.SIGTERM)

    def ended_in_order(self, status):
        """Whether that is the exit status of a player that was asked to end."""
        return status == 0

    def frame_of(self, window):
        """The window manager's own window around this one, if it has one."""
        told = quietly_told("xwininfo", "-id", window.number, "-tree")
        parent = re.search(r"Parent window id: (0x[0-9a-f]+)(.*)", told)
        return None if parent is None or "root window" in parent[2] else parent[1]

    def scaled(self, world, scale):
        """Gives a player's environment on a display of that scale, until the world ends."""
        return {"QT_SCALE_FACTOR": str(scale)}

    def work_area_changes(self):
        """Called when the panels have changed and no player runs."""


class Windows:
    """The program for Windows under Wine, in the Wine folder that tests/wine/prefix has made."""

    system = "windows"
    file = "Orvan.exe"
    line_end = "\r\n"
    blanks = " "  # Wine makes the command line of its arguments, with one between them
    # The place of a press is where the pointer is when the player gets to the press.
    reads_pointer_late = True
    folder_title = "Browse for Folder"  # Wine's own; the player's stands inside
    tray_menu_has_keys = False  # Wine leaves the keyboard where it was before the click
    # Seconds by which Wine's sound may begin late, which are missing at the end then.
    late_sound = 0.8
    sets_settings_aside = True  # until the new ones have their name
    foreign_corner = (170, 54)  # at the top left, Wine's own window with the icons of the tray

    def __init__(self):
        self.display_changed = False

    @property
    def own_folder(self):
        """Wine's folder on the host."""
        return pathlib.Path.home() / "wine"

    @property
    def about_frame(self):
        # Each Wine has a height of its own for small captions.
        settings = (self.own_folder / "user.reg").read_text(errors="replace")
        height = int(re.search(r'^"SmCaptionHeight"="(\d+)"', settings, re.MULTILINE)[1])
        edge, border = 3, 1
        return (edge, edge + height + border, edge, edge)

    def command(self, program, arguments):
        arguments = [self.path(one) if isinstance(one, pathlib.Path) else str(one)
                     for one in arguments]
        return [str(WINE), str(program), *arguments]

    def tail(self, text):
        return text.split(self.blanks)  # not in one, as the quotes would belong to it

    def path(self, host):
        if isinstance(host, pathlib.PureWindowsPath):
            return str(host)
        return "Z:" + str(host).replace("/", "\\")

    def shown(self, host):
        return self.path(host)

    def pick_folder(self, world, folder):
        # The dialog is a tree without a place to type a path; its root is the desktop's folder, which
        # is the home folder for some Wines.
        link = self.own_folder / "drive_c/users" / getpass.getuser() / "Desktop" / folder.name
        link.symlink_to(folder)
        world.stack.callback(link.unlink)
        quietly("xdotool", "key", "shift+Tab", "key", "Home")
        type_into(folder.name)
        return pathlib.PureWindowsPath("C:/users", getpass.getuser(), "Desktop", folder.name)

    def ask_to_end(self, player):
        quietly(WINE, "wineboot", "--end-session")

    def ended_in_order(self, status):
        # Wine kills whoever is still on the way out, and so tells less than a status of the player's.
        return status in (0, -signal.SIGKILL)

    def frame_of(self, window):
        return None  # Wine draws its frames inside its windows

    def scaled(self, world, scale):
        if not self.display_changed:
            world.stack.callback(self.display_as_usual, world)
            self.display_changed = True
        # Without the window manager, as Wine sometimes takes the place of a window in its frame for
        # the one on the screen: a window that stands at its place by a press would jump by the drag.
        self.set_display(world, round(96 * scale), '"N"')
        return {}

    def set_display(self, world, pixels, managed):
        settings = world.folder / "display.reg"
        settings.write_text("\r\n".join([
            "REGEDIT4", r"[HKEY_CURRENT_USER\Control Panel\Desktop]",
            f'"LogPixels"=dword:{pixels:x}',
            r"[HKEY_CURRENT_USER\Software\Wine\X11 Driver]", f'"Managed"={managed}', ""]))
        quietly(WINE, "reg", "import", self.path(settings))
        # A newer Wine asks for these at its start alone, and the old session's tray may have been made
        # for the other display.
        self.new_session()

    def display_as_usual(self, world):
        self.set_display(world, 96, "-")

    def work_area_changes(self):
        self.new_session()  # Wine asks for it once, at the start

    def new_session(self):
        """Ends Wine's session, and all that runs in it."""
        environment = {**os.environ, "WINEPREFIX": str(self.own_folder)}
        for option in ("-k", "-w", "-p"):
            quietly("wineserver", option, env=environment)


def build_of(program):
    """The build whose program has this file name; a package's is the one for Linux."""
    return Windows() if pathlib.Path(program).name == Windows.file else Linux()
