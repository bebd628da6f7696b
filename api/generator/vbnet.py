"""hosts/vbnet/Kestra.vb."""
from generator import hosts

TYPES = {"text": "Byte()", "terminated": "Byte()", "result": "Byte()", "buffer": "Byte()", "length": "Integer",
         "integer": "Integer", "amount": "Double"}
HEAD = [
    "",
    "Un texto es un Byte() con sus bytes exactos; un búfer, un Byte() en cero. En .NET (no en .NET Framework) la página",
    "1252 se registra antes: Encoding.RegisterProvider(CodePagesEncodingProvider.Instance).",
    "En Windows se busca Kestra.dll, en Linux libkestra.so. StdCall vale en Windows de 32 bits; en los demás no cambia nada.",
    *hosts.UNTRIED,
]
IMPORT = "<DllImport(Biblioteca, CallingConvention:=CallingConvention.StdCall, ExactSpelling:=True)>"


def parameter(argument, operator):
    if argument.kind == "operator":
        return operator
    return f"ByVal {argument.name} As {TYPES[argument.kind]}"


def declare(row, operator="ByRef operador As KestraOperador"):
    word = "Sub" if row.returns == "nothing" else "Function"
    arguments = ", ".join(parameter(each, operator) for each in row.arguments)
    result = "" if word == "Sub" else " As Integer"
    return f"        {IMPORT}\n        Public {word} {row.name}({arguments}){result}\n        End {word}\n"


def declares(row):
    text = hosts.remarks(hosts.about(row), "        ' ") + declare(row)
    if any(each.kind == "operator" for each in row.arguments):
        text += "\n        ' Lo mismo con IntPtr.Zero, que vuelve a los cuadros de la biblioteca.\n"
        text += declare(row, "ByVal operador As IntPtr")
    return text


def types(table):
    text = ""
    for field in hosts.callbacks(table):
        word = "Sub" if field.returns == "nothing" else "Function"
        arguments = ", ".join(f"ByVal {each.name} As {'IntPtr' if each.is_pointer else 'Integer'}"
                              for each in field.arguments)
        text += f"\n    ' {field.es}\n    <UnmanagedFunctionPointer(CallingConvention.StdCall)>\n"
        text += f"    Public Delegate {word} Kestra{hosts.camel(field.name)}({arguments})"
        text += "\n" if word == "Sub" else " As Integer\n"
    for record in hosts.records(table).values():
        text += f"\n    ' {record.title}.\n    <StructLayout(LayoutKind.Sequential)>\n    Public Structure {record.name}\n"
        for field in record.fields:
            kind = {"integer": "Integer", "unsigned": "UInteger"}.get(field.kind, "IntPtr")
            if field.kind == "callback":
                kind = f"Kestra{hosts.camel(field.name)}"
            text += f"        Public {field.name} As {kind}  ' {field.es}\n"
        text += "    End Structure\n"
    return text


def made(table):
    text = hosts.remarks(hosts.beginning(table, "Visual Basic .NET") + HEAD, "' ")
    text += "Imports System\nImports System.Runtime.InteropServices\n\nNamespace KestraFiscal\n    Public Module Kestra\n"
    text += '        Public Const Biblioteca As String = "kestra"\n'
    for enum in table.enums:
        text += f"\n        ' {enum.title}.\n"
        for value in enum.constants:
            text += f"        Public Const {value.name} As Integer = {value.value}"
            text += (f"  ' {value.es}" if value.es else "") + "\n"
    for section, rows in table.sections:
        text += f"\n        ' ---- {section.es} ----\n"
        for row in rows:
            text += "\n" + declares(row)
    return {"hosts/vbnet/Kestra.vb": text + "    End Module\n" + types(table) + "End Namespace\n"}
