#!/usr/bin/env python3
"""C++Builder's header in another compiler of its system: what names it asks the linker for, and the ticket of its page."""
import os
import pathlib
import re
import subprocess
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))

from declares import NOT_FOR_PROGRAMS, frozen  # noqa: E402
from examples import blocks  # noqa: E402
from shop import ENV  # noqa: E402
from tcp_test import NetworkShop  # noqa: E402
from till import Till, TillProgram  # noqa: E402

SOURCE = HERE.parents[2]
FOLDER = SOURCE / "hosts/cppbuilder"
FLAGS = ["-std=c++98", "-Wall", "-Wextra", "-Wpedantic", "-Werror", f"-I{FOLDER}"]


class TheHeader(NetworkShop, Till):
    family = "TF"

    def line_settings(self):
        return {"ImpresoraDispositivo": self.device}

    def compile(self, code, *flags):
        pathlib.Path(self.path("program.cpp")).write_text(code, encoding="utf-8")
        made = subprocess.run([ENV["KESTRA_CXX"], *FLAGS, self.path("program.cpp"), *flags], text=True, capture_output=True,
                              check=False)
        self.assertEqual((made.returncode, made.stderr), (0, ""))

    def test_asks_for_every_function_with_its_bytes(self):
        wanted = {name: count for name, count in frozen(SOURCE).items() if name not in NOT_FOR_PROGRAMS}
        addresses = "".join(f"  (void (*)())&{name},\n" for name in wanted)
        self.compile(f'#include "KestraBuilder.h"\nextern void (*all[])();\nvoid (*all[])() = {{\n{addresses}}};\n',
                     "-c", "-o", self.path("program.o"))
        names = subprocess.run([ENV["KESTRA_NM"], "-u", self.path("program.o")], text=True, capture_output=True, check=True)
        asked = {name: int(count) for name, count in re.findall(r"\bU _(\w+)@(\d+)$", names.stdout, re.MULTILINE)}
        self.assertEqual(asked, wanted)

    def test_prints_the_ticket_of_its_page(self):
        program, = blocks((FOLDER / "README.md").read_text(encoding="utf-8"), "cpp")
        self.compile(program, "-o", self.path("tique.exe"), "-static", ENV["KESTRA_IMPORTS"])
        os.symlink(ENV["KESTRA_LIBRARY"], self.path("Kestra.dll"))
        ticket = TillProgram([self.path("tique.exe")], self.folder)
        self.assertEqual(ticket.communicate(), ("00000001\n", ""))
        paper = self.paper()
        for words in ("TIQUE FACTURA \"B\"", "Yerba mate 1 kg", "Con palo", "Efectivo"):
            self.assertEqual(paper.count(words), 1, paper)


if __name__ == "__main__":
    unittest.main(verbosity=2)
