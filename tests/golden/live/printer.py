"""The far end of the line: a pseudo-terminal, and a printer that does as a case says.

The language of the replies is told in tests/golden/replies.hpp.
"""
import collections
import contextlib
import fcntl
import os
import re
import struct
import termios
import time
import tty

from case import FIRST_NUMBER, LAST_NUMBER, from_visible

GAP = 0.010  # bytes that are to be read apart come this far apart
LOOK, LONGEST_LOOK = 0.002, 0.3  # for what the library does about bytes
FINE = "ok 0000|0000"
ACK = b"\x06"


def checksum(data):
    return b"%04X" % (sum(data) & 0xFFFF)


class Reply:
    """What comes of a reply's steps for one frame: bursts, [(seconds after the one before, bytes)], with
    None for the plug that is pulled. Which is the next, and when."""

    def __init__(self, steps, frame):
        self.frame = frame
        self.bursts = collections.deque()
        self.delay, self.piece, self.times = 0.0, 0, 1
        self.since, self.unsettled = time.monotonic(), False
        for step in steps.split(" ; "):
            if step.startswith("+"):
                self.delay += float(step[1:])
            else:
                name, _, rest = step.partition(" ")
                getattr(self, "do_" + name)(rest)

    @property
    def when(self):
        return self.since + self.bursts[0][0]

    def add(self, data):
        self.bursts.append((self.delay, data))
        self.delay = 0.0

    def send(self, data):
        piece = self.piece or len(data)
        bytewise = [data[at:at + piece] for at in range(0, len(data), piece)] * self.times
        for number, part in enumerate(bytewise):
            self.delay += GAP if number else 0
            self.add(part)
        self.piece, self.times = 0, 1

    def answer(self, number, command, fields):
        data = b"\x02" + number + command
        data += b"".join(b"\x1c" + from_visible(field) for field in fields.split("|")) + b"\x03"
        self.send(data + checksum(data))

    def do_ok(self, fields):
        self.answer(self.frame[1:2], self.frame[2:3], fields)

    def do_seq(self, rest):
        shift, _, fields = rest.partition(" ")
        # Numbers go round here: which one the frame has depends on the clock.
        range_ = LAST_NUMBER - FIRST_NUMBER + 1
        number = FIRST_NUMBER + (self.frame[1] - FIRST_NUMBER + int(shift)) % range_
        self.answer(bytes([number]), self.frame[2:3], fields)

    def do_cmd(self, rest):
        command, _, fields = rest.partition(" ")
        self.answer(self.frame[1:2], from_visible(command)[:1], fields)

    def do_raw(self, text):
        data = b""
        for piece in re.split(r"(\{seq\}|\{cmd\}|\{sum\})", text):
            if piece == "{seq}":
                data += self.frame[1:2]
            elif piece == "{cmd}":
                data += self.frame[2:3]
            elif piece == "{sum}":
                data += checksum(data[max(data.rfind(b"\x02"), 0):])
            else:
                data += from_visible(piece)
        self.send(data)

    def do_silence(self, _rest):
        pass

    def do_unplug(self, _rest):
        self.add(None)

    def do_split(self, rest):
        self.piece = int(rest)

    def do_times(self, rest):
        self.times = int(rest)


class Printer:
    """The printer, on a line that the library knows by a link."""

    def __init__(self, link, folder):
        self.link, self.folder = link, folder
        self.far = self.near = None
        self.replies, self.default = collections.deque(), FINE
        self.under_way, self.received, self.writes = [], b"", []
        self.acks, self.acks_wanted = 0, 0
        self.plug_in()

    # -- The device --

    def point_to(self, path):
        fresh = self.link.with_name(self.link.name + ".new")
        fresh.symlink_to(path)
        fresh.replace(self.link)

    def plug_in(self):
        if self.far is None:
            self.far, self.near = os.openpty()
            tty.setraw(self.near)
            os.set_blocking(self.far, False)
        fcntl.flock(self.near, fcntl.LOCK_UN)
        self.point_to(os.ttyname(self.near))

    def unplug(self):
        self.port_missing()
        self.close()

    def port_missing(self):
        """The link stays, so that nobody else takes its name."""
        self.point_to(self.folder / "nothing")

    def port_busy(self, under_wine):
        """A device in use is refused as no access; so is a folder, there."""
        if under_wine:
            self.point_to(self.folder)
        else:
            fcntl.flock(self.near, fcntl.LOCK_EX)

    def close(self):
        for end in filter(None, (self.far, self.near)):
            os.close(end)
        self.far = self.near = None

    def remove(self):
        self.link.unlink()
        self.close()

    # -- What goes on --

    @property
    def next_due(self):
        """When there is something to do next; None when there is nothing."""
        soon = time.monotonic() + LOOK
        return min((soon if reply.unsettled else reply.when for reply in self.under_way), default=None)

    def settled(self):
        """Has the library read what was sent, and acknowledged it if it was an answer?"""
        if self.far is None:
            return True
        unread = struct.unpack("i", fcntl.ioctl(self.near, termios.FIONREAD, b"\0" * 4))[0]
        return not unread and self.acks >= self.acks_wanted

    def send_due(self):
        for reply in self.under_way:
            self.go_on(reply)
        self.under_way = [reply for reply in self.under_way if reply.bursts]

    def go_on(self, reply):
        # Pauses count from the moment that the library was done with the bytes before: on a machine that
        # is busy two bursts would come to it as one.
        now = time.monotonic()
        if reply.unsettled and (self.settled() or now > reply.since + LONGEST_LOOK):
            reply.since, reply.unsettled = now, False
        if not reply.unsettled and reply.when <= now:
            self.send(reply.bursts.popleft()[1])
            reply.since, reply.unsettled = now, True

    def send(self, data):
        if data is None:
            self.unplug()
        elif self.far is not None:
            os.write(self.far, data)
            whole = data[:1] == b"\x02" and data[-4:] == checksum(data[:-4])
            self.acks_wanted = self.acks + (1 if whole else 0)

    def listen(self):
        """Takes what has come, and does about each frame what is to be done."""
        with contextlib.suppress(BlockingIOError):
            while self.far is not None:
                self.received += os.read(self.far, 4096)
        while (write := self.take_write()):
            self.writes.append(write)
            if write == ACK:
                self.acks += 1
            else:
                self.answer(write)

    def take_write(self):
        """One write of the library's: an acknowledgement, or a frame to the end of its checksum."""
        end = 0
        if self.received[:1] == ACK:
            end = 1
        for found in re.finditer(rb"\x03(?=[0-9A-F]{4})", self.received if not end else b""):
            if checksum(self.received[:found.end()]) == self.received[found.end():found.end() + 4]:
                end = found.end() + 4
                break
        write, self.received = self.received[:end], self.received[end:]
        return write

    def answer(self, frame):
        reply = Reply(self.replies.popleft() if self.replies else self.default, frame)
        if reply.bursts:
            self.under_way.append(reply)

    def take_writes(self):
        """What was written since the last time; an unfinished frame at the end is one too."""
        writes, self.writes = self.writes, []
        if self.received:
            writes.append(self.received)
            self.received = b""
        return writes
