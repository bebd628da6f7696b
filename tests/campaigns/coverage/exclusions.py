"""The list of what no test can reach.

Entries stand apart by an empty line; a line that begins with # is a remark. An entry is

    file: src/frame/example.cpp
    line: source text of a line that is never run
    true: source text of a condition that is never true
    false: source text of a condition that is never false
    condition: 2 of source text of a decision whose second condition never decides it alone
    at: source text of the line that it begins on, where the text alone says too little
    why: the reason

with as many of line, true, false and condition as share the reason. The text is the source's own, so that an
entry outlives the moving of lines and falls with a change of them. Blanks count as one.
"""

WHAT = {"line": "line", "true": "branch", "false": "branch", "condition": "condition"}


def squeezed(text):
    return " ".join(text.split())


class Row:
    def __init__(self, path, what, text, at, why):
        self.path = path
        self.what = what
        self.kind = WHAT[what]
        self.text = squeezed(text)
        self.at = squeezed(at)
        self.why = squeezed(why)
        self.met = 0

    def covers(self, point):
        return (self.path == point.path and self.what == point.what and self.text == point.text
                and self.at in ("", point.first_line))


def entry(lines):
    """The rows of one entry."""
    said = []
    for line in lines:
        key, colon, text = line.partition(":")
        if colon and key in {**WHAT, "file": "", "at": "", "why": ""}:
            said.append([key, text])
        elif said and line.startswith(" "):
            said[-1][1] += line
        else:
            raise ValueError(f"not a line of an exclusion: {line}")
    one = {key: text for key, text in said if key not in WHAT}
    rows = [(key, text) for key, text in said if key in WHAT]
    if not rows or not one.get("file", "").strip() or not one.get("why", "").strip():
        raise ValueError(f"an exclusion names a file, what is excluded and why: {lines[0]}")
    return [Row(one["file"].strip(), key, text, one.get("at", ""), one["why"]) for key, text in rows]


def read(text):
    rows = []
    for block in text.split("\n\n"):
        lines = [line for line in block.splitlines() if line.strip() and not line.startswith("#")]
        if lines:
            rows += entry(lines)
    return rows
