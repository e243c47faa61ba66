#!/usr/bin/env -S python3 -B
"""What lies in dist/, looked at without a display.

packages.py --list          the scenarios' names, a line each
packages.py DIST SENTENCE   runs one
"""

import hashlib
import os
import pathlib
import re
import struct
import subprocess
import sys
import zipfile

import programs
from debian import Machine, depends_of, package_in, unpacked

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))
from clock import NAMES, at_time  # noqa: E402
from scenario import run, scenario  # noqa: E402
from world import World, check  # noqa: E402

README = "Readme.txt"
GUIDE = "Using.txt"
PROGRAM = "Orvan.exe"
LICENCE = "MinGW-w64.txt"
SUMS = "SHA256SUMS"


def zip_of(world, word):
    return zipfile.ZipFile(pathlib.Path(world.program) / f"orvan-windows-{word}.zip")


def windows_programs(world):
    """Each program for Windows as it is packed: its word, and its bytes."""
    for word in programs.MACHINES:
        with zip_of(world, word) as packed:
            yield word, packed.read(PROGRAM)


@scenario("each zip holds the program, the readme, the guide, the runtime's licence and nothing else")
def zips_are_complete(world):
    for word in programs.MACHINES:
        with zip_of(world, word) as packed:
            check(packed.testzip() is None, f"the zip {word} is damaged")
            names = packed.namelist()
            check(names == [LICENCE, PROGRAM, README, GUIDE], f"the zip {word} holds {names}")
            built = (ROOT / "build" / f"windows-{word}" / PROGRAM).read_bytes()
            check(packed.read(PROGRAM) == built, f"the program {word} is not the one that was built")


@scenario("Debian's own checker finds nothing to say about the package, however small")
def lintian(world):
    run_of = subprocess.run(
        ["lintian", "--allow-root", "--profile", "debian", "--display-info", "--display-experimental",
         "--pedantic", package_in(world.program)],
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False,
        # In the tests' temporary folder and the language that Debian's tools are written in.
        env={**os.environ, "TMPDIR": str(world.folder), "LC_ALL": "C.UTF-8"})
    said = [line for line in run_of.stdout.splitlines() if not line.startswith("N:")]
    check(run_of.returncode == 0 and not said, f"lintian: {run_of.stdout}")


@scenario("the package recommends the words of the user's language, and suggests the desktop's dialogs")
def recommends(world):
    def field(name):
        return subprocess.run(["dpkg-deb", "--field", package_in(world.program), name], check=True,
                              stdout=subprocess.PIPE, text=True).stdout
    check("qt6-translations-l10n" in field("Recommends"), f"it recommends {field('Recommends')}")
    check("xdg-desktop-portal" in field("Suggests"), f"it suggests {field('Suggests')}")


@scenario("the lines of the zips' texts end as Windows ends them, and readme and guide are plain ASCII")
def text_lines(world):
    for word in programs.MACHINES:
        with zip_of(world, word) as packed:
            for name in (README, GUIDE, LICENCE):
                text = packed.read(name)
                check(text.count(b"\n") > 10, f"there is hardly a line in {name}")
                check(text.count(b"\r\n") == text.count(b"\n") == text.count(b"\r"),
                      f"{name}: bare line ends")
            packed.read(README).decode("ascii")
            packed.read(GUIDE).decode("ascii")


@scenario("each zip's licence is that of the runtime that is linked into its program")
def licences(world):
    for word, runtime in programs.RUNTIMES.items():
        with zip_of(world, word) as packed:
            text = packed.read(LICENCE).decode().replace("\r\n", "\n")
        owed = pathlib.Path("/usr/share/doc", runtime, "copyright").read_text()
        check(text == owed, f"the licence {word} is not the runtime's")
        check("Redistributions in binary form must reproduce" in text, f"{word}: no licence")


@scenario("the readme gives the program's own sum, and a file beside the packages gives theirs")
def sums(world):
    for word, program in windows_programs(world):
        with zip_of(world, word) as packed:
            readme = packed.read(README).decode()
        found = re.findall(r"\b[0-9a-f]{64}\b", readme)
        check(found == [hashlib.sha256(program).hexdigest()], f"{word}: the readme gives {found}")
    dist = pathlib.Path(world.program)
    told = dict(reversed(line.split("  ")) for line in (dist / SUMS).read_text().splitlines())
    made = {file.name: hashlib.sha256(file.read_bytes()).hexdigest()
            for file in dist.iterdir() if file.name != SUMS}
    check(told == made, f"{SUMS} gives {told}, not {made}")


