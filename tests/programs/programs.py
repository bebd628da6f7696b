"""Windows programs, for tests on the system that they run under by way of Wine.

What a test hears from a program, and tells it, goes through files and sockets. Wine's own words about a
program are kept apart from the program's, and are shown when something about it went wrong.
"""
import atexit
import functools
import os
import pathlib
import platform
import re
import select
import shutil
import socket
import subprocess
import tempfile
import threading
import time

PATIENCE = 600.0  # seconds; only what hangs takes so long, however busy the machine is
LOOK = 0.005  # seconds between looks at a file that a program writes
OTHERS_WORDS = 20  # lines of Wine's words to show at most


STEADY = ["setarch", platform.machine(), "--addr-no-randomize"]
# What Wine says of a program that it could not even begin.
NOT_BEGUN = "failed to map the shared user data"
MOST_TIMES = 4


class Trouble(Exception):
    """A program did not do what is asked of any program."""


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def note(what):
    """What was done once more is told at the end of all tests: see wine_stop in scripts/wine.sh."""
    with open(os.path.join(os.environ["WINEPREFIX"], "..", "once_more.txt"), "a", encoding="utf-8") as file:
        file.write(what.replace("\n", " ") + "\n")


def persist(begin):
    """Begins once more what Wine ended before it had begun. That happens only where STEADY is not allowed."""
    for _ in range(MOST_TIMES - 1):
        try:
            return begin()
        except Trouble as trouble:
            if NOT_BEGUN not in str(trouble):
                raise
            note(str(trouble))
    return begin()


@functools.cache
def steadily():
    """Words before a command that keep the system from putting programs' heaps anywhere. Newer ones put the
    heap of one 64-bit program in 6000 where Wine must have a page of its own; it ends with 1 then."""
    can = subprocess.run([*STEADY, "true"], stderr=subprocess.DEVNULL, check=False).returncode == 0
    return STEADY if can else []


def hear_call(listener, ended):
    """The call that comes to the listener; None when `ended`, something to select, is ready before."""
    ready, _, _ = select.select([listener, ended], [], [], PATIENCE)
    if listener in ready:
        return listener.accept()[0]
    if not ready:
        raise Trouble("nobody calls")
    return None


class Starter:
    """The Windows program that starts the others: its results are theirs, not Wine's."""

    def __init__(self, environment):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="kestra-starter-"))
        self.words = self.folder / "wine.txt"
        with socket.create_server(("127.0.0.1", 0)) as listener, open(self.words, "ab") as words:
            command = [*steadily(), os.environ["KESTRA_WINE"], os.environ["KESTRA_STARTER"],
                       str(listener.getsockname()[1])]
            self.process = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL,
                                            stdout=words, stderr=words, start_new_session=True)
            ended = os.pidfd_open(self.process.pid)
            try:
                self.master = hear_call(listener, ended)
            finally:
                os.close(ended)
        if self.master is None:
            raise Trouble(f"the starter ended with {self.process.wait()}: {self.words.read_text()}")
        self.port = int(self.master.makefile().readline())

    def stop(self):
        self.master.close()
        try:
            self.process.wait(PATIENCE)
        finally:
            shutil.rmtree(self.folder, ignore_errors=True)

    def new_folder(self):
        return pathlib.Path(tempfile.mkdtemp(dir=self.folder))


starters = {}
one_at_a_time = threading.Lock()


def starter_for(environment):
    """One for all programs of an environment."""
    key = tuple(sorted(environment.items()))
    with one_at_a_time:
        if key not in starters:
            starters[key] = persist(lambda: Starter(environment))
            atexit.register(starters[key].stop)
        return starters[key]


