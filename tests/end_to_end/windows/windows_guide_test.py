"""The guide's examples for languages that use nothing but objects, as they stand in the guide."""

import re
import shutil
import unittest

import programs
import tcp_test
from shop import ENV, read
from till import Till


def examples():
    """Name and text of each: a block of code whose first line is its file's name."""
    blocks = re.findall(r"```vbscript\n(' (\w+\.vbs)\n.*?)```", read(ENV["KESTRA_GUIDE"]), re.DOTALL)
    return {name: block for block, name in blocks}


class Script(tcp_test.NetworkShop, Till):
    """A shop where the till is installed, as the guide says."""

    def setUp(self):
        super().setUp()
        for name, block in examples().items():
            with open(self.path(name), "w", encoding="cp1252", newline="\r\n") as file:
                file.write(block)
        shutil.copy(ENV["KESTRA_LIBRARY"], self.folder)
        self.addCleanup(self.follow, "regsvr32 /u /n /i:caja Kestra.dll")
        self.follow("regsvr32 /n /i:caja Kestra.dll")

    def line_settings(self):
        return {"ImpresoraDispositivo": self.device}

    def follow(self, line):
        """A line of the guide, without the box in the end."""
        self.assertIn(f"\n    {line}\n", read(ENV["KESTRA_GUIDE"]))
        program, *words = line.split()
        self.assertEqual(programs.run([program, "/s", *words], folder=self.folder).returncode, 0)

    def run_script(self, name, ends_with=0):
        ended = programs.run(["cscript", "//nologo", name], folder=self.folder)
        self.assertEqual(ended.returncode, ends_with, ended.output())
        self.assertEqual(ended.errors(), b"")
        # The script host speaks as the console does.
        return ended.output().decode("cp850").replace("\r\n", "\n")


class AScript(Script):
    def test_every_example_is_run_here(self):
        self.assertEqual(list(examples()), ["caja.vbs"])

    def test_prints_a_ticket(self):
        self.assertEqual(self.run_script("caja.vbs"), "Tique 00000001\n")
        self.assertEqual(self.run_script("caja.vbs"), "Tique 00000002\n")
        log = self.log()
        self.assertIn("Ca\u00f1a de az-car", log)
        paper = self.paper()
        self.assertEqual(paper.count("TIQUE\n"), 2, paper)
        self.assertRegex(paper, r"Ca\u00f1a de az-car +3\.001,00")


class AScriptThatCannotStart(Script):
    def line_settings(self):
        return {"ImpresoraDispositivo": "tcp:caja"}

    def test_tells_the_operator_why(self):
        said = self.run_script("caja.vbs", ends_with=1)
        self.assertRegex(said, r"^La direcci\u00f3n de red no es v\u00e1lida .* La operaci\u00f3n no se mand\u00f3 a la impresora\..*\n$")


del Script  # what they share is no test

if __name__ == "__main__":
    unittest.main()
