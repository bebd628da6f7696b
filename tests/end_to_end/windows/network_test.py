"""A Windows till whose printer is behind a network, with no COM port at all."""

import unittest

import tcp_test
from shop import ENV
from till import Till


class ANetworkTill(tcp_test.NetworkShop, Till):
    def line_settings(self):
        return {"ImpresoraDispositivo": self.device}

    def test_prints_the_ticket_of_the_demo_shop(self):
        out, err = self.run_program(ENV["KESTRA_TICKET"])
        self.assertIn("Ticket emitido: 00000001", out)
        self.assertEqual(err, "")
        self.assertEqual(self.paper().rstrip("\n"), tcp_test.PAPER.rstrip("\n"))

    def test_is_led_there_by_the_environment_when_its_file_may_not_be_touched(self):
        self.write_settings(ImpresoraDispositivo="", ImpresoraPuerto=99)
        self.variables = {"KESTRA_DISPOSITIVO": self.device}
        out, err = self.run_program(ENV["KESTRA_TICKET"])
        self.assertIn("Ticket emitido: 00000001", out)
        self.assertEqual(err, "")

    def test_is_told_that_nobody_listens_and_works_when_somebody_does(self):
        self.stop_printer()
        host = self.start(ENV["KESTRA_CLOCK"])
        self.assertTrue(host.first_line().startswith("(1, "))
        self.assertIn(f" - Error 8015 (Nadie atiende en {self.device}) in procedure Enviar", self.log())
        self.printer = self.start_printer()
        out, _ = host.communicate("\n")
        self.assertTrue(out.splitlines()[1].startswith("(0, "), out)


if __name__ == "__main__":
    unittest.main()
