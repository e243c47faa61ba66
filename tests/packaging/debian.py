"""The Debian package, and a copy of the machine's package database to install it with."""

import os
import pathlib
import re
import shutil
import subprocess

DATABASE = pathlib.Path("/var/lib/dpkg")
NOT_COPIED = shutil.ignore_patterns("lock*", "*-old", "triggers")  # triggers act on the machine


def package_in(dist):
    (package,) = pathlib.Path(dist).glob("orvan_*.deb")
    return package


def depends_of(package):
    """The names of the packages that it can't do without."""
    text = subprocess.run(["dpkg-deb", "--field", package, "Depends"], check=True,
                          stdout=subprocess.PIPE, text=True).stdout
    return [entry.split()[0] for entry in text.split(",")]


def unpacked(package, folder):
    """What the package installs, without installing it."""
    subprocess.run(["dpkg-deb", "--extract", package, folder], check=True)
    return folder


class Machine:
    """A folder to install into; the packages that the machine has count as installed there."""

    def __init__(self, folder):
        self.root = pathlib.Path(folder) / "machine"
        self.root.mkdir()
        self.database = pathlib.Path(folder) / "database"
        shutil.copytree(DATABASE, self.database, ignore=NOT_COPIED)
        self.log = pathlib.Path(folder) / "dpkg.log"

    def forget(self, name):
        """From now on this package is not installed there."""
        status = self.database / "status"
        text = status.read_text()
        entry = re.compile(rf"^Package: {re.escape(name)}\n(?:.+\n)*\n?", re.MULTILINE)
        if not entry.search(text):
            raise AssertionError(f"{name} is not installed on this machine")
        status.write_text(entry.sub("", text))

    def dpkg(self, *arguments):
        """Runs dpkg on this folder; its status and what it said."""
        paths = os.environ["PATH"] + ":/usr/local/sbin:/usr/sbin:/sbin"
        run = subprocess.run(
            ["dpkg", f"--admindir={self.database}", f"--instdir={self.root}", f"--log={self.log}",
             "--force-not-root", "--no-triggers", *map(str, arguments)],
            env={**os.environ, "PATH": paths}, stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        return run.returncode, run.stdout

    def state_of(self, name):
        run = subprocess.run(
            ["dpkg-query", f"--admindir={self.database}", "--show",
             "--showformat=${db:Status-Status}", name],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False)
        return run.stdout
