"""The list of scenarios: a sentence and what is done, in the order in which they are written."""

import pathlib
import sys
import traceback

SCENARIOS = {}
MANAGED = set()  # those that window managers tell apart
REASONS = {}  # of the scenarios that drive one system's program only: the system, and why


def scenario(sentence, only=None, because=None, managed=False):
    """Takes a function as a scenario, for the programs of all systems or, with a reason, of one.

    Where much is up to the window manager it is `managed`, and runs under several of them.
    """
    def keep(function):
        if sentence in SCENARIOS:
            raise ValueError(f"two scenarios say: {sentence}")
        if (only is None) != (because is None):
            raise ValueError(f"what holds for one system only needs a reason: {sentence}")
        SCENARIOS[sentence] = function
        if managed:
            MANAGED.add(sentence)
        if only:
            REASONS[sentence] = only, because
        return function
    return keep


def of_system(system=None, which="all"):
    """The sentences of the scenarios that drive this system's program, or of all."""
    return [sentence for sentence in SCENARIOS
            if (system is None or REASONS.get(sentence, (system,))[0] == system) and
            (which == "all" or sentence in MANAGED)]


def left_out():
    """A line for each scenario that one system leaves out, with the reason."""
    return [f'- "{sentence}": {because}.' for sentence, (_, because) in REASONS.items()]


def check_list(file):
    """The status of a check that the file tells of what is left out, and of nothing else."""
    lines = pathlib.Path(file).read_text().splitlines()
    missing = [line for line in left_out() if line not in lines]
    strange = [line for line in lines if line.startswith('- "') and line not in left_out()]
    for what, wrong in (("has no line", missing), ("has a line of no scenario", strange)):
        for line in wrong:
            print(f"{file} {what}: {line}")
    return 1 if missing or strange else 0


def run(new_world):
    """What a file of scenarios ends in.

    FILE --list [SYSTEM [managed]]   lists them, or those that drive one system's program; of
                              these, those that are up to the window manager
    FILE --check-list TEXT    whether a text tells of each scenario that one system leaves out
    FILE SUBJECT SENTENCE     runs one in a new world
    """
    if sys.argv[1] == "--list":
        print("\n".join(of_system(*sys.argv[2:])))
        sys.exit(0)
    if sys.argv[1] == "--check-list":
        sys.exit(check_list(sys.argv[2]))
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
