"""Another clock for a program: that of faketime's library.

Processes share such a clock by names in /dev/shm that are made of its first process's number. What is
killed leaves them there, and the command that starts a program with another clock gives up where they
are when the number comes round again.
"""

import glob
import pathlib

from world import check

NAMES = "/dev/shm/faketime_shm_{0}", "/dev/shm/sem.faketime_sem_{0}"


def at_time(moment, *command):
    """A command that runs another one from this moment on, by its clock and those of all it starts."""
    # Nobody who lives has the number of the process that starts it, so such names are a dead one's.
    left = " ".join(name.format("$$") for name in NAMES)
    return ["bash", "-c", f'rm -f {left}; exec faketime "$@"', "bash", moment, *command]


def clock_from(moment):
    """What a program's environment tells for its clock to go on from this moment, in UTC."""
    library = glob.glob("/usr/lib/*/faketime/libfaketimeMT.so.1")
    check(library, "the library that fakes the clock is not installed")
    return {"LD_PRELOAD": library[0], "FAKETIME": f"@{moment}", "TZ": "UTC",
            "FAKETIME_DONT_FAKE_MONOTONIC": "1"}


def forget_clock(number):
    """Removes the names of the process that had this number, and another clock."""
    for name in NAMES:
        pathlib.Path(name.format(number)).unlink(missing_ok=True)
