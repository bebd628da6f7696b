"""What became of each mutant, kept between runs, and compared with the list of explained survivors."""
import hashlib
import json
from dataclasses import dataclass, field

LEAST = 95.0  # percent of the mutants that compile
UNITS = "  "


def digest(content):
    return hashlib.sha256(content).hexdigest()[:16]


class Results:
    """One line of JSON for each fate, the last one of a mutant counts. A file that was changed starts anew;
    changed tests may kill what survived the others, and still kill what those killed."""

    def __init__(self, path, contents):
        """`contents`: {file: its bytes} of the sources and the tests with all that they read."""
        self.path = path
        self.sources = {name: digest(content) for name, content in contents.items()}
        self.tests = digest(b"".join(content for name, content in sorted(contents.items())
                                     if name.startswith("tests/")))
        self.known = {}
        lines = path.read_text(encoding="utf-8").splitlines() if path.is_file() else []
        for line in lines:
            row = json.loads(line)
            self.known[row["mutant"], row["source"]] = row

    def of(self, mutant):
        row = self.known.get((mutant.key(), self.sources[mutant.path]))
        if row and row["fate"] == "survived" and row["tests"] != self.tests:
            return None
        return row

    def keep(self, mutant, fate, by, seconds):
        row = {"mutant": mutant.key(), "source": self.sources[mutant.path], "tests": self.tests,
               "fate": fate, "by": by, "seconds": round(seconds, 2)}
        self.known[row["mutant"], row["source"]] = row
        with self.path.open("a", encoding="utf-8") as file:
            file.write(json.dumps(row, ensure_ascii=False) + "\n")


def squeezed(line):
    """A line as it reads; the formatter moves a comment when a neighbour grows."""
    return " ".join(line.split())


@dataclass
class Explained:
    path: str
    source: str
    changes: list
    reason: str = ""

    def covers(self, mutant):
        return (self.path, self.source) == (mutant.path, squeezed(mutant.source)) and mutant.change in self.changes


def explained_in(text):
    """The rows of survivors.txt: file, its line, the changes and the reason, each two blanks further in."""
    rows, path, source, row = [], "", "", None
    for line in text.splitlines():
        depth, words = (len(line) - len(line.lstrip())) // len(UNITS), line.strip()
        if not words or words.startswith("#"):
            continue
        if depth == 0:
            path = words
        elif depth == 1:
            source, row = squeezed(words), None
        elif depth == 2:
            if row is None or row.reason:
                row = Explained(path, source, [])
                rows.append(row)
            row.changes.append(words)
        else:
            row.reason = f"{row.reason} {words}".strip()
    return rows


@dataclass
class Verdict:
    counts: dict = field(default_factory=dict)  # {path: {fate: count}}
    unexplained: list = field(default_factory=list)
    stale: list = field(default_factory=list)

    def total(self, fate, path=None):
        return sum(count.get(fate, 0) for name, count in self.counts.items() if path in (None, name))

    def killed_percent(self, path=None):
        killed, survived = self.total("killed", path), self.total("survived", path)
        return 100.0 * killed / (killed + survived) if killed + survived else 100.0

    def passes(self):
        return self.killed_percent() >= LEAST and not self.unexplained and not self.stale


def judge(fates, rows, whole=True):
    """`fates`: [(mutant, fate)]. Stale rows are looked for only in files that were tried as a whole."""
    verdict, used = Verdict(), set()
    for mutant, fate in fates:
        count = verdict.counts.setdefault(mutant.path, {})
        count[fate] = count.get(fate, 0) + 1
        if fate != "survived":
            continue
        row = next((row for row in rows if row.covers(mutant)), None)
        if row is None or not row.reason:
            verdict.unexplained.append(mutant)
        else:
            used.add((row.path, row.source, mutant.change))
    if whole:
        verdict.stale = [(row, change) for row in rows for change in row.changes
                         if row.path in verdict.counts and (row.path, row.source, change) not in used]
    return verdict
