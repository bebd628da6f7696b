"""Visual Basic 6 and VBA: a Declare is by reference unless it says ByVal, and a Variant unless it says a type.

A String by value is the address of an ANSI copy, which is copied back after the call. Long has 4 bytes, Integer 2.
The editor gives names that differ in case alone the case of one of them; an alias it leaves as it is.
"""
import re

from shapes import Argument, Declare, Trouble, fitting, kind_of, parts, without_comments

BY_VALUE = {"long": "int", "integer": "short", "boolean": "short", "byte": "byte", "single": "float", "double": "double",
            "currency": "currency", "date": "date", "string": "buffer", "variant": "variant"}
NEW_TYPES = {"longptr": "address", "longlong": "int64"}
DECLARE = (r"(?:(?:Public|Private)\s+)?Declare\s+(?P<safe>PtrSafe\s+)?(?P<what>Function|Sub)\s+(?P<name>\w+)"
           r"\s+(?P<cdecl>CDecl\s+)?Lib\s+\"(?P<library>[^\"]+)\"(?:\s+Alias\s+\"(?P<alias>[^\"]+)\")?"
           r"\s*(?:\((?P<arguments>.*?)\))?(?:\s+As\s+(?P<result>\w+))?")
ARGUMENT = r"(?:(?P<how>ByVal|ByRef)\s+)?(?P<name>\w+)(?:\s+As\s+(?P<type>\w+))?"


def statements(text):
    return re.sub(r"[ \t]_\n", " ", without_comments(text, ["'", r"^\s*Rem\b"])).splitlines()


def compiled(lines, constants):
    """The lines that conditional compilation leaves."""
    kept, taking = [], []
    for line in lines:
        word = line.strip().lower()
        if condition := re.fullmatch(r"#if (\w+) then", word):
            taking.append(condition.group(1) in constants)
        elif word == "#else":
            taking[-1] = not taking[-1]
        elif word == "#end if":
            taking.pop()
        elif word.startswith("#"):
            raise Trouble(line)
        elif all(taking):
            kept.append(line)
    return kept


def records(lines):
    return {found.group(1).lower() for line in lines if (found := re.match(r"\s*(?:Public |Private )?Type (\w+)", line))}


def argument(words, types, known):
    found = fitting(ARGUMENT, words, "argument")
    name, type_name = found["name"], (found["type"] or "Variant").lower()
    if (found["how"] or "ByRef").lower() == "byval":
        return Argument(name, kind_of(types, type_name, name))
    if type_name == "any" or type_name in known:
        return Argument(name, "record")
    if type_name == "string":
        return Argument(name, "string reference")
    kind_of(types, type_name, name)
    return Argument(name, "reference")


def reader(constants=(), safe=False):
    types = {**BY_VALUE, **(NEW_TYPES if safe else {})}

    def read(text):
        lines = compiled(statements(text), constants)
        known, declares = records(lines), []
        for line in lines:
            if not re.match(r"\s*(?:\w+\s+)?Declare\b", line, re.IGNORECASE):
                continue
            found = fitting(DECLARE, line, "declare")
            if bool(found["safe"]) != safe:
                raise Trouble(f"{found['name']}: PtrSafe {'is missing' if safe else 'is not known here'}")
            if not found["alias"]:
                raise Trouble(f"{found['name']}: no alias: its export's name is what the editor makes of it")
            result = "none" if found["what"].lower() == "sub" else (found["result"] or "Variant").lower()
            declares.append(Declare(
                found["name"], found["alias"], "cdecl" if found["cdecl"] else "stdcall",
                tuple(argument(words, types, known) for words in parts(found["arguments"] or "")),
                types.get(result, result)))
        return declares

    return read