@scenario("the programs for Windows are of 32 and of 64 bits, without a time and without symbols")
def windows_headers(world):
    for word, program in windows_programs(world):
        header = programs.header(program)
        check(header.machine == programs.MACHINES[word], f"{word}: machine {header.machine:#x}")
        check(header.time == 0, f"{word}: was built at {header.time}")
        check(header.symbols == 0, f"{word}: has {header.symbols} symbols")


@scenario("the programs for Windows open no console")
def windows_subsystem(world):
    for word, program in windows_programs(world):
        subsystem = programs.header(program).subsystem
        check(subsystem == programs.WINDOWS, f"{word}: is of subsystem {subsystem}")


@scenario("the programs for Windows run from Windows 7 on, at any address and without data as code")
def windows_safety(world):
    for word, program in windows_programs(world):
        header = programs.header(program)
        check(header.system == (6, 1), f"{word}: is for Windows {header.system}")
        wanted = programs.SAFETY[word]
        check(header.safety & wanted == wanted, f"{word}: has only {header.safety:#x}")


@scenario("the programs for Windows call what is on the list of their imports, and nothing else")
def windows_imports(world):
    allowed = programs.allowed_imports()
    used = set()
    for word, program in windows_programs(world):
        path = world.folder / PROGRAM
        path.write_bytes(program)
        imports = programs.imports(path, word)
        check(("kernel32.dll", "CreateFileW") in imports, f"{word}: imports only {imports}")
        check(imports <= allowed, f"{word}: not on the list: {sorted(imports - allowed)}")
        used |= imports
    check(used == allowed, f"on the list, and called by no program: {sorted(allowed - used)}")


@scenario("the programs' manifest knows their systems, paths of any length and the display's pixels")
def manifests(world):
    for word, program in windows_programs(world):
        text = program[program.index(b"<assembly"):program.index(b"</assembly>")].decode()
        check(text.count("<supportedOS Id=") == 4, f"{word}: {text}")
        for setting in ("longPathAware", "activeCodePage", "dpiAware"):
            check(f"</{setting}>" in text, f"{word}: no {setting}")


@scenario("the programs' icon has its largest image packed")
def packed_icons(world):
    for word, program in windows_programs(world):
        # The face's larger pictures are PNG images too, but none of them is a square of that side.
        starts = (found.start() for found in re.finditer(re.escape(b"\x89PNG\r\n"), program))
        sides = [struct.unpack_from(">II", program, start + 16) for start in starts]
        check(sides.count((256, 256)) == 1, f"{word}: PNG images of {sides}")


@scenario("no program tells in which folder it was built")
def no_folders(world):
    files = unpacked(package_in(world.program), world.folder / "files")
    packed = dict(windows_programs(world))
    packed["linux"] = (files / "usr" / "bin" / "orvan").read_bytes()
    # Folders of ours in there: the bare name may be short, and stand in the compiler's libraries.
    told = [f"{folder}/" for folder in ROOT.iterdir() if folder.is_dir()]
    check(f"{ROOT}/platform/" in told, f"not our folders: {told}")
    for name, program in packed.items():
        for encoding in ("utf-8", "utf-16-le"):
            named = [folder for folder in told if folder.encode(encoding) in program]
            check(not named, f"{name}: names {named}")


@scenario("packing again, years later and elsewhere, gives the same bytes")
def same_bytes(world):
    elsewhere = world.folder / "elsewhere"
    elsewhere.mkdir()
    out = world.folder / "out"
    environment = {**os.environ, "TMPDIR": str(elsewhere), "TZ": "Pacific/Auckland",
                   "NO_FAKE_STAT": "1"}
    packing = ('umask 077; scripts/pack-windows x86 "$1" && scripts/pack-windows x64 "$1" &&'
               ' scripts/pack-debian "$1"')
    subprocess.run(at_time("2031-02-03 04:05:06", "bash", "-c", packing, "bash", out),
                   cwd=ROOT, env=environment, check=True)
    first = sorted(set(pathlib.Path(world.program).iterdir()) -
                   {pathlib.Path(world.program) / SUMS})
    check(len(first) == 3, f"packed were {first}")
    for package in first:
        check((out / package.name).read_bytes() == package.read_bytes(), f"{package.name} differs")


