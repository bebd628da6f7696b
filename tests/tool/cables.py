"""Cables between a till and a printer that do to the bytes what bad ones do: a pseudo-terminal on the till's side, and
nobody or the virtual printer's line on the other."""

import os
import pty
import select
import termios
import threading
import tty

STX, ETX, FS = b"\x02", b"\x03", b"\x1c"
GOOD_SPEED = termios.B19200


def framed(sequence, command, *fields):
    body = STX + sequence + command + b"".join(FS + field for field in fields) + ETX
    return body + b"%04X" % (sum(body) & 0xFFFF)


class Cable:
    """`say(bytes, speed)` gives what the till hears when it has sent those; `printer` is whose line gets them
    where the speed is the printer's."""

    def __init__(self, link, say=None, printer=None):
        self.say, self.printer = say, printer
        self.master, self.slave = pty.openpty()
        tty.setraw(self.slave)
        os.symlink(os.ttyname(self.slave), link)
        self.far = os.open(printer, os.O_RDWR | os.O_NOCTTY) if printer else None
        if printer:
            tty.setraw(self.far)
        self.stop_here, self.stop_there = os.pipe()
        self.thread = threading.Thread(target=self.carry)
        self.thread.start()

    def speed(self):
        return termios.tcgetattr(self.slave)[4]

    def carry(self):
        ends = [self.master, self.stop_here] + ([self.far] if self.printer else [])
        while True:
            ready, _, _ = select.select(ends, [], [])
            if self.stop_here in ready:
                return
            if self.master in ready:
                self.from_till(os.read(self.master, 4096))
            if self.far in ready:
                os.write(self.master, os.read(self.far, 4096))

    def from_till(self, data):
        if self.printer and self.speed() == GOOD_SPEED:
            os.write(self.far, data)
        elif self.say:
            os.write(self.master, self.say(data))

    def cut(self):
        os.write(self.stop_there, b"x")
        self.thread.join()
        for end in [self.master, self.slave, self.stop_here, self.stop_there] + ([self.far] if self.printer else []):
            os.close(end)


def echo(data):
    return data


def refuse(data):
    return b"\x15" if ETX in data else b""


def ask_for_patience(data):
    return b"\x12" * 20 if ETX in data else b""


def answer_another(data):
    return framed(b"\x20", b"9", b"0080", b"0600") if ETX in data and data[1:2] != b"\x20" else b""


def answer_damaged(data):
    whole = framed(data[1:2], data[2:3], b"0080", b"0600") if ETX in data else b""
    return whole[:-1] + b"?" if whole else b""


def babble(data):
    return b"peso 1.250 kg\r\n" if ETX in data else b""
