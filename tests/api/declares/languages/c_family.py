"""C and C++: prototypes. Without __stdcall it is the C compiler's own convention, outside of extern "C" a mangled name."""
import re

from shapes import Argument, Declare, fitting, kind_of, parts, without_comments

BY_VALUE = {"int": "int", "int32_t": "int", "unsigned int": "int", "unsigned": "int", "uint32_t": "int", "long": "int",
            "short": "short", "char": "byte", "float": "float", "double": "double", "long long": "int64",
            "long double": "extended"}
CONVENTIONS = {"__stdcall": "stdcall", "KESTRA_CALL": "stdcall", "__cdecl": "cdecl", "__fastcall": "fastcall", None: "cdecl"}
PROTOTYPE = re.compile(r"^(?:KESTRA_API\s+)?(?P<result>(?:unsigned |long |short )?\w+)\s+(?:(?P<convention>__\w+|KESTRA_CALL)\s+)?"
                       r"(?P<name>\w+)\s*\((?P<arguments>[^()]*)\)\s*;", re.MULTILINE)


def argument(words):
    found = fitting(r"(?P<const>const\s+)?(?P<type>(?:struct |unsigned |long |short )?\w+)\s*(?P<star>\**)\s*(?P<name>\w+)",
                    words, "argument")
    name, type_name = found["name"], found["type"]
    if not found["star"]:
        return Argument(name, kind_of(BY_VALUE, type_name, name))
    if found["star"] != "*" or type_name == "void":
        return Argument(name, "address")
    if type_name == "char":
        return Argument(name, "text" if found["const"] else "buffer")
    if type_name == "wchar_t":
        return Argument(name, "wide")
    return Argument(name, "reference" if type_name in BY_VALUE else "record")


def read(text):
    text = without_comments(text, ["//"], brackets=[("/*", "*/")])
    begin = re.search(r'extern "C"\s*\{', text)
    declares = []
    for found in PROTOTYPE.finditer(text):
        words = [] if found["arguments"].strip() in ("", "void") else parts(found["arguments"])
        plain = begin is not None and found.start() > begin.end()
        result = found["result"]
        declares.append(Declare(
            found["name"], found["name"] if plain else f"?{found['name']}", CONVENTIONS[found["convention"]],
            tuple(argument(word) for word in words),
            "none" if result == "void" else BY_VALUE.get(result, result)))
    return declares
