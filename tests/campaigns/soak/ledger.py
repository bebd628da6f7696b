"""What the hosts were about to do and what they were told, in the order in which it happened.

One line each, written before and after the call, so that a killed host leaves what it knew:

    H 4711 TQ                a host takes its turn
    D 17 factura A 41        document 17 begins (again); the last of its series was 41
    > 17 abrir               about to
    < 17 abrir ok            told: ok, refused, silent, line (the port failed) or misread
    ~ contadores silent      a question about the counters that was not answered
    = 17 closed 42 told      how it ended, and how the host knows: told, or by the counter
"""
import collections
import dataclasses
import os


LAST_STEPS = ("cerrar", "informe")


class Ledger:
    def __init__(self, path):
        self.fd = os.open(path, os.O_WRONLY | os.O_APPEND | os.O_CREAT, 0o644)

    def write(self, *words):
        os.write(self.fd, (" ".join(str(word) for word in words) + "\n").encode())


@dataclasses.dataclass(slots=True)
class Record:
    id: int
    kind: str = ""
    family: str = ""
    before: int = 0
    done: int = 0          # steps of this attempt that the host was told had worked
    pending: str = ""      # what a host was about to do when nothing more was heard of it
    closing: bool = False  # the last step has been tried
    settling: bool = False  # and this: to cancel it
    doubts: tuple = ()     # verdicts of closes that were not "ok"
    outcome: str = ""      # closed, given_up, done, doubt; "" while under way
    number: int = 0
    how: str = ""


class Reader:
    """The ledger as far as it is written."""

    def __init__(self, path):
        self.file = open(path, "rb")
        self.rest = b""
        self.records = {}
        self.claims = collections.defaultdict(list)  # (kind, number) -> documents that were to have it
        self.finished = collections.Counter()
        self.verdicts = collections.Counter()  # (step, verdict)
        self.family = ""
        self.last_id = 0
        self.current = None
        self.faults = []  # lines that tell of something that must not be

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.file.close()

    def read(self):
        data = self.rest + self.file.read()
        *lines, self.rest = data.split(b"\n")
        for line in lines:
            words = line.decode().split(" ")
            self.HANDLERS[words[0]](self, *words[1:])
        return self

    @property
    def total(self):
        return sum(self.finished.values())

    def turn(self, _process, family):
        self.family = family

    def begin(self, number, *rest):
        *kind, before = rest
        record = self.records.setdefault(int(number), Record(int(number)))
        record.kind, record.family, record.before = " ".join(kind), self.family, int(before)
        record.done, record.pending = 0, ""
        record.closing = record.settling = False
        self.current, self.last_id = record, max(self.last_id, record.id)
        self.claims[record.kind, record.before + 1].append(record.id)

    def intend(self, number, step):
        record = self.records[int(number)]
        record.pending = step
        record.closing = record.closing or step in LAST_STEPS
        record.settling = record.settling or step == "cancelar"

    def told(self, number, step, verdict):
        record = self.records[int(number)]
        record.pending = ""
        self.verdicts[step, verdict] += 1
        if verdict == "ok":
            record.done += 1
        elif step in LAST_STEPS:
            record.doubts += (verdict,)

    def asked(self, step, verdict):
        self.verdicts[step, verdict] += 1

    def killed(self):
        """The host is gone, and what came of its close, if it had got so far, with it."""
        record = self.current
        if record and not record.outcome and record.closing:
            record.doubts += ("killed",)

    def end(self, number, outcome, issued, how):
        record = self.records[int(number)]
        record.outcome, record.number, record.how = outcome, int(issued), how
        self.current = None
        if outcome in ("closed", "done"):
            self.finished[record.kind] += 1

    def note(self, *words):
        self.faults.append(" ".join(words))

    def open_record(self):
        record = self.current
        return dataclasses.asdict(record) if record else None

    HANDLERS = {"H": turn, "D": begin, ">": intend, "<": told, "~": asked, "=": end, "!": note}
