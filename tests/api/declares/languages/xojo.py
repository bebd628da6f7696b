"""Xojo: a Declare hands over by value unless it says ByRef; a MemoryBlock goes where it says Ptr.

On 32-bit Windows every Declare is of the system's convention. Integer is as wide as a pointer, Int32 has 4 bytes.
"""
import re

from shapes import Argument, Declare, Trouble, fitting, kind_of, parts, without_comments

BY_VALUE = {"int32": "int", "uint32": "int", "integer": "address", "uinteger": "address", "int16": "short", "boolean": "byte",
            "int64": "int64", "double": "double", "single": "float", "ptr": "buffer", "cstring": "text", "wstring": "wide"}
DECLARE = (r"(?:(?:Public|Private|Protected|Global)\s+)?(?:Soft\s+)?Declare\s+(?P<what>Function|Sub)\s+(?P<name>\w+)\s+"
           r"Lib\s+(?P<library>\w+|\"[^\"]+\")(?:\s+Alias\s+\"(?P<alias>[^\"]+)\")?\s*\((?P<arguments>.*?)\)"
           r"(?:\s+As\s+(?P<result>\w+))?")


def statements(text):
    return re.sub(r"[ \t]_[ \t]*\n", " ", without_comments(text, ["//", "'"])).splitlines()


def argument(words):
    found = fitting(r"(?:(?P<how>ByVal|ByRef)\s+)?(?P<name>\w+)\s+As\s+(?P<type>\w+)", words, "argument")
    kind = kind_of(BY_VALUE, found["type"].lower(), found["name"])
    return Argument(found["name"], "reference" if (found["how"] or "").lower() == "byref" else kind)


def expect_library(text, library):
    """The library is a text, or a constant of the module with a text of its own for Windows."""
    if library.startswith('"'):
        return
    constant = re.search(rf"#tag Constant, Name = {library}, Type = String\b.*?#tag EndConstant", text, re.DOTALL)
    if not constant or "Kestra.dll" not in constant.group():
        raise Trouble(f"no constant {library} that names Kestra.dll")


def read(text):
    declares = []
    for line in statements(text):
        if not re.match(r"\s*(?:\w+\s+){0,2}Declare\b", line, re.IGNORECASE):
            continue
        found = fitting(DECLARE, line, "declare")
        expect_library(text, found["library"])
        result = "none" if found["what"].lower() == "sub" else (found["result"] or "").lower()
        declares.append(Declare(found["name"], found["alias"] or found["name"], "stdcall",
                                tuple(argument(words) for words in parts(found["arguments"])),
                                BY_VALUE.get(result, result)))
    return declares
