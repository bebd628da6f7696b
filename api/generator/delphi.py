"""hosts/delphi/Kestra.pas, for Delphi and Free Pascal."""
import textwrap

from generator import hosts

TYPES = {"text": "PAnsiChar", "terminated": "PAnsiChar", "result": "PAnsiChar", "buffer": "PAnsiChar",
         "length": "Integer", "integer": "Integer", "amount": "Double", "operator": "PKestraOperador",
         "unsigned": "Cardinal", "context": "Pointer", "rows": "PKestraFila"}
CONVENTION = "{$IFDEF LINUX} cdecl; {$ELSE} stdcall; {$ENDIF}"
HEAD = [
    "",
    "Un texto se pasa con sus bytes exactos: un AnsiString completado con blancos, con PAnsiChar(texto).",
    "En Free Pascal sirve desde la 3.0; con el compilador de Linux se usa libkestra.so.",
]
BEGINNING = """\
unit Kestra;

{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}

interface

const
{$IFDEF LINUX}
  KestraBiblioteca = 'libkestra.so';
{$ELSE}
  KestraBiblioteca = 'Kestra.dll';
{$ENDIF}
"""


def signature(row, name=""):
    arguments = "; ".join(f"{argument.name}: {TYPES[argument.kind]}" for argument in row.arguments)
    word = "procedure" if row.returns == "nothing" else "function"
    result = "" if row.returns == "nothing" else ": Integer"
    return f"{word}{' ' if name else ''}{name}" + (f"({arguments})" if arguments else "") + f"{result};"


def declare(row):
    lines = textwrap.wrap(signature(row, row.name), 110, subsequent_indent="  ")
    return "\n".join(lines) + f"\n  {CONVENTION} external KestraBiblioteca name '{row.name}';\n"


def constants(table):
    text = ""
    for enum in table.enums:
        text += f"\n  // {enum.title}.\n"
        for value in enum.constants:
            text += f"  {value.name} = {value.value};" + (f"  // {value.es}" if value.es else "") + "\n"
    return text


def types(table):
    rows, operator = hosts.records(table)["KestraFila"], hosts.records(table)["KestraOperador"]
    text = f"\ntype\n  // {rows.title}.\n  PKestraFila = ^TKestraFila;\n  TKestraFila = record\n"
    text += "".join(f"    {field.name}: {TYPES[field.kind]};  // {field.es}\n" for field in rows.fields)
    text += "  end;\n"
    for field in hosts.callbacks(table):
        text += f"\n  // {field.es}\n  TKestra{hosts.camel(field.name)} = {signature(field)} {CONVENTION}\n"
    text += f"\n  // {operator.title}.\n  PKestraOperador = ^TKestraOperador;\n  TKestraOperador = record\n"
    for field in operator.fields:
        kind = f"TKestra{hosts.camel(field.name)}" if field.kind == "callback" else TYPES[field.kind]
        text += f"    {field.name}: {kind};  // {field.es}\n"
    return text + "  end;\n"


def made(table):
    text = hosts.remarks(hosts.beginning(table, "Delphi y Free Pascal") + HEAD, "// ") + BEGINNING
    text += constants(table) + types(table)
    for section, rows in table.sections:
        text += f"\n// ---- {section.es} ----\n"
        for row in rows:
            text += "\n" + hosts.remarks(hosts.about(row), "// ") + declare(row)
    return {"hosts/delphi/Kestra.pas": hosts.ansi(text + "\nimplementation\n\nend.\n")}
