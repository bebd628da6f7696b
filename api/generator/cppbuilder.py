"""hosts/cppbuilder/KestraBuilder.h: the header without what old compilers lack."""
from generator import c_like, hosts

HEAD = [
    "",
    "Para compiladores viejos, que no tienen <stdint.h>; los demás usan kestra/kestra.h. La biblioteca de importación se",
    "hace con: implib Kestra.lib Kestra.dll",
    *hosts.UNTRIED,
]


def plain(text):
    return text.replace("uint32_t", "unsigned int").replace("int32_t", "int")


def made(table):
    text = hosts.remarks(hosts.beginning(table, "C++Builder") + HEAD, "// ")
    text += "#ifndef KESTRA_BUILDER_H\n#define KESTRA_BUILDER_H\n"
    for enum in table.enums:
        text += f"\n// {enum.title}.\n"
        for value in enum.constants:
            text += f"const int {value.name} = {value.value};" + (f"  // {value.es}" if value.es else "") + "\n"
    declares = c_like.records(table, "__stdcall ") + c_like.prototypes(table, "__stdcall ")
    text += '\nextern "C" {\n' + plain(declares) + "\n}\n\n#endif\n"
    return {"hosts/cppbuilder/KestraBuilder.h": hosts.ansi(text)}
