"""hosts/python/kestra/_declaraciones.py."""
from generator import hosts

TYPES = {"text": "Texto", "terminated": "Texto", "result": "Bufer", "buffer": "Bufer", "length": "c_int32",
         "integer": "c_int32", "amount": "c_double", "operator": "POINTER(KestraOperador)",
         "unsigned": "c_uint32", "context": "c_void_p", "rows": "POINTER(KestraFila)"}
# What the library hands out is read as plain bytes.
HANDED = {**TYPES, "terminated": "c_char_p"}
HEAD = [
    "",
    "FUNCIONES da de cada una lo que devuelve y sus argumentos: (nombre, tipo, bytes). Los bytes de un texto son los que",
    "se leen; los de un búfer, los que se escriben a lo sumo; 0 en los demás. declarar() se lo dice a ctypes.",
]
BEGINNING = '''\
import ctypes
import sys
from ctypes import POINTER, Structure, c_char_p, c_double, c_int32, c_uint32, c_void_p

# stdcall en Windows de 32 bits; en los demás es lo mismo.
FUNCION = ctypes.WINFUNCTYPE if sys.platform == "win32" else ctypes.CFUNCTYPE


class Texto(c_char_p):
    """Un texto que la biblioteca lee: bytes."""


class Bufer(c_char_p):
    """Un texto que la biblioteca escribe: un búfer de create_string_buffer."""


def cargar(ruta=None):
    """La biblioteca, con sus funciones declaradas."""
    if sys.platform == "win32":
        return declarar(ctypes.WinDLL(ruta or "Kestra.dll"))
    return declarar(ctypes.CDLL(ruta or "libkestra.so"))


def declarar(biblioteca):
    for nombre, (devuelve, argumentos) in FUNCIONES.items():
        funcion = getattr(biblioteca, nombre)
        funcion.restype = devuelve
        funcion.argtypes = [tipo for _, tipo, _ in argumentos]
    return biblioteca
'''


def returned(row):
    return "None" if row.returns == "nothing" else "c_int32"


def types(table):
    text = ""
    for field in hosts.callbacks(table):
        kinds = [returned(field)] + [HANDED[each.kind] for each in field.arguments]
        name = f"Kestra{hosts.camel(field.name)}"
        text += f"\n# {field.es}\n# Argumentos: {', '.join(each.name for each in field.arguments)}\n"
        text += f"{name} = FUNCION({', '.join(kinds)})\n"
    rows, operator = (record(hosts.records(table)[name]) for name in ("KestraFila", "KestraOperador"))
    return "\n" + rows + "\n" + text + "\n" + operator


def record(row):
    text = f"\nclass {row.name}(Structure):\n    \"\"\"{row.title}.\"\"\"\n\n    _fields_ = [\n"
    for field in row.fields:
        kind = f"Kestra{hosts.camel(field.name)}" if field.kind == "callback" else HANDED[field.kind]
        text += f'        ("{field.name}", {kind}),  # {field.es}\n'
    return text + "    ]\n"


def argument(row):
    return f'("{row.name}", {TYPES[row.kind]}, {row.bytes})'


def declare(row):
    text = hosts.remarks(hosts.about(row, 100), "    # ") + f'    "{row.name}": ({returned(row)}, ['
    arguments = [argument(each) for each in row.arguments]
    if len(text.split("\n")[-1]) + sum(len(each) + 2 for each in arguments) < 108:
        return text + ", ".join(arguments) + "]),\n"
    lines = [", ".join(arguments[at:at + 3]) + ",\n" for at in range(0, len(arguments), 3)]
    return text + "\n" + "".join(f"        {line}" for line in lines) + "    ]),\n"


def made(table):
    text = '"""' + "\n".join(hosts.beginning(table, "Python (ctypes)") + HEAD) + '\n"""\n' + BEGINNING
    text = text.replace("# stdcall", f'__version__ = "{table.version}"\n\n# stdcall', 1)
    for enum in table.enums:
        text += f"\n\n# {enum.title}.\n"
        for value in enum.constants:
            text += f"{value.name} = {value.value}" + (f"  # {value.es}" if value.es else "") + "\n"
    text += types(table) + "\n\nFUNCIONES = {\n"
    for section, rows in table.sections:
        text += f"    # ---- {section.es} ----\n" + "".join(map(declare, rows))
    return {"hosts/python/kestra/_declaraciones.py": text + "}\n"}
