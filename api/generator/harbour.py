"""hosts/harbour/kestra.prg, its twin for xHarbour, and their constants."""
from generator import hosts

TYPES = {"text": "HB_DYN_CTYPE_CHAR_PTR", "terminated": "HB_DYN_CTYPE_CHAR_PTR", "result": "HB_DYN_CTYPE_CHAR_PTR",
         "buffer": "HB_DYN_CTYPE_CHAR_PTR", "length": "HB_DYN_CTYPE_INT", "integer": "HB_DYN_CTYPE_INT",
         "amount": "HB_DYN_CTYPE_DOUBLE", "operator": "HB_DYN_CTYPE_VOID_PTR"}
ARGUMENTS = [
    "Un texto se pasa completado con blancos: PadR( cTexto, 50 ). Un búfer se pasa con @ y lleno de blancos:",
    "cNumero := Space( 8 ); EP_CerrarComprobanteFiscal( cTipo, cLetra, @cNumero ).",
    "A Kestra_DefinirOperador se le pasa NIL, o el registro que prepara una función en C.",
]
HEAD = [
    "",
    "Para Harbour en Windows de 32 bits. El de xHarbour es kestra_xharbour.prg.",
    *ARGUMENTS,
    *hosts.UNTRIED,
]
HEAD_OF_X = [
    "",
    "Para xHarbour en Windows de 32 bits. El de Harbour es kestra.prg.",
    *ARGUMENTS,
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
# DllCall() passes a number by what it is at that moment: what has to be a double is made one, and so is an integer.
BEGINNING_OF_X = """
#define STDCALL 32  // DC_CALL_STDCALL

STATIC s_hKestra

STATIC FUNCTION Biblioteca()

   IF s_hKestra == NIL
      s_hKestra := DllLoad( "Kestra.dll" )
   ENDIF

   RETURN s_hKestra

// DllCall() pasa un número según lo que sea en ese momento: 890 ocupa 4 bytes y 890.50, 8.
STATIC FUNCTION Doble( nImporte )

   RETURN nImporte + 0.0

STATIC FUNCTION Entero( nEntero )

   RETURN Int( nEntero )

STATIC FUNCTION Puntero( pRegistro )

   RETURN iif( pRegistro == NIL, 0, pRegistro )
"""
PASSED = {"length": "Entero( {} )", "integer": "Entero( {} )", "amount": "Doble( {} )", "operator": "Puntero( {} )",
          "result": "@{}", "buffer": "@{}"}


def by_reference(argument):
    return argument.kind in ("result", "buffer")


def head_of(row):
    names = ", ".join(f"/* @ */ {each.name}" if by_reference(each) else each.name for each in row.arguments)
    return f"FUNCTION {row.name}({f' {names} ' if names else ''})\n\n"


def declare_of_x(row):
    passed = "".join(", " + PASSED.get(each.kind, "{}").format(each.name) for each in row.arguments)
    call = f'DllCall( Biblioteca(), STDCALL, "{row.name}"{passed} )'
    return head_of(row) + (f"   {call}\n\n   RETURN NIL\n" if row.returns == "nothing" else f"   RETURN {call}\n")


def declare(row):
    returned = "HB_DYN_CTYPE_VOID" if row.returns == "nothing" else "HB_DYN_CTYPE_INT"
    kinds = "".join(f", {TYPES[each.kind]}" for each in row.arguments)
    passed = "".join(f", {'@' if by_reference(each) else ''}{each.name}" for each in row.arguments)
    return (head_of(row) +
            f'   RETURN hb_dynCall( {{ "{row.name}", Biblioteca(), hb_bitOr( HB_DYN_CALLCONV_STDCALL, {returned} ){kinds} }}'
            f"{passed} )\n")


def functions(table, written):
    text = ""
    for section, rows in table.sections:
        text += f"\n// ---- {section.es} ----\n"
        for row in rows:
            text += "\n" + hosts.remarks(hosts.about(row), "// ") + written(row)
    return text


def made(table):
    text = hosts.remarks(hosts.beginning(table, "Harbour") + HEAD, "// ") + BEGINNING + functions(table, declare)
    of_x = hosts.remarks(hosts.beginning(table, "xHarbour") + HEAD_OF_X, "// ") + BEGINNING_OF_X + functions(table, declare_of_x)
    constants = hosts.remarks(hosts.beginning(table, "Harbour y xHarbour: constantes")[:2], "// ")
    for enum in table.enums:
        constants += f"\n// {enum.title}.\n"
        for value in enum.constants:
            constants += f"#define {value.name} {value.value}" + (f"  // {value.es}" if value.es else "") + "\n"
    return {"hosts/harbour/kestra.prg": hosts.ansi(text), "hosts/harbour/kestra_xharbour.prg": hosts.ansi(of_x),
            "hosts/harbour/kestra.ch": hosts.ansi(constants)}
