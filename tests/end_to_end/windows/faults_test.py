"""What a Windows till meets: a port that is none, a printer that is slow, silent, killed or unplugged."""

import os
import signal
import time
import unittest

from shop import ENV, until
from till import Till

CLOCK = ENV["KESTRA_CLOCK"]  # reads the printer's clock, once more for each byte that it is told


class ClockReader(Till):
    def read_once(self):
        return self.start(CLOCK).communicate()

    def expect_failure(self, out, err, number, words):
        self.assertTrue(out.startswith("(1, "), out)
        self.assertIn("Error en el comando Enviar", err)
        self.assertRegex(self.log(), rf" - Error {number} \({words}\) in procedure Enviar ")


class AWorkingPrinter(ClockReader):
    def test_tells_its_time_as_often_as_it_is_asked(self):
        out, err = self.start(CLOCK).communicate("\n\n")
        self.assertRegex(out, r"\A(\(0, '\d{12}'\)\n){3}\Z")
        self.assertEqual(err, "")


class ABusyPrinter(ClockReader):
    printer_flags = ["--demora", "2000"]

    def wait_for_frame(self):
        until(lambda: " - Output : " in self.log_so_far(), "the first frame")

    def log_so_far(self):
        try:
            return self.log()
        except FileNotFoundError:
            return ""

    def test_is_waited_for(self):
        out, _ = self.read_once()
        self.assertRegex(out, r"\(0, '\d{12}'\)")

    def test_a_host_killed_in_mid_exchange_leaves_the_port_free(self):
        killed = self.start(CLOCK)
        self.wait_for_frame()
        killed.kill()
        out, _ = self.read_once()
        self.assertTrue(out.startswith("(0, "), out)

    def test_a_printer_unplugged_in_mid_exchange_ends_the_call(self):
        self.soon(4.0, self.unplug_in_mid_exchange)

    def unplug_in_mid_exchange(self):
        host = self.start(CLOCK)
        self.wait_for_frame()
        self.stop_printer(how=signal.SIGKILL)
        began = time.monotonic()
        out, err = host.communicate()
        took = time.monotonic() - began
        self.expect_failure(out, err, 8020, f"Se perdió la conexión con COM{self.port}")
        os.unlink(self.path("fiscal.log"))
        self.printer = self.start_printer()
        return took


class AnAbsentPrinter(ClockReader):
    def test_is_a_failure_in_words(self):
        self.stop_printer()
        out, err = self.read_once()
        self.expect_failure(out, err, 8015, f"No existe el dispositivo COM{self.port}")

    def test_comes_back_without_a_new_start_of_the_host(self):
        self.stop_printer()
        host = self.start(CLOCK)
        self.assertRegex(host.first_line(), r"^\(1, ")
        self.start_printer()
        out, _ = host.communicate("\n")
        self.assertTrue(out.splitlines()[1].startswith("(0, "), out)


class APortThatIsNone(ClockReader):
    def test_is_a_failure_in_words(self):
        self.plug_in(self.path("Fiscal.ini"))
        out, err = self.read_once()
        self.expect_failure(out, err, 8015, f"COM{self.port} no es un puerto serie")


class ASilentPrinter(ClockReader):
    def test_ends_in_the_question_that_nobody_answers_and_in_a_failure(self):
        self.printer.send_signal(signal.SIGSTOP)
        self.addCleanup(self.printer.send_signal, signal.SIGCONT)
        self.soon(12.0, self.read_in_vain)

    def read_in_vain(self):
        began = time.monotonic()
        out, err = self.read_once()
        took = time.monotonic() - began
        self.assertTrue(out.startswith("(1, "), out)
        self.assertIn("Error de Comunicación con la fiscal. Reintentar?", err)
        self.assertGreater(took, 4.0)
        return took


if __name__ == "__main__":
    unittest.main()
