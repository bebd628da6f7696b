"""Visual Basic .NET and C#: DllImport. Without a convention it is the system's own; without an EntryPoint the name.

An array of bytes is handed over where it lies, so that it comes back written; a string is copied to ANSI, or to two
bytes a letter where the attribute says Unicode. Integer and int have 4 bytes, Long and long 8.
"""
import re

from shapes import Argument, Declare, Trouble, fitting, kind_of, parts, without_comments

COMMON = {"double": "double", "single": "float", "float": "float", "short": "short", "byte": "byte", "boolean": "int",
          "bool": "int", "intptr": "address", "byte()": "buffer", "byte[]": "buffer", "stringbuilder": "buffer"}
NAMES = {"integer": "int", "int": "int", "uinteger": "int", "uint": "int", "long": "int64"}
CONVENTIONS = {"StdCall": "stdcall", "Winapi": "stdcall", "Cdecl": "cdecl"}
FORMS = {
    "vb": {
        "declare": r"<DllImport\((?P<attribute>[^>]*)\)>\s*Public\s+(?P<what>Function|Sub)\s+(?P<name>\w+)"
                   r"\((?P<arguments>.*?)\)(?=\s*(?:As\s+\w+\s*)?\n)(?:\s*As\s+(?P<result>\w+))?",
        "argument": r"(?:(?P<how>ByVal|ByRef)\s+)?(?P<name>\w+)\s+As\s+(?P<type>\w+(?:\(\))?)",
        "record": r"Structure\s+(\w+)", "marks": ["'"]},
    "cs": {
        "declare": r"\[DllImport\((?P<attribute>[^\]]*)\)\]\s*public\s+static\s+extern\s+(?P<result>\w+)\s+(?P<name>\w+)"
                   r"\((?P<arguments>[^)]*)\)\s*;",
        "argument": r"(?:(?P<how>ref|out)\s+)?(?P<type>\w+(?:\[\])?)\s+(?P<name>\w+)",
        "record": r"struct\s+(\w+)", "marks": ["//"]},
}


def argument(words, form, records, wide):
    found = fitting(FORMS[form]["argument"], words, "argument")
    name, type_name = found["name"], found["type"].lower()
    reference = (found["how"] or "").lower() in ("byref", "ref", "out")
    if type_name == "string":
        return Argument(name, "string reference" if reference else "wide" if wide else "text")
    if type_name in records and reference:
        return Argument(name, "record")
    kind = kind_of({**COMMON, **NAMES}, type_name, name)
    return Argument(name, "reference" if reference else kind)


def attribute(words, name):
    """(export, convention, whether texts are wide) of what DllImport says."""
    first, *rest = parts(words)
    told = dict(re.split(r"\s*:?=\s*", word, maxsplit=1) for word in rest)
    if first not in ("Biblioteca", '"kestra"', '"Kestra.dll"'):
        raise Trouble(f"{name}: {first}")
    convention = told.get("CallingConvention", "CallingConvention.Winapi").partition(".")[2]
    return (told.get("EntryPoint", name).strip('"'), CONVENTIONS.get(convention, convention),
            told.get("CharSet", "").endswith("Unicode"))


def reader(form):
    def read(text):
        text, declares = without_comments(text, FORMS[form]["marks"]), []
        if not re.search(r'(?i)const\s+(?:string\s+)?Biblioteca\s+(?:As String\s+)?=\s*"kestra"', text):
            raise Trouble("Biblioteca does not name the library")
        records = {name.lower() for name in re.findall(FORMS[form]["record"], text)}
        for found in re.finditer(FORMS[form]["declare"], text):
            export, convention, wide = attribute(found["attribute"], found["name"])
            result = (found["result"] or "void").lower()
            declares.append(Declare(
                found["name"], export, convention,
                tuple(argument(words, form, records, wide) for words in parts(found["arguments"])),
                "none" if result == "void" else {**COMMON, **NAMES}.get(result, result)))
        if len(declares) != text.count("DllImport("):
            raise Trouble("a DllImport that is no declare")
        return declares

    return read
