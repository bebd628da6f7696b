#!/usr/bin/env python3
"""The declares of each language, read by that language's rules, against the public header and the frozen list.

    witness_test.py SOURCE_DIRECTORY
"""
import sys
import unittest

from declares import LANGUAGES, complaints, text_of
from shapes import Trouble

SOURCE = sys.argv[1]

ITEM, PAYMENT, CLOSING, DRAWER = "EP_ImprimirItem", "EP_ImprimirPago", "EP_CerrarComprobanteFiscal", "EP_AbrirCajonDeDinero"

# Spoiled declares: (language, words of its file, what stands there instead, what is said about it).
SPOILED = [
    # An argument is missing, or too many.
    ("Visual Basic 6", ", ByVal extra3 As String", "", f"{ITEM}: 44 bytes, not 48"),
    ("VBA before 7", ", ByVal extra3 As String", "", f"{ITEM}: 44 bytes, not 48"),
    ("VBA of 64 bits", ", ByVal extra3 As String", "", f"{ITEM}: 44 bytes, not 48"),
    ("Visual FoxPro", ", STRING extra3", "", f"{ITEM}: 44 bytes, not 48"),
    ("Clarion", ",*STRING extra3", "", f"{ITEM}: 44 bytes, not 48"),
    ("PowerBuilder", ", string extra3", "", f"{ITEM}: 44 bytes, not 48"),
    ("Xojo", ", extra3 As Ptr", "", f"{ITEM}: 44 bytes, not 48"),
    ("WinDev", "extra2, &extra3", "extra2", f"{ITEM}: the call does not have its parameters in their order"),
    ("Harbour", "HB_DYN_CTYPE_DOUBLE, HB_DYN_CTYPE_DOUBLE, ", "HB_DYN_CTYPE_DOUBLE, ",
     f"{ITEM}: parameters, kinds and arguments differ"),
    ("xHarbour", "extra2, extra3 )\n\n   RETURN", "extra2 )\n\n   RETURN", f"{ITEM}: parameters and arguments differ"),
    ("xHarbour", "Doble( cantidad ), Doble( precio ), ", "Doble( cantidad ), ", f"{ITEM}: parameters and arguments differ"),
    ("Delphi", "; extra3: PAnsiChar", "", f"{ITEM}: 44 bytes, not 48"),
    ("C++Builder", ", const char* extra3", "", f"{ITEM}: 44 bytes, not 48"),
    ("Visual Basic .NET", ", ByVal extra3 As Byte()", "", f"{ITEM}: 44 bytes, not 48"),
    ("C#", ", byte[] extra3", "", f"{ITEM}: 44 bytes, not 48"),
    ("C#", "byte[] extra3", "byte[] extra3, int mas", f"{ITEM}: 52 bytes, not 48"),
    # Another order: the bytes are as many.
    ("Visual Basic 6", "ByVal descripcion As String, ByVal monto As Double", "ByVal monto As Double, ByVal descripcion As String",
     "EP_DescuentoGeneral: monto is a double, not a text"),
    ("WinDev", "&descripcion, cantidad", "cantidad, &descripcion", f"{ITEM}: the call does not have its parameters in their order"),
    # By reference instead of by value, and the other way about.
    ("Visual Basic 6", "ByVal cajon As Long", "ByRef cajon As Long", f"{DRAWER}: cajon is a reference, not a int"),
    ("Visual Basic 6", "ByVal cajon As Long", "cajon As Long", f"{DRAWER}: cajon is a reference, not a int"),
    ("VBA of 32 bits", "ByVal cajon As Long", "cajon As Long", f"{DRAWER}: cajon is a reference, not a int"),
    ("VBA before 7", "ByVal numero As String", "numero As String", f"{CLOSING}: numero is a string reference, not a buffer"),
    ("VBA of 64 bits", "ByRef operador As Any", "ByVal operador As LongPtr",
     "Kestra_DefinirOperador: operador is a address, not a record"),
    ("Visual FoxPro", "INTEGER cajon", "INTEGER @cajon", f"{DRAWER}: cajon is a reference, not a int"),
    ("Visual FoxPro", "STRING @numero", "STRING numero", f"{CLOSING}: numero is a text, not a buffer"),
    ("Visual FoxPro", "STRING letra, STRING @numero", "STRING @letra, STRING @numero", f"{CLOSING}: letra is a buffer, not a text"),
    ("Clarion", "LONG cajon", "*LONG cajon", f"{DRAWER}: cajon is a reference, not a int"),
    ("Clarion", "*STRING numero", "STRING numero", "numero: STRING is no type that a call can carry"),
    ("PowerBuilder", "long cajon", "REF long cajon", f"{DRAWER}: cajon is a reference, not a int"),
    ("PowerBuilder", "REF string numero", "string numero", f"{CLOSING}: numero is a text, not a buffer"),
    ("Xojo", "cajon As Int32", "ByRef cajon As Int32", f"{DRAWER}: cajon is a reference, not a int"),
    ("WinDev", '"EP_AbrirCajonDeDinero", cajon', '"EP_AbrirCajonDeDinero", &cajon', f"{DRAWER}: cajon is a reference, not a int"),
    ("WinDev", "letra is ANSI string, numero is", "letra is ANSI string, LOCAL numero is",
     f"{CLOSING}: numero is a text, not a buffer"),
    ("WinDev", '"EP_ImprimirPago", &descripcion', '"EP_ImprimirPago", descripcion',
     f"{PAYMENT}: descripcion is a string reference, not a text"),
    ("Harbour", "tipo, letra, @numero", "tipo, letra, numero", f"{CLOSING}: numero is a text, not a buffer"),
    ("xHarbour", "tipo, letra, @numero", "tipo, letra, numero", f"{CLOSING}: numero is a text, not a buffer"),
    ("xHarbour", "Entero( cajon )", "@cajon", f"{DRAWER}: cajon is a buffer, not a int"),
    ("Delphi", "(cajon: Integer)", "(var cajon: Integer)", f"{DRAWER}: cajon is a reference, not a int"),
    ("Delphi", "operador: PKestraOperador", "operador: TKestraOperador", "operador: a record by value"),
    ("C++Builder", "(int cajon)", "(int* cajon)", f"{DRAWER}: cajon is a reference, not a int"),
    ("C++Builder", ", char* numero", ", const char* numero", f"{CLOSING}: numero is a text, not a buffer"),
    ("Visual Basic .NET", "ByVal cajon As Integer", "ByRef cajon As Integer", f"{DRAWER}: cajon is a reference, not a int"),
    ("C#", "int cajon", "ref int cajon", f"{DRAWER}: cajon is a reference, not a int"),
    # Another width.
    ("Visual Basic 6", "ByVal cantidad As Double", "ByVal cantidad As Single", f"{ITEM}: 44 bytes, not 48"),
    ("Visual Basic 6", "ByVal cantidad As Double", "ByVal cantidad As Currency", f"{ITEM}: cantidad is a currency, not a double"),
    ("Visual Basic 6", "ByVal copias As Long", "ByVal copias As Integer", "EP_AbrirComprobanteFiscal: copias is a short, not a int"),
    ("Visual Basic 6", "ByVal copias As Long", "ByVal copias", "EP_AbrirComprobanteFiscal: 64 bytes, not 52"),
    ("VBA of 64 bits", "ByVal copias As Long", "ByVal copias As LongPtr", "EP_AbrirComprobanteFiscal: copias is not as wide"),
    ("VBA before 7", "ByVal copias As Long", "ByVal copias As LongPtr", "copias: longptr is no type that a call can carry"),
    ("Visual FoxPro", "DOUBLE cantidad", "SINGLE cantidad", f"{ITEM}: 44 bytes, not 48"),
    ("Clarion", "REAL cantidad", "SREAL cantidad", f"{ITEM}: 44 bytes, not 48"),
    ("PowerBuilder", "double cantidad", "real cantidad", f"{ITEM}: 44 bytes, not 48"),
    ("PowerBuilder", "long copias", "int copias", "EP_AbrirComprobanteFiscal: copias is a short, not a int"),
    ("Xojo", "cantidad As Double", "cantidad As Single", f"{ITEM}: 44 bytes, not 48"),
    ("Xojo", "copias As Int32", "copias As Integer", "EP_AbrirComprobanteFiscal: copias is a address, not a int"),
    ("WinDev", "cantidad is real", "cantidad is 4-byte real", f"{ITEM}: 44 bytes, not 48"),
    ("Harbour", "HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_DOUBLE }, descripcion, monto",
     "HB_DYN_CTYPE_CHAR_PTR, HB_DYN_CTYPE_FLOAT }, descripcion, monto", "EP_DescuentoGeneral: 8 bytes, not 12"),
    ("xHarbour", "Doble( cantidad )", "cantidad", f"{ITEM}: 44 bytes, not 48"),
    ("xHarbour", "Doble( cantidad )", "Entero( cantidad )", f"{ITEM}: 44 bytes, not 48"),
    ("xHarbour", "nImporte + 0.0", "nImporte", "Doble: nImporte"),
    ("xHarbour", "Int( nEntero )", "nEntero", "Entero: nEntero"),
    ("Delphi", "cantidad: Double", "cantidad: Single", f"{ITEM}: 44 bytes, not 48"),
    ("Delphi", "cantidad: Double", "cantidad: Extended", f"{ITEM}: 52 bytes, not 48"),
    ("C++Builder", "double cantidad", "float cantidad", f"{ITEM}: 44 bytes, not 48"),
    ("Visual Basic .NET", "ByVal copias As Integer", "ByVal copias As Long", "EP_AbrirComprobanteFiscal: 56 bytes, not 52"),
    ("C#", "double cantidad", "float cantidad", f"{ITEM}: 44 bytes, not 48"),
    # Texts of another sort.
    ("PowerBuilder", "EP_ImprimirPago;Ansi", "EP_ImprimirPago", f"{PAYMENT}: descripcion is a wide, not a text"),
    ("Delphi", "descripcion: PAnsiChar; monto", "descripcion: PChar; monto", "EP_DescuentoGeneral: descripcion is a wide, not a text"),
    ("Delphi", "descripcion: PAnsiChar; monto", "descripcion: string; monto", "descripcion: string is no type that a call can carry"),
    ("Xojo", "descripcion As Ptr, monto", "descripcion As WString, monto", "EP_DescuentoGeneral: descripcion is a wide, not a text"),
    ("Visual Basic .NET", "ByVal numero As Byte()", "ByVal numero As String", f"{CLOSING}: numero is a text, not a buffer"),
    ("C#", "byte[] numero", "string numero", f"{CLOSING}: numero is a text, not a buffer"),
    ("WinDev", "LOCAL calificador is ANSI string", "LOCAL calificador is UNICODE string",
     "EP_EspecificarPercepcionGlobal: calificador is a wide, not a text"),
    # Another name.
    ("Visual Basic 6", f'Alias "{PAYMENT}"', 'Alias "EP_ImprimirPagos"', f"{PAYMENT}: the library has no EP_ImprimirPagos"),
    ("Visual Basic 6", f'Alias "{PAYMENT}"', 'Alias "EP_Imprimirpago"', f"{PAYMENT}: the library has no EP_Imprimirpago"),
    ("Visual Basic 6", f' Alias "{PAYMENT}"', "", f"{PAYMENT}: no alias: its export's name is what the editor makes of it"),
    ("VBA of 64 bits", f' Alias "{PAYMENT}"', "", f"{PAYMENT}: no alias: its export's name is what the editor makes of it"),
    ("VBA of 32 bits", f'Alias "{PAYMENT}"', f'Alias "_{PAYMENT}@12"',
     f"{PAYMENT}: the library has no _{PAYMENT}@12"),
    ("Visual FoxPro", f"INTEGER {PAYMENT} IN Kestra.dll", f"INTEGER Pago IN Kestra.dll AS {PAYMENT}",
     f"{PAYMENT}: the library has no Pago"),
    ("Clarion", f",NAME('{PAYMENT}')", "", f"{PAYMENT}: the library has no EP_IMPRIMIRPAGO"),
    ("PowerBuilder", f'"{PAYMENT};Ansi"', '"EP_Imprimirpago;Ansi"', f"{PAYMENT}: the library has no EP_Imprimirpago"),
    ("Xojo", f"Function {PAYMENT} Lib", "Function EP_ImprimirPagos Lib", "EP_ImprimirPagos: the library has no EP_ImprimirPagos"),
    ("WinDev", f'"{PAYMENT}"', '"EP_Pago"', f"{PAYMENT}: the library has no EP_Pago"),
    ("Harbour", f'"{PAYMENT}"', '"EP_Pago"', f"{PAYMENT}: the library has no EP_Pago"),
    ("xHarbour", f'"{PAYMENT}"', '"EP_Pago"', f"{PAYMENT}: the library has no EP_Pago"),
    ("Delphi", f"name '{PAYMENT}'", "name 'EP_Pago'", f"{PAYMENT}: the library has no EP_Pago"),
    ("C++Builder", f"__stdcall {PAYMENT}", "__stdcall EP_Pago", "EP_Pago: the library has no EP_Pago"),
    ("C++Builder", 'extern "C" {', "{", "EP_Init: the library has no ?EP_Init"),
    ("Visual Basic .NET", f"Public Function {PAYMENT}", "Public Function EP_Pago", "EP_Pago: the library has no EP_Pago"),
    ("C#", f"extern int {PAYMENT}", "extern int EP_Pago", "EP_Pago: the library has no EP_Pago"),
    # A line that goes on without saying so.
    ("Clarion", "REAL impuestos_internos, |\n", "REAL impuestos_internos,\n",
     "prototype: EP_ImprimirItem(*STRING descripcion,REAL cantidad,REAL precio,REAL iva,REAL impuestos_internos,"),
    # One that is not there at all.
    ("Visual Basic 6", 'Public Declare Function EP_ReporteZ Lib "Kestra.dll" Alias "EP_ReporteZ" () As Long', "", "EP_ReporteZ: missing"),
    ("Visual FoxPro", "DECLARE INTEGER EP_ReporteZ IN Kestra.dll\n", "\n", "EP_ReporteZ: missing"),
    # Another convention.
    ("Visual Basic 6", f"{PAYMENT} Lib", f"{PAYMENT} CDecl Lib", f"{PAYMENT}: cdecl, not stdcall"),
    ("Clarion", "EP_Cancelar(),LONG,PASCAL", "EP_Cancelar(),LONG,C", "EP_Cancelar: cdecl, not stdcall"),
    ("Clarion", "EP_Cancelar(),LONG,PASCAL", "EP_Cancelar(),LONG", "EP_Cancelar: clarion, not stdcall"),
    ("Clarion", "*CSTRING texto,LONG longitud),LONG,PASCAL,RAW", "*CSTRING texto,LONG longitud),LONG,PASCAL",
     "Kestra_CausaTexto: 12 bytes, not 8"),
    ("WinDev", f'API("Kestra.dll", "{PAYMENT}"', f'APIC("Kestra.dll", "{PAYMENT}"', f"{PAYMENT}: cdecl, not stdcall"),
    ("Harbour", "HB_DYN_CALLCONV_STDCALL", "HB_DYN_CALLCONV_CDECL", "EP_Init: cdecl, not stdcall"),
    ("Harbour", "hb_bitOr( HB_DYN_CALLCONV_STDCALL, HB_DYN_CTYPE_INT )", "HB_DYN_CTYPE_INT", "EP_Init: cdecl, not stdcall"),
    ("xHarbour", "#define STDCALL 32", "#define STDCALL 16", "EP_Init: cdecl, not stdcall"),
    ("xHarbour", 'DllCall( Biblioteca(), STDCALL, "EP_Init"', 'DllCall( "Kestra.dll", STDCALL, "EP_Init"', 'library: "Kestra.dll"'),
    ("Delphi", "{$ELSE} stdcall; {$ENDIF} external KestraBiblioteca name 'EP_Init'",
     "{$ENDIF} external KestraBiblioteca name 'EP_Init'", "EP_Init: register, not stdcall"),
    ("C++Builder", f"int __stdcall {PAYMENT}", f"int {PAYMENT}", f"{PAYMENT}: cdecl, not stdcall"),
    ("Visual Basic .NET", "CallingConvention.StdCall", "CallingConvention.Cdecl", "EP_Init: cdecl, not stdcall"),
    ("C#", "CallingConvention.StdCall", "CallingConvention.Cdecl", "EP_Init: cdecl, not stdcall"),
    # Another result, and what only one language knows.
    ("Visual Basic 6", 'EP_Init Lib "Kestra.dll" Alias "EP_Init" () As Long', 'EP_Init Lib "Kestra.dll" Alias "EP_Init" () As Integer',
     "EP_Init: gives short, not int"),
    ("Visual Basic 6", 'EP_Init Lib "Kestra.dll" Alias "EP_Init" () As Long', 'EP_Init Lib "Kestra.dll" Alias "EP_Init" ()', "EP_Init: gives variant, not int"),
    ("VBA of 64 bits", "PtrSafe Function EP_Init", "Function EP_Init", "EP_Init: PtrSafe is missing"),
    ("VBA before 7", "Declare Function EP_Init", "Declare PtrSafe Function EP_Init", "EP_Init: PtrSafe is not known here"),
    ("Visual FoxPro", "DECLARE INTEGER EP_Init", "DECLARE EP_Init", "EP_Init: gives none, not int"),
    ("Clarion", "EP_Init(),LONG", "EP_Init(),REAL", "EP_Init: gives double, not int"),
    ("PowerBuilder", "FUNCTION long EP_Init", "FUNCTION int EP_Init", "EP_Init: gives short, not int"),
    ("WinDev", 'RESULT API("Kestra.dll", "EP_Init"', 'API("Kestra.dll", "EP_Init"', "EP_Init: gives none, not int"),
    ("C#", "extern int EP_Init", "extern long EP_Init", "EP_Init: gives int64, not int"),
    ("Xojo", '"Kestra.dll"', '"Otra.dll"', "no constant Biblioteca that names Kestra.dll"),
]


def told(language, text):
    """What is said about the file; what its language would not take is a line too."""
    try:
        return complaints(language.read(text), language, SOURCE)
    except Trouble as trouble:
        return [str(trouble)]


class Declares(unittest.TestCase):
    def test_of_each_language_are_those_of_the_library(self):
        for name, language in LANGUAGES.items():
            with self.subTest(name):
                self.assertEqual(told(language, text_of(SOURCE, language)), [])

    def test_that_are_spoiled_are_noticed(self):
        for name, words, instead, line in SPOILED:
            with self.subTest(name, words=words, instead=instead):
                language = LANGUAGES[name]
                text = text_of(SOURCE, language)
                self.assertIn(words, text)
                self.assertIn(line, told(language, text.replace(words, instead)))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
