"""A shop for the tests: a virtual printer, a folder with its Fiscal.ini, and hosts that work there."""

import os
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest

ENV = os.environ
SHARED = os.path.dirname(os.path.abspath(__file__))
WAIT = 600.0  # seconds until a test gives up on something that should happen at once


def until(condition, what, look=0.01):
    """Waits for something that another process is about to do; looks so many seconds after each look."""
    deadline = time.monotonic() + WAIT
    while not condition():
        if time.monotonic() > deadline:
            raise AssertionError("still waiting for " + what)
        time.sleep(look)


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


class Shop(unittest.TestCase):
    family = "TQ"
    settings = {}
    added_settings = {}  # that the file to start from leaves out
    printer_flags = []
    variables = {}  # of the till's environment

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="kestra-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.device = self.path("impresora")
        self.printer = self.start_printer()
        self.write_settings()

    def path(self, name):
        return os.path.join(self.folder, name)

    def start_printer(self):
        command = [ENV["KESTRA_PRINTER"], "--familia", self.family, "--enlace", self.device]
        command += ["--papel", self.path("papel.txt"), "--traza", self.path("traza.txt")]
        printer = subprocess.Popen(command + self.printer_flags, stdout=subprocess.DEVNULL)
        self.addCleanup(self.stop_printer, printer)
        until(lambda: os.path.exists(self.device), "the virtual printer's line")
        return printer

    def stop_printer(self, printer=None, how=signal.SIGTERM):
        printer = printer or self.printer
        if printer.poll() is None:
            printer.send_signal(how)
        return printer.wait(WAIT)

    def write_settings(self, **changes):
        values = dict(TipoComprobante=self.family, **self.line_settings())
        values.update(self.settings, **changes)
        text = read(ENV["KESTRA_SETTINGS"])
        for key, value in values.items():
            text, found = re.subn(rf"(?m)^;?{key}=.*$", f"{key}={value}", text)
            assert found == 1, key
        for key, value in self.added_settings.items():
            assert f"{key}=" not in text, key
            text += f"\n{key}={value}\n"
        with open(self.path("Fiscal.ini"), "w", encoding="cp1252") as file:
            file.write(text)

    def line_settings(self):
        return {"ImpresoraDispositivo": self.device}

    def host_environment(self):
        environment = dict(ENV, LC_ALL="C.UTF-8", **self.variables)
        if "KESTRA_PRELOAD" in ENV:
            environment.update(LD_PRELOAD=ENV["KESTRA_PRELOAD"], ASAN_OPTIONS="detect_leaks=0")
        return environment

    def start_host(self, code, **options):
        """A host of a few lines of Python, in a process of its own."""
        here = os.path.join(os.path.dirname(SHARED), "posix")
        script = f"import sys; sys.path.insert(0, {here!r})\nfrom kestra import *\n" + code
        options.setdefault("stdout", subprocess.PIPE)
        options.setdefault("stderr", subprocess.PIPE)
        # A session of its own: no controlling terminal, whatever the tests were started from.
        return subprocess.Popen([sys.executable, "-c", script], cwd=self.folder, text=True,
                                env=self.host_environment(), start_new_session=True, **options)

    def run_host(self, code):
        host = self.start_host(code)
        out, err = host.communicate(timeout=60)
        self.assertEqual(host.returncode, 0, err)
        return out, err

    def log(self):
        with open(self.path("fiscal.log"), encoding="cp1252", newline="") as file:
            return file.read()

    def paper(self):
        """The paper when the printer has been switched off, without its dates and times."""
        self.assertEqual(self.stop_printer(), 0)
        text = re.sub(r"\d\d/\d\d/\d{4}", "DD/MM/AAAA", read(self.path("papel.txt")))
        return re.sub(r"\d\d:\d\d:\d\d", "HH:MM:SS", text)
