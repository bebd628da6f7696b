"""xHarbour: a function around DllCall( library, how, name, arguments... ).

A number is passed by what it is at that moment, a whole one in four bytes and another one in eight: what does not make it
one of them is a mistake. A library that is named there is let go behind the call, and forgets. What is written comes back
only with @.
"""
import re

from languages.harbour import code
from shapes import Argument, Declare, Trouble, closing, fitting, parts

HOW = {"16": "cdecl", "32": "stdcall"}
FUNCTION = re.compile(r"^FUNCTION (?P<name>\w+)\((?P<parameters>[^)]*)\)\s*(?P<returns>RETURN )?DllCall\(", re.MULTILINE)
HELPERS = {  # what makes a number that, and how it has to
    "Doble": ("double", r"(\w+) \+ 0\.0"),
    "Entero": ("int", r"Int\( (\w+) \)"),
    "Puntero": ("address", r"iif\( (\w+) == NIL, 0, \1 \)"),
}


def helpers(text):
    """{name: kind} of those that do what their name says."""
    known = {}
    for name, (kind, body) in HELPERS.items():
        found = re.search(rf"^STATIC FUNCTION {name}\( (\w+) \)\s*RETURN (.*)$", text, re.MULTILINE)
        if found and fitting(body, found[2], name)[1] == found[1]:
            known[name] = kind
    return known


def argument(words, known):
    made = re.fullmatch(r"(\w+)\( (\w+) \)", words)
    if made:
        if made[1] not in known:
            raise Trouble(f"what is {made[1]}?")
        return Argument(made[2], known[made[1]])
    name = fitting(r"@?(\w+)", words, "argument")[1]
    return Argument(name, "buffer" if words.startswith("@") else "text")


def read(text):
    text, declares = code(text), []
    defined = dict(re.findall(r"^#define (\w+) (\w+)\s*$", text, re.MULTILINE))
    known = helpers(text)
    for found in FUNCTION.finditer(text):
        library, how, export, *words = parts(text[found.end():closing(text, found.end() - 1)])
        fitting(r"Biblioteca\(\)", library, "library")
        arguments = tuple(argument(word.strip(), known) for word in words)
        names = [re.sub(r"\s", "", word).lstrip("@") for word in parts(found["parameters"])]
        if [each.name for each in arguments] != names:
            raise Trouble(f"{found['name']}: parameters and arguments differ")
        declares.append(Declare(found["name"], export.strip().strip('"'), HOW[defined.get(how.strip(), how.strip())], arguments,
                                "int" if found["returns"] else "none"))
    if len(declares) != len(re.findall(r"\bDllCall\b", text)):
        raise Trouble("a DllCall in no function of its own")
    return declares
