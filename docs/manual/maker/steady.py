"""What a till's day has of the moment that it was lived in: the seconds that it took, and the sequence numbers, which the
library begins with those of the clock. The same manual is made each time, so these are those of a day without delays.
"""
import re

FIRST, COUNT, START = 32, 39, 16  # the numbers that a printer takes, and where ours begin: with "0"
FRAME = re.compile("\x02(.)([^\x03]*)\x03([0-9A-F]{4})?")


def moments(text):
    """The printer's clock begins at 10:30:00; a recipe sets it to 21:30:00."""
    text = re.sub(r"\b(10|21):\d\d:\d\d\b", r"\1:30:00", text)
    return re.sub(r"\b(26112[12])(10|21)\d{4}\b", r"\g<1>\g<2>3000", text)


def checksum(text):
    return f"{sum(text.encode('cp1252', 'replace')) & 0xFFFF:04X}"


class Line:
    """Numbers the frames of a day's log, in the order in which they were sent."""

    def __init__(self):
        self.sent = 0
        self.numbers = {}  # as it was: as it is told

    def of(self, line):
        if "Output" in line and (found := FRAME.search(line)):
            self.numbers[found[1]] = chr(FIRST + (START + self.sent) % COUNT)
            self.sent += 1
        return FRAME.sub(self.frame, line)

    def frame(self, found):
        data = re.sub("\x1c(26112[12])\x1c10\\d{4}$", "\x1c\\g<1>\x1c103000", found[2])
        told = f"\x02{self.numbers.get(found[1], found[1])}{data}\x03"
        if not found[3]:
            return told
        if checksum(f"\x02{found[1]}{found[2]}\x03") != found[3]:
            raise RuntimeError(f"a frame whose checksum is another: {found[0]!r}")
        return told + checksum(told)


def field(each):
    """A field of an exchange: the time of day is that of the day's beginning."""
    return {**each, "valor": "103000"} if each["nombre"] == "hora" and re.fullmatch(r"10\d{4}", each["valor"]) else each


def steadied(calls):
    """The calls of a day, as they would have been without delays."""
    line = Line()
    for call in calls:
        call.log = [line.of(each) for each in call.log]
        call.written = {name: moments(text) for name, text in call.written.items()}
        for each in call.exchanges:
            each["respuesta"]["datos"] = [field(one) for one in each["respuesta"]["datos"]]
    return calls
