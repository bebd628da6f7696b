"""Programs of the packages for Windows, run under Wine, and what they need to be told of: the width is that of the
program's folder, `x86` or `x64`."""
import os
import pathlib
import re
import subprocess
import tempfile
import time

import programs

WINE = {"x86": os.environ["KESTRA_WINE_32"], "x64": os.environ["KESTRA_WINE_64"]}
# Where the system keeps its own programs of that width.
SYSTEM = {"x86": r"C:\windows\syswow64", "x64": r"C:\windows\system32"}
PATIENCE = 300  # seconds; only what hangs takes so long


def command(width, program, *words):
    told = [programs.windows_path(word) if isinstance(word, pathlib.PurePath) else word for word in words]
    return [*programs.steadily(), WINE[width], str(program), *told]


def run(width, program, *words, folder=None, code="utf-8"):
    """The result, and what it wrote to both streams."""
    with tempfile.TemporaryFile() as output:
        ended = subprocess.run(command(width, program, *words), cwd=folder, stdin=subprocess.DEVNULL, stdout=output,
                               timeout=PATIENCE, check=False)
        output.seek(0)
        return ended.returncode, output.read().decode(code, "replace").replace("\r\n", "\n")


def wait_until(true):
    end = time.monotonic() + PATIENCE
    while not true():
        if time.monotonic() > end:
            raise AssertionError("nothing more happens")
        time.sleep(0.05)


class Printer:
    """The virtual printer at work in a folder: `device` is its line, `url` its panel's, if it has one."""

    def __init__(self, program, folder, *flags):
        with tempfile.NamedTemporaryFile(delete=False) as output:
            self.said = output.name
            self.process = subprocess.Popen(command(program.parent.name, program, *flags), cwd=folder,
                                            stdin=subprocess.DEVNULL, stdout=output)
        try:
            self.device = self.hear("Puerto")
            self.url = self.hear("Panel") if "--panel" in flags else None
        except BaseException:
            self.stop()
            raise

    def hear(self, name):
        form = re.compile(rb"(?m)^%s: (.*?)\r?\n" % name.encode())
        wait_until(lambda: form.search(self.words()) or self.process.poll() is not None)
        found = form.search(self.words())
        if not found:
            raise AssertionError(f"the printer ended with {self.process.poll()}")
        return found[1].decode()

    def words(self):
        with open(self.said, "rb") as file:
            return file.read()

    def wait(self):
        self.process.wait(PATIENCE)

    def stop(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        pathlib.Path(self.said).unlink(missing_ok=True)
