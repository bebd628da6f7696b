"""hosts/gambas/.src/Kestra.module."""
from generator import hosts

TYPES = {"text": "String", "terminated": "String", "result": "Pointer", "buffer": "Pointer", "length": "Integer",
         "integer": "Integer", "amount": "Float", "operator": "Pointer"}
HEAD = [
    "",
    "Un texto es una String con sus bytes exactos: Left(Conv(texto, \"UTF-8\", \"WINDOWS-1252\") & Space(50), 50).",
    "Un búfer son los datos de un Byte[] nuevo, que está en cero y tiene un byte más: New Byte[9], y se lee con String@(b.Data).",
]


def declare(row):
    arguments = ", ".join(f"{each.name} As {TYPES[each.kind]}" for each in row.arguments)
    return f"Public Extern {row.name}({arguments})" + ("" if row.returns == "nothing" else " As Integer") + "\n"


def made(table):
    text = "' Gambas module file\n\n" + hosts.remarks(hosts.beginning(table, "Gambas 3") + HEAD, "' ")
    text += '\nLibrary "libkestra"\n'
    for enum in table.enums:
        text += f"\n' {enum.title}.\n"
        for value in enum.constants:
            text += f"Public Const {value.name} As Integer = {value.value}" + (f" ' {value.es}" if value.es else "") + "\n"
    for section, rows in table.sections:
        text += f"\n' ---- {section.es} ----\n"
        for row in rows:
            text += "\n" + hosts.remarks(hosts.about(row), "' ") + declare(row)
    return {"hosts/gambas/.src/Kestra.module": text}
