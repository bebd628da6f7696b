"""A ticket from the host's call to the paper."""

import os
import subprocess
import unittest

from shop import ENV, SHARED, Shop, read

PAPER = read(os.path.join(SHARED, "tique.txt"))

TICKET = """
assert lib.EP_Init() == 1
assert open_document("FC", "C") == 0
assert item("Cafe", 2, 10.50, extra="en grano") == 0
assert pay("Efectivo", 21.0) == 0
print(close("FC", "C"))
lib.EP_Kill()
"""


class TheDemoShop(Shop):
    def test_its_ticket_comes_out_on_paper(self):
        shop = subprocess.run([ENV["KESTRA_TICKET"]], cwd=self.folder, text=True,
                              capture_output=True, check=True)
        self.assertIn("Ticket emitido: 00000001", shop.stdout)
        self.assertEqual(shop.stderr, "")
        self.assertEqual(self.paper().rstrip("\n"), PAPER.rstrip("\n"))

    def test_every_frame_of_it_is_in_the_log(self):
        subprocess.run([ENV["KESTRA_TICKET"]], cwd=self.folder, capture_output=True, check=True)
        log = self.log()
        frames = log.count(" - Output : \x02")
        self.assertEqual(frames, 10)  # three of the seven calls print an extra line before the item
        self.assertEqual(log.count(" - Respuesta : \x02"), frames)
        self.stop_printer()  # it writes the last line when the host has left already
        self.assertEqual(read(self.path("traza.txt")).count("\n"), frames)


class AHostInPython(Shop):
    def test_drives_a_ticket_and_gets_its_number(self):
        out, err = self.run_host(TICKET)
        self.assertEqual(out, "(0, '00000001')\n")
        self.assertEqual(err, "")
        self.assertIn("Cafe                               21,00", self.paper())

    def test_numbers_go_on_from_ticket_to_ticket(self):
        out, _ = self.run_host(TICKET + TICKET)
        self.assertEqual(out, "(0, '00000001')\n(0, '00000002')\n")

    def test_a_refused_command_fails_and_says_why_without_touching_standard_output(self):
        out, err = self.run_host('lib.EP_Init(); print(item("Cafe", 1, 1.0))')
        self.assertEqual(out, "1\n")
        self.assertIn("Comando no valido para estado fiscal", err)
        self.assertIn("Cerrar", err)


class AFiscalDay(Shop):
    family = "TF"

    def test_comes_out_on_paper_from_the_invoice_to_the_closing(self):
        shop = subprocess.run([ENV["KESTRA_DAY"]], cwd=self.folder, text=True, capture_output=True,
                              check=True)
        self.assertNotIn("FALLO", shop.stdout)
        self.assertEqual(shop.stderr, "")
        day = os.path.join(SHARED, "jornada.txt")
        self.assertEqual(self.paper(), read(day))


class AFiscalDayWithAStrictPrinter(AFiscalDay):
    printer_flags = ["--estricta", "--baudios", "9600"]


class AnInvoice(Shop):
    family = "TF"

    def test_goes_from_opening_to_closing(self):
        out, _ = self.run_host("""
lib.EP_Init()
print(open_document("FC", "A", "Ñandú S.R.L.", "CUIT", "30000000007", "I", "Calle 1"))
print(item("Silla", 2, 1000.0, 21.0), item("Libro", 1, 500.0, 10.5))
print(void_item("Libro", 1, 500.0, 10.5))
print(pay("Efectivo", 2420.0), *close("FC", "A"))
""")
        self.assertEqual(out.split(), ["0", "0", "0", "0", "0", "0", "00000001"])
        self.assertIn("2.420,00", self.paper())

    def test_can_be_cancelled(self):
        out, _ = self.run_host("""
lib.EP_Init()
print(open_document("FC", "B", "Ana", "DNI", "123", "F", ""), item("Silla", 1, 10.0))
print(lib.EP_Cancelar(), open_document("FC", "B", "Ana", "DNI", "123", "F", ""))
""")
        self.assertEqual(out.split(), ["0"] * 4)


if __name__ == "__main__":
    unittest.main()
