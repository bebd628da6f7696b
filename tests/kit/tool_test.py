"""The tool for the shop beside the virtual printer, both programs of one system: a day that is witnessed, recorded and
played again, its log in words, and operations at a prompt."""

import json
import os
import time
import unittest

from kit import COMMAND, DAY, PATIENCE, TOOL, InAShop, Program

LOOK = 0.05  # seconds between looks at what another program writes


class AWitnessedDay(InAShop):
    def live(self, port):
        """What the till says of a day at that printer."""
        self.settings(ImpresoraDispositivo=port)
        code, said = self.run_it(command=DAY)
        self.assertEqual(code, 0, said)
        return said

    def test_is_told_recorded_and_played_again(self):
        printer = self.start("--familia", "TF", "--tcp", "127.0.0.1:0", "--papel", "papel.txt")
        witness = self.start("presenciar", "--impresora", printer.port, "--tcp", "127.0.0.1:0", "--grabar",
                             "día de hoy.jsonl", command=TOOL)
        said = self.live(witness.port)
        witness.kill()
        printer.kill()
        self.assertEqual(witness.words(0).count(" ok "), 16, witness.words(0))
        player = self.start("--reproducir", "día de hoy.jsonl", "--tcp", "127.0.0.1:0")
        self.assertEqual(self.live(player.port), said)
        player.kill()
        self.log_is_told()

    def log_is_told(self):
        code, table = self.shown("registro")
        self.assertEqual(code, 0, table)
        self.assertIn("32 tramas, 0 fallas", table)
        self.assertIn("Libreria Muñoz", table)
        rows = [json.loads(line) for line in self.shown("registro", "--json", "--comprobante", "A-1")[1].splitlines()]
        self.assertEqual({row["comprobante"]["numero"] for row in rows}, {"00000001"})
        self.assertEqual(self.shown("registro", "--fallas")[0], 1)
        self.assertEqual(self.shown("registro", "--html", "señales.html"), (0, ""))
        page = self.read("señales.html")
        self.assertIn("TIQUE FACTURA A 00000001", page)
        self.assertNotIn("30000000007", page)
        self.assertEqual(self.shown("registro", "no hay.log")[0], 6)

    def test_is_followed_while_it_is_written(self):
        printer = self.start("--familia", "TF", "--tcp", "127.0.0.1:0", "--papel", "papel.txt")
        follower = Program(self.folder, [*TOOL, "registro", "--seguir"])
        self.addCleanup(follower.forget)
        self.live(printer.port)
        until = time.monotonic() + PATIENCE
        while "Cierre" not in follower.words(0) and time.monotonic() < until:
            time.sleep(LOOK)
        self.assertIn("Cierre", follower.words(0))
        self.assertIsNone(follower.process.poll(), follower.words(1))

    def test_has_its_printer_on_a_serial_line(self):
        witness = self.start("presenciar", "--impresora", self.serial_printer(79), "--tcp", "127.0.0.1:0", command=TOOL)
        self.live(witness.port)
        witness.kill()
        self.assertEqual(witness.words(0).count(" ok "), 16, witness.words(0))

    def test_has_a_printer_that_is_not_there(self):
        code, said = self.shown("presenciar", "--impresora", "tcp:127.0.0.1:1", "--tcp", "127.0.0.1:0")
        self.assertEqual(code, 3, said)


class APrompt(InAShop):
    TICKET = ('AbrirComprobanteFiscal FC B "Muñoz Ana" documento_tipo=DNI documento_numero=20111222 '
              'responsabilidad_iva=F domicilio1="Sur 1" copias=1',
              'ImprimirItem "Cafe molido" 2 100,50 21',
              '! ImprimirItem "" 1 1 21',
              'ImprimirPago Efectivo 201',
              'CerrarComprobanteFiscal FC B => 00000001',
              'Kestra_DocumentoAbierto => 0')

    def test_takes_a_script(self):
        self.write("guión.txt", "".join(line + "\n" for line in self.TICKET))
        code, said = self.shown("consola", "guión.txt", "--virtual", "TF")
        self.assertEqual(code, 0, said)
        self.assertIn("Muñoz Ana", said)
        self.assertIn("numero «00000001»", said)
        self.assertEqual(os.listdir(self.folder), ["guión.txt"])

    def test_takes_lines_that_come_from_elsewhere(self):
        code, said = self.run_it("consola", "--virtual", "TQ", command=TOOL,
                                 typed="nohay\r\nObtenerFechaHora\r\nsalir\r\nReporteZ\r\n")
        self.assertEqual(code, 0, said)
        self.assertIn("EP_ObtenerFechaHora: 0 hecho", said)
        self.assertIn("nohay", said)
        self.assertNotIn("EP_ReporteZ", said)

    def test_spares_a_printer_that_somebody_else_has(self):
        printer = self.start("--familia", "TF", "--tcp", "127.0.0.1:0", "--papel", "papel.txt")
        self.settings(ImpresoraDispositivo=printer.port)
        code, said = self.run_it("consola", command=TOOL, typed="CortaPapel\n")
        self.assertEqual(code, 0, said)
        self.assertIn("EP_CortaPapel: 0 hecho", said)


if __name__ == "__main__":
    assert COMMAND
    unittest.main()
