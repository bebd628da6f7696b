"""The tool's commands, each in a few words, and what scripts rely on: JSON, results, nothing asked and nothing printed."""

import json
import os
import re
import subprocess
import unittest

from broken_shops import SAFE, BrokenShop
from shop import ENV, read
from together import Together

COMMANDS = ["diagnostico", "estado", "numeracion", "reloj", "modelo", "resolver", "ini"]


class Tool(BrokenShop):
    def kestra(self, *words, ends_with=0, **variables):
        ended = subprocess.run([ENV["KESTRA_TOOL"], *words], cwd=self.folder, env=dict(ENV, **variables), capture_output=True,
                               text=True, check=False, stdin=subprocess.DEVNULL, timeout=120)
        self.assertEqual(ended.returncode, ends_with, ended.stdout + ended.stderr)
        return ended

    def told(self, *words, ends_with=0, **variables):
        return json.loads(self.kestra(*words, "--json", ends_with=ends_with, **variables).stdout)


class AnyCommand(Tool):
    def test_tells_its_usage_and_does_nothing_else(self):
        for word in ["--ayuda", "--help", "-h"]:
            self.assertIn("diagnostico", self.kestra(word).stdout)
            for command in COMMANDS:
                self.assertIn(f"kestra {command}", self.kestra(command, word).stdout)
        self.assertRegex(self.kestra("--version").stdout, r"^kestra \d+\.\d+\.\d+\n$")

    def test_is_in_the_programs_own_list(self):
        listed = re.findall(r"(?m)^  ([a-z]+)  ", self.kestra("--ayuda").stdout.split("En todas")[0])
        self.assertLessEqual(set(COMMANDS), set(listed))

    def test_with_wrong_words_ends_with_2_and_says_where_help_is(self):
        for words in [[], ["nada"], ["estado", "--x"], ["estado", "otro"], ["ini", "--familia"], ["estado", "--poner=1"],
                      ["ini", "--escribir", "--comparar"], ["ini", "sobra"], ["ini", "--explicar", "NoEs"]]:
            with self.subTest(words=words):
                ended = self.kestra(*words, ends_with=2)
                self.assertEqual(ended.stdout, "")
                self.assertRegex(ended.stderr, r"^kestra: .")

    def test_leaves_nothing_on_paper_in_the_log_or_in_the_journal(self):
        self.ini(**SAFE)
        for command in COMMANDS[:-2]:
            self.kestra(command)
        self.assertEqual(read(self.path("papel.txt")), "")
        self.assertEqual(sorted(os.listdir(self.folder)), ["Fiscal.ini", "impresora", "papel.txt", "traza.txt"])

    def test_works_in_another_folder(self):
        os.mkdir(self.path("otra"))
        ended = self.kestra("diagnostico", "--carpeta", "otra", ends_with=4)
        self.assertIn(self.path("otra"), ended.stdout)
        self.assertIn("no se puede entrar", self.kestra("estado", "--carpeta", "ninguna", ends_with=4).stderr)

    def test_goes_where_the_environment_leads(self):
        device = self.device
        self.ini(ImpresoraDispositivo="/dev/ttyUSB77")
        said = self.told("diagnostico", KESTRA_DISPOSITIVO=device)
        self.assertEqual(said["veredicto"], "bien")
        self.assertIn("KESTRA_DISPOSITIVO", said["secciones"][1]["datos"]["dispositivo"])

    def test_tells_a_silent_port_in_json_too(self):
        self.ini(ImpresoraDispositivo="/dev/ttyUSB77")
        for command in COMMANDS[1:5]:
            said = self.told(command, ends_with=3)
            self.assertEqual(said["termina"], 3)
            self.assertIn("ttyUSB77", said["error"])


class OneQuestion(Tool):
    def test_of_the_state(self):
        said = self.told("estado")
        self.assertEqual((said["impresora"], said["fiscal"]), ("0080", "0600"))
        self.assertIn("Terminal Fiscal Certificada", self.kestra("estado").stdout)
        self.other_printer("--sin-papel")
        self.assertIn("FALLA", self.kestra("estado", ends_with=1).stdout)

    def test_of_the_counters(self):
        subprocess.run([ENV["KESTRA_TICKET"]], cwd=self.folder, capture_output=True, check=True)
        said = self.told("numeracion")
        self.assertEqual((said["tique"], said["z"], said["factura_a"]), (1, 0, 0))
        self.assertRegex(self.kestra("numeracion").stdout, r"último tique +1\n")

    def test_of_the_clock_which_is_set_when_told(self):
        self.other_printer("--estado", "desfase_reloj=500")
        self.assertAlmostEqual(self.told("reloj")["adelanta"], 500, delta=5)
        self.assertAlmostEqual(self.told("reloj", "--poner")["adelanta"], 0, delta=5)

    def test_of_the_model(self):
        said = self.told("modelo")
        self.assertEqual((said["familia"], said["modelo"]), ("TQ", "TM-U220AF"))
        self.assertEqual((said["digitos"]["EntPrecio"], said["digitos"]["DecPrecio"]), (7, 2))


