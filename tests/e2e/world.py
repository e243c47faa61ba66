"""What the scenarios act with: the player as a user runs it, its windows, the screen, the sound.

Every wait is for a condition, with a limit that only a broken player or machine reaches.
"""

import contextlib
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

from program import ROOT, build_of

sys.path.insert(0, str(ROOT / "tests" / "desktop"))
import hear  # noqa: E402

PATIENCE = 60
SCREEN = (1024, 768)
ROOT_COLOUR = (0x33, 0x66, 0x77)
WINDOW = (276, 82)
LARGEST_ICON = 64
SETTINGS = "MyPlayerSettings.mps"


def check(condition, message):
    """A scenario's claim; unlike an assertion it cannot be switched off."""
    if not condition:
        raise AssertionError(message)


def wait_until(condition, what, player=None):
    """Waits for a condition, and gives its value."""
    deadline = time.monotonic() + PATIENCE
    while True:
        value = condition()
        if value:
            return value
        if player is not None and player.process.poll() is not None:
            raise AssertionError(f"the player ended before: {what}")
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {PATIENCE} s in vain for: {what}{under_the_pointer()}")
        time.sleep(0.05)


def under_the_pointer():
    """Where the pointer is, and the windows on the screen from the lowest up: who got a lost click."""
    place = output_of("xdotool", "getmouselocation").decode().strip()
    windows = output_of("xwininfo", "-root", "-tree").decode()
    return f"\nThe pointer: {place}\n{windows}"


def slowness():
    """How many times longer work takes than on a machine that has nothing else to do."""
    return max(1.0, os.getloadavg()[0] / os.cpu_count())


def output_of(*command):
    """What a command prints; empty when it fails, as a search without a result does."""
    run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
    return run.stdout if run.returncode == 0 else b""


def shown_windows(process):
    """The numbers of a process's windows on the screen."""
    def found():
        run = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(process)],
                             stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
        # A window that goes while the search looks at it ends the search, which tells nothing then.
        return None if b"X Error" in run.stderr else [run.stdout.decode().split()]
    return wait_until(found, "a search for windows that none disturbs")[0]


def activate(number, player):
    """Has the window manager give a window the keyboard. Where none has it for a moment, xdotool's own
    waiting gives up."""
    subprocess.run(["xdotool", "windowactivate", number], check=True)
    wait_until(lambda: output_of("xdotool", "getactivewindow").decode().strip() == number,
               "the keyboard in a window", player)


def facts_of(number, *more):
    """What the display tells of a window; nothing if there is no such window."""
    return dict(line.strip().rsplit(": ", 1)
                for line in output_of("xwininfo", "-id", number, *more).decode().splitlines()
                if ": " in line and not line.startswith("xwininfo"))


class Window:
    def __init__(self, number):
        self.number = number
        self.frame = None  # the window manager's own window around it, where that matters
        facts = facts_of(number)
        self.left = int(facts.get("Absolute upper-left X", "0"))
        self.top = int(facts.get("Absolute upper-left Y", "0"))
        self.size = (int(facts.get("Width", "0")), int(facts.get("Height", "0")))

    def title(self):
        return output_of("xdotool", "getwindowname", self.number).decode().strip()

    def frame_is_shown(self):
        """Whether the frame still takes clicks: it goes after its window, on a busy machine late."""
        return self.frame is not None and facts_of(self.frame).get("Map State") == "IsViewable"


class Screenshot:
    """The whole screen's pixels at one moment."""

    def __init__(self):
        self.pixels = output_of("import", "-window", "root", "-depth", "8", "rgb:-")
        check(len(self.pixels) == 3 * SCREEN[0] * SCREEN[1], "the screenshot is not the screen")

    def at(self, x, y):
        place = 3 * (y * SCREEN[0] + x)
        return tuple(self.pixels[place:place + 3])

    def part(self, left, top, size):
        """The rows of a part of the screen."""
        width, height = size
        starts = (3 * (y * SCREEN[0] + left) for y in range(top, top + height))
        return [self.pixels[start:start + 3 * width] for start in starts]

    def is_root(self, x, y):
        return self.at(x, y) == ROOT_COLOUR


