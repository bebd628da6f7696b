"""A day with what is in the Debian packages and nothing else, in a bare Debian: a till in C and one in Python sell at the
virtual printer's terminal, the log of their day is read, and the tool names what is wrong in every set-up of the table.

scripts/paquetes --comprobar makes the packages and tells in the environment where they are.
"""
import json
import pathlib
import subprocess
import tempfile
import unittest

import set_ups
from bare_debian import PACKAGES, PATIENCE, TILL_USER, Printer, the_system

HOSTS = "/usr/share/kestra/hosts"
# What only this system has.
ROWS = (
    set_ups.SetUp("what is no port", "no-es-puerto-serie", "/dev/null", {"ImpresoraDispositivo": "/dev/null"}),
    set_ups.SetUp("no permission", "sin-permiso", keys={"ImpresoraDispositivo": "/dev/ttyUSB0"}),
)


class DebianShop(set_ups.Shop):
    def __init__(self, case, system, name):
        self.case, self.system = case, system
        folder, self.there = system.new_folder(name)
        super().__init__(folder, (system.root / "usr/share/doc/libkestra-dev/examples/Fiscal.ini").read_text(encoding="utf-8"))

    def start_printer(self, *flags):
        said = tempfile.TemporaryDirectory()
        self.case.addCleanup(said.cleanup)
        printer = Printer(self.system, self.there, pathlib.Path(said.name) / "dicho", *flags)
        self.case.addCleanup(printer.stop)
        return printer

    def run(self, *words):
        ended = subprocess.run(self.system.command(*words, folder=self.there, user=TILL_USER), stdin=subprocess.DEVNULL,
                               stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=PATIENCE, check=False)
        return ended.returncode, ended.stdout

    def kestra(self, *words):
        return self.run("kestra", *words)


class TheDay(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.system = the_system()
        cls.system.install(*PACKAGES, "gcc", "libc6-dev", "python3")

    def sells(self, name, *till, made=None):
        """The till's day, at a printer that is a terminal; the page of its panel, the paper and the log say the same."""
        shop = DebianShop(self, self.system, name)
        printer = shop.start_printer("--familia", "TF", "--enlace", "impresora", "--panel", "127.0.0.1:0", "--papel", "papel.txt")
        self.assertTrue(printer.device.startswith("/dev/pts/"), printer.device)
        shop.write_settings({"TipoComprobante": "TF", "ImpresoraDispositivo": "impresora"})
        self.assertIn("<title>Impresora virtual</title>", set_ups.ask_panel(printer.url))
        if made:
            self.assertEqual(shop.run(*made), (0, ""))
        result, said = shop.run(*till)
        self.assertEqual(result, 0, said)
        self.assertRegex(said, "Factura A emitida: +00000001\n")
        self.assertIn("Libreria Muñoz S.R.L.", set_ups.ask_panel(printer.url, "api/papel"))
        result, said = shop.kestra("diagnostico", "--json")
        self.assertEqual((result, json.loads(said)["veredicto"]), (0, "bien"), said)
        return shop

    def read_log(self, shop):
        result, said = shop.kestra("registro")
        self.assertEqual(result, 0, said)
        for words in (", 0 fallas", "TIQUE FACTURA A 00000001", "EP_ReporteZ"):
            self.assertIn(words, said)
        result, said = shop.kestra("registro", "--json", "--comprobante", "A-1")
        self.assertEqual((result, {json.loads(line)["comprobante"]["numero"] for line in said.splitlines()}), (0, {"00000001"}))
        self.assertEqual(shop.kestra("registro", "--html", "para el soporte.html"), (0, ""))
        page = (shop.folder / "para el soporte.html").read_text(encoding="utf-8")
        self.assertIn("TIQUE FACTURA A 00000001", page)
        self.assertNotIn("30000000007", page)
        self.assertEqual(shop.kestra("registro", "--fallas")[0], 1, "what failed is told where nothing has")

    def test_a_till_in_c(self):
        self.read_log(self.sells("librería en C", "./tienda",
                                 made=("gcc", f"{HOSTS}/c/tienda.c", "-lkestra", "-o", "tienda")))

    def test_a_till_in_python(self):
        self.read_log(self.sells("librería en Python", "python3", "-B", f"{HOSTS}/python/tienda.py"))

    def test_the_tool_names_what_is_wrong(self):
        self.system.inside("mknod", "-m", "600", "/dev/ttyUSB0", "c", "188", "0")
        set_ups.judge_all(self, DebianShop(self, self.system, "rotisería La Ñata"), set_ups.ROWS + ROWS)


if __name__ == "__main__":
    unittest.main()
