"""Which commands the library has sent twice by itself, as its log tells.

When all that came in time was an answer to another command, the library sends the command again under the next
number. If the printer had done it and only its answer was spoilt, it does it twice; no host is told of that.
"""
import collections
import os
import re

import plan

LINE = re.compile(rb"\] - (Comando|Output) : ([^\r]*)\r\n", re.DOTALL)
MARK = re.compile(rb"#(\d+)")


class Repeats:
    def __init__(self, folder):
        self.frames = collections.defaultdict(list)  # document -> bodies of frames that went out again
        self.others = collections.Counter()          # command -> how often
        for family in (plan.TICKETS, plan.INVOICES):
            path = os.path.join(folder, family, "fiscal.log")
            if os.path.exists(path):
                with open(path, "rb") as log:
                    self.read(log.read())

    def read(self, log):
        last = None
        for kind, words in LINE.findall(log):
            if kind == b"Comando":
                last = None
                continue
            body = words[2:].rstrip(b"\x03")
            if body == last:
                self.keep(body)
            last = body

    def keep(self, body):
        mark = MARK.search(body)
        self.others[body[:1].decode("latin-1")] += 1
        if mark:
            self.frames[int(mark[1])].append(body)

    def steps_of(self, made):
        """The document's steps that these frames were."""
        return [step for body in self.frames.get(made.id, ()) for step in made.steps
                if is_frame_of(step, body)][:6]


def is_frame_of(step, body):
    name, *values = step
    if not values or values[0].encode() not in body:
        return False
    if name in ("item", "anular"):
        return (b"\x1cm\x1c" in body) == (name == "anular")
    return True
