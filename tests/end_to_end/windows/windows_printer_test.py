"""A machine with Windows alone: the till and the virtual printer, both Windows programs, over the network."""

import unittest

import programs
import tcp_test
from shop import ENV, read
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


class AWindowsPrinterWithoutWhatItCannotDo(unittest.TestCase):
    def test_says_so(self):
        for option in (["--memoria", "m.db"], ["--panel", "127.0.0.1:0"], ["--enlace", "x"]):
            with self.subTest(option=option):
                ended = programs.run([ENV["KESTRA_WINDOWS_PRINTER"], *option])
                self.assertEqual(ended.returncode, 1)
                self.assertIn(option[0].encode(), ended.errors())


if __name__ == "__main__":
    unittest.main()
