"""Delphi: without a convention it is Delphi's own, in registers. PChar has two bytes a letter, PAnsiChar one.

A var or out parameter is an address; so is a ^record, and a const record. A record by value would be copied whole. Integer has 4 bytes, Double 8, Single 4, Extended 10 in 12.
"""
import re

from shapes import Argument, Declare, Trouble, fitting, kind_of, parts, without_comments

BY_VALUE = {"integer": "int", "longint": "int", "cardinal": "int", "longword": "int", "smallint": "short", "word": "short",
            "byte": "byte", "boolean": "byte", "int64": "int64", "single": "float", "double": "double", "real": "double",
            "extended": "extended", "currency": "currency", "pansichar": "buffer", "pchar": "wide", "pwidechar": "wide",
            "pointer": "address"}
CONVENTIONS = ("stdcall", "cdecl", "pascal", "register", "safecall")
ROUTINE = re.compile(r"^(function|procedure)\s+(?P<name>\w+)\s*(?:\((?P<arguments>[^)]*)\))?\s*(?::\s*(?P<result>\w+))?\s*;"
                     r"(?P<directives>(?:\s*(?:\w+\s*;|external\b[^;]*;))+)", re.IGNORECASE | re.MULTILINE)


def compiled(text, symbols):
    """What the conditional directives leave."""
    kept, taking = [], []
    for piece in re.split(r"(\{\$[^}]*\})", text):
        word = piece.strip("{$}").strip().lower() if piece.startswith("{$") else None
        if word is None:
            kept.append(piece if all(taking) else "")
        elif word.startswith("ifdef "):
            taking.append(word.split()[1] in symbols)
        elif word == "else":
            taking[-1] = not taking[-1]
        elif word == "endif":
            taking.pop()
    return "".join(kept)


def arguments(group, records):
    found = fitting(r"(?:(?P<how>var|out|const)\s+)?(?P<names>\w+(?:\s*,\s*\w+)*)\s*:\s*(?P<type>\w+)", group, "argument")
    how, type_name = (found["how"] or "").lower(), found["type"].lower()
    reference = how in ("var", "out")
    for name in re.split(r"\s*,\s*", found["names"]):
        if type_name in records:
            if how in ("var", "out") if records[type_name] else not how:
                raise Trouble(f"{name}: a {'pointer by reference' if records[type_name] else 'record by value'}")
            yield Argument(name, "record")
        else:
            kind = kind_of(BY_VALUE, type_name, name)
            yield Argument(name, "reference" if reference else kind)


def known_records(text):
    """{name: whether it is a pointer} of records and of pointers to them."""
    records = {name.lower(): False for name in re.findall(r"(\w+)\s*=\s*(?:packed\s+)?record\b", text)}
    pointers = re.findall(r"(\w+)\s*=\s*\^(\w+)\s*;", text)
    return {**records, **{name.lower(): True for name, target in pointers if target.lower() in records}}


def read(text):
    text = without_comments(compiled(text, ()), ["//"], quotes="'", brackets=[("{", "}"), ("(*", "*)")])
    records, declares = known_records(text), []
    for found in ROUTINE.finditer(text):
        directives = [word.strip() for word in found["directives"].split(";")]
        external = [word for word in directives if word.lower().startswith("external")]
        if not external:
            continue
        place = fitting(r"external\s+(?P<library>\w+|'[^']+')(?:\s+name\s+'(?P<export>[^']+)')?", external[0], "place")
        if not place["library"].startswith("'") and not re.search(rf"\b{place['library']}\s*=\s*'Kestra.dll'\s*;", text):
            raise Trouble(f"{found['name']}: where is {place['library']}?")
        convention = [word.lower() for word in directives if word.lower() in CONVENTIONS]
        result = (found["result"] or "").lower()
        declares.append(Declare(
            found["name"], place["export"] or found["name"], convention[0] if convention else "register",
            tuple(one for group in parts(found["arguments"] or "", ";") for one in arguments(group, records)),
            BY_VALUE.get(result, result) or "none"))
    if len(declares) != len(re.findall(r"\bexternal\b", text, re.IGNORECASE)):
        raise Trouble("an external that is no routine's")
    return declares
