#!/usr/bin/env python3
"""Runs a Windows program of tests, and holds the far end of the serial line that they try.

    far_end.py WINE PROGRAM [ARGUMENT...]

The program finds in KESTRA_FAR_END "COMn:P": the line's port, and where on this machine it asks for what the
far end shall do. A request is a letter, a count of 4 bytes (least significant first) and for S so many bytes:

    N  a new line           S  send these bytes; answered when they have arrived
    O  the device is busy   F  the device is free again
    U  the plug is pulled   R  receive as many bytes; fewer when they do not come

Each is answered with a count of 4 bytes and so many bytes.
"""
import fcntl
import os
import pathlib
import select
import socket
import struct
import subprocess
import sys
import tempfile
import termios
import threading
import time
import tty

FIRST_PORT, LAST_PORT = 20, 256  # Wine itself deals out the low ones
PATIENCE = 2.0  # seconds; only a failing test waits that long


def waiting(fd):
    return struct.unpack("i", fcntl.ioctl(fd, termios.FIONREAD, b"\0" * 4))[0]


class Line:
    """A pseudo-terminal, and the link that makes it a COM port."""

    def __init__(self, link):
        self.link = link
        self.ends = []
        # A device in use is refused as no access; so is a folder, which everybody may make.
        self.folder = tempfile.TemporaryDirectory()

    def point_to(self, path):
        fresh = self.link.with_name(self.link.name + ".new")
        fresh.symlink_to(path)
        fresh.replace(self.link)

    def close(self):
        while self.ends:
            os.close(self.ends.pop())

    def remove(self):
        self.close()
        self.link.unlink(missing_ok=True)
        self.folder.cleanup()

    def new(self, _count, _data):
        self.close()
        self.ends = list(os.openpty())
        tty.setraw(self.ends[1])
        self.free(0, b"")

    def free(self, _count, _data):
        self.point_to(os.ttyname(self.ends[1]))

    def occupy(self, _count, _data):
        self.point_to(self.folder.name)

    def send(self, _count, data):
        far, near = self.ends
        wanted = waiting(near) + len(data)
        os.write(far, data)
        deadline = time.monotonic() + PATIENCE
        while waiting(near) < wanted and time.monotonic() < deadline:
            time.sleep(0.001)

    def receive(self, count, _data):
        received = b""
        while len(received) < count and select.select([self.ends[0]], [], [], PATIENCE)[0]:
            received += os.read(self.ends[0], count - len(received))
        return received

    def unplug(self, _count, _data):
        os.close(self.ends.pop(0))


def exactly(connection, count):
    data = b""
    while len(data) < count:
        piece = connection.recv(count - len(data))
        if not piece:
            raise EOFError
        data += piece
    return data


def serve(connection, line):
    actions = {b"N": line.new, b"S": line.send, b"R": line.receive, b"O": line.occupy, b"F": line.free,
               b"U": line.unplug}
    while True:
        letter, count = struct.unpack("<cI", exactly(connection, 5))
        data = exactly(connection, count) if letter == b"S" else b""
        answer = actions[letter](count, data) or b""
        connection.sendall(struct.pack("<I", len(answer)) + answer)


def serve_all(listener, line):
    while True:
        connection, _ = listener.accept()
        with connection:
            try:
                serve(connection, line)
            except (EOFError, ConnectionError):
                pass


def free_port(devices):
    """A number that this run alone has, with a link that leads nowhere yet."""
    for number in range(FIRST_PORT, LAST_PORT + 1):
        try:
            (devices / f"com{number}").symlink_to("/dev/null")
            return number
        except FileExistsError:
            pass
    sys.exit("no COM port is free")


def main():
    devices = pathlib.Path(os.environ["WINEPREFIX"]) / "dosdevices"
    number = free_port(devices)
    line = Line(devices / f"com{number}")
    with socket.create_server(("127.0.0.1", 0)) as listener:
        threading.Thread(target=serve_all, args=(listener, line), daemon=True).start()
        os.environ["KESTRA_FAR_END"] = f"COM{number}:{listener.getsockname()[1]}"
        try:
            return subprocess.call(sys.argv[1:])
        finally:
            line.remove()


if __name__ == "__main__":
    sys.exit(main())
