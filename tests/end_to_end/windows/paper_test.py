"""From a call of a Windows program to the paper, which is the same as everywhere."""

import os
import unittest

import ticket_test
from shop import ENV, SHARED, read
from till import Till


class TheDemoShop(Till):
    def test_its_ticket_comes_out_on_paper(self):
        out, err = self.run_program(ENV["KESTRA_TICKET"])
        self.assertIn("Ticket emitido: 00000001", out)
        self.assertEqual(err, "")
        self.assertEqual(self.paper().rstrip("\n"), ticket_test.PAPER.rstrip("\n"))

    def test_every_frame_of_it_is_in_the_log(self):
        self.run_program(ENV["KESTRA_TICKET"])
        log = self.log()
        frames = log.count(" - Output : \x02")
        self.assertEqual(frames, 10)
        self.assertEqual(log.count(" - Respuesta : \x02"), frames)
        self.stop_printer()  # it writes the last line when the host has left already
        self.assertEqual(read(self.path("traza.txt")).count("\n"), frames)

    def test_needs_no_file_beside_it_but_the_library_and_its_settings(self):
        self.run_program(ENV["KESTRA_TICKET"])
        printers = {"impresora", "papel.txt", "traza.txt"}
        self.assertEqual(set(os.listdir(self.folder)) - printers,
                         {"Fiscal.ini", "fiscal.log", "Kestra.dll", "ticket.exe"})


class AFiscalDay(Till):
    family = "TF"

    def test_comes_out_on_paper_from_the_invoice_to_the_closing(self):
        out, err = self.run_program(ENV["KESTRA_DAY"])
        self.assertNotIn("FALLO", out)
        self.assertIn("Factura A emitida", out)
        self.assertEqual(err, "")
        day = os.path.join(SHARED, "jornada.txt")
        self.assertEqual(self.paper(), read(day))


class ANamedPort(Till):
    def line_settings(self):
        number = super().line_settings()["ImpresoraPuerto"]
        return {"ImpresoraPuerto": 1, "ImpresoraDispositivo": f"COM{number}"}

    def test_goes_before_the_number(self):
        out, _ = self.run_program(ENV["KESTRA_TICKET"])
        self.assertIn("Ticket emitido: 00000001", out)


if __name__ == "__main__":
    unittest.main()
