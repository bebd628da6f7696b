"""hosts/xojo/Kestra.xojo_code."""
from generator import hosts

TYPES = {"text": "Ptr", "terminated": "Ptr", "result": "Ptr", "buffer": "Ptr", "length": "Int32", "integer": "Int32",
         "amount": "Double", "operator": "Ptr"}
HEAD = [
    "",
    "Un texto es un MemoryBlock con sus bytes exactos, en Encodings.WindowsANSI; un búfer, un MemoryBlock en cero.",
    "En Windows se busca Kestra.dll, en Linux libkestra.so.",
    *hosts.UNTRIED,
]


LIBRARY = """\
	#tag Constant, Name = Biblioteca, Type = String, Dynamic = False, Default = \\"Kestra.dll", Scope = Public
		#Tag Instance, Platform = Linux, Language = Default, Definition  = \\"libkestra.so"
	#tag EndConstant
"""


def declare(row):
    word = "Sub" if row.returns == "nothing" else "Function"
    result = "" if word == "Sub" else " As Int32"
    arguments = ", ".join(f"{each.name} As {TYPES[each.kind]}" for each in row.arguments)
    return (hosts.remarks(hosts.about(row), "\t// ") + "\t#tag ExternalMethod, Flags = &h0\n"
            f"\t\tSoft Declare {word} {row.name} Lib Biblioteca ({arguments}){result}\n\t#tag EndExternalMethod\n")


def constant(value):
    remark = f"\t// {value.es}\n" if value.es else ""
    return (f"{remark}\t#tag Constant, Name = {value.name}, Type = Double, Dynamic = False, "
            f'Default = \\"{value.value}", Scope = Public\n\t#tag EndConstant\n')


def made(table):
    text = "#tag Module\nProtected Module Kestra\n" + hosts.remarks(hosts.beginning(table, "Xojo") + HEAD, "\t// ")
    for section, rows in table.sections:
        text += f"\n\t// ---- {section.es} ----\n"
        for row in rows:
            text += "\n" + declare(row)
    text += "\n" + LIBRARY
    for enum in table.enums:
        text += f"\n\t// {enum.title}.\n" + "".join(map(constant, enum.constants))
    return {"hosts/xojo/Kestra.xojo_code": text + "End Module\n#tag EndModule\n"}
