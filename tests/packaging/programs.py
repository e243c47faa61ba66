"""What stands in the header of a program for Windows, and which libraries it asks for."""

import dataclasses
import re
import struct
import subprocess

MACHINES = {"x86": 0x014C, "x64": 0x8664}
WINDOWS = 2  # a subsystem: no console
TOOLS = {"x86": "i686-w64-mingw32-objdump", "x64": "x86_64-w64-mingw32-objdump"}

# What every Windows that the player runs on has.
SYSTEM_LIBRARIES = {"advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "kernel32.dll",
                    "msvcrt.dll", "ole32.dll", "shell32.dll", "user32.dll", "winmm.dll"}


@dataclasses.dataclass
class Header:
    machine: int
    time: int  # seconds since 1970
    symbols: int
    subsystem: int


def header(program):
    (start,) = struct.unpack_from("<I", program, 0x3C)
    mark, machine, _, time, _, symbols = struct.unpack_from("<4sHHIII", program, start)
    if mark != b"PE\0\0":
        raise AssertionError("this is no program for Windows")
    # In both formats of the part that follows this header of 24 bytes.
    (subsystem,) = struct.unpack_from("<H", program, start + 24 + 68)
    return Header(machine, time, symbols, subsystem)


def libraries(path, word):
    listing = subprocess.run([TOOLS[word], "-p", path], check=True, stdout=subprocess.PIPE).stdout
    return {name.lower() for name in re.findall(r"DLL Name: (\S+)", listing.decode())}
