"""A case of the golden sessions: what is fed to the library, and what can be seen of it from outside.

The form of the files is told in tests/golden/session.hpp.
"""
import re

TOKENS = {"nul": 0, "stx": 2, "etx": 3, "ack": 6, "cr": 13, "dc2": 18, "fs": 28, "del": 127, "sp": 32}
FIRST_NUMBER, LAST_NUMBER = 32, 70  # of a frame

# What an output line begins with, and the kind that it is compared with. Lines of different kinds have
# no common clock. None: nobody outside sees it.
KINDS = {
    "send": "wire", "bytes": "wire", "ack": "wire",
    "log": "log", "malformed": "log",
    "box": "dialogs", "report": "dialogs", "lit": "dialogs", "grey": "dialogs", "memoryfull": "dialogs",
    "meanwhile": "dialogs",
    "buffer": "result", "=": "result", "done": "result",
    "open": None, "close": None, "port": None, "sleep": None, "time": None,
}


def from_visible(text):
    """Tokens and letters to the bytes that they stand for."""
    data = b""
    for token, letter in re.findall(r"<(\w+)>|(.)", text, re.DOTALL):
        if letter:
            data += letter.encode("cp1252")
        else:
            data += bytes([TOKENS[token] if token in TOKENS else int(token, 16)])
    return data


# ---- The same on both sides ----

NUMBER = re.compile(r"<stx>(?:<3c>|[ -F])")
SUMMED = re.compile(r"(<stx>(?:(?!<stx>).)*?<etx>)([0-9A-F]{4})|(<stx>.*<etx>)([0-9A-F]{4})$")
PORT_FAULT = re.compile(r"Error (380|8\d\d\d) \(.*\) in procedure")


def without_right_sum(found):
    """A checksum that fits its packet, whatever number between 32 and 70 the packet has."""
    packet, digits = (found.group(1), found.group(2)) if found.group(1) else found.group(3, 4)
    numbers = packet.count("{seq}")
    rest = int(digits, 16) - sum(from_visible(packet.replace("{seq}", ""))) & 0xFFFF
    right = numbers * FIRST_NUMBER <= rest <= numbers * LAST_NUMBER
    return packet + ("{sum}" if right else digits)


def comparable(line):
    """A line without what differs from one run, or one kind of line, to the next."""
    word = line.split(" ")[0]
    if word == "bytes":
        line = NUMBER.sub("<stx>{seq}", line)
    if word in ("bytes", "log", "box"):
        line = SUMMED.sub(without_right_sum, line)
    if word == "box":  # texts for C end at their first zero byte: those inside become blanks
        line = line.replace("<nul>", " ")
    # Each kind of port has words of its own for what befell it.
    return PORT_FAULT.sub(r"Error \1 (...) in procedure", line)


def by_kind(lines):
    kinds = {"wire": [], "log": [], "dialogs": [], "result": []}
    for line in lines:
        kind = KINDS.get(line.split()[0], "result")  # what nobody knows is compared, and differs
        if kind:
            kinds[kind].append(comparable(line))
    return kinds


# ---- The file ----

class Input:
    def __init__(self, number, text):
        self.number = number
        self.name, _, self.rest = text.partition(" ")
        self.text = text
        self.outputs = []

    @property
    def expected(self):
        return by_kind([] if self.name == "state" else self.outputs)

    @property
    def seconds(self):
        """What it takes by the clock of the golden sessions, which tells only longer times."""
        if self.name == "wait":
            return float(self.rest)
        told = [float(line.split("+")[1]) for line in self.outputs if line.startswith("time ")]
        slept = [int(line.split()[1]) / 1000 for line in self.outputs if line.startswith("sleep ")]
        return sum(told or slept)


class Case:
    def __init__(self, path):
        self.path = path
        self.name = f"{path.parent.name}/{path.stem}"
        self.inputs = []
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            if line.startswith("> "):
                self.inputs[-1].outputs.append(line[2:])
            elif line:
                self.inputs.append(Input(number, line))

    def has(self, *names):
        return any(step.name in names for step in self.inputs)

    def settings(self, *keys):
        """Does it change one of these settings?"""
        return any(step.name == "ini" and step.rest.lstrip("-").split("=")[0].lower() in keys
                   for step in self.inputs)

    @property
    def needs_line(self):
        return self.has("port") or any("open" in step.outputs for step in self.inputs)

    @property
    def seconds(self):
        return sum(step.seconds for step in self.inputs)

    @property
    def state_alone(self):
        """Nothing is to be seen but that the library starts."""
        seen = [line for step in self.inputs for lines in step.expected.values() for line in lines
                if step.text not in ("call EP_Init", "call EP_Kill")]
        return self.has("state") and not seen
