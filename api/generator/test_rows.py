"""tests/exports/rows.inc: the rows of the tests' table of the exports."""
from generator.table import KINDS

# The name in tests/exports/table.hpp and the results that it stands for.
NATURES = {
    "lifetime": ("kLifetime", None),
    "operation": ("kOperation", (0, 1)),
    "nothing": ("kFixed", (0, 0)),
    "report": ("kReport", (0, -1)),
    "question": ("kReport", (0, -1)),
    "components": ("kComponents", (0x80004001, 0x80004001)),
    "beside": ("kBeside", None),
}
WIDTH = 100


def results(row):
    name, usual = NATURES[row.nature]
    if (row.done, row.failed) == usual:
        return name
    return f"{{Nature::{name}, {row.done}, {row.failed}}}"


def letters(row):
    """A letter for each argument, with its bytes: "t50 d o12 i"."""
    words, room = [], {}
    for argument, behind in zip(row.arguments, [*row.arguments[1:], None]):
        count = argument.bytes
        if argument.kind == "buffer":
            count = row.examples[behind.name]
        elif argument.kind == "object":
            count = 8
        words.append(KINDS[argument.kind].letter + (str(count) if count else ""))
    return " ".join(words)


def line(row):
    words = [row.name, results(row)]
    sane = "|".join(str(value) for value in row.example)
    words += [f'"{text}"' for text in (letters(row), sane) if text]
    whole = f"ROW({', '.join(words)}),"
    if len(whole) <= WIDTH:
        return whole + "\n"
    return f"ROW({', '.join(words[:-1])},\n    {words[-1]}),\n"


def made(table):
    rows = sorted(table.functions, key=lambda row: row.number)
    return {"tests/exports/rows.inc": "// Made by api/generate from api/kestra.toml.\n" + "".join(map(line, rows))}
