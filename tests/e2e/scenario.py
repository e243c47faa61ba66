"""The list of scenarios: a sentence and what is done, in the order in which they are written."""

SCENARIOS = {}


def scenario(sentence):
    """Takes a function as a scenario."""
    def keep(function):
        if sentence in SCENARIOS:
            raise ValueError(f"two scenarios say: {sentence}")
        SCENARIOS[sentence] = function
        return function
    return keep
