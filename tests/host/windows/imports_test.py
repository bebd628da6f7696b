#!/usr/bin/env python3
"""What the file Kestra.dll says of itself: its names, what it needs, how it may be loaded, its size.

    imports_test.py LIBRARY
"""
import pathlib
import re
import sys
import unittest

import pe_file

HERE = pathlib.Path(__file__).resolve().parent
SOURCE = HERE.parents[2]
LARGEST = {pe_file.X86: 576 * 1024, pe_file.X64: 528 * 1024}
# The bytes that an argument takes on the stack of a 32-bit program.
WIDTHS = {"double": 8}


def xp_functions():
    """{library: functions} as xp_functions.txt lists them."""
    rows = {}
    library = None
    for line in (HERE / "xp_functions.txt").read_text(encoding="ascii").splitlines():
        words = line.split()
        if not words or words[0] == "#" or line.startswith("#"):
            continue
        if len(words) == 1 and words[0].endswith(".dll"):
            library = rows.setdefault(words[0], set())
        else:
            library.update(words)
    return rows


def declared():
    """{function: bytes of its arguments} as the public header tells."""
    text = (SOURCE / "include/kestra/kestra.h").read_text(encoding="utf-8")
    text = re.sub(r"/\*.*?\*/", "", text, flags=re.DOTALL)
    found = {}
    for name, arguments in re.findall(r"KESTRA_API\s+\w+\s+KESTRA_CALL\s+(\w+)\(([^)]*)\)", text):
        kinds = [] if arguments.strip() == "void" else arguments.split(",")
        found[name] = sum(WIDTHS.get(kind.split()[0], 4) for kind in kinds)
    return found


def defined():
    """The same as the definition file tells."""
    text = (SOURCE / "src/frame/kestra.def").read_text(encoding="ascii")
    return {name: int(count) for name, count in re.findall(r"^  (\w+)@(\d+)$", text, re.MULTILINE)}


class TheLibrarysFile(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.path = pathlib.Path(LIBRARY)
        cls.file = pe_file.PeFile(cls.path)

    def test_the_definition_has_each_function_of_the_header_with_its_arguments(self):
        self.assertGreater(len(declared()), 40)
        self.assertEqual(defined(), declared())

    def test_exports_the_functions_of_the_header_undecorated_and_nothing_else(self):
        self.assertEqual(sorted(self.file.exports()), sorted(declared()))

    def test_needs_only_libraries_that_every_windows_has(self):
        self.assertEqual(set(self.file.imports()) - set(xp_functions()), set())
        self.assertEqual(self.file.directories[pe_file.DELAYED][1], 0)

    @unittest.skipUnless(pe_file.PeFile(sys.argv[1]).machine == pe_file.X86,
                         "only 32-bit tills are that old")
    def test_needs_only_functions_that_windows_xp_has(self):
        allowed = xp_functions()
        unknown = [f"{library}: {function}" for library, functions in self.file.imports().items()
                   for function in functions if function not in allowed.get(library, ())]
        self.assertEqual(unknown, [])

    def test_asks_for_no_system_newer_than_windows_xp(self):
        newest = (5, 1) if self.file.machine == pe_file.X86 else (5, 2)
        self.assertLessEqual(self.file.subsystem_version, newest)

    def test_may_be_moved_and_holds_no_code_among_its_data(self):
        wanted = pe_file.DYNAMIC_BASE | pe_file.NX_COMPATIBLE
        self.assertEqual(self.file.characteristics & wanted, wanted)
        self.assertGreater(self.file.directories[pe_file.RELOCATIONS][1], 0)

    def test_says_its_version_in_spanish(self):
        self.assertGreater(self.file.directories[pe_file.RESOURCES][1], 0)
        for words in ("2C0A04E4", "Kestra: controlador de impresoras fiscales", "Kestra.dll"):
            self.assertIn(words.encode("utf-16-le"), self.file.bytes)

    def test_carries_no_time_of_its_making(self):
        self.assertEqual(self.file.timestamp, 0)

    def test_names_no_folder_of_the_machine_that_built_it(self):
        self.assertNotIn(str(SOURCE).encode(), self.file.bytes)

    def test_is_small(self):
        self.assertTrue(self.file.stripped)
        self.assertLess(self.path.stat().st_size, LARGEST[self.file.machine])


if __name__ == "__main__":
    LIBRARY = sys.argv[1]
    unittest.main(argv=sys.argv[:1] + sys.argv[2:], verbosity=2)
