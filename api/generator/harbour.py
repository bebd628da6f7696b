"""hosts/harbour/kestra.prg and its constants."""
from generator import hosts

TYPES = {"text": "HB_DYN_CTYPE_CHAR_PTR", "terminated": "HB_DYN_CTYPE_CHAR_PTR", "result": "HB_DYN_CTYPE_CHAR_PTR",
         "buffer": "HB_DYN_CTYPE_CHAR_PTR", "length": "HB_DYN_CTYPE_INT", "integer": "HB_DYN_CTYPE_INT",
         "amount": "HB_DYN_CTYPE_DOUBLE", "operator": "HB_DYN_CTYPE_VOID_PTR"}
HEAD = [
    "",
    "Para Harbour en Windows de 32 bits. En xHarbour, DllCall() con los mismos argumentos.",
    "Un texto se pasa completado con blancos: PadR( cTexto, 50 ). Un búfer se pasa con @ y lleno de blancos:",
    "cNumero := Space( 8 ); EP_CerrarComprobanteFiscal( cTipo, cLetra, @cNumero ).",
    "A Kestra_DefinirOperador se le pasa NIL, o el registro que prepara una función en C.",
    *hosts.UNTRIED,
]
BEGINNING = """
#include "hbdyn.ch"

STATIC s_hKestra

STATIC FUNCTION Biblioteca()

   IF s_hKestra == NIL
      s_hKestra := hb_libLoad( "Kestra.dll" )
   ENDIF

   RETURN s_hKestra
"""


def by_reference(argument):
    return argument.kind in ("result", "buffer")


def declare(row):
    names = ", ".join(f"/* @ */ {each.name}" if by_reference(each) else each.name for each in row.arguments)
    returned = "HB_DYN_CTYPE_VOID" if row.returns == "nothing" else "HB_DYN_CTYPE_INT"
    kinds = "".join(f", {TYPES[each.kind]}" for each in row.arguments)
    passed = "".join(f", {'@' if by_reference(each) else ''}{each.name}" for each in row.arguments)
    return (f"FUNCTION {row.name}({f' {names} ' if names else ''})\n\n"
            f'   RETURN hb_dynCall( {{ "{row.name}", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, {returned} ){kinds} }}'
            f"{passed} )\n")


def made(table):
    text = hosts.remarks(hosts.beginning(table, "Harbour") + HEAD, "// ") + BEGINNING
    for section, rows in table.sections:
        text += f"\n// ---- {section.es} ----\n"
        for row in rows:
            text += "\n" + hosts.remarks(hosts.about(row), "// ") + declare(row)
    constants = hosts.remarks(hosts.beginning(table, "Harbour y xHarbour: constantes")[:2], "// ")
    for enum in table.enums:
        constants += f"\n// {enum.title}.\n"
        for value in enum.constants:
            constants += f"#define {value.name} {value.value}" + (f"  // {value.es}" if value.es else "") + "\n"
    return {"hosts/harbour/kestra.prg": hosts.ansi(text), "hosts/harbour/kestra.ch": hosts.ansi(constants)}
