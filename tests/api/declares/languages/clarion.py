"""Clarion: prototypes in MODULE ... END of a MAP, with their attributes behind them.

PASCAL is the system's convention, C the other one; without either it is Clarion's own. RAW hands over the address of
a STRING alone; without it the length goes before. Without NAME the linker gets the name in capitals. REAL has 8 bytes,
SREAL 4, LONG 4, SHORT 2.
"""
import re

from shapes import Argument, Declare, Trouble, fitting, kind_of, parts, without_comments

BY_VALUE = {"LONG": "int", "ULONG": "int", "SIGNED": "int", "UNSIGNED": "int", "SHORT": "short", "USHORT": "short",
            "BYTE": "byte", "REAL": "double", "SREAL": "float"}
WITH_LENGTH = ("STRING", "CSTRING", "PSTRING")
CONVENTIONS = {"PASCAL": "stdcall", "C": "cdecl"}
PROTOTYPE = r"(?P<name>\w+)\s*(?:PROCEDURE|FUNCTION)?\s*(?P<list>\((?P<arguments>.*?)\))?(?P<attributes>(?:,.*)?)"


def prototypes(text):
    text = re.sub(r"\|[ \t]*\n", " ", without_comments(text, ["!"], quotes="'"))
    modules = re.findall(r"^\s*MODULE\s*\([^)]*\)\s*\n(.*?)^\s*END\b", text, re.IGNORECASE | re.DOTALL | re.MULTILINE)
    return [line for module in modules for line in module.splitlines() if line.strip()]


def arguments(words, raw):
    found = fitting(r"(?:CONST\s+)?(?P<star>\*\s*)?(?P<type>\w+)(?:\s+(?P<name>\w+))?", words.strip("<> "), "argument")
    name, type_name = found["name"] or "", found["type"].upper()
    if not found["star"]:
        return [Argument(name, kind_of(BY_VALUE, type_name, name))]
    if type_name in WITH_LENGTH:
        return ([] if raw else [Argument(f"length of {name}", "int")]) + [Argument(name, "buffer")]
    return [Argument(name, "reference" if type_name in BY_VALUE else "record")]


def exported(name, attributes):
    for attribute in attributes:
        if found := re.fullmatch(r"NAME\s*\(\s*'([^']+)'\s*\)", attribute, re.IGNORECASE):
            return found.group(1)
    return name.upper()


def read(text):
    declares = []
    for line in prototypes(text):
        found = fitting(PROTOTYPE, line, "prototype")
        attributes = parts(found["attributes"])[1:]
        words = [attribute.upper() for attribute in attributes]
        results = [BY_VALUE.get(word, word.lower()) for word in words if word in BY_VALUE or word in WITH_LENGTH]
        if len(results) > 1:
            raise Trouble(f"{found['name']}: two results")
        convention = [CONVENTIONS[word] for word in words if word in CONVENTIONS]
        declares.append(Declare(
            found["name"], exported(found["name"], attributes), convention[0] if convention else "clarion",
            tuple(one for word in parts(found["arguments"] or "") for one in arguments(word, "RAW" in words)),
            results[0] if results else "none"))
    return declares
