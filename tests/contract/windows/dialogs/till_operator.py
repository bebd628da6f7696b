"""Whoever stands at a Windows till: sees the library's windows and presses their buttons with the mouse."""

import os
import subprocess

import programs
from shop import ENV, until
from till import Till

PICTURES = os.path.join(ENV["KESTRA_BUILD"], "tests/contract/windows/dialogs/pictures")
LOOK = 0.1  # seconds between looks at the display, each of which is a program
CLOSE, RETRY, YES, NO, OK = 2, 4, 6, 7, 1


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, check=False)


def shown(caption):
    """The windows of that caption that are on the display. Any other one that goes while xdotool looks at it
    ends the search with no window at all; then it is made again."""
    while True:
        search = xdotool("search", "--onlyvisible", "--name", f"^{caption.replace('?', '[?]')}$")
        if b"BadWindow" not in search.stderr:
            return set(search.stdout.decode().split())


class Window:
    def __init__(self, caption, number, lines):
        self.caption, self.number = caption, number
        self.texts, self.middles = [], {}
        for line in lines:
            _, control, kind, x, y, text = line.split("\t")
            self.texts.append(text)
            if kind == "Button":
                self.middles[int(control)] = (x, y)

    def press(self, button):
        """Clicks, and sees the window go."""
        xdotool("mousemove", *self.middles[button], "click", 1)
        until(lambda: self.number not in shown(self.caption), f"the end of {self.caption}", LOOK)


class AttendedTill(Till):
    """The till's program runs; `see` its windows, press their buttons, and `finish`."""

    till = None

    def open(self, program):
        self.till = self.start(ENV[program])
        self.addCleanup(self.end)

    def end(self):
        self.till.kill()

    def see(self, caption, *texts):
        until(lambda: shown(caption) or self.till.poll() is not None, f"the window {caption}", LOOK)
        self.assertIsNone(self.till.poll(), f"the till ended without the window {caption}")
        window = Window(caption, next(iter(shown(caption))), self.read(caption))
        for text in texts:
            self.assertTrue([each for each in window.texts if text in each], f"{text}: {window.texts}")
        return window

    def read(self, caption):
        program = os.path.join(ENV["KESTRA_BIN"], "read_window.exe")
        told = None

        def is_there():
            nonlocal told
            told = programs.run([program, caption])
            return told.returncode == 0 or self.till.poll() is not None

        until(is_there, f"the window {caption} in its place", LOOK)
        self.assertEqual(told.returncode, 0, told.wines_words())
        # Frames have control bytes that would pass for line ends.
        return [line for line in told.output().decode("utf-8").split("\r\n") if line]

    def take_picture(self, name):
        os.makedirs(PICTURES, exist_ok=True)
        subprocess.run(["import", "-window", "root", os.path.join(PICTURES, name + ".png")],
                       check=True)

    def finish(self):
        """What the program wrote, and what it ended with."""
        out, _ = self.till.communicate()
        return out, self.till.returncode

    def exchanges(self):
        with open(self.path("traza.txt"), encoding="utf-8") as file:
            return file.read().splitlines()
