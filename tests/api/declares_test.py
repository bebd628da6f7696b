#!/usr/bin/env python3
"""The declares of each language against the frozen list: read as that language's own text, without the generator, they
have every function once and the bytes that it takes from the stack of a 32-bit program.

    declares_test.py SOURCE_DIRECTORY
"""
import dataclasses
import json
import pathlib
import re
import sys
import unittest

SOURCE = pathlib.Path(sys.argv[1])
OLD = "cp1252"  # what tools of old Windows read


@dataclasses.dataclass(frozen=True)
class Language:
    file: str
    declare: str  # finds a declare: its name, and its parameters
    parameter: str  # finds the type of each parameter
    words: tuple  # types of four bytes
    doubles: tuple  # types of eight
    encoding: str = "utf-8"
    times: int = 1  # how often each function is declared
    continued: str = ""  # between the lines of a declare


BASIC = r'^Public Declare {}(?:Function|Sub) (\w+) Lib "Kestra\.dll" Alias "\1" \((.*)\)(?: As Long)?$'
VB = {"parameter": r" As (\w+)", "words": ("String", "Long", "Any"), "doubles": ("Double",), "encoding": OLD}
C = {"parameter": r"(\w+\*{0,2}) \w+(?:,|$)", "words": ("char*", "int32_t", "KestraOperador*"), "doubles": ("double",)}

LANGUAGES = (
    Language("vb6/Kestra.bas", BASIC.format(""), **VB),
    Language("vba/KestraVBA.bas", BASIC.format("(?:PtrSafe )?"), times=2, **VB),
    Language("foxpro/kestra.prg", r"^DECLARE (?:INTEGER )?(\w+) IN Kestra\.dll ?(.*)$", r"(?:^|, )(\w+) @?\w+",
             ("STRING", "INTEGER"), ("DOUBLE",), OLD),
    Language("delphi/Kestra.pas", r"^(?:function|procedure) (\w+)(?:\(([^)]*)\))?(?::\s+Integer)?;\s+\{\$IFDEF LINUX\} cdecl; "
             r"\{\$ELSE\} stdcall; \{\$ENDIF\} external KestraBiblioteca name '\1';$", r"\w+:\s+(\w+)(?:;|$)",
             ("PAnsiChar", "Integer", "PKestraOperador"), ("Double",), OLD),
    Language("csharp/Kestra.cs", r"^ +\[DllImport\(Biblioteca, CallingConvention = CallingConvention\.StdCall, ExactSpelling = "
             r"true\)\]\n +public static extern (?:int|void) (\w+)\((?!IntPtr)(.*)\);$", r"([\w\[\]]+) \w+(?:,|$)",
             ("byte[]", "int", "KestraOperador"), ("double",)),
    Language("python/kestra/_declaraciones.py", r'^    "(\w+)": \((?:c_int32|None), \[([^]]*)\]\),$',
             r'\("\w+", ([\w()]+), \d+\)', ("Texto", "Bufer", "c_int32", "POINTER(KestraOperador)"), ("c_double",)),
    Language("node/declaraciones.mjs", r"^  (\w+): \{ devuelve: '\w+', argumentos: \[((?:\s*\[[^]]*\],?)*)\s*\] \},$",
             r"\['\w+', '([^']+)', \d+\]", ("texto", "bufer", "int32_t", "KestraOperador *"), ("double",)),
    Language("php/declaraciones.h", r"^(?:int32_t|void) (\w+)\((?:void|(.*))\);$", **C),
    Language("luajit/declaraciones.lua", r"^(?:int32_t|void) __stdcall (\w+)\((?:void|(.*))\);$", **C),
    Language("java/src/main/java/kestra/Kestra.java", r"^    (?:int|void) (\w+)\((.*)\);$", r"([\w\[\]]+) \w+(?:,|$)",
             ("byte[]", "int", "KestraOperador"), ("double",)),
    Language("go/declaraciones_linux.go", r"^func (\w+)\((.*?)\)", r"\w+ ([*\w.]+)(?:,|$)",
             ("*byte", "int32", "unsafe.Pointer"), ("float64",)),
    Language("go/declaraciones_windows.go", r"^func ((?:EP|Kestra)_\w+)\((.*?)\)", r"\w+ ([*\w.]+)(?:,|$)",
             ("*byte", "int32", "unsafe.Pointer"), ("float64",)),
    Language("rust/src/declaraciones.rs", r"^    pub fn (\w+)\((.*?)\)", r"\w+: ([^,]+)",
             ("*const u8", "*mut u8", "i32", "*const KestraOperador"), ("f64",)),
    Language("perl/lib/Kestra/Declaraciones.pm", r"^    \['(\w+)', '\w+'(?:, (.*))?\],$", r"\['\w+', '(\w+)', \d+\]",
             ("string", "opaque", "sint32"), ("double",)),
    Language("ruby/lib/kestra/declaraciones.rb", r"^      '(\w+)' => \[\w+, \[(.*)\]\],$", r"\['\w+', (\w+), \d+\]",
             ("TEXTO", "BUFER", "ENTERO"), ("DOBLE",)),
    Language("vbnet/Kestra.vb", r"^ +<DllImport\(Biblioteca, CallingConvention:=CallingConvention\.StdCall, ExactSpelling:=True\)>\n"
             r" +Public (?:Function|Sub) (\w+)\((?!ByVal operador)(.*)\)(?: As Integer)?$", r" As ([\w()]+)",
             ("Byte()", "Integer", "KestraOperador"), ("Double",)),
    Language("gambas/.src/Kestra.module", r"^Public Extern (\w+)\((.*)\)(?: As Integer)?$", r" As (\w+)",
             ("String", "Pointer", "Integer"), ("Float",)),
    Language("harbour/kestra.prg", r'^   RETURN hb_dynCall\( \{ "(\w+)", Biblioteca\(\), hb_bitOr\( HB_DYN_CALLCONV_STDCALL, \w+ \)'
             r"(.*?) \}", r", HB_DYN_CTYPE_(\w+)", ("CHAR_PTR", "VOID_PTR", "INT"), ("DOUBLE",), OLD),
    Language("harbour/kestra_xharbour.prg", r'^   (?:RETURN )?DllCall\( Biblioteca\(\), STDCALL, "(\w+)"(.*?) \)$',
             r", (@|\w+\(|(?=\w+(?:,|$)))", ("", "@", "Entero(", "Puntero("), ("Doble(",), OLD),
    Language("clarion/kestra.clw", r"^    (\w+)\((.*)\)(?:,LONG)?,PASCAL,RAW,DLL\(1\),NAME\('\1'\)$", r"([*\w]+) \w+(?:,|$)",
             ("*STRING", "*CSTRING", "LONG"), ("REAL",), OLD, continued=r" \|\n +"),
    Language("powerbuilder/kestra_externas.txt", r'^(?:FUNCTION long|SUBROUTINE) (\w+)\((.*)\) LIBRARY "Kestra\.dll" ALIAS FOR "\1;Ansi"$',
             r"(\w+) \w+(?:,|$)", ("string", "long", "longptr"), ("double",), OLD),
    Language("xojo/Kestra.xojo_code", r"^\t\tSoft Declare (?:Function|Sub) (\w+) Lib Biblioteca \((.*)\)(?: As Int32)?$",
             r" As (\w+)", ("Ptr", "Int32"), ("Double",)),
    Language("windev/kestra_procedimientos.txt", r'^PROCEDURE (\w+)\((.*)\)(?:: int)?\n(?:RESULT )?API\("Kestra\.dll", "\1".*\)$',
             r"\w+ is ([\w ]+)", ("ANSI string", "int", "system int"), ("real",), OLD),
    Language("cppbuilder/KestraBuilder.h", r"^(?:int|void) __stdcall (\w+)\((?:void|(.*))\);$", r"(\w+\*{0,2}) \w+(?:,|$)",
             ("char*", "int", "KestraOperador*"), ("double",), OLD),
)


