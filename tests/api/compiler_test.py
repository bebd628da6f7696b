#!/usr/bin/env python3
"""The bytes that the 32-bit compiler counts for each export, against the frozen list, the table and the linker's list.

    compiler_test.py NM FROZEN SOURCE_DIRECTORY OBJECT...
"""
import pathlib
import re
import subprocess
import sys
import unittest

NM, FROZEN, SOURCE, *OBJECTS = sys.argv[1:]
sys.path.insert(0, str(pathlib.Path(SOURCE) / "api"))

from generator import table  # noqa: E402


def listed(text):
    """{name: bytes} of the lines "name@bytes"."""
    return {name: int(count) for name, count in re.findall(r"^\s*(\w+)@(\d+)$", text, re.MULTILINE)}


def compiled():
    # A file at a time: they may stand in one argument, with semicolons between them.
    objects = [path for entry in OBJECTS for path in entry.split(";")]
    names = subprocess.run([NM, "--defined-only", *objects], check=True, capture_output=True, text=True).stdout
    return listed("\n".join(re.findall(r" T _((?:EP|Kestra|Dll)\w*@\d+)$", names, re.MULTILINE)))


class ArgumentBytes(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.compiled = compiled()
        self.assertGreater(len(self.compiled), 60)

    def test_the_frozen_list_has_what_the_compiler_counts(self):
        self.assertEqual(listed(pathlib.Path(FROZEN).read_text(encoding="ascii")), self.compiled)

    def test_the_table_has_what_the_compiler_counts(self):
        rows = table.read(pathlib.Path(SOURCE)).functions
        self.assertEqual({row.name: row.stack for row in rows}, self.compiled)

    def test_the_linkers_list_has_what_the_compiler_counts(self):
        definition = pathlib.Path(SOURCE, "src/frame/kestra.def").read_text(encoding="ascii")
        self.assertEqual(listed(definition), self.compiled)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
