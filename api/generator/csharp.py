"""hosts/csharp/Kestra.cs, for .NET and Mono."""
from generator import hosts

TYPES = {"text": "byte[]", "terminated": "byte[]", "result": "byte[]", "buffer": "byte[]", "length": "int",
         "integer": "int", "amount": "double", "operator": "ref KestraOperador", "unsigned": "uint",
         "context": "IntPtr", "rows": "IntPtr"}
HEAD = [
    "",
    "Un texto es un byte[] con sus bytes exactos; un búfer, un byte[] en cero. En .NET (no en .NET Framework) la página",
    "1252 se registra antes: Encoding.RegisterProvider(CodePagesEncodingProvider.Instance).",
    "En Windows se busca Kestra.dll, en Linux libkestra.so. StdCall vale en Windows de 32 bits; en los demás no cambia nada.",
]
BEGINNING = """\
using System;
using System.Runtime.InteropServices;

namespace KestraFiscal
{
"""
IMPORT = "[DllImport(Biblioteca, CallingConvention = CallingConvention.StdCall, ExactSpelling = true)]"


def summary(lines, indent):
    escaped = [line.replace("&", "&amp;").replace("<", "&lt;") for line in lines]
    return (f"{indent}/// <summary>{escaped[0]}" + ("</summary>\n" if len(lines) == 1 else "\n") +
            "".join(f"{indent}/// {line}\n" for line in escaped[1:-1]) +
            (f"{indent}/// {escaped[-1]}</summary>\n" if len(lines) > 1 else ""))


def argument(row):
    # Texts from the library stay pointers in callbacks: they are no texts of the system's code page.
    return f"{TYPES[row.kind]} {row.name}"


def returned(row):
    return "void" if row.returns == "nothing" else "int"


def declare(row):
    text = summary(hosts.about(row), "        ")
    arguments = ", ".join(map(argument, row.arguments))
    text += f"        {IMPORT}\n        public static extern {returned(row)} {row.name}({arguments});\n"
    if any(each.kind == "operator" for each in row.arguments):
        text += f"\n        /// <summary>Lo mismo con IntPtr.Zero, que vuelve a los cuadros de la biblioteca.</summary>\n"
        text += f"        {IMPORT}\n        public static extern {returned(row)} {row.name}(IntPtr operador);\n"
    return text


def types(table):
    text = ""
    for field in hosts.callbacks(table):
        arguments = ", ".join(f"{'IntPtr' if each.is_pointer else 'int'} {each.name}" for each in field.arguments)
        text += "\n" + summary([field.es], "    ")
        text += "    [UnmanagedFunctionPointer(CallingConvention.StdCall)]\n"
        text += f"    public delegate {returned(field)} Kestra{hosts.camel(field.name)}({arguments});\n"
    for record in hosts.records(table).values():
        text += "\n" + summary([record.title + "."], "    ")
        text += f"    [StructLayout(LayoutKind.Sequential)]\n    public struct {record.name}\n    {{\n"
        for field in record.fields:
            kind = {"integer": "int", "unsigned": "uint"}.get(field.kind, "IntPtr")
            if field.kind == "callback":
                kind = f"Kestra{hosts.camel(field.name)}"
            text += f"        public {kind} {field.name};  // {field.es}\n"
        text += "    }\n"
    return text


def made(table):
    text = hosts.remarks(hosts.beginning(table, "C#") + HEAD, "// ") + BEGINNING
    text += '    public static class Kestra\n    {\n        public const string Biblioteca = "kestra";\n'
    for enum in table.enums:
        text += f"\n        // {enum.title}.\n"
        for value in enum.constants:
            text += f"        public const int {value.name} = {value.value};"
            text += (f"  // {value.es}" if value.es else "") + "\n"
    for section, rows in table.sections:
        text += f"\n        // ---- {section.es} ----\n"
        for row in rows:
            text += "\n" + declare(row)
    return {"hosts/csharp/Kestra.cs": text + "    }\n" + types(table) + "}\n"}
