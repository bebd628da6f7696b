"""hosts/go: the constants, the functions by cgo on Linux and by syscall on Windows."""
from generator import hosts

TYPES = {"text": "*byte", "terminated": "*byte", "result": "*byte", "buffer": "*byte", "length": "int32",
         "integer": "int32", "amount": "float64", "operator": "unsafe.Pointer"}
HEAD = [
    "",
    "Un texto es la dirección del primero de sus bytes exactos, &texto[0]; un búfer, lo mismo.",
]
LINUX = """\
//go:build linux

package kestra

/*
#cgo LDFLAGS: -lkestra
#include <kestra/kestra.h>
*/
import "C"

import "unsafe"
"""
WINDOWS = """\
//go:build windows

package kestra

import (
	"math"
	"syscall"
	"unsafe"
)

var biblioteca = syscall.NewLazyDLL("Kestra.dll")

// doble da las palabras que ocupa en la pila: dos en 32 bits, una en 64.
func doble(valor float64) []uintptr {
	bits := math.Float64bits(valor)
	if unsafe.Sizeof(uintptr(0)) == 4 {
		return []uintptr{uintptr(uint32(bits)), uintptr(uint32(bits >> 32))}
	}
	return []uintptr{uintptr(bits)}
}

"""


def signature(row):
    arguments = ", ".join(f"{each.name} {TYPES[each.kind]}" for each in row.arguments)
    return f"func {row.name}({arguments})" + ("" if row.returns == "nothing" else " int32")


def by_cgo(row):
    kinds = {"length": "C.int32_t({})", "integer": "C.int32_t({})", "amount": "C.double({})",
             "operator": "(*C.KestraOperador)({})"}
    arguments = ", ".join(kinds.get(each.kind, "(*C.char)(unsafe.Pointer({}))").format(each.name)
                          for each in row.arguments)
    call = f"C.{row.name}({arguments})"
    return f"\t{call}\n" if row.returns == "nothing" else f"\treturn int32({call})\n"


def by_syscall(row):
    """A pointer is made a number in the call itself: there alone the collector leaves what it points at where it is."""
    words = []
    for each in row.arguments:
        if each.kind == "amount":
            words.append(f"{each.name}_")
        elif each.is_pointer:
            pointer = each.name if each.kind == "operator" else f"unsafe.Pointer({each.name})"
            words.append(f"uintptr({pointer})")
        else:
            words.append(f"uintptr({each.name})")
    start = "" if row.returns == "nothing" else "dado, _, _ := "
    after = "" if row.returns == "nothing" else "\treturn int32(dado)\n"
    name = f'proc_{row.name}'
    if not any(each.kind == "amount" for each in row.arguments):
        return f"\t{start}{name}.Call({', '.join(words)})\n{after}"
    # Words of a double are two or one: both calls are written out.
    doubles = [each.name for each in row.arguments if each.kind == "amount"]
    text = "".join(f"\t{each}_ := doble({each})\n" for each in doubles)
    wide = [f"{each.name}_[0]" if each.kind == "amount" else word for each, word in zip(row.arguments, words)]
    narrow = [f"{each.name}_[0], {each.name}_[1]" if each.kind == "amount" else word
              for each, word in zip(row.arguments, words)]
    text += f"\tif len({doubles[0]}_) == 2 {{\n\t\tdado, _, _ := {name}.Call({', '.join(narrow)})\n"
    text += f"\t\treturn int32(dado)\n\t}}\n\tdado, _, _ := {name}.Call({', '.join(wide)})\n"
    return text + "\treturn int32(dado)\n"


def functions(table, body, before=lambda row: ""):
    text = ""
    for section, rows in table.sections:
        text += f"\n// ---- {section.es} ----\n"
        for row in rows:
            lines = hosts.about(row)
            lines[0] = f"{row.name}: {lines[0]}"
            text += "\n" + before(row) + hosts.remarks(lines, "// ") + f"{signature(row)} {{\n{body(row)}}}\n"
    return text


def made(table):
    head = hosts.remarks(hosts.beginning(table, "Go") + HEAD, "// ") + "\n"
    constants = head + "package kestra\n"
    for enum in table.enums:
        constants += f"\n// {enum.title}.\nconst (\n"
        width = max(len(value.name) for value in enum.constants)
        digits = max(len(str(value.value)) for value in enum.constants if value.es)
        for value in enum.constants:
            number = f"{value.value:<{digits}} // {value.es}" if value.es else str(value.value)
            constants += f"\t{value.name:<{width}} = {number}\n"
        constants += ")\n"
    width = max(len(row.name) for row in table.hosts_functions)
    procs = "var (\n" + "".join(f'\tproc_{row.name:<{width}} = biblioteca.NewProc("{row.name}")\n'
                                for row in table.hosts_functions) + ")\n"
    return {"hosts/go/constantes.go": constants,
            "hosts/go/declaraciones_linux.go": LINUX + functions(table, by_cgo),
            "hosts/go/declaraciones_windows.go": WINDOWS + procs + functions(table, by_syscall)}
