"""The shop's printer behind a network: what the host sees of it."""

import subprocess
import unittest

import faults
from python_till import PythonTill
from shop import ENV, Shop
from ticket_test import PAPER


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


class NetworkTill(NetworkShop, PythonTill):
    missing = (8015, "Nadie atiende en {self.device}")
    lost = (8020, ".*")
    in_use = (8020, "tcp:.* en uso por otro programa")


class APrinterBehindTheNetwork(faults.AWorkingPrinter, NetworkTill):
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
        self.expect_time(self.read_clock()[0])

    def test_is_found_by_the_environment_where_the_file_may_not_be_touched(self):
        self.write_settings(ImpresoraDispositivo="no-hay", ImpresoraPuerto=999)
        self.variables = {"KESTRA_DISPOSITIVO": self.device}
        self.expect_time(self.read_clock()[0])
        self.variables = {"KESTRA_DISPOSITIVO": ""}
        out, err = self.read_clock()
        self.expect_failure(out, err, (8015, "No existe el dispositivo no-hay"))

    def test_at_an_address_that_is_none_fails_the_start(self):
        self.write_settings(ImpresoraDispositivo="tcp:caja")
        out, _ = self.run_host("print(lib.EP_Init())")
        self.assertEqual(out, "0\n")
        self.assertIn("Error 380 (La dirección tcp:caja no es válida (tcp:EQUIPO:PUERTO)) in procedure "
                      "EP_Init", self.log())


class ABusyPrinterBehindTheNetwork(faults.ABusyPrinter, NetworkTill):
    pass


class APrinterOfAnotherHost(faults.ALineInUse, NetworkTill):
    pass


class AnAbsentPrinterBehindTheNetwork(faults.AnAbsentPrinter, NetworkTill):
    pass


if __name__ == "__main__":
    unittest.main()
