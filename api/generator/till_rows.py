"""src/platform/windows/components/till_rows.inc: what a script can call, by way of an object."""
from generator.table import KINDS


def takes(row):
    """A script has no records and no pointers of its own."""
    return all(argument.kind not in ("operator", "identifier", "object") for argument in row.arguments)


def letters(row):
    """A letter for each argument, with its bytes; a result without them has its length behind it: "t50 d o8", "o n"."""
    return " ".join(KINDS[argument.kind].letter + (str(argument.bytes) if argument.bytes else "")
                    for argument in row.arguments)


def line(row):
    return f'ROW({row.name}, "{letters(row)}"),\n'


def made(table):
    rows = [row for row in table.hosts_functions if takes(row)]
    return {"src/platform/windows/components/till_rows.inc":
            "// Made by api/generate from api/kestra.toml.\n" + "".join(map(line, rows))}
