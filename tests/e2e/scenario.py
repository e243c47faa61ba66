"""The list of scenarios: a sentence and what is done, in the order in which they are written."""

import pathlib
import sys
import traceback

SCENARIOS = {}
MANAGED = {}  # those that window managers tell apart: the managers that can't have one, and why
REASONS = {}  # of the scenarios that drive one system's program only: the system, and why


def scenario(sentence, only=None, because=None, managed=False, unless=None):
    """Takes a function as a scenario, for the programs of all systems or, with a reason, of one.

    Where much is up to the window manager it is `managed`, and runs under several of them, but for
    those in `unless`, each with the reason.
    """
    def keep(function):
        if sentence in SCENARIOS:
            raise ValueError(f"two scenarios say: {sentence}")
        if (only is None) != (because is None):
            raise ValueError(f"what holds for one system only needs a reason: {sentence}")
        SCENARIOS[sentence] = function
        if managed:
            MANAGED[sentence] = unless or {}
        if only:
            REASONS[sentence] = only, because
        return function
    return keep


def of_system(system=None, manager=None):
    """The sentences of the scenarios that drive this system's program, or of all.

    With a window manager, of those that are up to it.
    """
    return [sentence for sentence in SCENARIOS
            if (system is None or REASONS.get(sentence, (system,))[0] == system) and
            (manager is None or manager not in MANAGED.get(sentence, {manager}))]


def left_out_by_systems():
    """A line for each scenario that one system leaves out, with the reason."""
    return [f'- "{sentence}": {because}.' for sentence, (_, because) in REASONS.items()]


def left_out_by_managers():
    """The same for the scenarios that a window manager can't have."""
    return [f'- "{sentence}": {because}.'
            for sentence, unless in MANAGED.items() for because in unless.values()]


def check_list(file, left_out):
    """The status of a check that the file tells of what is left out, and of nothing else."""
    lines = pathlib.Path(file).read_text().splitlines()
    missing = [line for line in left_out if line not in lines]
    strange = [line for line in lines if line.startswith('- "') and line not in left_out]
    for what, wrong in (("has no line", missing), ("has a line of no scenario", strange)):
        for line in wrong:
            print(f"{file} {what}: {line}")
    return 1 if missing or strange else 0


def run(new_world):
    """What a file of scenarios ends in.

    FILE --list [SYSTEM [MANAGER]]   lists them, or those that drive one system's program; of
                              these, those that run under this window manager too
    FILE --check-list TEXT    whether a text tells of each scenario that one system leaves out
    FILE --check-managers TEXT    the same of those that a window manager can't have
    FILE SUBJECT SENTENCE     runs one in a new world
    """
    if sys.argv[1] == "--list":
        print("\n".join(of_system(*sys.argv[2:])))
        sys.exit(0)
    if sys.argv[1] == "--check-list":
        sys.exit(check_list(sys.argv[2], left_out_by_systems()))
    if sys.argv[1] == "--check-managers":
        sys.exit(check_list(sys.argv[2], left_out_by_managers()))
    subject, sentence = sys.argv[1:]
    sys.exit(perform(SCENARIOS[sentence], new_world(subject)))


def perform(function, world):
    """Runs a scenario in its world and gives the exit status."""
    try:
        function(world)
        return 0
    except Exception:
        traceback.print_exc()
        for player in world.players:
            print(f"--- what the player said:\n{player.words()}", file=sys.stderr)
        return 1
    finally:
        world.close()
