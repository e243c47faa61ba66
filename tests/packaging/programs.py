"""What stands in the header of a program for Windows, and which libraries it asks for."""

import dataclasses
import pathlib
import re
import struct
import subprocess

MACHINES = {"x86": 0x014C, "x64": 0x8664}
WINDOWS = 2  # a subsystem: no console
TOOLS = {"x86": "i686-w64-mingw32-objdump", "x64": "x86_64-w64-mingw32-objdump"}
COMPILER = "x86_64-w64-mingw32-g++"

RUNTIMES = {"x86": "mingw-w64-i686-dev", "x64": "mingw-w64-x86-64-dev"}

# Laid out at random, with data that is no code; of 64 bits also anywhere in them.
SAFETY = {"x86": 0x0140, "x64": 0x0160}

# All that either program may call: what every Windows has that they run on, and nothing that reads
# like a program that meddles with others. Lines of a library and a name.
IMPORTS = pathlib.Path(__file__).with_name("windows_imports")


@dataclasses.dataclass
class Header:
    machine: int
    time: int  # seconds since 1970
    symbols: int
    subsystem: int
    system: tuple  # the oldest Windows: its version, and the part behind the point
    safety: int  # bits


def header(program):
    (start,) = struct.unpack_from("<I", program, 0x3C)
    mark, machine, _, time, _, symbols = struct.unpack_from("<4sHHIII", program, start)
    if mark != b"PE\0\0":
        raise AssertionError("this is no program for Windows")
    # In both formats of the part that follows this header of 24 bytes.
    optional = start + 24
    system = struct.unpack_from("<HH", program, optional + 48)
    subsystem, safety = struct.unpack_from("<HH", program, optional + 68)
    return Header(machine, time, symbols, subsystem, system, safety)


def imports(path, word):
    """What a program calls: pairs of a library and a name."""
    listing = subprocess.run([TOOLS[word], "-p", path], check=True, stdout=subprocess.PIPE).stdout
    found = set()
    library = None
    for line in listing.decode().splitlines():
        if name := re.match(r"\s+DLL Name: (\S+)", line):
            library = name[1].lower()
        # A newer listing has the ordinal first, where there is one.
        elif entry := re.match(r"\t[0-9a-f]+\s+(?:<none>\s+)?[0-9a-f]+\s+(\S+)$", line):
            found.add((library, entry[1]))
        elif not line.strip():
            library = None
    return {pair for pair in found if pair[0]}


def allowed_imports():
    """What the programs call, and of the compiler's own runtime what this release of it does."""
    told = subprocess.run([COMPILER, "-dumpversion"], check=True, stdout=subprocess.PIPE).stdout
    compiler = re.match(r"\d+", told.decode())[0]
    runtime = IMPORTS.with_suffix(f".gcc{compiler}")
    if not runtime.exists():
        raise AssertionError(f"nobody has listed yet what the runtime of GCC {compiler} calls")
    return {tuple(line.split()) for file in (IMPORTS, runtime)
            for line in file.read_text().splitlines()}
