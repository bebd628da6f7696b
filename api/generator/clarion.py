"""hosts/clarion: the map's module and the equates."""
import re

from generator import hosts

TYPES = {"text": "*STRING {}", "terminated": "*CSTRING {}", "result": "*STRING {}", "buffer": "*CSTRING {}",
         "length": "LONG {}", "integer": "LONG {}", "amount": "REAL {}", "operator": "LONG {}"}
LINE = 100
HEAD = [
    "",
    "Va en el MAP del programa: INCLUDE('kestra.clw'). Kestra.lib se hace con LibMaker, a partir de Kestra.dll.",
    "Un texto es una STRING de sus bytes exactos, STRING(50): Clarion la completa con blancos. Un búfer también.",
    "RAW pasa la dirección sola. Los nombres sin decoración los da NAME.",
    *hosts.UNTRIED,
]


def declare(row):
    arguments = ",".join(TYPES[each.kind].format(each.name) for each in row.arguments)
    result = "" if row.returns == "nothing" else ",LONG"
    return continued(f"{row.name}({arguments}){result},PASCAL,RAW,DLL(1),NAME('{row.name}')")


def continued(prototype):
    """On lines that an editor shows whole, ended behind a comma: | says that one goes on."""
    lines = [""]
    for piece in re.split(r"(?<=,)", prototype):
        if len(lines[-1]) + len(piece) > LINE:
            lines.append("")
        lines[-1] += piece
    return "    " + " |\n        ".join(lines) + "\n"


def made(table):
    text = hosts.remarks(hosts.beginning(table, "Clarion") + HEAD, "! ") + "  MODULE('Kestra.lib')\n"
    for section, rows in table.sections:
        text += f"    ! ---- {section.es} ----\n"
        for row in rows:
            text += hosts.remarks(hosts.about(row), "    ! ") + declare(row)
    text += "  END\n"
    constants = hosts.remarks(hosts.beginning(table, "Clarion: constantes")[:2], "! ")
    for enum in table.enums:
        constants += f"\n! {enum.title}.\n"
        for value in enum.constants:
            constants += f"{value.name} EQUATE({value.value})" + (f" ! {value.es}" if value.es else "") + "\n"
    return {"hosts/clarion/kestra.clw": hosts.ansi(text), "hosts/clarion/kestra.equ": hosts.ansi(constants)}
