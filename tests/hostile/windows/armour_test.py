"""What a host's program relies on, whatever its habits and mistakes: it gets back what it lent."""

import os
import shutil
import signal
import time
import unittest

import programs
from shop import ENV
from till import Till, text

HOST = os.path.join(ENV["KESTRA_BIN"], "armour_host.exe")


class Host(Till):
    family = "TF"
    maxDiff = None

    def play(self, story):
        for file in (HOST, ENV["KESTRA_LIBRARY"]):
            shutil.copy(file, self.folder)
        ended = programs.run([self.path("armour_host.exe"), story], folder=self.folder)
        said = text(ended.output() + ended.errors())
        self.assertEqual((ended.returncode, said), (0, ""), ended.wines_words())


class AHost(Host):
    def test_is_watched_closely(self):
        self.play("watch")

    def test_has_a_row_for_every_export(self):
        self.play("table")

    def test_keeps_its_machine_on_a_good_day(self):
        self.play("day_with_a_printer")

    def test_may_leave_without_a_goodbye(self):
        self.play("no_goodbye")

    def test_may_pass_any_pointer_for_a_result(self):
        self.play("result_pointers")

    def test_may_leave_a_callback_for_good(self):
        self.write_settings(MostrarRespuestas=1, CPI=99999)
        self.play("abandoned")

    def test_may_end_while_a_call_waits_for_the_printer(self):
        self.printer.send_signal(signal.SIGSTOP)
        self.addCleanup(self.printer.send_signal, signal.SIGCONT)
        self.soon(4.0, self.end_in_mid_call)

    def end_in_mid_call(self):
        began = time.monotonic()
        self.play("end_in_mid_call")
        return time.monotonic() - began


class AHostWithoutAPrinter(Host):
    def start_printer(self):
        return None

    def line_settings(self):
        return {"ImpresoraDispositivo": "NADA"}

    def test_keeps_its_machine(self):
        self.play("day_without_a_printer")

    def test_keeps_its_machine_without_settings(self):
        os.unlink(self.path("Fiscal.ini"))
        self.play("day_without_settings")

    def test_may_pass_any_number(self):
        self.write_settings(AjusteRedondeo=1)
        self.play("numbers")

    def test_may_pass_any_pointer(self):
        self.play("pointers")

    def test_has_no_traps_in_its_callbacks(self):
        self.play("callbacks")

    def test_may_load_the_library_in_any_habit(self):
        self.play("loading")

    def test_may_load_it_from_many_threads(self):
        self.play("many_threads")

    def test_may_call_it_first_from_many_threads(self):
        self.play("first_calls")

    def test_may_leave_threads_behind(self):
        self.play("threads_behind")

    def test_may_end_without_a_goodbye(self):
        self.play("end_without_goodbye")

    def test_may_load_it_twice(self):
        self.play("twice")


if __name__ == "__main__":
    unittest.main()
