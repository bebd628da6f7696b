"""The tool's prompt at a console of Windows: its letters, its lines of before, and names that the tabulator completes."""

import os
import pty
import re
import select
import subprocess
import time
import unittest

from kit import ENV, PATIENCE, TOOL, WINDOWS, InAFolder

UP = "\x1b[A"
# How the console paints: a blank is a step of its cursor; what else it does to that, and what it erases.
BLANK = re.compile(r"\x1b\[1?C")
PAINT = re.compile(r"\x1b\[[0-9;?]*[A-Za-z]|\r")


class AtAConsole(InAFolder):
    def setUp(self):
        super().setUp()
        self.terminal, theirs = pty.openpty()
        self.addCleanup(os.close, self.terminal)
        tool = subprocess.Popen([*TOOL, "consola", "--virtual", "TQ"], cwd=self.folder, stdin=theirs, stdout=theirs,
                                stderr=theirs, env=dict(ENV, TERM="xterm"), start_new_session=True)
        os.close(theirs)
        self.addCleanup(tool.wait)
        self.addCleanup(tool.kill)
        self.tool, self.seen = tool, b""

    def see(self, wanted):
        """Waits until the console has shown it."""
        deadline = time.monotonic() + PATIENCE
        while wanted not in self.words() and time.monotonic() < deadline:
            if select.select([self.terminal], [], [], 1)[0]:
                self.seen += os.read(self.terminal, 4096)
        self.assertIn(wanted, self.words())
        self.seen = b""

    def words(self):
        return PAINT.sub("", BLANK.sub(" ", self.seen.decode("utf-8", "replace")))

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def test_names_are_completed_and_lines_come_back(self):
        self.see("kestra>")
        self.type("cortap\t")
        self.see("CortaPapel")
        self.type("\r")
        self.see("EP_CortaPapel: 0 hecho")
        self.type(UP + "\r")
        self.see("EP_CortaPapel: 0 hecho")
        self.type("ImprimirPago \t")
        self.see("monto=")
        self.type("nada\r")
        self.see("kestra>")
        self.type("ñandú\r")
        self.see("no se conoce ñandú")
        self.type("salir\r")
        self.assertEqual(self.tool.wait(timeout=PATIENCE), 0)


if __name__ == "__main__":
    assert WINDOWS
    unittest.main()
