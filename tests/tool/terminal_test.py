"""The tool's prompt at a terminal."""
import os
import pathlib
import pty
import select
import shutil
import subprocess
import tempfile
import time
import unittest

import counters  # noqa: F401

PATIENCE = 60


class Typed(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="kestra-consola-"))
        self.addCleanup(shutil.rmtree, self.folder)
        self.terminal, theirs = pty.openpty()
        self.addCleanup(os.close, self.terminal)
        environment = os.environ | {"TERM": "vt100", "HOME": str(self.folder)}
        self.tool = subprocess.Popen([os.environ["KESTRA_TOOL"], "consola", "--virtual", "TQ"], cwd=self.folder,
                                     stdin=theirs, stdout=theirs, stderr=theirs, env=environment)
        self.addCleanup(self.tool.kill)
        os.close(theirs)
        self.seen = ""

    def wait_for(self, text):
        until = time.monotonic() + PATIENCE
        while text not in self.seen and time.monotonic() < until:
            if select.select([self.terminal], [], [], 1)[0]:
                self.seen += os.read(self.terminal, 4096).decode("utf-8", "replace")
        self.assertIn(text, self.seen)
        self.seen = self.seen[self.seen.index(text) + len(text):]

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def test_names_are_completed_and_lines_come_back(self):
        self.wait_for("kestra> ")
        self.type("CortaP\t\n")
        self.wait_for("EP_CortaPapel: 0 hecho")
        self.wait_for("kestra> ")
        self.type("\x10\n")  # the line before
        self.wait_for("EP_CortaPapel: 0 hecho")
        self.wait_for("kestra> ")
        self.type("salir\n")
        self.assertEqual(self.tool.wait(timeout=PATIENCE), 0)


if __name__ == "__main__":
    unittest.main()
