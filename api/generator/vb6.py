"""hosts/vb6/Kestra.bas."""
from generator import hosts

TYPES = {"text": "String", "terminated": "String", "result": "String", "buffer": "String", "length": "Long",
         "integer": "Long", "amount": "Double"}
HEAD = [
    "",
    "Un texto se pasa completado con blancos: Left$(texto & Space$(50), 50). Un búfer se pasa lleno de blancos,",
    "Space$(8), y vuelve escrito. Las funciones de KestraOperador van con AddressOf y están en un módulo .bas.",
    *hosts.UNTRIED,
]


def parameter(argument):
    if argument.kind == "operator":
        return "ByRef operador As Any"
    return f"ByVal {argument.name} As {TYPES[argument.kind]}"


def declare(row, safe=""):
    """With an alias: the editor rewrites a declare's name as another identifier of the project is written."""
    arguments = ", ".join(map(parameter, row.arguments))
    where = f'{row.name} Lib "Kestra.dll" Alias "{row.name}" ({arguments})'
    if row.returns == "nothing":
        return f"Public Declare {safe}Sub {where}\n"
    return f"Public Declare {safe}Function {where} As Long\n"


def constants(table):
    text = ""
    for enum in table.enums:
        text += f"\n' {enum.title}.\n"
        for value in enum.constants:
            remark = f"  ' {value.es}" if value.es else ""
            text += f"Public Const {value.name} As Long = {value.value}{remark}\n"
    return text


def records(table, pointer):
    text = ""
    for record in hosts.records(table).values():
        text += f"\n' {record.title}.\nPublic Type {record.name}\n"
        for field in record.fields:
            kind = "Long" if field.kind in ("integer", "unsigned") else pointer
            text += f"    {field.name} As {kind}  ' {field.es}\n"
        text += "End Type\n"
    return text


def module(table, language, name, types, body, head=()):
    remarks = hosts.remarks(hosts.beginning(table, language) + HEAD + list(head), "' ")
    return hosts.ansi(f'Attribute VB_Name = "{name}"\n{remarks}Option Explicit\n{constants(table)}{types}{body}')


def declares(table, safe=""):
    text = ""
    for section, rows in table.sections:
        text += f"\n' ---- {section.es} ----\n"
        for row in rows:
            text += "\n" + hosts.remarks(hosts.about(row), "' ") + declare(row, safe)
    return text


def made(table):
    whole = module(table, "Visual Basic 6", "Kestra", records(table, "Long"), declares(table))
    return {"hosts/vb6/Kestra.bas": whole}
