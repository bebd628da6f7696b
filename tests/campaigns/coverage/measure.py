"""The points of the sources that were counted, from what `llvm-cov export` writes.

A template and a function that several programs have are counted once for each: a point is reached when any of
them reached it.
"""
import pathlib


class Point:
    """A line, one outcome of a branch, or a condition of a decision."""

    def __init__(self, path, kind, what, number, text, reached):
        self.path = path
        self.kind = kind
        self.what = what
        self.number = number
        self.text = text
        self.reached = reached

    def place(self):
        return f"{self.path}:{self.number}"

    def complaint(self):
        return {"line": f"not reached: {self.text}",
                "true": f"never true: {self.text}",
                "false": f"never false: {self.text}",
                "condition": f"never decides alone: {self.text}"}[self.what]


def squeezed(text):
    return " ".join(text.decode("utf-8").split())


def source_text(lines, span):
    """The source between two places, blanks counted as one. Columns count bytes."""
    first, column, last, end = span
    rows = lines[first - 1:last]
    rows[-1] = rows[-1][:end - 1]
    rows[0] = rows[0][column - 1:]
    return squeezed(b" ".join(rows))


# ---- Lines ----

def line_counts(segments):
    """{line: count}. A segment [line, column, count, counted, entry, gap] holds until the next one."""
    counts = {}
    by_line = {}
    for segment in segments:
        by_line.setdefault(segment[0], []).append(segment)
    before = None
    for number in range(segments[0][0] if segments else 1, segments[-1][0] + 1 if segments else 1):
        here = by_line.get(number, [])
        entered = [s[2] for s in here if s[3] and s[4] and not s[5]]
        skipped = bool(here) and not here[0][3] and here[0][4]
        wrapped = before is not None and before[3]
        if not skipped and (wrapped or entered):
            counts[number] = max(([before[2]] if wrapped else []) + entered)
        before = here[-1] if here else before
    return counts


def line_points(path, lines, entry):
    for number, count in line_counts(entry["segments"]).items():
        yield Point(path, "line", "line", number, squeezed(lines[number - 1]), count > 0)


# ---- Branches ----

def summed(branches):
    """{place: [times true, times false]} over all instances."""
    sums = {}
    for first, column, last, end, times_true, times_false, *_ in branches:
        both = sums.setdefault((first, column, last, end), [0, 0])
        both[0] += times_true
        both[1] += times_false
    return sums


def branch_points(path, lines, entry):
    for span, times in sorted(summed(entry["branches"]).items()):
        text = source_text(lines, span)
        if text in ("true", "false"):
            continue  # decides nothing
        for what, count in zip(("true", "false"), times):
            yield Point(path, "branch", what, span[0], text, count > 0)


# ---- Conditions ----

def condition_points(path, lines, entry):
    shown = {}
    for first, column, last, end, *_, conditions in entry.get("mcdc_records", []):
        known = shown.setdefault((first, column, last, end), [False] * len(conditions))
        known[:] = [a or bool(b) for a, b in zip(known, conditions)]
    for span, conditions in sorted(shown.items()):
        text = source_text(lines, span)
        for number, decides in enumerate(conditions, 1):
            yield Point(path, "condition", "condition", span[0], f"{number} of {text}", decides)


# ---- All of them ----

MAKERS = {"line": line_points, "branch": branch_points, "condition": condition_points}


def entries(report, root):
    """(path under root, entry) of each source that the export tells of."""
    for part in report["data"]:
        for entry in part["files"]:
            path = pathlib.Path(entry["filename"])
            if path.is_relative_to(root):
                yield path.relative_to(root).as_posix(), entry


def files(report, root):
    return {path for path, _ in entries(report, root)}


def points(report, root, kinds):
    for path, entry in entries(report, root):
        lines = (root / path).read_bytes().splitlines()
        for kind in kinds:
            yield from MAKERS[kind](path, lines, entry)
