"""Visual FoxPro: DECLARE [type] NAME IN LIBRARY [AS ALIAS] [type [@]name, ...]. The name is the library's.

A STRING is the address of its bytes with a zero behind them; what the library writes there comes back only with @.
"""
import re

from shapes import Argument, Declare, fitting, kind_of, parts, without_comments

BY_VALUE = {"integer": "int", "long": "int", "single": "float", "double": "double", "string": "text"}
BY_REFERENCE = {"integer": "reference", "long": "reference", "single": "reference", "double": "reference",
                "string": "buffer"}
RESULTS = {"integer": "int", "long": "int", "": "none"}
TYPES = "SHORT|INTEGER|LONG|SINGLE|DOUBLE|STRING|OBJECT"
DECLARE = (rf"DECL\w*\s+(?:(?P<type>{TYPES})\s+)?(?P<name>\w+)\s+IN\s+(?P<library>\S+)"
           rf"(?:\s+AS\s+(?P<alias>\w+))?(?:\s+(?P<arguments>(?:{TYPES})\s.*))?")


def statements(text):
    return re.sub(r";[ \t]*\n", " ", without_comments(text, [r"^\s*\*", "&&"])).splitlines()


def argument(words):
    found = fitting(r"(?P<type>\w+)\s+(?P<reference>@\s*)?(?P<name>\w+)", words, "argument")
    types = BY_REFERENCE if found["reference"] else BY_VALUE
    return Argument(found["name"], kind_of(types, found["type"].lower(), found["name"]))


def read(text):
    declares = []
    for line in statements(text):
        if not re.match(r"\s*DECL", line, re.IGNORECASE):
            continue
        found = fitting(DECLARE, line, "declare")
        result = (found["type"] or "").lower()
        declares.append(Declare(found["alias"] or found["name"], found["name"], "stdcall",
                                tuple(argument(words) for words in parts(found["arguments"] or "")),
                                RESULTS.get(result, result)))
    return declares
