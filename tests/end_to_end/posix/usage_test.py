"""Every program and script tells what it is for, and a wrong argument is told so: at once, and with nothing
built, installed or written before."""

import os
import subprocess
import unittest

ENV = os.environ
SOURCE = ENV["KESTRA_SOURCE"]
SCRIPTS = ["bench", "coverage", "crashes", "demo", "fuzz", "hosts", "kit", "line_faults", "manual", "mutate",
           "paquetes", "puerta", "soak", "sqlite", "steady", "test", "tidy", "torture"]


class Script(unittest.TestCase):
    def ended(self, script, *arguments):
        return subprocess.run([os.path.join(SOURCE, "scripts", script), *arguments], text=True, timeout=20,
                              capture_output=True, env=dict(ENV, PATH=self.path), check=False)

    # Of the system's commands those alone that reading a comment takes: none that could build or install.
    def setUp(self):
        self.path = os.path.join(ENV["KESTRA_BUILD"], "usage_path")
        os.makedirs(self.path, exist_ok=True)
        for command in ["bash", "dirname", "env", "sed"]:
            link = os.path.join(self.path, command)
            if not os.path.lexists(link):
                os.symlink(os.path.join("/usr/bin", command), link)

    def test_every_script_is_tried_here(self):
        there = [name for name in os.listdir(os.path.join(SOURCE, "scripts")) if not name.endswith(".sh")]
        self.assertEqual(sorted(there), SCRIPTS)

    def test_tells_its_usage(self):
        for script in SCRIPTS:
            for question in ["--help", "-h", "--ayuda"]:
                with self.subTest(script=script, question=question):
                    ended = self.ended(script, question)
                    self.assertEqual((ended.returncode, ended.stderr), (0, ""))
                    self.assertIn("scripts/" + script, ended.stdout)
                    self.assertNotIn("set -euo", ended.stdout)

    def test_refuses_what_it_does_not_know(self):
        for script in SCRIPTS:
            with self.subTest(script=script):
                ended = self.ended(script, "--no-such-thing", "--nor-such")
                self.assertEqual((ended.returncode, ended.stdout), (2, ""))
                self.assertEqual(ended.stderr, self.ended(script, "--help").stdout)

    def test_so_does_the_virtual_printer(self):
        for question in ["--help", "-h", "--ayuda"]:
            ended = subprocess.run([ENV["KESTRA_PRINTER"], question], text=True, capture_output=True, timeout=20,
                                   check=False)
            self.assertEqual((ended.returncode, ended.stderr), (0, ""), question)
            self.assertIn("Uso: impresora-virtual", ended.stdout)


if __name__ == "__main__":
    unittest.main()
