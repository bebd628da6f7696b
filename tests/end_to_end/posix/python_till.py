"""A shop whose till is a program in Python."""

import subprocess

from shop import Shop

CLOCK = "lib.EP_Init(); print(clock(), flush=True)\nfor _ in sys.stdin: print(clock(), flush=True)"


class Host:
    def __init__(self, process):
        self.process = process

    def first_line(self):
        return self.process.stdout.readline()

    def communicate(self, said=""):
        """What it wrote to its standard output and error when it has ended well."""
        both = self.process.communicate(said, timeout=60)
        assert self.process.returncode == 0, both
        return both

    def kill(self):
        self.process.kill()
        self.process.communicate()


class PythonTill(Shop):
    def soon(self, seconds, story):
        self.assertLess(story(), seconds)

    def start_clock(self):
        return Host(self.start_host(CLOCK, stdin=subprocess.PIPE))
