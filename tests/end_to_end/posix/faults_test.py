"""What a till meets: killed hosts, a line that somebody else holds, a printer that goes away."""

import re
import signal
import time
import unittest

from shop import Shop, until

CLOCK = "lib.EP_Init(); print(clock())"


class ABusyPrinter(Shop):
    printer_flags = ["--demora", "2000"]

    def wait_for_frame(self):
        until(lambda: " - Output : " in self.log_so_far(), "the first frame")

    def log_so_far(self):
        try:
            return self.log()
        except FileNotFoundError:
            return ""

    def test_is_waited_for(self):
        out, _ = self.run_host(CLOCK)
        self.assertRegex(out, r"\(0, '\d{12}'\)")

    def test_a_second_host_is_told_that_the_port_is_in_use(self):
        first = self.start_host(CLOCK)
        self.wait_for_frame()
        out, err = self.run_host(CLOCK)
        self.assertTrue(out.startswith("(1, "), out)
        self.assertIn("Error en el comando Enviar", err)
        self.assertRegex(self.log(), r" - Error 8005 \(.*en uso.*\) in procedure Enviar of Módulo "
                                     r"ExportedProcedures - Linea: abrir\r\n")
        self.assertTrue(first.communicate(timeout=60)[0].startswith("(0, "))

    def test_a_host_killed_in_mid_exchange_leaves_the_port_free(self):
        killed = self.start_host(CLOCK)
        self.wait_for_frame()
        killed.kill()
        killed.communicate()
        out, _ = self.run_host(CLOCK)
        self.assertTrue(out.startswith("(0, "), out)

    def test_a_printer_unplugged_in_mid_exchange_ends_the_call(self):
        host = self.start_host(CLOCK)
        self.wait_for_frame()
        self.stop_printer(how=signal.SIGKILL)
        began = time.monotonic()
        out, err = host.communicate(timeout=60)
        self.assertLess(time.monotonic() - began, 4.0)
        self.assertTrue(out.startswith("(1, "), out)
        self.assertIn("Error en el comando Enviar", err)
        self.assertRegex(self.log(), r" - Error 8020 \(.*\) in procedure Enviar ")


class AnAbsentPrinter(Shop):
    def test_is_a_failure_in_words(self):
        self.stop_printer()
        out, err = self.run_host(CLOCK)
        self.assertTrue(out.startswith("(1, "), out)
        self.assertIn("Error en el comando Enviar", err)
        self.assertTrue(re.search(r" - Error 8015 \(No existe .*impresora\) in procedure Enviar",
                                  self.log()), self.log())

    def test_comes_back_without_a_new_start_of_the_host(self):
        self.stop_printer()
        host = self.start_host("lib.EP_Init(); print(clock(), flush=True); input(); print(clock())",
                               stdin=-1)
        self.assertTrue(host.stdout.readline().startswith("(1, "))
        self.start_printer()
        out, _ = host.communicate("\n", timeout=60)
        self.assertTrue(out.startswith("(0, "), out)


class ASilentPrinter(Shop):
    def test_ends_in_the_question_that_nobody_answers_and_in_a_failure(self):
        self.printer.send_signal(signal.SIGSTOP)
        self.addCleanup(self.printer.send_signal, signal.SIGCONT)
        began = time.monotonic()
        out, err = self.run_host(CLOCK)
        self.assertTrue(out.startswith("(1, "), out)
        self.assertIn("Error de Comunicación con la fiscal. Reintentar?", err)
        self.assertTrue(4.0 < time.monotonic() - began < 12.0)


if __name__ == "__main__":
    unittest.main()
