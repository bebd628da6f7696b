"""hosts/foxpro/kestra.prg and its constants."""
from generator import hosts

TYPES = {"text": "STRING {}", "terminated": "STRING {}", "result": "STRING @{}", "buffer": "STRING @{}",
         "length": "INTEGER {}", "integer": "INTEGER {}", "amount": "DOUBLE {}", "operator": "INTEGER {}"}
HEAD = [
    "",
    "Se llama una vez, al empezar: DO kestra. Las constantes: #INCLUDE kestra_constantes.h",
    "Un texto se pasa completado con blancos: PADR(texto, 50). Un búfer se pasa con @ y lleno de blancos:",
    "numero = SPACE(8), EP_CerrarComprobanteFiscal(tipo, letra, @numero). FoxPro no tiene funciones que otro pueda",
    "llamar: a Kestra_DefinirOperador se le pasa 0, o el registro que prepara otra biblioteca.",
    *hosts.UNTRIED,
]


def declare(row):
    start = f"DECLARE {row.name} IN Kestra.dll" if row.returns == "nothing" else \
        f"DECLARE INTEGER {row.name} IN Kestra.dll"
    arguments = [TYPES[argument.kind].format(argument.name) for argument in row.arguments]
    return start + (" " + ", ".join(arguments) if arguments else "") + "\n"


def made(table):
    text = hosts.remarks(hosts.beginning(table, "Visual FoxPro") + HEAD, "* ")
    for section, rows in table.sections:
        text += f"\n* ---- {section.es} ----\n"
        for row in rows:
            text += "\n" + hosts.remarks(hosts.about(row), "* ") + declare(row)
    constants = hosts.remarks(hosts.beginning(table, "Visual FoxPro: constantes")[:2], "* ")
    for enum in table.enums:
        constants += f"\n* {enum.title}.\n"
        for value in enum.constants:
            constants += f"#DEFINE {value.name} {value.value}" + (f"  && {value.es}" if value.es else "") + "\n"
    return {"hosts/foxpro/kestra.prg": hosts.ansi(text + "\nRETURN\n"),
            "hosts/foxpro/kestra_constantes.h": hosts.ansi(constants)}
