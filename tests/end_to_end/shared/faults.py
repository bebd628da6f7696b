"""What a till meets: a printer that is slow, silent, killed or unplugged. Told once, for every till.

A till starts a program that reads the printer's clock, once more for each line that it is told (start_clock),
says in which words its line fails, and tells the stories by deriving from them.
"""
import os
import signal
import time

from shop import until


class Clock:
    """What the stories have in common. A till's missing, lost and in_use are each (number, words), as its log
    has them: a regular expression."""

    def read_clock(self):
        return self.start_clock().communicate()

    def log_so_far(self):
        try:
            return self.log()
        except FileNotFoundError:
            return ""

    def wait_for_frame(self):
        until(lambda: " - Output : " in self.log_so_far(), "the first frame")

    def expect_time(self, line):
        self.assertRegex(line, r"\A\(0, '\d{12}'\)")

    def expect_failure(self, out, err, failure):
        number, words = failure
        self.assertTrue(out.startswith("(1, "), out)
        self.assertIn("Error en el comando Enviar", err)
        self.assertRegex(self.log(), rf" - Error {number} \({words.format(self=self)}\) in procedure Enviar ")


class AWorkingPrinter(Clock):
    def test_tells_its_time_as_often_as_it_is_asked(self):
        out, err = self.start_clock().communicate("\n\n")
        self.assertRegex(out, r"\A(\(0, '\d{12}'\)\n){3}\Z")
        self.assertEqual(err, "")


class ABusyPrinter(Clock):
    printer_flags = ["--demora", "2000"]

    def test_is_waited_for(self):
        self.expect_time(self.read_clock()[0])

    def test_a_host_killed_in_mid_exchange_leaves_the_line_free(self):
        killed = self.start_clock()
        self.wait_for_frame()
        killed.kill()
        self.expect_time(self.read_clock()[0])

    def test_a_printer_that_goes_away_in_mid_exchange_ends_the_call(self):
        self.soon(4.0, self.lose_the_printer)

    def lose_the_printer(self):
        host = self.start_clock()
        self.wait_for_frame()
        self.stop_printer(how=signal.SIGKILL)
        began = time.monotonic()
        out, err = host.communicate()
        took = time.monotonic() - began
        self.expect_failure(out, err, self.lost)
        os.unlink(self.path("fiscal.log"))
        self.printer = self.start_printer()
        return took


class ALineInUse(Clock):
    printer_flags = ["--demora", "2000"]

    def test_turns_a_second_host_away(self):
        first = self.start_clock()
        self.wait_for_frame()
        out, err = self.read_clock()
        self.expect_failure(out, err, self.in_use)
        self.expect_time(first.communicate()[0])


class AnAbsentPrinter(Clock):
    def test_is_a_failure_in_words(self):
        self.stop_printer()
        out, err = self.read_clock()
        self.expect_failure(out, err, self.missing)

    def test_comes_back_without_a_new_start_of_the_host(self):
        self.stop_printer()
        host = self.start_clock()
        first = host.first_line()
        self.assertTrue(first.startswith("(1, "), first)
        self.printer = self.start_printer()
        self.expect_time(host.communicate("\n")[0].splitlines()[-1])


class ASilentPrinter(Clock):
    def test_ends_in_the_question_that_nobody_answers_and_in_a_failure(self):
        self.printer.send_signal(signal.SIGSTOP)
        self.addCleanup(self.printer.send_signal, signal.SIGCONT)
        self.soon(12.0, self.read_in_vain)

    def read_in_vain(self):
        began = time.monotonic()
        out, err = self.read_clock()
        took = time.monotonic() - began
        self.assertTrue(out.startswith("(1, "), out)
        self.assertIn("Error de Comunicación con la fiscal. Reintentar?", err)
        self.assertGreater(took, 4.0)
        return took
