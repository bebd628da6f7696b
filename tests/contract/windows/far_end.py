#!/usr/bin/env python3
"""Runs a Windows program of tests, and holds the far ends of the lines that they try.

    far_end.py WINE STARTER PROGRAM [ARGUMENT...]

The program finds in KESTRA_FAR_END "COMn:P": the serial line's port, and where on this machine it asks for
what the far end shall do. A request is a letter, a count of 4 bytes (least significant first) and for S and T
so many bytes:

    N  a new serial line    T  a new line behind the network, at this host; answered with its port's number
    O  the device is busy   S  send these bytes; answered when they have arrived
    F  it is free again     R  receive as many bytes; fewer when they do not come
    U  the plug is pulled

The others belong to a line behind the network: H hangs up, X resets, G leaves callers ringing.

Each is answered with a count of 4 bytes and so many bytes.
"""
import fcntl
import os
import pathlib
import select
import socket
import struct
import sys
import tempfile
import termios
import threading
import time
import tty

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "programs"))
import run_program  # noqa: E402

FIRST_PORT, LAST_PORT = 20, 256  # Wine itself deals out the low ones
PATIENCE = 60.0  # seconds; only a failing test waits that long
ACTIONS = {b"N": "new", b"T": "new", b"S": "send", b"R": "receive", b"O": "occupy", b"F": "free",
           b"U": "unplug", b"H": "hang_up", b"X": "reset", b"G": "neglect"}


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


class Server:
    """A device server. What is sent while nobody has called goes nowhere."""

    def __init__(self):
        self.listener = self.caller = None
        self.ringing = []

    def close(self):
        for end in [self.listener, self.caller, *self.ringing]:
            if end:
                end.close()
        self.listener = self.caller = None
        self.ringing = []

    def new(self, _count, host):
        self.close()
        self.host = host.decode("ascii").strip("[]")
        self.port = 0
        try:
            self.free(0, b"")
        except OSError:  # the machine lacks the address
            return b"0"
        self.port = self.listener.getsockname()[1]
        return b"%d" % self.port

    def free(self, _count, _data):
        family = socket.AF_INET6 if ":" in self.host else socket.AF_INET
        self.listener = socket.create_server((self.host, self.port), family=family)

    def occupy(self, _count, _data):
        self.listener.close()
        self.listener = None

    def take_call(self):
        """The newest caller; the one before it is over."""
        while self.listener and select.select([self.listener], [], [], 0 if self.caller else 0.02)[0]:
            if self.caller:
                self.caller.close()
            self.caller = self.listener.accept()[0]
        return self.caller

    def send(self, _count, data):
        caller = self.take_call()
        if not caller or left(caller):
            return
        caller.sendall(data)
        deadline = time.monotonic() + PATIENCE
        while under_way(caller) and time.monotonic() < deadline:
            time.sleep(0.001)

    def receive(self, count, _data):
        received = b""
        caller = self.take_call()
        while caller and len(received) < count and select.select([caller], [], [], PATIENCE)[0]:
            try:
                piece = caller.recv(count - len(received))
            except ConnectionResetError:
                break
            if not piece:
                break
            received += piece
        return received

    def hang_up(self, _count, _data):
        if self.take_call():
            self.caller.close()
            self.caller = None

    def reset(self, _count, _data):
        self.take_call().setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        self.hang_up(0, b"")

    def neglect(self, _count, _data):
        self.listener.listen(0)
        for _ in range(4):
            self.ringing.append(socket.socket(self.listener.family))
            self.ringing[-1].setblocking(False)
            self.ringing[-1].connect_ex(self.listener.getsockname())

    def unplug(self, _count, _data):
        if self.listener:
            self.hang_up(0, b"")
        self.close()


def left(caller):
    try:
        return not caller.recv(1, socket.MSG_PEEK | socket.MSG_DONTWAIT)
    except BlockingIOError:
        return False


def under_way(connection):
    return struct.unpack("i", fcntl.ioctl(connection, termios.TIOCOUTQ, b"\0" * 4))[0]


def exactly(connection, count):
    data = b""
    while len(data) < count:
        piece = connection.recv(count - len(data))
        if not piece:
            raise EOFError
        data += piece
    return data


def serve(connection, line):
    server = Server()
    present = line
    while True:
        letter, count = struct.unpack("<cI", exactly(connection, 5))
        data = exactly(connection, count) if letter in b"ST" else b""
        if letter in b"NT":
            present = line if letter == b"N" else server
        answer = getattr(present, ACTIONS[letter])(count, data) or b""
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
            return run_program.main(sys.argv[1:])
        finally:
            line.remove()


if __name__ == "__main__":
    sys.exit(main())