class Program:
    """A Windows program at work, or one that has ended. Its output and its errors are in files; `talk` says
    that it shall call, to be told what to do: it finds the number to call in KESTRA_TALK.
    """

    def __init__(self, command, folder=None, environment=None, variables=None, talk=False):
        self.starter = starter_for(dict(os.environ if environment is None else environment))
        self.command = [str(word) for word in command]
        if self.command[0].startswith("/"):
            self.command[0] = windows_path(self.command[0])
        self.own = self.starter.new_folder()
        self.began = self.starter.words.stat().st_size
        self.returncode, self.heard, self.call = None, b"", None
        variables = dict(variables or {})
        with socket.create_server(("127.0.0.1", 0)) as listener:
            if talk:
                variables["KESTRA_TALK"] = str(listener.getsockname()[1])
            self.number = persist(lambda: self.start(folder or self.own, variables))
            if talk:
                self.call = hear_call(listener, self.order)

    def start(self, folder, variables):
        self.order = socket.create_connection(("127.0.0.1", self.starter.port))
        lines = ["folder " + windows_path(os.path.abspath(folder)),
                 "output " + windows_path(self.own / "output"),
                 "errors " + windows_path(self.own / "errors"),
                 *(f"set {name}={value}" for name, value in variables.items()),
                 "command " + subprocess.list2cmdline(self.command)]
        self.order.sendall(("\n".join(lines) + "\n\n").encode())
        word, number = self.hear().split()
        if word != "started":
            raise Trouble(f"{self.command} cannot be started, error {number}: {self.wines_words()}")
        return int(number)

    def hear(self, patience=PATIENCE):
        """The next line about the program."""
        deadline = time.monotonic() + patience
        while b"\n" not in self.heard:
            if not select.select([self.order], [], [], max(0.0, deadline - time.monotonic()))[0]:
                raise subprocess.TimeoutExpired(self.command, patience, self.output())
            piece = self.order.recv(100)
            if not piece:
                raise Trouble(f"{self.command}: the starter is gone: {self.wines_words()}")
            self.heard += piece
        line, _, self.heard = self.heard.partition(b"\n")
        return line.decode()

    # -- Its end --

    def fileno(self):
        """What is ready to be read when the program has ended."""
        return self.order.fileno()

    def poll(self):
        if self.returncode is None and (self.heard or select.select([self.order], [], [], 0)[0]):
            self.wait()
        return self.returncode

    def wait(self, patience=PATIENCE):
        if self.returncode is None:
            self.returncode = int(self.hear(patience).split()[1])
            self.order.close()
            if self.call:
                self.call.close()
        return self.returncode

    def kill(self):
        if self.poll() is None:
            self.order.sendall(b"end")
            self.wait()

    # -- What it wrote --

    def output(self):
        return self.read("output")

    def errors(self):
        return self.read("errors")

    def read(self, name):
        file = self.own / name
        return file.read_bytes() if file.exists() else b""

    def hear_output(self, pattern):
        """Waits until what it wrote fits the pattern; the match, or None when it ended without."""
        deadline = time.monotonic() + PATIENCE
        while True:
            over = self.poll() is not None
            found = re.search(pattern, self.output())
            if found or over:
                return found
            if time.monotonic() > deadline:
                raise Trouble(f"{self.command} writes no more than {self.output()}")
            time.sleep(LOOK)

    def wines_words(self):
        """What Wine wrote since its start, but for what is about other programs."""
        lines = self.starter.words.read_bytes()[self.began:].decode(errors="replace").splitlines()
        others = re.compile(r"(?!%04x:)[0-9a-f]{4}:[0-9a-f]{4}:" % getattr(self, "number", 0))
        own = [line for line in lines if not others.match(line)]
        return "\n".join(own[-OTHERS_WORDS:])


class Native:
    """A program of this system, as a Program is."""

    def __init__(self, command, folder, environment):
        self.words = pathlib.Path(folder) / "complaints.txt"
        with socket.create_server(("127.0.0.1", 0)) as listener, open(self.words, "wb") as words:
            self.process = subprocess.Popen(
                command, cwd=folder, env={**environment, "KESTRA_TALK": str(listener.getsockname()[1])},
                stdin=subprocess.DEVNULL, stdout=words, stderr=words, start_new_session=True)
            ended = os.pidfd_open(self.process.pid)
            try:
                self.call = hear_call(listener, ended)
            finally:
                os.close(ended)
        self.wait, self.kill = self.process.wait, self.process.kill

    def errors(self):
        return self.words.read_bytes()

    def wines_words(self):
        return ""


def run(command, patience=PATIENCE, **where):
    """The program when it has ended by itself."""
    program = Program(command, **where)
    try:
        program.wait(patience)
    finally:
        program.kill()
    return program
