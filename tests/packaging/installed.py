#!/usr/bin/env -S python3 -B
"""The player as its Debian package installs it, started on the desktop.

installed.py --list          the scenarios' names, a line each
installed.py DIST SENTENCE   runs one
"""

import contextlib
import os
import pathlib
import signal
import sys

from debian import Machine, package_in

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))
from scenario import run, scenario  # noqa: E402
from world import WINDOW, Player, World, check, output_of  # noqa: E402

# Where only root may write, root may too; who listens to music is somebody else.
WITHOUT_ROOTS_RIGHTS = ["setpriv", "--bounding-set=-dac_override"] if os.geteuid() == 0 else []


def installed(world):
    machine = Machine(world.folder)
    status, said = machine.dpkg("--install", package_in(world.program))
    check(status == 0, said)
    check(machine.state_of("orvan") == "installed", f"it is {machine.state_of('orvan')}")
    return machine


@contextlib.contextmanager
def started(world, machine, *arguments):
    """The installed player, run by somebody who may not write into the system's folders."""
    folder = machine.root / "usr" / "bin"
    folder.chmod(0o555)
    try:
        yield world.keep(Player(world.build, folder, *arguments, log=world.folder / "player.log",
                                under=WITHOUT_ROOTS_RIGHTS,
                                XDG_CONFIG_HOME=str(world.folder / "settings")))
    finally:
        folder.chmod(0o755)


def end(player):
    player.process.send_signal(signal.SIGTERM)
    check(player.status() == 0, f"the player ended with {player.status()}")


@scenario("the installed player shows its window, sounds, and ends in order")
def shows_and_sounds(world):
    tone = world.tone("a tone.mp3", 660)
    ear = world.listen()
    with started(world, installed(world), tone) as player:
        check(player.face().size == WINDOW, "it is no player's window")
        ear.hears(2.0, player)
        recording = ear.so_far()
        for channel in ("left", "right"):
            check(recording.tone_in(channel, 660), f"no 660 Hz in the {channel} channel")
        end(player)


@scenario("the installed player's window is the one that its menu entry announces")
def belongs_to_its_entry(world):
    machine = installed(world)
    with started(world, machine) as player:
        names = output_of("xprop", "-id", player.face().number, "WM_CLASS").decode()
    entry = machine.root / "usr" / "share" / "applications" / "orvan.desktop"
    (announced,) = (line.partition("=")[2] for line in entry.read_text().splitlines()
                    if line.startswith("StartupWMClass="))
    check(f'"{announced}"' in names, f"the window says {names}, the entry {announced}")


@scenario("the installed player keeps its settings with the user, and removing it leaves nothing")
def removed(world):
    machine = installed(world)
    with started(world, machine) as player:
        player.face()
        end(player)
    check((world.folder / "settings" / "orvan" / "MyPlayerSettings.mps").is_file(),
          "the settings are not with the user")
    status, said = machine.dpkg("--purge", "orvan")
    check(status == 0, said)
    left = list(machine.root.iterdir())
    check(not left, f"left behind: {left}")
    check(machine.state_of("orvan") in ("", "not-installed"), "it still counts as installed")


run(World)
