"""Plays a case: a host on one end of a line, a printer on the other."""
import collections
import os
import pathlib
import re
import select
import socket
import subprocess
import tempfile
import time

import programs
from case import by_kind
from printer import FINE, Printer

MOST_CASES = 25  # of a host
FIRST_PORT, LAST_PORT = 20, 256  # Wine itself deals out the low ones

# The log's date and time: as the system's user has them, there; in one form here and in the cases.
STAMP = rb"\[\d{1,2}/\d{1,2}/\d{4}-\d{1,2}:\d\d:\d\d(?: [AP]M)?\]"
GOLDEN_STAMP = b"[21/11/2026-10:30:00]"


class Hung(Exception):
    pass


class Ended(Exception):
    pass


def end(host):
    """Ends it by itself; its result."""
    host.call.shutdown(socket.SHUT_WR)
    return host.wait(programs.PATIENCE)


class World:
    """What the cases of one run have in common: the host's program, and how it is started."""

    def __init__(self, program, wine=""):
        self.program, self.wine = program, wine
        self.patience = {}  # {line: seconds} for those that are known to hang
        self.idle = collections.deque()  # hosts
        self.environment = {**os.environ, "LC_ALL": "C.UTF-8" if wine else "C"}

    def new_line(self, folder):
        """(link, setting): where the line's device is to be, and how Fiscal.ini names it."""
        if not self.wine:
            link = folder / "line"
            link.symlink_to("/dev/null")
            return link, f"ImpresoraDispositivo={link}"
        devices = pathlib.Path(os.environ["WINEPREFIX"]) / "dosdevices"
        for number in range(FIRST_PORT, LAST_PORT + 1):
            link = devices / f"com{number}"
            try:
                link.symlink_to("/dev/null")
                return link, f"ImpresoraPuerto={number}"
            except FileExistsError:
                pass
        raise OSError("no COM port is free")

    def take_host(self, folder):
        """One that has played a case and left the library, or a new one: the library begins afresh in either,
        and under Wine a new program costs more than a case."""
        try:
            return self.idle.pop()
        except IndexError:
            return self.start(folder)

    def start(self, folder):
        if self.wine:
            host = programs.Program([self.program], folder, self.environment, talk=True)
        else:
            host = programs.Native([self.program], folder, self.environment)
        host.cases = 0
        return host

    def give_back(self, host):
        """After a case without faults that left no library behind."""
        host.cases += 1
        if host.cases < MOST_CASES:
            self.idle.append(host)
            return True
        return False

    def close(self):
        """What the hosts that are left ended with, if it is not 0."""
        codes = [end(self.idle.pop()) for _ in list(self.idle)]
        return [f"a host ended with {code}" for code in codes if code != 0]