def frozen():
    lines = (SOURCE / "tests/api/frozen_exports.txt").read_text(encoding="ascii").splitlines()
    rows = [line.split("@") for line in lines if not line.startswith(("#", "Dll"))]
    return {name: int(count) for name, count in rows}


def size(language, parameters):
    """Bytes of a parameter list; every parameter has to be one that the language's row knows."""
    total = 0
    for kind in re.findall(language.parameter, parameters):
        if kind not in language.words + language.doubles:
            raise ValueError(f"{language.file}: what is {kind}?")
        total += 8 if kind in language.doubles else 4
    return total


def declared(language):
    text = (SOURCE / "hosts" / language.file).read_bytes().decode(language.encoding).replace("\r\n", "\n")
    text = re.sub(language.continued, "", text) if language.continued else text
    found = {}
    for match in re.finditer(language.declare, text, re.MULTILINE):
        found.setdefault(match[1], []).append(size(language, match[2] or ""))
    return found


class Declares(unittest.TestCase):
    maxDiff = None

    def test_have_every_function_and_its_bytes(self):
        wanted = frozen()
        self.assertGreater(len(wanted), 55)
        for language in LANGUAGES:
            with self.subTest(language.file):
                self.assertEqual(declared(language), {name: [count] * language.times for name, count in wanted.items()})

    def test_clarions_lines_are_shown_whole_by_its_editor(self):
        lines = (SOURCE / "hosts/clarion/kestra.clw").read_text(encoding=OLD).splitlines()
        self.assertEqual([line for line in lines if len(line) > 120], [])

    def test_old_tools_get_lines_that_end_as_theirs_do(self):
        for language in LANGUAGES:
            if language.encoding == OLD:
                with self.subTest(language.file):
                    content = (SOURCE / "hosts" / language.file).read_bytes()
                    self.assertEqual(content.count(b"\n"), content.count(b"\r\n"))

    def test_have_the_numbers_of_the_causes(self):
        header = (SOURCE / "include/kestra/causas.h").read_text(encoding="utf-8")
        causes = re.findall(r"(KESTRA_CAUSA_\w+) = (\d+)", header)
        self.assertGreater(len(causes), 50)
        files = [path for path in sorted((SOURCE / "hosts").rglob("*")) if path.is_file()]
        folders = {path.relative_to(SOURCE / "hosts").parts[0] for path in files if path.name != ".clang-format"}
        for folder in sorted(folders):
            text = "".join(path.read_bytes().decode("cp1252", "replace") for path in files if folder in path.parts)
            text += header if "#include <kestra/causas.h>" in text else ""
            lacking = [name for name, number in causes if not re.search(rf"\b{name}\b\W+(\w+\W+){{0,5}}?{number}\b", text)]
            with self.subTest(folder):
                self.assertEqual(lacking, [])

    def test_a_package_that_tells_its_version_tells_this_one(self):
        version = json.loads((SOURCE / "api/kestra.json").read_text(encoding="utf-8"))["version"]
        for name, form in (("node/package.json", r'"version": "([^"]*)"'), ("rust/Cargo.toml", r'^version = "([^"]*)"'),
                           ("gambas/.project", r"^Version=(.*)$")):
            with self.subTest(name):
                told = re.findall(form, (SOURCE / "hosts" / name).read_text(encoding="utf-8"), re.MULTILINE)
                self.assertEqual(told, [version])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
