"""tools/kestra/prompt/operations.inc: what the tool's prompt can call, with titles and names for whoever types."""
from generator.table import KINDS

CALLED = ("operation", "report", "question")
# The prompt has chosen how texts are handed over.
KEPT = ("Kestra_Textos",)


def takes(row):
    """Nobody types records and pointers."""
    return all(argument.kind not in ("operator", "identifier", "object") for argument in row.arguments)


def arguments(row):
    """A letter for each argument, with its bytes and its name: "t50 descripcion|d cantidad"."""
    return "|".join(KINDS[each.kind].letter + (str(each.bytes) if each.bytes else "") + " " + each.name
                    for each in row.arguments)


def line(row):
    return f'ROW({row.name}, "{row.title}", "{arguments(row)}"),\n'


def made(table):
    rows = [row for row in table.hosts_functions
            if row.nature in CALLED and takes(row) and row.name not in KEPT]
    return {"tools/kestra/prompt/operations.inc":
            "// Made by api/generate from api/kestra.toml.\n// clang-format off\n" + "".join(map(line, rows))}