class Player:
    def __init__(self, world, folder, settings, printer):
        self.world, self.folder, self.printer = world, folder, printer
        self.log, self.log_read = folder / "fiscal.log", 0
        self.heard = b""
        self.host = world.take_host(folder)
        if self.host.call is None:
            raise Ended(self.last_words())
        self.begin = " ".join(["begin", str(folder), *settings])

    # -- The host --

    def tell(self, line, seconds=0.0):
        """What comes of a line; the printer does its share meanwhile."""
        self.host.call.sendall(line.encode() + b"\n")
        deadline = time.monotonic() + seconds + self.world.patience.get(line, programs.PATIENCE)
        while not re.search(rb"(^|\n)\.\r?\n$", self.heard):
            self.attend(deadline)
            if time.monotonic() > deadline:
                raise Hung(f"the host does not come back from: {line}")
        lines, self.heard = self.heard.decode().split("\n")[:-2], b""
        return [shown.rstrip("\r").removeprefix("> ") for shown in lines]

    def attend(self, until):
        """Waits for the host, the line or the time of the printer's next bytes, and serves them."""
        printer, ears = self.printer, self.host.call
        ends = [end for end in (ears, printer.far) if end is not None]
        due = until if printer.next_due is None else min(until, printer.next_due)
        ready, _, _ = select.select(ends, [], [], max(0.0, due - time.monotonic()))
        if ears in ready:
            piece = ears.recv(65536)
            if not piece:
                raise Ended(self.last_words())
            self.heard += piece
        printer.listen()
        printer.send_due()

    def last_words(self):
        code = self.host.wait(programs.PATIENCE)
        words = self.host.errors().decode("utf-8", "replace")
        return f"the host has ended by itself with {code}: {words}{self.host.wines_words()}"

    def stop(self):
        """Ends the case: the faults of that."""
        said = self.tell("end")
        if self.world.wine and said != ["gone"]:
            return [f"the library does not go when it is left: {said}"]
        if self.world.wine and self.world.give_back(self.host):
            self.host = None
            return []
        code = end(self.host)
        return [] if code == 0 else [f"the host ended with {code}"]

    def kill(self):
        """Unless it was given back."""
        if self.host is None:
            return
        self.host.kill()
        self.host.wait()
        self.host.call.close()

    # -- What it left behind --

    def log_lines(self):
        if not self.log.is_file():
            return []
        data = self.log.read_bytes()
        fresh, self.log_read = data[self.log_read:], len(data)
        lines = re.split(rb"(?<=\r\n)(?=" + STAMP + rb")", fresh) if fresh else []
        return [re.sub(rb"^" + STAMP, GOLDEN_STAMP, line) for line in lines]

    # -- The inputs --

    def play(self, step):
        """The lines that come of an input."""
        own = getattr(self, "do_" + step.name, None)
        if own is not None:
            return own(step) or []
        return self.tell(step.text, step.seconds)

    def do_call(self, step):
        lines = self.tell(step.text, step.seconds)
        self.printer.listen()
        for write in self.printer.take_writes():
            lines += self.tell("wire " + write.hex())
        for line in self.log_lines():
            lines += self.tell("log " + line.hex())
        return lines

    def do_reply(self, step):
        self.printer.replies.append(step.rest)

    def do_default(self, step):
        self.printer.default = step.rest or FINE

    def do_wait(self, step):
        until = time.monotonic() + float(step.rest)
        while time.monotonic() < until:
            self.attend(until)

    def do_port(self, step):
        {"ok": self.printer.plug_in, "missing": self.printer.port_missing,
         "busy": lambda: self.printer.port_busy(bool(self.world.wine))}[step.rest]()

    def do_log(self, step):
        """A folder of that name lets nobody write, an administrator neither."""
        aside = self.folder / "aside.log"
        if step.rest == "readonly":
            if self.log.exists():
                self.log.rename(aside)
            self.log.mkdir()
        else:
            self.log.rmdir()
            if aside.exists():
                aside.rename(self.log)

    def do_state(self, _step):
        """The state record is the library's own affair."""

    def leftovers(self):
        lines = self.tell("leftover")
        if self.printer.replies:
            lines.append("the printer still had replies to give")
        return lines


setattr(Player, "do_#", Player.do_state)


def differences(step, lines):
    expected, found = step.expected, by_kind(lines)
    return [f"line {step.number}: {step.text}\n    {kind} expected: {expected[kind]}\n"
            f"    {kind} found:    {found[kind]}"
            for kind in expected if expected[kind] != found[kind]]


def play_inputs(case, player):
    faults = player.tell(player.begin)
    for step in case.inputs:
        faults += differences(step, player.play(step))
    faults += player.leftovers()
    return faults or player.stop()


def play_on(case, world, folder, setting, printer):
    # A case that opens nothing keeps the port that it has.
    player = Player(world, folder, [setting] if case.needs_line else [], printer)
    try:
        return play_inputs(case, player)
    finally:
        player.kill()


def play(case, world):
    """What was wrong, as texts; none when the case came out as it is written."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        link, setting = world.new_line(folder)
        printer = Printer(link, folder)
        try:
            return play_on(case, world, folder, setting, printer)
        except (Ended, Hung, OSError, ValueError, programs.Trouble, subprocess.TimeoutExpired) as trouble:
            return [f"{type(trouble).__name__}: {trouble}"]
        finally:
            printer.remove()
