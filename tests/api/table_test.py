#!/usr/bin/env python3
"""The table against the frozen list, and what the generator says of a table or of files that are wrong.

    table_test.py SOURCE_DIRECTORY
"""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(sys.argv[1])
sys.path.insert(0, str(SOURCE / "api"))

from generator import table  # noqa: E402


def generate(root, *words):
    """(what it ended with, what it said)."""
    ended = subprocess.run([sys.executable, "-B", SOURCE / "api/generate", "--raiz", root, *words],
                           capture_output=True, text=True, check=False)
    return ended.returncode, ended.stdout + ended.stderr


class TheTable(unittest.TestCase):
    maxDiff = None

    def test_has_the_exports_of_the_frozen_list(self):
        lines = (SOURCE / "tests/api/frozen_exports.txt").read_text(encoding="ascii").splitlines()
        frozen = [line for line in lines if not line.startswith("#")]
        rows = table.read().functions
        self.assertEqual(sorted(f"{row.name}@{row.stack}" for row in rows), sorted(frozen))

    def test_knows_every_cause_of_the_header(self):
        header = (SOURCE / "include/kestra/causas.h").read_text(encoding="utf-8")
        numbers = {name: int(number) for name, number in re.findall(r"(KESTRA_CAUSA_\w+) = (\d+)", header)}
        self.assertEqual({cause.name: cause.number for cause in table.read().causes}, numbers)

    def test_says_in_spanish_what_each_thing_is(self):
        rows = table.read()
        silent = [row.name for row in rows.functions if not row.title or not row.result]
        silent += [f"{row.name} {each.name}" for row in rows.functions for each in row.arguments if not each.es]
        silent += [value.name for row in rows.enums for value in row.constants
                   if not value.es and value.name != "KESTRA_CAUSA_NINGUNA"]
        self.assertEqual(silent, [])


class TheGenerator(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        for name in ("api/kestra.toml", "docs/manual/causas.md", "CMakeLists.txt"):
            (self.root / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(SOURCE / name, self.root / name)
        self.toml = self.root / "api/kestra.toml"

    def replace(self, old, new):
        text = self.toml.read_text(encoding="utf-8")
        self.assertIn(old, text)
        self.toml.write_text(text.replace(old, new, 1), encoding="utf-8")

    def test_makes_every_file_and_finds_them_in_order(self):
        code, said = generate(self.root)
        self.assertEqual(code, 0, said)
        self.assertIn("include/kestra/kestra.h", said.split())
        self.assertEqual(generate(self.root, "--comprobar"), (0, ""))

    def test_names_the_files_that_differ(self):
        generate(self.root)
        (self.root / "src/frame/kestra.map").unlink()
        with (self.root / "include/kestra/kestra.h").open("a", encoding="utf-8") as header:
            header.write("/* by hand */\n")
        code, said = generate(self.root, "--comprobar")
        self.assertEqual(code, 1)
        self.assertEqual([line.split(":")[0] for line in said.splitlines()],
                         ["include/kestra/kestra.h", "src/frame/kestra.map"])

    def test_a_row_that_cannot_be_is_named(self):
        for old, new, said in (
                ('kind = "text", bytes = 26', 'kind = "text"', "EP_ImprimirTextoFiscal: texto: bytes are for"),
                ('kind = "text", bytes = 26', 'kind = "txt"', "EP_ImprimirTextoFiscal: texto: no such kind: txt"),
                ('nature = "lifetime"', 'nature = "life"', "EP_Init: no such nature: life"),
                ('"HOJA_CAMBIADA"', '"HOJA"', "EP_ImprimirItem: no such cause: HOJA"),
                ("number = 1\n", "number = 0\n", "each once"),
                ('function = "EP_Kill"', 'function = "EP_Init"', "a function has two rows"),
                ('example = ["Oferta"]', "example = [3]", "EP_ImprimirTextoFiscal: texto: 3 is no text"),
                ('example = ["Oferta"]', "example = []", "EP_ImprimirTextoFiscal: 1 values make an example"),
                ("es.purpose", "es.porpose", "EP_Init: no such key: porpose"),
        ):
            with self.subTest(said):
                shutil.copy(SOURCE / "api/kestra.toml", self.toml)
                self.replace(old, new)
                code, words = generate(self.root)
                self.assertEqual(code, 1)
                self.assertIn(said, words)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
