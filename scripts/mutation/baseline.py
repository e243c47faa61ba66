"""An unoptimised build of the quick suites, and what becomes of them with one change."""

import json
import pathlib
import re
import shlex
import shutil
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
PLACE = ROOT / "build" / "mutants"
SOURCES = PLACE / "sources"  # a copy, which nobody edits during a run
BUILD = PLACE / "built"
SUITES = {"unit": "tests/unit", "movement": "tests/movement", "behaviour": "tests/behaviour",
          "pictures": "tests/pictures", "window-pictures": "tests/pictures/windows"}
# The suite that knows most about a folder goes first.
FIRST = {"runtime": "unit", "toolkit": "behaviour", "movement": "movement"}
SLOW = 0.5  # seconds; such tests run last
PATIENCE = 10  # times as long as without a change


def run(command, **options):
    return subprocess.run(command, capture_output=True, text=True, **options)


def must(command, folder=None):
    done = run(command, cwd=folder or SOURCES)
    if done.returncode:
        raise SystemExit(f"{shlex.join(map(str, command))}\n{done.stdout}{done.stderr}")
    return done.stdout


def first_line(text):
    return next((line.strip() for line in text.splitlines() if line.strip()), "without a word")


def refusal(compiled):
    """Why a source did not compile. The compiler has to name an error of the code's: one that was
    killed, or found its files or its room gone, tells nothing about the change."""
    error = re.search(r": (error: .*)", compiled.stderr)
    if compiled.returncode == 1 and error:
        return "does not compile", error[1]
    raise SystemExit(f"the compiler ended with {compiled.returncode}: {compiled.stderr}")


# What the linker tells of an object that it took from a library, in either of two ways.
MEMBER = r"\(?(\S+\.a)[()](\S+\.o)"


def member(place):
    """The library that an object of the build goes into, and its name there."""
    home, _, rest = place.partition("/CMakeFiles/")
    target, _, name = rest.partition(".dir/")
    return f"{home}/lib{target}.a", pathlib.PurePath(name).name


class Suite:
    """A test program: how it is linked, and its slow tests."""

    def __init__(self, name):
        self.name = name
        place = f"{SUITES[name]}/{name}"
        self.program = BUILD / place
        commands = must(["ninja", "-C", BUILD, "-t", "commands", place])
        line = next(line for line in reversed(commands.splitlines()) if f"-o {place} " in line)
        self.link = shlex.split(line.split("&&")[1])
        self.members = self.members_of(BUILD)
        told = run([self.program, "-d", "-nc"]).stdout
        seconds = {test: float(time)
                   for time, test in re.findall(r"^([\d.]+) s: (.*)$", told, re.M)}
        # Commas part the filters of doctest; a wildcard stands for those within a name.
        self.slow = ",".join(test.replace(",", "?")
                             for test, time in seconds.items() if time > SLOW)
        self.seconds = sum(seconds.values())

    def members_of(self, build):
        """What the program takes from libraries."""
        return set(re.findall(MEMBER, must([*self.link, "-Wl,-t,-t"], build)))

    def own(self, objects):
        """Those of the objects that the program has, in itself or from a library."""
        return {place: made for place, made in objects.items()
                if place in self.link or member(place) in self.members}

    def linked(self, objects, target, build=BUILD):
        """Links the program with these objects of its own in place of the ones that it has. They go
        first: of a function that many objects hold a copy of, the first copy is the one that runs."""
        words = [word for word in self.link if word not in objects]
        words[words.index("-o") + 1] = str(target)
        words[1:1] = map(str, objects.values())
        return run(words, cwd=build)

    def passes(self, program):
        """Whether every test passes, the quick ones first; one that never ends does not."""
        parts = [["-tce=" + self.slow], ["-tc=" + self.slow]] if self.slow else [[]]
        try:
            return all(run([program, "--abort-after=1", "-nc", *part],
                           timeout=10 + PATIENCE * self.seconds).returncode == 0 for part in parts)
        except subprocess.TimeoutExpired:
            return False


