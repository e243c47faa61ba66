"""What scripts/mutants stands on: one run at a time, on a copy, and no fault of its own or of the
machine's told as one of the change that it tries."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest
import unittest.mock

TOOL = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "mutation"
sys.path.insert(0, str(TOOL))
import baseline
import changes
import equivalent
import workplace

HOLDER = f"""
import pathlib, sys
sys.path.insert(0, {str(TOOL)!r})
import workplace
with workplace.held(pathlib.Path(sys.argv[1])):
    print("held", flush=True)
    sys.stdin.readline()
"""


def holder(folder):
    return subprocess.Popen([sys.executable, "-B", "-c", HOLDER, folder], text=True,
                            stdin=subprocess.PIPE, stdout=subprocess.PIPE)


class InAFolder(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)


class Runs(InAFolder):
    def test_a_second_run_waits_until_the_first_is_done(self):
        with holder(self.folder) as first:
            self.assertEqual(first.stdout.readline(), "held\n")
            with holder(self.folder) as second:
                self.assertIn("waiting", second.stdout.readline())
                first.communicate("\n")
                self.assertEqual(second.stdout.readline(), "held\n")
                second.communicate("\n")

    def test_an_edit_reaches_the_copy_with_the_next_run_only(self):
        root, copy = self.folder / "root", self.folder / "copy"
        (root / "app").mkdir(parents=True)
        (root / "build").mkdir()
        (root / "build" / "made.h").touch()
        for name in ("kept.h", "edited.h", "gone.h"):
            (root / "app" / name).write_text("int a;\n")
        workplace.copied(root, copy)
        self.assertEqual([path.name for path in copy.iterdir()], ["app"])
        for name in ("kept.h", "edited.h"):
            os.utime(copy / "app" / name, (1, 1))
        (root / "app" / "edited.h").write_text("int b;\n")
        (root / "app" / "gone.h").unlink()
        self.assertEqual((copy / "app" / "edited.h").read_text(), "int a;\n")
        workplace.copied(root, copy)
        self.assertEqual((copy / "app" / "edited.h").read_text(), "int b;\n")
        self.assertEqual(sorted(path.name for path in (copy / "app").iterdir()),
                         ["edited.h", "kept.h"])
        # What is the same is not built anew.
        self.assertEqual((copy / "app" / "kept.h").stat().st_mtime, 1)
        self.assertGreater((copy / "app" / "edited.h").stat().st_mtime, 1)


class Suite:
    """Links by writing a file, and lets every change survive."""

    def own(self, objects):
        return objects

    def linked(self, objects, target):
        target.write_text("")
        return subprocess.CompletedProcess([], 0, "", "")

    def passes(self, program):
        return program.is_file()


class Unbuilt(baseline.Baseline):
    """Compiles by copying."""

    def __init__(self):
        self.suites = {name: Suite() for name in baseline.SUITES}
        self.compilers = {}
        self.includers = {}

    def concerned(self, path):
        self.compilers[path] = ["c++", "-o", f"{path}.o", "-c", path]
        return [path]

    def compiled(self, name, folder, made):
        made.write_text((folder / name).read_text())
        return subprocess.CompletedProcess([], 0, "", "")


class Trials(InAFolder):
    def test_a_change_in_a_folder_that_is_called_as_a_suite_is_tried_like_any_other(self):
        with unittest.mock.patch.object(baseline, "SOURCES", self.folder):
            for folder in {*baseline.SUITES, "app"}:
                source = self.folder / folder / "a.cpp"
                source.parent.mkdir()
                source.write_text("void f() {\n    g();\n}\n")
                change, = changes.of(f"{folder}/a.cpp", source.read_text())
                self.assertEqual(Unbuilt().outcome_of(change), ("survived", ""))


class Links(InAFolder):
    """Programs of a test's object and a library's, which both hold a copy of the same function."""

    def setUp(self):
        super().setUp()
        self.write("f.h", "inline int f() { return 0; }\n")
        self.write("own.cpp", '#include "f.h"\nint g();\nint main() { return f() + g(); }\n')
        self.write("g.cpp", '#include "f.h"\nint g() { return f(); }\n')
        self.write("unused.cpp", '#include "f.h"\nint h() { return f(); }\n')
        for place in ("own", "lib/CMakeFiles/far.dir/g", "lib/CMakeFiles/far.dir/unused"):
            self.compile(f"{pathlib.Path(place).name}.cpp", f"{place}.cpp.o")
        self.must("ar", "rc", "lib/libfar.a", "lib/CMakeFiles/far.dir/g.cpp.o",
                  "lib/CMakeFiles/far.dir/unused.cpp.o")

    def write(self, name, text):
        (self.folder / name).write_text(text)

    def must(self, *command):
        return subprocess.run(command, cwd=self.folder, check=True)

    def compile(self, source, place):
        (self.folder / place).parent.mkdir(parents=True, exist_ok=True)
        self.must("c++", "-O0", "-c", source, "-o", place)

    def suite(self, *options):
        suite = baseline.Suite.__new__(baseline.Suite)
        suite.link = ["c++", *options, "own.cpp.o", "-o", "program", "lib/libfar.a"]
        suite.members = suite.members_of(self.folder)
        return suite

    def test_a_changed_function_of_a_header_runs_also_where_a_test_holds_the_old_one(self):
        self.write("f.h", "inline int f() { return 1; }\n")
        self.compile("g.cpp", "fresh.o")
        objects = {"lib/CMakeFiles/far.dir/g.cpp.o": self.folder / "fresh.o",
                   "lib/CMakeFiles/far.dir/unused.cpp.o": self.folder / "none.o",
                   "another.cpp.o": self.folder / "none.o"}
        linkers = [[], ["-fuse-ld=lld"]] if shutil.which("ld.lld") else [[]]
        for options in linkers:
            suite = self.suite(*options)
            own = suite.own(objects)
            self.assertEqual(list(own), ["lib/CMakeFiles/far.dir/g.cpp.o"])
            program = self.folder / "changed"
            self.assertEqual(suite.linked(own, program, self.folder).returncode, 0)
            self.assertEqual(subprocess.run([program]).returncode, 2)


class Refusals(unittest.TestCase):
    def refusal(self, code, said):
        return baseline.refusal(subprocess.CompletedProcess([], code, "", said))

    def test_an_error_in_the_code_is_the_changes(self):
        self.assertEqual(self.refusal(1, "a.h:1:2: error: expected ';'\na.h:1:2: note: here\n"),
                         ("does not compile", "error: expected ';'"))

    def test_a_compiler_that_fails_by_itself_ends_the_run(self):
        for code, said in [(1, "c++: fatal error: Killed signal terminated program cc1plus\n"),
                           (1, "cc1plus: fatal error: a.h: No such file or directory\n"),
                           (4, "a.h:1:2: internal compiler error: Segmentation fault\n"),
                           (-9, "")]:
            with self.assertRaises(SystemExit):
                self.refusal(code, said)


class Changes(unittest.TestCase):
    def test_each_kind_of_change_is_made(self):
        text = "void f() {\n    if (a < 3 && !b) g();\n    h(true);\n}\n"
        made = {(change.kind, change.after) for change in changes.of("a.cpp", text)}
        self.assertEqual(made, {
            ("comparison", "if (a <= 3 && !b) g();"), ("number", "if (a < 4 && !b) g();"),
            ("operator", "if (a < 3 || !b) g();"), ("bool", "if (a < 3 && b) g();"),
            ("dropped", ""), ("bool", "h(false);"),
            ("swapped", "h(true); if (a < 3 && !b) g();")})

    def test_an_order_that_nobody_could_see_is_no_change(self):
        for first, second in [("a.Click = [&p] { p.x(); };", "b.Click = [] { y(); };"),
                              ('p.list().a.Caption("x");', "b.Visible(false);"),
                              ("a.place(w, {1, 2});", "b.setText(c);"), ("a = b;", "c = d;"),
                              ('a.name = "x";', "a.parts = {&b, &c};"),
                              ("a = std::move(b);", "c = std::move(d.e);"),
                              ("a.file = f.data();", "a.most = static_cast<int>(2 * (n + 1));")]:
            text = f"void f() {{\n    {first}\n    {second}\n}}\n"
            self.assertNotIn("swapped", [change.kind for change in changes.of("a.cpp", text)])
        for first, second in [("a.Visible(true);", "a.Visible(false);"), ("a = b;", "c = a;"),
                              ("a.Visible(true);", "b.Left(0);"), ("w.add(a);", "w.add(b);"),
                              ("a.x = f();", "b.y = 1;"), ("a.x = f(g.data());", "b.y = 1;"),
                              ("a.x = 1;", "b.y = c.x;"), ("a.x = 1;", "b.x = 2;"),
                              ("a = std::move(b);", "c = b;"), ("a = {1, 2};", "a.x = 3;"),
                              ("a.x = b = 1;", "c = 2;")]:
            text = f"void f() {{\n    {first}\n    {second}\n}}\n"
            self.assertIn("swapped", [change.kind for change in changes.of("a.cpp", text)])


class Equivalents(unittest.TestCase):
    def test_an_entry_of_a_change_that_is_made_no_more_is_told(self):
        every = changes.of("app/a.cpp", "void f() {\n    g();\n}\n")
        known = equivalent.Known({("app/a.cpp", "g();", ""), ("app/a.cpp", "h();", ""),
                                  ("app/b.cpp", "g();", "")})
        self.assertEqual(known.stale({"app/a.cpp"}, every), [("app/a.cpp", "h();", "")])

    def test_an_entry_without_a_reason_or_in_another_folders_file_is_refused(self):
        file = pathlib.Path("app")
        self.assertEqual(equivalent.entry(file, ["app/a.cpp", "- a  b;", "+ c;", "Why."]),
                         ("app/a.cpp", "a b;", "c;"))
        for lines in [["app/a.cpp", "- a;", "+ b;"], ["app/a.cpp", "+ b;", "Why."],
                      ["shell/a.cpp", "- a;", "+ b;", "Why."]]:
            with self.assertRaises(SystemExit):
                equivalent.entry(file, lines)


if __name__ == "__main__":
    unittest.main()