@scenario("packing at another time works where a dead process with its number has left a clock")
def left_clocks(_world):
    left = " ".join(name.format("$$") for name in NAMES)
    command = at_time("2031-02-03 04:05:06", "date", "+%F")
    day = subprocess.run(["bash", "-c", f'touch {left}; exec "$@"', "bash", *command], check=True,
                         stdout=subprocess.PIPE, text=True).stdout
    check(day == "2031-02-03\n", f"it was {day}")


@scenario("the Debian package's files are root's, for all to read and for nobody else to write")
def permissions(world):
    listing = subprocess.run(["dpkg-deb", "--contents", package_in(world.program)], check=True,
                             stdout=subprocess.PIPE, text=True).stdout.splitlines()
    programs_found = []
    for line in listing:
        mode, owner, *_, name = line.split()
        check(owner == "root/root", line)
        if mode.startswith("-rwx"):
            programs_found.append(name)
        wanted = "drwxr-xr-x" if mode[0] == "d" else "-rwxr-xr-x" if "/bin/" in name else "-rw-r--r--"
        check(mode == wanted, line)
    check(programs_found == ["./usr/bin/orvan"], f"programs: {programs_found}")


@scenario("installing from the build folder brings the program and all that the desktop is told of it")
def installed_by_hand(world):
    place = world.folder / "place"
    subprocess.run(["cmake", "--install", ROOT / "build" / "linux", "--prefix", place],
                   check=True, stdout=subprocess.DEVNULL)
    packed = unpacked(package_in(world.program), world.folder / "files") / "usr"
    there = {str(file.relative_to(place)) for file in place.rglob("*") if file.is_file()}
    wanted = {str(file.relative_to(packed)).removesuffix(".gz")
              for file in packed.rglob("*") if file.is_file()}
    # These two stand where Debian wants them, in its packages only.
    wanted -= {"share/doc/orvan/copyright", "share/doc/orvan/changelog"}
    check(there == wanted and "bin/orvan" in there, f"installed are {sorted(there)}")
    check(os.access(place / "bin" / "orvan", os.X_OK), "the program can't be started")
    manual = (place / "share" / "man" / "man1" / "orvan.1").read_text()
    check("@" not in manual.splitlines()[0], "the manual names no version")


@scenario("the desktop's own checks find nothing wrong with what it is told of the player")
def desktop_files(world):
    share = unpacked(package_in(world.program), world.folder / "files") / "usr" / "share"
    subprocess.run(["desktop-file-validate", share / "applications" / "orvan.desktop"], check=True)
    (description,) = (share / "metainfo").iterdir()
    subprocess.run(["appstreamcli", "validate", "--no-net", description], check=True)


def pixels(path):
    return subprocess.run(["convert", path, "-depth", "8", "rgba:-"], check=True,
                          stdout=subprocess.PIPE).stdout


@scenario("the desktop's icons are the icon's images, transparency and all")
def icons(world):
    share = unpacked(package_in(world.program), world.folder / "files") / "usr" / "share"
    icon = ROOT / "assets" / "orvan.ico"
    data = icon.read_bytes()
    sides = []
    for number in range(struct.unpack_from("<H", data, 4)[0]):
        side, depth = struct.unpack_from("<B5xH", data, 6 + 16 * number)
        if depth != 32:
            continue
        side = side or 256
        sides.append(side)
        picture = share / "icons" / "hicolor" / f"{side}x{side}" / "apps" / "orvan.png"
        shown = pixels(picture)
        check(len(shown) == 4 * side * side, f"{picture} is not {side} pixels wide and high")
        check(len(set(shown[3::4])) > 2, f"{picture} has no soft edge")
        check(shown == pixels(f"{icon}[{number}]"), f"{picture} is another image")
    check(sorted(sides) == [16, 32, 48, 128, 256], f"the sizes are {sides}")


@scenario("where a package that the player needs is missing, its own is not installed")
def dependencies(world):
    package = package_in(world.program)
    # Libraries have other names from one system to the next.
    needed = ("fonts-liberation", "libmpg123-0", "libqt6gui6")
    named = [name for name in depends_of(package) if name.removesuffix("t64") in needed]
    check(len(named) == len(needed), f"the package asks for {named} only")
    for number, name in enumerate(named):
        folder = world.folder / str(number)
        folder.mkdir()
        machine = Machine(folder)
        machine.forget(name)
        status, said = machine.dpkg("--install", package)
        check(status != 0 and name in said, f"without {name}: {said}")
        check(machine.state_of("orvan") == "unpacked", f"without {name} it counts as installed")


run(World)
