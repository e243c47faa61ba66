"""What the checks share: the files of the source tree, and how a check reports."""

import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
CPP = {".cpp", ".h"}


LEFT_OUT = {".git", "build", "dist", "out"}


def tracked():
    listing = subprocess.run(
        ["git", "-c", "safe.directory=*", "ls-files", "-z", "-co", "--exclude-standard"],
        cwd=ROOT, check=True, capture_output=True).stdout
    return [pathlib.Path(name.decode()) for name in listing.split(b"\0") if name]


def walked():
    """For a tree that came without its history, or a machine without git."""
    return [name.relative_to(ROOT) for top in ROOT.iterdir() if top.name not in LEFT_OUT
            for name in ([top] if top.is_file() else top.rglob("*"))]


def files():
    """Every file of the tree that is not ignored, as a path relative to its root."""
    names = tracked() if (ROOT / ".git").exists() and shutil.which("git") else walked()
    return sorted(name for name in names if (ROOT / name).is_file())


def cpp_files():
    return [name for name in files() if name.suffix in CPP]


def lines(name):
    """Numbered lines of a text file; none for a file that is no text."""
    data = (ROOT / name).read_bytes()
    if b"\0" in data[:8192]:
        return []
    return list(enumerate(data.decode("utf-8", "replace").splitlines(), 1))


def finish(faults):
    """Prints the faults and ends the check."""
    for fault in faults:
        print(fault)
    sys.exit(1 if faults else 0)