class TheSettings(Tool):
    def test_are_written_from_what_the_printer_tells_and_then_are_well(self):
        self.other_printer("--digitos", "precio=8.3", "--modelo", "TM-X", family="TF")
        device = self.device
        os.unlink(self.path("Fiscal.ini"))
        self.assertIn("TM-X", self.kestra("ini", "--escribir", "--dispositivo", device).stdout)
        text = read(self.path("Fiscal.ini"))
        for line in ["TipoComprobante=TF", "ModeloNombre=TM-X", "EntPrecio=8", "DecPrecio=3", "ModoSeguro=1",
                     "ReconoceRepetidas=1", f"ImpresoraDispositivo={device}"]:
            self.assertIn(line + "\n", text)
        self.assertEqual(self.told("diagnostico")["veredicto"], "bien")

    def test_are_written_over_only_when_told(self):
        self.kestra("ini", "--escribir", ends_with=2)
        self.kestra("ini", "--escribir", "--reemplazar")
        self.kestra("ini", "--escribir", "--familia", "FC", "-", ends_with=5)  # it is another one

    def test_are_written_over_files_alone(self):
        os.mkdir(self.path("carpeta"))
        self.kestra("ini", "--escribir", "--reemplazar", "carpeta", ends_with=6)
        self.assertTrue(os.path.isdir(self.path("carpeta")))

    def test_are_written_without_a_printer_as_is_usual(self):
        self.kestra("ini", "--escribir", "otro.ini", "--sin-impresora", ends_with=2)
        self.kestra("ini", "--escribir", "otro.ini", "--sin-impresora", "--familia", "FC", "--puerto", "3")
        self.assertIn("ImpresoraPuerto=3\n", read(self.path("otro.ini")))

    def test_are_checked_without_the_printer(self):
        self.stop_printer()
        self.assertEqual(self.told("ini")["veredicto"], "bien")
        self.ini(EntPrecio=None)
        self.assertEqual(self.told("ini", ends_with=4)["veredicto"], "clave-faltante")

    def test_are_explained(self):
        everything = self.told("ini", "--explicar")
        self.assertEqual(len(everything), 52 + 1 + 11)
        self.assertTrue(all(row["que"] for row in everything))
        self.assertEqual(self.told("ini", "--explicar", "entprecio")[0]["valor"], "7")

    def test_are_compared(self):
        self.write("otro.ini", read(self.path("Fiscal.ini")).replace("DecPrecio=2", "DecPrecio=3"))
        self.assertEqual(self.told("ini", "--comparar", "Fiscal.ini", "Fiscal.ini"), [])
        self.assertEqual(self.told("ini", "--comparar", "Fiscal.ini", "otro.ini", ends_with=1),
                         [{"clave": "DecPrecio", "uno": "2", "otro": "3"}])
        self.kestra("ini", "--comparar", "Fiscal.ini", "ninguno.ini", ends_with=4)

    def test_get_what_was_seen_of_repeated_frames(self):
        before = read(self.path("Fiscal.ini"))
        self.ini(ReconoceRepetidas="0")
        self.kestra("diagnostico", "--anotar-repetidas")
        self.assertIn("ReconoceRepetidas=1\n", read(self.path("Fiscal.ini")))
        self.write("Fiscal.ini", before)
        self.kestra("diagnostico", "--anotar-repetidas")
        self.assertEqual(read(self.path("Fiscal.ini")).replace("ReconoceRepetidas=1\n", ""), before)


class WhatIsPending(Tool):
    def test_is_settled_by_the_books(self):
        self.leave_pending()
        said = self.told("resolver")  # the printer did it when it went on
        self.assertIn("Yerba", said["llamada"])
        self.assertEqual(said["desenlace"], "hecho")
        self.assertEqual(self.told("resolver")["desenlace"], "nada")

    def test_stays_while_the_printer_says_nothing(self):
        self.leave_pending()
        self.stop_printer()
        self.assertIn("sigue pendiente", self.kestra("resolver", ends_with=3).stderr)

    def test_is_dropped_when_told(self):
        self.leave_pending()
        self.stop_printer()
        self.assertEqual(self.told("resolver", "--olvidar")["desenlace"], "olvidado")
        self.assertEqual(self.told("resolver")["desenlace"], "nada")

    def test_needs_a_journal(self):
        self.assertIn("ModoSeguro", self.kestra("resolver", ends_with=4).stderr)


def load_tests(loader, tests, pattern):
    del loader, pattern
    return Together(tests)


if __name__ == "__main__":
    unittest.main()
