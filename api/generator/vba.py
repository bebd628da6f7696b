"""hosts/vba/KestraVBA.bas, for Office of 32 and of 64 bits."""
from generator import vb6

HEAD = [
    "",
    "La Kestra.dll tiene que ser de los mismos bits que Office: la de 64 en Office de 64 bits.",
]


def either(modern, older):
    """Office has pointers of its own, and the word that says a declare knows them, since 2010."""
    return f"\n#If VBA7 Then\n{modern}\n#Else\n{older}\n#End If\n"


def made(table):
    types = either(vb6.records(table, "LongPtr"), vb6.records(table, "Long"))
    body = either(vb6.declares(table, "PtrSafe "), "\n" + "".join(map(vb6.declare, table.hosts_functions)))
    whole = vb6.module(table, "VBA, en Office de 32 y de 64 bits", "KestraVBA", types, body, HEAD)
    return {"hosts/vba/KestraVBA.bas": whole}
