"""WinDev: a procedure that hands its parameters to API(), the system's convention.

A parameter is the caller's own variable unless it says LOCAL. &name is the address of a string's bytes or of a number;
an int has 4 bytes, a real 8.
"""
import re

from shapes import Argument, Declare, Trouble, fitting, kind_of, parts, without_comments

BY_VALUE = {"int": "int", "4-byte int": "int", "2-byte int": "short", "8-byte int": "int64", "boolean": "byte",
            "real": "double", "8-byte real": "double", "4-byte real": "float", "system int": "address"}
STRINGS = {"ansi string": True, "unicode string": False}
CALLS = {"API": "stdcall", "APIC": "cdecl"}
PROCEDURE = r"PROCEDURE\s+(?P<name>\w+)\s*\((?P<parameters>.*?)\)\s*(?::\s*(?P<result>\w+))?"
BODY = r"(?P<returns>RESULT\s+)?(?P<how>\w+)\s*\((?P<arguments>.*)\)"


def parameters(words):
    """{name: (type, whether it is the procedure's own)}"""
    known = {}
    for word in parts(words):
        found = fitting(r"(?P<own>LOCAL\s+)?(?P<name>\w+)\s+(?:is|are)\s+(?:an?\s+)?(?P<type>.+)", word, "parameter")
        known[found["name"]] = (found["type"].strip().lower(), bool(found["own"]))
    return known


def argument(word, known):
    name = word.lstrip("& ")
    if name not in known:
        raise Trouble(f"{name} is no parameter")
    type_name, own = known[name]
    if type_name in STRINGS:
        if not word.startswith("&"):
            return Argument(name, "string reference")
        return Argument(name, "wide" if not STRINGS[type_name] else "text" if own else "buffer")
    kind = kind_of(BY_VALUE, type_name, name)
    return Argument(name, "reference" if word.startswith("&") else kind)


def read(text):
    lines = [line.strip() for line in without_comments(text, ["//"]).splitlines() if line.strip()]
    declares = []
    for head, body in zip(lines[::2], lines[1::2], strict=True):
        procedure, call = fitting(PROCEDURE, head, "procedure"), fitting(BODY, body, "its call")
        known = parameters(procedure["parameters"])
        library, export, *words = parts(call["arguments"])
        if library != '"Kestra.dll"' or call["how"] not in CALLS:
            raise Trouble(body)
        result = (procedure["result"] or "").lower() if call["returns"] else ""
        declares.append(Declare(procedure["name"], export.strip('"'), CALLS[call["how"]],
                                tuple(argument(word, known) for word in words),
                                BY_VALUE.get(result, result) or "none"))
        if [one.name for one in declares[-1].arguments] != list(known):
            raise Trouble(f"{procedure['name']}: the call does not have its parameters in their order")
    return declares
