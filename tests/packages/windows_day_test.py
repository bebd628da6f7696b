"""A day with what is in Windows' zip and nothing else: it is unpacked where blanks and an ñ are in the way, its printer is
started with its panel, a till in VBScript and one in Free Pascal sell, the log of their day is read, and the tool names
what is wrong in every set-up of the table.

scripts/paquetes --comprobar makes the zip, starts a Wine and tells in the environment where both are.
"""
import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest
import zipfile

import set_ups
from wine_runs import SYSTEM, Printer, run

VERSION = os.environ["KESTRA_VERSION"]
ZIP = pathlib.Path(os.environ["KESTRA_FILES"]) / f"windows/kestra-{VERSION}-windows.zip"
PASCAL = pathlib.Path(os.environ["KESTRA_PASCAL"])
BITS = {"x86": "32", "x64": "64"}
COMPILER = {"x86": "ppc386", "x64": "ppcx64"}


class WindowsShop(set_ups.Shop):
    line_end = "\r\n"

    def __init__(self, case, tree, family, name):
        folder = tree.parent / name
        folder.mkdir()
        super().__init__(folder, (tree / "Fiscal" / family / "Fiscal.ini").read_bytes().decode("cp1252"))
        self.case, self.tree = case, tree

    def start_printer(self, *flags):
        printer = Printer(self.tree / "x64/impresora-virtual.exe", self.folder, *flags)
        self.case.addCleanup(printer.stop)
        return printer

    def kestra(self, *words, width="x64"):
        return run(width, self.tree / width / "kestra.exe", *words, folder=self.folder)


class TheDay(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="caja del señor Núñez ")
        cls.addClassCleanup(folder.cleanup)
        with zipfile.ZipFile(ZIP) as packed:
            packed.extractall(folder.name)
        cls.tree = pathlib.Path(folder.name) / f"kestra-{VERSION}"

    def shop(self, family, name):
        """With a printer that is at work."""
        shop = WindowsShop(self, self.tree, family, name)
        printer = shop.open_printer()
        shop.write_settings({"ImpresoraDispositivo": printer.device})
        self.assertIn("<title>Impresora virtual</title>", set_ups.ask_panel(printer.url))
        return shop, printer

    def read_log(self, shop, told, document, pieces):
        """The day as the tool tells it: in words, in rows of one document, and as a page for others."""
        result, said = shop.kestra("registro")
        self.assertEqual(result, 0, said)
        for words in (", 0 fallas", *told):
            self.assertIn(words, said)
        result, said = shop.kestra("registro", "--json", "--comprobante", document)
        self.assertEqual((result, {json.loads(line)["comprobante"]["numero"] for line in said.splitlines()}),
                         (0, {f"{int(document.split('-')[-1]):08}"}))
        result, said = shop.kestra("registro", "--html", "para el soporte.html")
        self.assertEqual(result, 0, said)
        page = (shop.folder / "para el soporte.html").read_text(encoding="utf-8")
        for piece, there in pieces:
            self.assertEqual(piece in page, there, piece)
        self.assertEqual(shop.kestra("registro", "--fallas")[0], 1, "what failed is told where nothing has")

    def register(self, width, *words):
        """As the manual has it, without the box in the end."""
        result, said = run(width, SYSTEM[width] + r"\regsvr32.exe", "/s", *words, "/n", "/i:caja", "Kestra.dll",
                           folder=self.tree / width)
        self.assertEqual(result, 0, said)

    def test_a_till_in_vbscript(self):
        for number, width in enumerate(("x86", "x64"), 1):
            with self.subTest(width):
                shop, printer = self.shop("TQ", f"quiosco de Ñandú {number}")
                self.register(width)
                try:
                    for ticket in ("00000001", "00000002"):
                        told = run(width, SYSTEM[width] + r"\cscript.exe", "//nologo", self.tree / "ejemplos/caja.vbs",
                                   folder=shop.folder, code="cp850")
                        self.assertEqual(told, (0, f"Tique {ticket}\n"))
                finally:
                    self.register(width, "/u")
                paper = set_ups.ask_panel(printer.url, "api/papel")
                self.assertEqual(paper.count("Caña de az-car"), 2, paper)
                self.read_log(shop, ["EP_ImprimirItem", "Caña de az-car"], "2", [("Ítem", True)])

    def test_a_till_in_free_pascal(self):
        for width in ("x86", "x64"):
            with self.subTest(width):
                shop, printer = self.shop("TF", f"librería en {BITS[width]} bits")
                for name in ("Kestra.pas", "KestraImpresora.pas", "tienda.pas"):
                    shutil.copy(self.tree / "declaraciones/delphi" / name, shop.folder)
                made = subprocess.run([PASCAL / COMPILER[width], f"-Twin{BITS[width]}", "-n", "-v0we",
                                       f"-Fu{PASCAL}/win{BITS[width]}", "tienda.pas"],
                                      cwd=shop.folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
                self.assertEqual(made.returncode, 0, made.stdout)
                shutil.copy(self.tree / width / "Kestra.dll", shop.folder)
                result, said = run(width, shop.folder / "tienda.exe", folder=shop.folder)
                self.assertEqual(result, 0, said)
                self.assertIn("Factura A emitida: 00000001\n", said)
                self.assertIn("Nota de credito A emitida: 00000001\n", said)
                self.assertIn("Libreria Muñoz S.R.L.", set_ups.ask_panel(printer.url, "api/papel"))
                self.read_log(shop, ["TIQUE FACTURA A 00000001", "EP_ReporteZ"], "A-1",
                              [("TIQUE FACTURA A 00000001", True), ("30000000007", False), ("Muñoz", False)])

    def test_the_tool_names_what_is_wrong(self):
        shop = WindowsShop(self, self.tree, "TQ", "rotisería La Ñata")
        set_ups.judge_all(self, shop)
        # The one of 32 bits has no printer of its own, and sees the same.
        shop.write_settings({"ImpresoraDispositivo": shop.printers[0].device, "EntPrecio": None})
        result, said = shop.kestra("diagnostico", "--json", width="x86")
        self.assertEqual((result, json.loads(said)["veredicto"]), (4, "clave-faltante"))


if __name__ == "__main__":
    unittest.main()