class Player:
    """The shipped program, started as a user starts it, from a folder of its own.

    `under` is a command to start it with, such as one that takes rights away.
    """

    def __init__(self, build, folder, *arguments, log=None, under=(), **changes):
        self.build = build
        environment = {name: value for name, value in {**os.environ, **changes}.items()
                       if value is not None}
        self.log = log or pathlib.Path(folder) / "player.log"
        with open(self.log, "ab") as log:
            self.process = subprocess.Popen(
                [*under, *build.command(pathlib.Path(folder) / build.file, arguments)],
                cwd=folder, env=environment, stdin=subprocess.DEVNULL, stdout=log, stderr=log)

    def windows(self):
        return [Window(number) for number in shown_windows(self.process.pid)]

    def face(self):
        """The main window, once it is on the screen."""
        return wait_until(
            lambda: next((window for window in self.windows() if window.size == WINDOW), None),
            "the player's window", self)

    def dialog(self, title):
        """A window with this title, once it is on the screen. The tray's icon may have it too."""
        window = wait_until(
            lambda: next((window for window in self.windows()
                          if window.size[0] > LARGEST_ICON and window.title() == title), None),
            f"a window with the title '{title}'", self)
        window.frame = self.build.frame_of(window)
        return window

    def ask_to_end(self):
        """Has the system ask it to end."""
        self.build.ask_to_end(self)

    def alive(self):
        return self.process.poll() is None

    def status(self):
        """The exit status, once it has ended."""
        try:
            return self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired as error:
            keyboard = output_of("xdotool", "getactivewindow").decode().strip()
            raise AssertionError(f"{error}; the keyboard is in window {keyboard or 'none'}"
                                 f"{under_the_pointer()}") from error

    def words(self):
        return self.log.read_text(errors="replace")


class Ear:
    """Records what the desktop's sound server plays, from its making on."""

    def __init__(self, folder):
        self.path = pathlib.Path(folder) / "sound.raw"
        with open(self.path, "wb") as file:
            self.process = subprocess.Popen(
                ["parec", "--device=out.monitor", "--format=s16le", f"--rate={hear.RATE}",
                 "--channels=2", "--latency-msec=20"], stdout=file)
        wait_until(lambda: self.path.stat().st_size > 0, "the recorder's first sample")

    def so_far(self):
        return hear.Recording(self.path)

    def length(self):
        """Seconds recorded, sound or not."""
        return self.path.stat().st_size / (4 * hear.RATE)

    def hears_tone(self, hertz, player, channel="left"):
        """Waits until what has sounded is a tone. A busy machine tears holes into its beginning."""
        def heard():
            recording = self.so_far()
            return recording.sounding and recording.tone_in(channel, hertz)
        wait_until(heard, f"a tone of {hertz} Hz in the {channel} channel", player)

    def hears(self, seconds, player):
        """Waits for that much more sound."""
        before = self.so_far().seconds()
        wait_until(lambda: self.so_far().seconds() >= before + seconds, f"{seconds} s of sound",
                   player)

    def next(self, seconds):
        """The recording of the next seconds, sound or not."""
        start = self.length()
        wait_until(lambda: self.length() >= start + seconds, "the recorder to go on")
        recording = self.so_far()
        recording.sounding = [block for block in recording.sounding
                              if block.start >= start * hear.RATE]
        return recording


class World:
    """A scenario's own folder, and all that it started, which ends with it."""

    def __init__(self, program):
        self.program = program
        self.build = build_of(program)
        self.stack = contextlib.ExitStack()
        # A button that stays down takes the next scenario's first click.
        self.stack.callback(output_of, "xdotool", "mouseup", "1", "mouseup", "2", "mouseup", "3")
        self.folder = pathlib.Path(self.stack.enter_context(tempfile.TemporaryDirectory()))
        self.players = []

    def start(self, *arguments, **changes):
        if not (self.folder / self.build.file).exists():
            shutil.copy2(self.program, self.folder / self.build.file)
        return self.keep(Player(self.build, self.folder, *arguments, **changes))

    def keep(self, player):
        """Takes a player in, to end with this world."""
        self.players.append(player)
        self.stack.callback(self.end, player.process)
        return player

    def save(self, line):
        """Makes the settings file hold this line."""
        (self.folder / SETTINGS).write_bytes((line + self.build.line_end).encode())

    def saved(self):
        """The line that the settings file holds."""
        text = (self.folder / SETTINGS).read_bytes().decode()
        check(text.count("\n") == 1 and text.endswith(self.build.line_end),
              f"saved {text!r}, which is not one whole line")
        return text.removesuffix(self.build.line_end)

    def found_at_start(self):
        """The line that the next start finds. On Windows the old file may still bear another name."""
        settings, aside = self.folder / SETTINGS, self.folder / f"{SETTINGS}.old"
        if self.build.sets_settings_aside and aside.exists() and not settings.exists():
            aside.rename(settings)
        return self.saved()

    def listen(self):
        ear = Ear(self.folder)
        self.stack.callback(self.end, ear.process)
        return ear

    def tone(self, name, hertz=440, seconds=20):
        """An MP3 file with a tone in both channels."""
        wave = self.folder / "tone.wav"
        path = self.folder / name
        subprocess.run(["sox", "-n", "-r", str(hear.RATE), "-c", "2", "-b", "16", wave, "synth",
                        str(seconds), "sine", str(hertz), "gain", "-6"], check=True)
        subprocess.run(["lame", "--quiet", wave, path], check=True)
        wave.unlink()
        return path

    @staticmethod
    def end(process):
        if process.poll() is None:
            process.kill()
        process.wait()

    def close(self):
        self.stack.close()
