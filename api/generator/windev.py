"""hosts/windev: procedures that call the library, to paste in a set of procedures, and the constants."""
from generator import hosts

TYPES = {"text": "LOCAL {} is ANSI string", "terminated": "LOCAL {} is ANSI string", "result": "{} is ANSI string",
         "buffer": "{} is ANSI string", "length": "LOCAL {} is int", "integer": "LOCAL {} is int",
         "amount": "LOCAL {} is real", "operator": "LOCAL {} is system int"}
HEAD = [
    "",
    "Se pega en una colección de procedimientos.",
    'Un texto se pasa completado con blancos: Complete(sTexto, 50). Un búfer se pasa lleno de blancos,',
    'RepeatString(" ", 9), y vuelve escrito. A Kestra_DefinirOperador se le pasa 0.',
    *hosts.UNTRIED,
]


def passed(argument):
    return f"&{argument.name}" if argument.is_pointer and argument.kind != "operator" else argument.name


def declare(row):
    arguments = ", ".join(TYPES[each.kind].format(each.name) for each in row.arguments)
    words = ", ".join([f'"{row.name}"', *map(passed, row.arguments)])
    if row.returns == "nothing":
        return f'PROCEDURE {row.name}({arguments})\nAPI("Kestra.dll", {words})\n'
    return f'PROCEDURE {row.name}({arguments}): int\nRESULT API("Kestra.dll", {words})\n'


def made(table):
    text = hosts.remarks(hosts.beginning(table, "WinDev") + HEAD, "// ")
    for section, rows in table.sections:
        text += f"\n// ---- {section.es} ----\n"
        for row in rows:
            text += "\n" + hosts.remarks(hosts.about(row), "// ") + declare(row)
    constants = hosts.remarks(hosts.beginning(table, "WinDev: constantes")[:2], "// ")
    for enum in table.enums:
        constants += f"\n// {enum.title}.\nCONSTANT\n"
        for value in enum.constants:
            constants += f"\t{value.name} = {value.value}" + (f" // {value.es}" if value.es else "") + "\n"
        constants += "END\n"
    return {"hosts/windev/kestra_procedimientos.txt": hosts.ansi(text),
            "hosts/windev/kestra_constantes.txt": hosts.ansi(constants)}
