"""PowerBuilder: external functions, all of the system's convention.

long has 4 bytes, int 2, real 4. A string has two bytes a letter unless the alias ends with ;Ansi; what the library
writes comes back only with REF.
"""
import re

from shapes import Argument, Declare, fitting, kind_of, parts, without_comments

BY_VALUE = {"long": "int", "ulong": "int", "unsignedlong": "int", "int": "short", "integer": "short", "uint": "short",
            "boolean": "short", "byte": "byte", "double": "double", "real": "float", "longptr": "address",
            "longlong": "int64"}
FUNCTION = (r"(?:(?:public|private|protected)\s+)?(?:FUNCTION\s+(?P<result>\w+)|SUBROUTINE)\s+(?P<name>\w+)\s*"
            r"\((?P<arguments>.*?)\)\s*LIBRARY\s+\"(?P<library>[^\"]+)\"(?:\s+ALIAS\s+FOR\s+\"(?P<alias>[^\"]+)\")?;?")


def statements(text):
    return re.sub(r"&[ \t]*\n", " ", without_comments(text, ["//"], brackets=[("/*", "*/")])).splitlines()


def argument(words, ansi):
    found = fitting(r"(?P<how>REF\s+|READONLY\s+)?(?P<type>\w+)\s+(?P<name>\w+)", words, "argument")
    reference, type_name = (found["how"] or "").strip().lower() == "ref", found["type"].lower()
    if type_name == "string":
        return Argument(found["name"], "wide" if not ansi else "buffer" if reference else "text")
    kind = kind_of(BY_VALUE, type_name, found["name"])
    return Argument(found["name"], "reference" if reference else kind)


def read(text):
    declares = []
    for line in statements(text):
        if not line.strip():
            continue
        found = fitting(FUNCTION, line, "external function")
        export, _, mode = (found["alias"] or found["name"]).partition(";")
        result = (found["result"] or "").lower()
        declares.append(Declare(
            found["name"], export, "stdcall",
            tuple(argument(words, mode.lower() == "ansi") for words in parts(found["arguments"])),
            BY_VALUE.get(result, result) or "none"))
    return declares
