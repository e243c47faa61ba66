"""The changes that make no difference that anybody could see, each with its reason.

They stand in equivalents/, in a file for each folder of the sources. One a paragraph: the file, what
stands there, what stands there instead, and why that is the same.

    playback/tick.cpp
    - the line or lines as they are
    + as they become, or nothing
    The reason, in a line or more.
"""

import pathlib

FOLDER = pathlib.Path(__file__).with_name("equivalents")


def squeezed(text):
    return " ".join(text.split())


class Known:
    def __init__(self, entries):
        self.entries = entries

    def holds(self, change):
        return (change.path, change.before, change.after) in self.entries

    def stale(self, paths, every):
        """The entries of these files that are of none of these changes, all that can be made."""
        made = {(change.path, change.before, change.after) for change in every}
        return sorted(one for one in self.entries - made if one[0] in paths)


def read():
    return Known({entry(file, paragraph.splitlines()) for file in sorted(FOLDER.iterdir())
                  for paragraph in file.read_text().strip().split("\n\n")})


def entry(file, lines):
    before = squeezed(" ".join(line[1:] for line in lines if line.startswith("-")))
    after = squeezed(" ".join(line[1:] for line in lines if line.startswith("+")))
    reason = [line for line in lines[1:] if line[0] not in "-+"]
    if not lines[0].startswith(f"{file.name}/") or not before or not reason:
        raise SystemExit(f"{file}: the entry of {lines[0]} lacks its lines or its reason, or "
                         "belongs elsewhere")
    return lines[0].strip(), before, after
