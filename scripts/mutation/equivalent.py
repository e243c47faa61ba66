"""The changes that make no difference that anybody could see, each with its reason.

One a paragraph: the file, what stands there, what stands there instead, and why that is the same.

    playback/tick.cpp
    - the line or lines as they are
    + as they become, or nothing
    The reason, in a line or more.
"""

import pathlib

FILE = pathlib.Path(__file__).with_name("equivalent")


def squeezed(text):
    return " ".join(text.split())


class Known:
    def __init__(self, entries):
        self.entries = entries

    def holds(self, change):
        return (change.path, change.before, change.after) in self.entries


def read():
    entries = set()
    for paragraph in FILE.read_text().split("\n\n"):
        lines = [line for line in paragraph.splitlines() if not line.startswith("#")]
        if not lines:
            continue
        before = squeezed(" ".join(line[1:] for line in lines if line.startswith("-")))
        after = squeezed(" ".join(line[1:] for line in lines if line.startswith("+")))
        reason = [line for line in lines[1:] if line[0] not in "-+"]
        if not before or not reason:
            raise SystemExit(f"{FILE}: an entry of {lines[0]} lacks its lines or its reason")
        entries.add((lines[0].strip(), before, after))
    return Known(entries)
