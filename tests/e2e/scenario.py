"""The list of scenarios: a sentence and what is done, in the order in which they are written."""

import sys
import traceback

SCENARIOS = {}


def scenario(sentence):
    """Takes a function as a scenario."""
    def keep(function):
        if sentence in SCENARIOS:
            raise ValueError(f"two scenarios say: {sentence}")
        SCENARIOS[sentence] = function
        return function
    return keep


def run(new_world):
    """What a file of scenarios ends in: lists them, or runs the one asked for in a new world."""
    if sys.argv[1:] == ["--list"]:
        print("\n".join(SCENARIOS))
        sys.exit(0)
    subject, sentence = sys.argv[1:]
    world = new_world(subject)
    try:
        SCENARIOS[sentence](world)
        status = 0
    except Exception:
        traceback.print_exc()
        for player in world.players:
            print(f"--- what the player said:\n{player.words()}", file=sys.stderr)
        status = 1
    finally:
        world.close()
    sys.exit(status)
