"""The panel's page in a real browser, as it is told every day, on the Windows program: its host is a Linux one, by way
of the network."""

import os
import signal
import subprocess
import sys
import time
import unittest

from kit import COMMAND, ENV, WINDOWS, Printer

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [os.path.join(HERE, "..", "simulator", "panel", "browser"), os.path.join(HERE, "..", "end_to_end", "shared")]

import browser  # noqa: E402
import panel_page_test  # noqa: E402

TAKEN = 120.0  # seconds that this system may keep a port from the next printer; the programs' own does not


class ThePageOfTheWindowsProgram(panel_page_test.ThePage):
    def start_printer(self):
        flags = ["--familia", self.family, "--tcp", "127.0.0.1:0", "--papel", "papel.txt",
                 *(self.printer_flags or ["--panel", "127.0.0.1:0"])]
        deadline = time.monotonic() + TAKEN
        while True:
            printer = subprocess.Popen([*COMMAND, *flags], cwd=self.folder, stdout=subprocess.PIPE, text=True,
                                       encoding="utf-8", stderr=subprocess.DEVNULL)
            self.addCleanup(printer.stdout.close)
            self.addCleanup(self.stop_printer, printer)
            said = dict(line.strip().split(": ", 1) for line in (printer.stdout.readline(), printer.stdout.readline())
                        if ": " in line)
            if "Panel" in said:
                break
            self.assertLess(time.monotonic(), deadline, "the panel's port is not to be had")
            printer.wait()
            time.sleep(1)
        self.device, self.url = said["Puerto"], said["Panel"]
        return printer

    def stop_printer(self, printer=None, how=signal.SIGKILL):
        return super().stop_printer(printer, how)


def setUpModule():
    assert WINDOWS and Printer
    lacking = browser.missing()
    if lacking:
        raise AssertionError("the page cannot be tested here; missing: " + lacking)
    browser.install(panel_page_test.FOLDER)


if __name__ == "__main__":
    assert ENV
    unittest.main()
