"""What the two linkers read: src/frame/kestra.def and src/frame/kestra.map."""

DEFINITION = """\
; Made by api/generate from api/kestra.toml.
; Every function that Kestra.dll exports. The number is the count of argument bytes that the 32-bit
; function removes from the stack; hosts see the names without it.
LIBRARY Kestra.dll
EXPORTS
"""


def made(table):
    rows = "".join(f"  {row.name}@{row.stack}\n" for row in table.functions)
    names = "".join(f"    {row.name};\n" for row in table.functions)
    return {
        "src/frame/kestra.def": DEFINITION + rows,
        "src/frame/kestra.map": "# Made by api/generate from api/kestra.toml.\n"
                                f"{{\n  global:\n{names}  local:\n    *;\n}};\n",
    }
