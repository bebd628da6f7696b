"""`kestra diagnostico` as a Windows program: a shop that is well and some that are broken, in a folder whose name has
blanks and letters of ours. The printer is the virtual one, as a COM port."""

import json
import os
import re
import shutil
import unittest

import programs
from shop import ENV, read
from till import Till

# Name, verdict, keys of Fiscal.ini (None takes one away), options of the printer, a word of what the finding tells.
ROWS = [
    ("all is well", "bien", {}, [], ""),
    ("a key that is missing", "clave-faltante", {"EntPrecio": None}, [], "EntPrecio"),
    ("a speed that is none", "velocidad-invalida", {"ImpresoraConfig": "9601"}, [], "9601"),
    ("no such port", "dispositivo-inexistente", {"ImpresoraPuerto": "250"}, [], "COM250"),
    ("nobody at the address", "nadie-atiende", {"ImpresoraDispositivo": "tcp:127.0.0.1:1"}, [], "tcp:"),
    ("another family", "otra-familia", {"TipoComprobante": "FC"}, [], "TQ"),
    ("other digits", "otros-digitos", {"DecPrecio": "3"}, [], "DecPrecio=3"),
    ("no paper", "sin-papel", {}, ["--sin-papel"], ""),
    ("a clock of another time", "reloj-corrido", {}, ["--estado", "desfase_reloj=-3600"], "atrasa"),
    ("a journal that is none", "no-es-un-diario", {"ModoSeguro": "1", "Diario": "Fiscal.ini"}, [], "Fiscal.ini"),
]


class AWindowsShop(Till):
    settings = {"ModeloNombre": "TM-U220AF"}

    def setUp(self):
        super().setUp()
        self.room = self.path("caja del ñandú")
        os.mkdir(self.room)
        for file in (ENV["KESTRA_TOOL"], ENV["KESTRA_LIBRARY"]):
            shutil.copy(file, self.room)

    def kestra(self, *words):
        tool = os.path.join(self.room, os.path.basename(ENV["KESTRA_TOOL"]))
        return programs.run([tool, *words, "--json"], folder=self.room)

    def told(self, *words):
        ended = self.kestra(*words)
        self.assertEqual(ended.errors(), b"", ended.errors())
        return ended.returncode, json.loads(ended.output())

    def settle(self, changes):
        text = read(self.path("Fiscal.ini"))
        for key, value in changes.items():
            text = re.sub(rf"(?m)^;?{key}=.*\n", "", text)
            text += f"\n{key}={value}\n" if value is not None else ""
        with open(os.path.join(self.room, "Fiscal.ini"), "w", encoding="cp1252") as file:
            file.write(text)

    def test_is_diagnosed(self):
        for name, verdict, changes, flags, told in ROWS:
            with self.subTest(name):
                if flags != self.printer_flags:
                    self.stop_printer()
                    self.printer_flags = flags
                    self.printer = self.start_printer()
                self.settle(changes)
                result, said = self.told("diagnostico")
                self.assertEqual((said["veredicto"], said["termina"]), (verdict, result), said)
                self.assertIn(told, said["hallazgos"][0]["detalle"] if said["hallazgos"] else "")
                self.assertTrue(said["secciones"][0]["datos"]["carpeta"].endswith("caja del ñandú"))

    def test_is_asked_for_what_it_is(self):
        self.settle({})
        self.assertEqual(self.told("modelo")[1]["familia"], "TQ")
        self.assertEqual(self.told("estado")[1]["impresora"], "0080")
        self.assertEqual(self.told("numeracion")[1]["tique"], 0)
        # What it sees on the way goes to the other stream.
        self.assertEqual(self.kestra("ini", "--escribir", "--reemplazar").returncode, 0)
        self.assertIn("TipoComprobante=TQ\n", read(os.path.join(self.room, "Fiscal.ini")))
        self.assertEqual(self.told("diagnostico")[1]["veredicto"], "bien")
        self.assertEqual(self.told("resolver")[1]["desenlace"], "nada")

    def test_says_where_the_rest_is(self):
        self.settle({})
        for command in ("registro", "presenciar", "consola"):
            result = self.kestra(command)
            self.assertEqual(result.returncode, 2)
            said = json.loads(result.output())
            self.assertIn(command, said["error"])
            self.assertIn("64 bits", said["error"])


if __name__ == "__main__":
    unittest.main()
