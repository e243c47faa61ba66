"""The list of scenarios: a sentence and what is done, in the order in which they are written."""

SCENARIOS = {}
REASONS = {}  # of the scenarios that drive one system's program only: the system, and why


def scenario(sentence, only=None, because=None):
    """Takes a function as a scenario, for the programs of all systems or, with a reason, of one."""
    def keep(function):
        if sentence in SCENARIOS:
            raise ValueError(f"two scenarios say: {sentence}")
        if (only is None) != (because is None):
            raise ValueError(f"what holds for one system only needs a reason: {sentence}")
        SCENARIOS[sentence] = function
        if only:
            REASONS[sentence] = only, because
        return function
    return keep


def of_system(system):
    """The sentences of the scenarios that drive this system's program."""
    return [sentence for sentence in SCENARIOS
            if sentence not in REASONS or REASONS[sentence][0] == system]
