"""A machine with Windows alone: the till and the virtual printer, both Windows programs, over the network."""

import subprocess
import unittest

import tcp_test
from shop import ENV, WAIT, read
from till import Till


class AWindowsPrinter(tcp_test.NetworkShop, Till):
    printer_flags = ["--documentos", "1"]

    def line_settings(self):
        return {"ImpresoraDispositivo": self.device}

    def start_printer(self):
        command = [ENV["KESTRA_WINE64"], ENV["KESTRA_WINDOWS_PRINTER"], "--familia", self.family,
                   "--tcp", "127.0.0.1:0", "--papel", "papel.txt", "--traza", "traza.txt"]
        printer = subprocess.Popen(command + self.printer_flags, cwd=self.folder, text=True,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE)
        self.addCleanup(printer.stdout.close)
        self.addCleanup(printer.wait)
        self.addCleanup(printer.kill)
        self.device = printer.stdout.readline().removeprefix("Puerto: ").strip()
        return printer

    def stop_printer(self, *_):
        return self.printer.wait(WAIT)

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
                ended = subprocess.run([ENV["KESTRA_WINE64"], ENV["KESTRA_WINDOWS_PRINTER"], *option],
                                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                       stderr=subprocess.PIPE, timeout=60, check=False)
                self.assertEqual(ended.returncode, 1)
                self.assertIn(option[0].encode(), ended.stderr)


if __name__ == "__main__":
    unittest.main()
