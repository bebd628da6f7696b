"""What a host's program relies on, whatever its habits and mistakes: it gets back what it lent."""

import functools
import os
import shutil
import signal
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
    stories = {"is_watched_closely": "watch",
               "has_a_row_for_every_export": "table",
               "keeps_its_machine_on_a_good_day": "day_with_a_printer",
               "may_leave_without_a_goodbye": "no_goodbye",
               "may_pass_any_pointer_for_a_result": "result_pointers"}

    def test_may_leave_a_callback_for_good(self):
        self.write_settings(MostrarRespuestas=1, CPI=99999)
        self.play("abandoned")

    def test_may_end_while_a_call_waits_for_the_printer(self):
        self.printer.send_signal(signal.SIGSTOP)
        self.addCleanup(self.printer.send_signal, signal.SIGCONT)
        self.play("end_in_mid_call")
        # The call has not come to its own end, as it would after some seconds in vain.
        self.assertIn(" - Output : ", self.log())
        self.assertNotIn(" - Error ", self.log())


class AHostWithoutAPrinter(Host):
    stories = {"keeps_its_machine": "day_without_a_printer",
               "may_pass_any_pointer": "pointers",
               "has_no_traps_in_its_callbacks": "callbacks",
               "may_load_the_library_in_any_habit": "loading",
               "may_load_it_from_many_threads": "many_threads",
               "may_call_it_first_from_many_threads": "first_calls",
               "may_leave_threads_behind": "threads_behind",
               "may_end_without_a_goodbye": "end_without_goodbye",
               "may_load_it_twice": "twice"}

    def start_printer(self):
        return None

    def line_settings(self):
        return {"ImpresoraDispositivo": "NADA"}

    def test_keeps_its_machine_without_settings(self):
        os.unlink(self.path("Fiscal.ini"))
        self.play("day_without_settings")

    def test_may_pass_any_number(self):
        self.write_settings(AjusteRedondeo=1)
        self.play("numbers")


for host in (AHost, AHostWithoutAPrinter):
    for what, story in host.stories.items():
        setattr(host, "test_" + what, functools.partialmethod(host.play, story))

if __name__ == "__main__":
    unittest.main()
