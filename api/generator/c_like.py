"""C prototypes for those that read C themselves: PHP's FFI and LuaJIT's."""
from generator import hosts
from generator.table import KINDS, RETURNS


def prototype(row, convention=""):
    arguments = ", ".join(argument.c for argument in row.arguments) or "void"
    return f"{RETURNS[row.returns]} {convention}{row.name}({arguments});\n"


def records(table, convention=""):
    text = ""
    for record in hosts.records(table).values():
        text += f"\n/* {record.title}. */\ntypedef struct {record.name} {{\n"
        for field in record.fields:
            code = f"{KINDS[field.kind].c} {field.name}"
            if field.kind == "callback":
                arguments = ", ".join(argument.c for argument in field.arguments)
                code = f"{RETURNS[field.returns]} ({convention}*{field.name})({arguments})"
            text += f"  {code}; /* {field.es} */\n"
        text += f"}} {record.name};\n"
    return text


def prototypes(table, convention=""):
    text = ""
    for section, rows in table.sections:
        text += f"\n/* ---- {section.es} ---- */\n"
        for row in rows:
            text += "\n/* " + "\n   ".join(hosts.about(row)) + " */\n" + prototype(row, convention)
    return text
