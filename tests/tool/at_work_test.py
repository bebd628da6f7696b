"""The tool with a till and a virtual printer: each story has a folder of its own."""
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import unittest

import counters  # noqa: F401

TOOL, PRINTER, DAY = (os.environ[name] for name in ("KESTRA_TOOL", "KESTRA_PRINTER", "KESTRA_DAY"))
PATIENCE = 60


class Shop(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="kestra-caja ñ-"))
        self.addCleanup(shutil.rmtree, self.folder)

    def settings(self, **keys):
        text = pathlib.Path(os.environ["KESTRA_SETTINGS"]).read_text(encoding="utf-8")
        ours = "".join(f"{key}={value}\n" for key, value in keys.items())
        text = re.sub(r"(?m)^(\[.*\]\n)", lambda found: found.group(1) + ours, text, count=1)
        (self.folder / "Fiscal.ini").write_text(text, encoding="latin-1")

    def start(self, *command):
        """A program that serves until the story ends; the port that its first line tells."""
        process = subprocess.Popen(command, cwd=self.folder, stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.stop, process)
        return process, process.stdout.readline().removeprefix("Puerto: ").strip()

    def stop(self, process):
        if process.poll() is None:
            process.send_signal(signal.SIGINT)
        rest = process.communicate(timeout=PATIENCE)[0]
        return process.returncode, rest

    def run_program(self, *command, typed=""):
        done = subprocess.run(command, cwd=self.folder, input=typed, capture_output=True, text=True, timeout=PATIENCE)
        return done.returncode, done.stdout, done.stderr

    def script(self, *lines):
        path = self.folder / "guion.txt"
        path.write_text("\n".join(lines) + "\n", encoding="utf-8")
        return str(path)


class Witnessed(Shop):
    def test_a_day_that_was_witnessed_is_played_again(self):
        printer, port = self.start(PRINTER, "--familia", "TF", "--tcp", "127.0.0.1:0", "--papel", "papel.txt")
        witness, till = self.start(TOOL, "presenciar", "--impresora", port, "--tcp", "127.0.0.1:0",
                                   "--grabar", "dia.jsonl")
        self.settings(TipoComprobante="TF", ImpresoraDispositivo=till)
        told = self.run_program(DAY)
        self.assertEqual(told[0], 0, told)
        code, lines = self.stop(witness)
        self.assertEqual((code, lines.count(" ok ")), (0, 16), lines)
        self.stop(printer)
        player, port = self.start(PRINTER, "--reproducir", "dia.jsonl", "--tcp", "127.0.0.1:0")
        self.settings(TipoComprobante="TF", ImpresoraDispositivo=port)
        self.assertEqual(self.run_program(DAY), told)
        self.stop(player)

        code, table, _ = self.run_program(TOOL, "registro")
        self.assertEqual(code, 0)
        self.assertIn("32 tramas, 0 fallas", table)
        code, lines, _ = self.run_program(TOOL, "registro", "--json", "--comprobante", "A-1")
        rows = [json.loads(line) for line in lines.splitlines()]
        self.assertEqual({row["comprobante"]["numero"] for row in rows}, {"00000001"})
        self.assertEqual(self.run_program(TOOL, "registro", "--fallas")[0], 1)
        code, page, _ = self.run_program(TOOL, "registro", "--html", "-")
        self.assertIn("TIQUE FACTURA A 00000001", page)
        self.assertNotIn("30000000007", page)

    def test_a_printer_that_is_not_there(self):
        code, _, words = self.run_program(TOOL, "presenciar", "--impresora", "no-hay", "--tcp", "127.0.0.1:0")
        self.assertEqual(code, 3, words)


class Prompted(Shop):
    TICKET = ('AbrirComprobanteFiscal FC B "Muñoz Ana" documento_tipo=DNI documento_numero=20111222 '
              'responsabilidad_iva=F domicilio1="Sur 1" copias=1',
              'ImprimirItem "Cafe molido" 2 100,50 21',
              '! ImprimirItem "" 1 1 21',
              'ImprimirPago Efectivo 201',
              'CerrarComprobanteFiscal FC B => 00000001',
              'Kestra_DocumentoAbierto => 0')

    def test_a_script_on_a_printer_of_its_own(self):
        code, told, words = self.run_program(TOOL, "consola", self.script("# un tique", *self.TICKET),
                                             "--virtual", "TF")
        self.assertEqual(code, 0, told + words)
        self.assertIn("Cafe molido", told)
        self.assertIn("numero «00000001»", told)
        self.assertEqual([path.name for path in self.folder.iterdir()], ["guion.txt"])

    def test_a_script_ends_with_the_line_that_does_not_go_as_it_wants(self):
        for line, wanted in (("ImprimirPago Efectivo 1", 5), ("! Numeracion", 1), ("Numeracion => nada", 1),
                             ("NoHay", 2), ('Pago "', 2)):
            code, _, words = self.run_program(TOOL, "consola", self.script("", line, "CortaPapel"), "--virtual", "TF")
            self.assertEqual(code, wanted, words)
            self.assertIn("guion.txt:2: ", words)

    def test_nothing_leads_past_the_printer_of_its_own(self):
        os.environ["KESTRA_DISPOSITIVO"] = "tcp:127.0.0.1:9"
        self.addCleanup(os.environ.pop, "KESTRA_DISPOSITIVO")
        self.assertEqual(self.run_program(TOOL, "consola", self.script("CortaPapel"), "--virtual", "TF")[0], 2)

    def test_lines_that_are_typed(self):
        code, told, words = self.run_program(TOOL, "consola", "--virtual", "TQ", "--json",
                                             typed="nohay\nObtenerFechaHora\nsalir\nReporteZ\n")
        self.assertEqual(code, 0)
        rows = [json.loads(line) for line in told.splitlines()]
        self.assertEqual([row["operacion"] for row in rows], ["EP_ObtenerFechaHora"])
        self.assertIn("nohay", words)

    def test_a_real_printer_prints_when_that_is_said_alone(self):
        # One whose tax number is somebody's; the sum of its digits is the same, so that the frame stays whole.
        printer, port = self.start(PRINTER, "--familia", "TF", "--tcp", "127.0.0.1:0", "--papel", "papel.txt",
                                   "--grabar", "sesion.jsonl")
        self.settings(TipoComprobante="TF", ImpresoraDispositivo=port)
        asking = self.script("Numeracion", "CortaPapel")
        self.assertEqual(self.run_program(TOOL, "consola", asking)[0], 0)
        self.stop(printer)
        recording = self.folder / "sesion.jsonl"
        text = recording.read_text(encoding="utf-8")
        virtual = "30-00000000-7".encode().hex(" ").upper()
        real = "30-70000000-0".encode().hex(" ").upper()
        self.assertIn(virtual, text)
        recording.write_text(text.replace(virtual, real), encoding="utf-8")
        player, port = self.start(PRINTER, "--reproducir", "sesion.jsonl", "--tcp", "127.0.0.1:0")
        self.settings(TipoComprobante="TF", ImpresoraDispositivo=port)
        code, told, words = self.run_program(TOOL, "consola", asking)
        self.assertEqual(code, 2, words)
        self.assertIn("EP_Numeracion: 0 hecho", told)
        self.assertNotIn("EP_CortaPapel: ", told)
        self.assertEqual(self.run_program(TOOL, "consola", asking, "--impresora-real")[0], 0)
        self.stop(player)


if __name__ == "__main__":
    unittest.main()
