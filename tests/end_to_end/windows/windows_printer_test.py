"""A machine with Windows alone: the till and the virtual printer, both Windows programs, over the network."""

import contextlib
import json
import os
import sqlite3
import unittest
import urllib.request

import programs
import tcp_test
from shop import ENV, WAIT, read
from till import Till


class AWindowsPrinter(tcp_test.NetworkShop, Till):
    printer_flags = ["--documentos", "1"]

    def line_settings(self):
        return {"ImpresoraDispositivo": self.device}

    def start_printer(self):
        command = [ENV["KESTRA_WINDOWS_PRINTER"], "--familia", self.family, "--tcp", "127.0.0.1:0",
                   "--papel", "papel.txt", "--traza", "traza.txt"]
        printer = programs.Program(command + self.printer_flags, self.folder)
        self.addCleanup(printer.kill)
        self.device = printer.hear_output(rb"Puerto: (.*?)\r?\n").group(1).decode()
        return printer

    def stop_printer(self, *_):
        return self.printer.wait()

    def test_prints_the_ticket_of_the_demo_shop(self):
        out, err = self.run_program(ENV["KESTRA_TICKET"])
        self.assertIn("Ticket emitido: 00000001", out)
        self.assertEqual(err, "")
        self.assertEqual(self.paper().rstrip("\n"), tcp_test.PAPER.rstrip("\n"))
        self.assertIn("Abrir tique", read(self.path("traza.txt")))


class AWindowsPrinterWithPanelAndMemory(AWindowsPrinter):
    printer_flags = ["--papel", "papeles/", "--panel", "127.0.0.1:0", "--memoria", "memoria.db"]

    def start_printer(self):
        printer = super().start_printer()
        self.url = printer.hear_output(rb"Panel: (.*?)\r?\n").group(1).decode()
        return printer

    def state(self):
        with urllib.request.urlopen(self.url + "api/estado", timeout=WAIT) as answer:
            return json.load(answer)

    def test_prints_the_ticket_of_the_demo_shop(self):
        for number in (1, 2):
            out, _ = self.run_program(ENV["KESTRA_TICKET"])
            self.assertIn(f"Ticket emitido: {number:08}", out)
            self.assertEqual(self.state()["ultimo_documento"]["numero"], number)
            self.printer.kill()  # as the power goes
            self.printer = self.start_printer()
            self.write_settings()
        self.printer.kill()
        with contextlib.closing(sqlite3.connect(self.path("memoria.db"))) as book:
            self.assertEqual(book.execute("SELECT numero FROM comprobantes ORDER BY ordinal").fetchall(), [(1,), (2,)])
        files = [f"{n:04}-tique-B-{n:08}.{kind}" for n in (1, 2) for kind in ("svg", "txt")]
        self.assertEqual([name for name in sorted(os.listdir(self.path("papeles"))) if not name.endswith("png")], files)


class AWindowsPrinterWithoutPseudoTerminals(unittest.TestCase):
    def test_says_so(self):
        ended = programs.run([ENV["KESTRA_WINDOWS_PRINTER"], "--enlace", "x"])
        self.assertEqual(ended.returncode, 1)
        self.assertIn(b"--enlace", ended.errors())


if __name__ == "__main__":
    unittest.main()
