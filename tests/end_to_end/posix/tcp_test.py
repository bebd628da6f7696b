"""The shop's printer behind a network: what the host sees of it."""

import signal
import subprocess
import time
import unittest

from shop import ENV, Shop, until
from ticket_test import PAPER

CLOCK = "lib.EP_Init(); print(clock())"


class NetworkShop(Shop):
    port = 0  # any that is free, and from then on the same

    def start_printer(self):
        command = [ENV["KESTRA_PRINTER"], "--familia", self.family, "--tcp", f"127.0.0.1:{self.port}"]
        command += ["--papel", self.path("papel.txt"), "--traza", self.path("traza.txt")]
        printer = subprocess.Popen(command + self.printer_flags, stdout=subprocess.PIPE, text=True)
        self.addCleanup(printer.stdout.close)
        self.addCleanup(self.stop_printer, printer)
        self.device = printer.stdout.readline().removeprefix("Puerto: ").strip()
        self.port = int(self.device.rpartition(":")[2])
        return printer

    def host_environment(self):
        """Its look-up knows the machine as impresora.prueba, whatever the machine's files say."""
        environment = super().host_environment()
        environment["LD_PRELOAD"] = f"{environment.get('LD_PRELOAD', '')}:{ENV['KESTRA_MACHINE_NAME']}"
        return environment

    def wait_for_frame(self):
        def sent():
            try:
                return " - Output : " in self.log()
            except FileNotFoundError:
                return False
        until(sent, "the first frame")


class APrinterBehindTheNetwork(NetworkShop):
    def test_prints_the_ticket_of_the_demo_shop(self):
        shop = subprocess.run([ENV["KESTRA_TICKET"]], cwd=self.folder, text=True,
                              capture_output=True, check=True)
        self.assertIn("Ticket emitido: 00000001", shop.stdout)
        self.assertEqual(shop.stderr, "")
        self.assertEqual(self.paper().rstrip("\n"), PAPER.rstrip("\n"))

    def test_answers_one_exchange_after_another(self):
        out, err = self.run_host("lib.EP_Init()\nfor _ in range(200): assert clock()[0] == 0\n"
                                 "print('bien')")
        self.assertEqual(out, "bien\n", err)

    def test_is_found_by_the_machines_name_too(self):
        self.write_settings(ImpresoraDispositivo=f"tcp:impresora.prueba:{self.port}")
        out, _ = self.run_host(CLOCK)
        self.assertTrue(out.startswith("(0, "), out)

    def test_that_is_off_is_a_failure_in_words(self):
        self.stop_printer()
        out, err = self.run_host(CLOCK)
        self.assertTrue(out.startswith("(1, "), out)
        self.assertIn("Error en el comando Enviar", err)
        self.assertIn(f" - Error 8015 (Nadie atiende en {self.device}) in procedure Enviar",
                      self.log())

    def test_comes_back_without_a_new_start_of_the_host(self):
        self.stop_printer()
        host = self.start_host("lib.EP_Init(); print(clock(), flush=True); input(); print(clock())",
                               stdin=-1)
        self.assertTrue(host.stdout.readline().startswith("(1, "))
        self.printer = self.start_printer()
        out, _ = host.communicate("\n", timeout=60)
        self.assertTrue(out.startswith("(0, "), out)

    def test_at_an_address_that_is_none_fails_the_start(self):
        self.write_settings(ImpresoraDispositivo="tcp:caja")
        out, _ = self.run_host("print(lib.EP_Init())")
        self.assertEqual(out, "0\n")
        self.assertIn("Error 380 (La dirección tcp:caja no es válida (tcp:EQUIPO:PUERTO)) in procedure "
                      "EP_Init", self.log())


class ABusyPrinterBehindTheNetwork(NetworkShop):
    printer_flags = ["--demora", "2000"]

    def test_turns_a_second_host_away(self):
        first = self.start_host(CLOCK)
        self.wait_for_frame()
        out, _ = self.run_host(CLOCK)
        self.assertTrue(out.startswith("(1, "), out)
        self.assertRegex(self.log(), r" - Error 8020 \(tcp:.* en uso por otro programa\) in procedure "
                                     r"Enviar ")
        self.assertTrue(first.communicate(timeout=60)[0].startswith("(0, "))

    def test_that_goes_away_in_mid_exchange_ends_the_call(self):
        host = self.start_host(CLOCK)
        self.wait_for_frame()
        self.stop_printer(how=signal.SIGKILL)
        began = time.monotonic()
        out, err = host.communicate(timeout=60)
        self.assertLess(time.monotonic() - began, 4.0)
        self.assertTrue(out.startswith("(1, "), out)
        self.assertIn("Error en el comando Enviar", err)
        self.assertRegex(self.log(), r" - Error 8020 \(.*\) in procedure Enviar ")

    def test_is_free_again_when_its_host_was_killed(self):
        killed = self.start_host(CLOCK)
        self.wait_for_frame()
        killed.kill()
        killed.communicate()
        out, _ = self.run_host(CLOCK)
        self.assertTrue(out.startswith("(0, "), out)


if __name__ == "__main__":
    unittest.main()
