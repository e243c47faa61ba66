"""A copy of the sources to try changes on, held by one run at a time.

The copy is why the sources may be edited during a run: a change is put where its text stood when the
run began, and what is compiled against it must be of the same moment.
"""

import contextlib
import fcntl
import filecmp
import shutil

MADE = {"build", "dist", "out", ".git"}  # folders of no sources


@contextlib.contextmanager
def held(folder):
    """Holds a folder until the block ends; a run that finds it held by another waits. Two runs in
    one build would write the libraries and objects that the other one is linking."""
    folder.mkdir(parents=True, exist_ok=True)
    with open(folder / "held", "w") as lock:
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            print(f"waiting for another run to leave {folder}", flush=True)
            fcntl.flock(lock, fcntl.LOCK_EX)
        yield


def files_of(root):
    top = [path for path in root.iterdir() if path.name not in MADE]
    inside = [path for folder in top if folder.is_dir() for path in folder.rglob("*")]
    return {path.relative_to(root) for path in top + inside
            if path.is_file() and "__pycache__" not in path.parts}


def copied(root, copy):
    """Brings the copy up to date; files that are the same keep their time, so that only what
    differs is built anew."""
    names = files_of(root)
    for old in [path for path in copy.rglob("*") if path.is_file()]:
        if old.relative_to(copy) not in names:
            old.unlink()
    for name in names:
        own, other = root / name, copy / name
        if not other.exists() or not filecmp.cmp(own, other, shallow=False):
            other.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(own, other)
