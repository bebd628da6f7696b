"""hosts/powerbuilder: the external functions and the constants, to paste where they are declared."""
from generator import hosts

TYPES = {"text": "string {}", "terminated": "string {}", "result": "REF string {}", "buffer": "REF string {}",
         "length": "long {}", "integer": "long {}", "amount": "double {}", "operator": "longptr {}"}
HEAD = [
    "",
    "Se pega en Declare, Global External Functions. ;Ansi hace que los textos vayan de a un byte por letra.",
    "Un texto se pasa completado con blancos: Left(texto + Space(50), 50). Un búfer se pasa lleno de blancos, Space(9),",
    "y vuelve escrito. PowerBuilder no tiene funciones que otro pueda llamar: a Kestra_DefinirOperador se le pasa 0.",
    "Su longptr tiene el ancho del programa, 32 o 64 bits; donde PowerBuilder todavía no lo conoce va long.",
    *hosts.UNTRIED,
]


def declare(row):
    word = "SUBROUTINE" if row.returns == "nothing" else "FUNCTION long"
    arguments = ", ".join(TYPES[each.kind].format(each.name) for each in row.arguments)
    return f'{word} {row.name}({arguments}) LIBRARY "Kestra.dll" ALIAS FOR "{row.name};Ansi"\n'


def made(table):
    text = hosts.remarks(hosts.beginning(table, "PowerBuilder") + HEAD, "// ")
    for section, rows in table.sections:
        text += f"\n// ---- {section.es} ----\n"
        for row in rows:
            text += "\n" + hosts.remarks(hosts.about(row), "// ") + declare(row)
    constants = hosts.remarks(hosts.beginning(table, "PowerBuilder: constantes")[:2], "// ")
    for enum in table.enums:
        constants += f"\n// {enum.title}.\n"
        for value in enum.constants:
            constants += f"CONSTANT long {value.name} = {value.value}" + (f" // {value.es}" if value.es else "") + "\n"
    return {"hosts/powerbuilder/kestra_externas.txt": hosts.ansi(text),
            "hosts/powerbuilder/kestra_constantes.txt": hosts.ansi(constants)}
