"""A private copy of the sources, with the quick tests built in it: where one mutant at a time lives."""
import os
import pathlib
import re
import subprocess
import time

from names import Users

COPIED = ("src", "include", "cmake", "tests/unit", "tests/exports", "tests/golden", "tests/fakes")
PROGRAMS = ("unit_tests", "golden_tests")
SUITE = re.compile(r"^TEST(?:_[FP])?\(\s*(\w+)", re.MULTILINE)
FAILED = re.compile(r"^\[  FAILED  \] (\S+?),? ", re.MULTILINE)
# A mutant may run or grow without end. Seconds of the processor (the tests need two), and kilobytes.
LIMITS = 'ulimit -t 5; ulimit -v 4000000; ulimit -c 0; exec "$@"'
PATIENCE = 180  # seconds on the clock, for one that waits without end


class Broken(Exception):
    """The unchanged tree does not build, or its tests fail."""


def files_of(root):
    return sorted(path.relative_to(root) for folder in COPIED for path in (root / folder).rglob("*")
                  if path.is_file() and "__pycache__" not in path.parts)


def contents_of(root):
    return {str(path): (root / path).read_bytes() for path in files_of(root)}


def codes_in(root):
    return {str(path): (root / path).read_text(encoding="utf-8") for path in files_of(root)
            if path.suffix in (".cpp", ".hpp")}


def update(source, target):
    """Makes `target` the same file; one that is already is left alone, and not built again."""
    code = source.read_bytes()
    if not target.is_file() or target.read_bytes() != code:
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(code)


class Tree:
    def __init__(self, root, place):
        self.root, self.copy, self.build = root, place / "tree", place / "build"
        self.refresh()
        self.codes = codes_in(self.copy)
        self.users = Users(self.codes)

    def refresh(self):
        wanted = files_of(self.root)
        for path in wanted:
            update(self.root / path, self.copy / path)
        for path in set(files_of(self.copy)) - set(wanted):
            (self.copy / path).unlink()
        update(self.root / "tests/campaigns/mutation/quick_tests.cmake", self.copy / "CMakeLists.txt")

    def prepare(self):
        """Builds the tree as it is and sees its tests pass: otherwise a mutant's failure says nothing."""
        configured = self.run(["cmake", "-S", self.copy, "-B", self.build, "-G", "Ninja",
                               "-DCMAKE_BUILD_TYPE=None", "-DCMAKE_C_COMPILER=clang",
                               "-DCMAKE_CXX_COMPILER=clang++"])
        built = configured.returncode == 0 and self.make(*PROGRAMS)
        if not built or built.returncode != 0:
            raise Broken((built or configured).stdout)
        for program in PROGRAMS:
            killer = self.killer(program)
            if killer:
                raise Broken(f"{killer} fails without any change")

    @staticmethod
    def run(command, **options):
        return subprocess.run([str(word) for word in command], stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, errors="replace", **options)

    def make(self, *programs):
        return self.run(["ninja", "-C", self.build, "-j1", *programs], timeout=1200)

    def killer(self, program, only="*"):
        """The first test that fails, or how the program ended; None when all pass."""
        command = ["sh", "-c", LIMITS, "sh", self.build / "bin" / program, "--gtest_fail_fast",
                   "--gtest_brief=1", f"--gtest_filter={only}"]
        try:
            ran = self.run(command, timeout=PATIENCE, cwd=self.build)
        except subprocess.TimeoutExpired:
            return "no end"
        if ran.returncode == 0:
            return None
        failed = FAILED.search(ran.stdout)
        if failed:
            return failed.group(1)
        return "no end" if ran.returncode in (-24, -9, 152, 137) else f"crash of {program}"

    def suites_of(self, folder):
        """The unit tests of one folder of src, as a filter."""
        names = {name for path, code in self.codes.items() if path.startswith(f"tests/unit/{folder}/")
                 for name in SUITE.findall(code)}
        return ":".join(f"{name}.*:*/{name}.*" for name in sorted(names))

    # ---- One mutant ----

    def fate(self, mutant):
        """("killed", by what), ("survived", "") or ("does not compile", "")."""
        code = self.codes[mutant.path]
        self.put(mutant, mutant.apply(code))
        try:
            return self.judged(pathlib.Path(mutant.path).parts[1])
        finally:
            self.put(mutant, code)

    def judged(self, folder):
        own = self.suites_of(folder)
        for program, only in (("unit_tests", own), ("golden_tests", "*"), ("unit_tests", f"*-{own}")):
            if self.make(program).returncode != 0:
                return "does not compile", ""
            killer = self.killer(program, only)
            if killer:
                return "killed", killer
        return "survived", ""

    def put(self, mutant, code):
        path = self.copy / mutant.path
        before = path.stat()
        path.write_text(code, encoding="utf-8")
        users = self.users.of(mutant.path, mutant.start) if mutant.path.endswith(".hpp") else None
        if users is None:
            return
        # Only those who use the constant need another look, not all who include the header.
        now = time.time_ns()
        for user in users:
            os.utime(self.copy / user, ns=(now, now))
        os.utime(path, ns=(before.st_atime_ns, before.st_mtime_ns))
