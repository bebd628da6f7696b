"""Harbour: a function around hb_dynCall( { name, library, convention and result, kinds... }, arguments... ).

Without a convention it is the C compiler's own; an argument without a kind goes by what the value happens to be. What
the library writes comes back only with @.
"""
import re

from shapes import Argument, Declare, Trouble, closing, fitting, kind_of, parts, without_comments

CONVENTIONS = {"HB_DYN_CALLCONV_STDCALL": "stdcall", "HB_DYN_CALLCONV_CDECL": "cdecl"}
CTYPES = {"HB_DYN_CTYPE_INT": "int", "HB_DYN_CTYPE_LONG": "int", "HB_DYN_CTYPE_SHORT": "short", "HB_DYN_CTYPE_DOUBLE": "double",
          "HB_DYN_CTYPE_FLOAT": "float", "HB_DYN_CTYPE_LLONG": "int64", "HB_DYN_CTYPE_CHAR_PTR": "text",
          "HB_DYN_CTYPE_VOID_PTR": "address", "HB_DYN_CTYPE_VOID": "none"}
FUNCTION = re.compile(r"^FUNCTION (?P<name>\w+)\((?P<parameters>[^)]*)\)\s*RETURN hb_dynCall\(", re.MULTILINE)


def code(text):
    text = without_comments(text, ["//", "&&", r"^\s*\*"], quotes="\"'", brackets=[("/*", "*/")])
    return re.sub(r";[ \t]*\n", " ", text)


def flags(words):
    combined = re.fullmatch(r"hb_bitOr\((.*)\)", words)
    return parts(combined.group(1)) if combined else [words]


def argument(word, ctype):
    reference, name = word.startswith("@"), word.lstrip("@ ")
    kind = kind_of(CTYPES, ctype, name)
    if reference:
        kind = "buffer" if kind == "text" else "reference"
    return Argument(name, kind)


def read(text):
    text, declares = code(text), []
    for found in FUNCTION.finditer(text):
        call = text[found.end():closing(text, found.end() - 1)]
        head, *words = parts(call)
        export, library, how, *ctypes = parts(head.strip("{} "))
        known = [re.sub(r"\s", "", word) for word in parts(found["parameters"])]
        if [word.lstrip("@ ") for word in words] != known or len(ctypes) != len(words):
            raise Trouble(f"{found['name']}: parameters, kinds and arguments differ")
        fitting(r"Biblioteca\(\)", library, "library")
        told = flags(how)
        convention = [CONVENTIONS[word] for word in told if word in CONVENTIONS]
        results = [CTYPES[word] for word in told if word in CTYPES]
        declares.append(Declare(found["name"], export.strip('"'), convention[0] if convention else "cdecl",
                                tuple(argument(word, ctype) for word, ctype in zip(words, ctypes)),
                                results[0] if results else "default"))
    if len(declares) != len(re.findall(r"\bhb_dynCall\b", text)):
        raise Trouble("an hb_dynCall in no function of its own")
    return declares