class Baseline:
    def __init__(self):
        linker = ["-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld"] if shutil.which("ld.lld") else []
        must(["cmake", "-S", SOURCES, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
              "-DCMAKE_CXX_FLAGS=-O0 -w -D_GLIBCXX_ASSERTIONS", "-DORVAN_BENCH=OFF",
              f"-DCMAKE_PROJECT_orvan_INCLUDE={pathlib.Path(__file__).with_name('flags.cmake')}",
              *linker])
        must(["ninja", "-C", BUILD, *SUITES])
        self.suites = {name: Suite(name) for name in SUITES}
        for suite in self.suites.values():
            if not suite.passes(suite.program):
                raise SystemExit(f"{suite.name} fails before anything is changed")
        self.compilers = {}
        for entry in json.loads((BUILD / "compile_commands.json").read_text()):
            file = pathlib.Path(entry["file"])
            if file.is_relative_to(SOURCES):
                name = file.relative_to(SOURCES).as_posix()
                self.compilers[name] = shlex.split(entry["command"])
        self.includers = self.read_dependencies()

    def read_dependencies(self):
        """For each header the sources that are compiled with it."""
        includers = {}
        objects = {command[command.index("-o") + 1]: name for name, command in self.compilers.items()}
        source = None
        for line in must(["ninja", "-C", BUILD, "-t", "deps"]).splitlines():
            if line and not line.startswith(" "):
                source = objects.get(line.split(":")[0])
            elif line and source and line.strip().endswith(".h"):
                header = (BUILD / line.strip()).resolve()
                if header.is_relative_to(SOURCES):
                    includers.setdefault(header.relative_to(SOURCES).as_posix(), set()).add(source)
        return includers

    def concerned(self, path):
        """The sources to compile anew: of a header's all in the libraries, and the tests that name
        it; the other tests only know it by way of others."""
        if path.endswith(".cpp"):
            return [path]
        return sorted(
            name for name in self.includers.get(path, ())
            if name.split("/")[0] not in ("tests", "platform", "assets", "bench")
            or (name.startswith(tuple(f"{folder}/" for folder in SUITES.values()))
                and f'"{path}"' in (SOURCES / name).read_text()))

    def outcome_of(self, change):
        """What becomes of a change, and what the compiler or linker said of one that it refused."""
        with tempfile.TemporaryDirectory() as folder:
            return self.outcome_in(pathlib.Path(folder), change)

    def outcome_in(self, folder, change):
        # Each kind of file in a folder of its own: "movement" is a folder and a suite.
        changed, objects_in, programs = (folder / name for name in ("changed", "objects", "programs"))
        programs.mkdir()
        overlay = changed / change.path
        overlay.parent.mkdir(parents=True)
        overlay.write_text(change.applied((SOURCES / change.path).read_text()))
        objects = {}
        objects_in.mkdir()
        for number, name in enumerate(self.concerned(change.path)):
            made = objects_in / f"{number}.o"
            compiled = self.compiled(name, changed, made)
            if compiled.returncode:
                return refusal(compiled)
            command = self.compilers[name]
            objects[command[command.index("-o") + 1]] = made
        first = FIRST.get(change.path.split("/")[0], "behaviour")
        for name in sorted(SUITES, key=lambda suite: suite != first):
            suite = self.suites[name]
            own = suite.own(objects)
            if not own:
                continue
            program = programs / name
            linked = suite.linked(own, program)
            if linked.returncode:
                return "does not link", first_line(linked.stderr)
            if not suite.passes(program):
                return "killed", ""
            program.unlink()
        return "survived", ""

    def compiled(self, name, folder, made):
        """Compiles a source, with what is changed in the folder put before everything else."""
        command = list(self.compilers[name])
        if command[0].endswith("ccache"):
            del command[0]
        command[command.index("-o") + 1] = str(made)
        changed = folder / name
        command[command.index("-c") + 1] = str(changed if changed.exists() else SOURCES / name)
        command[1:1] = [f"-I{folder}"]
        return run(command, cwd=BUILD)
