"""What a declare tells the machine to do, whatever language it is written in."""
import dataclasses
import re


class Trouble(Exception):
    """A declare that its own language would not take, or that nobody can make a call of."""


@dataclasses.dataclass(frozen=True)
class Argument:
    name: str
    kind: str


@dataclasses.dataclass(frozen=True)
class Declare:
    name: str  # what the program calls
    export: str  # what is looked up in the library
    convention: str  # "stdcall", "cdecl", or a language's own
    arguments: tuple
    result: str  # "int", "none", or what else comes back


# What each kind takes on the stack of a 32-bit program, by which it is called: a pointer's width is the program's.
POINTER = 0
KINDS = {
    "int": 4,
    "short": 4,  # two bytes of rubbish above it
    "byte": 4,
    "float": 4,
    "double": 8,
    "int64": 8,
    "currency": 8,
    "date": 8,
    "extended": 12,
    "variant": 16,
    "text": POINTER,  # bytes that are read
    "buffer": POINTER,  # bytes that are read and written, and come back to the program
    "record": POINTER,
    "address": POINTER,  # a pointer that the program makes itself
    "wide": POINTER,  # two bytes a letter
    "string reference": POINTER,  # to the language's own string, not to its bytes
    "reference": POINTER,  # to a number
}


def width(kind, pointer):
    return KINDS[kind] or pointer


def stack(arguments, pointer=4):
    return sum(width(argument.kind, pointer) for argument in arguments)


# -- Cutting texts, as every one of the languages wants it --

def parts(text, separator=","):
    """The text cut at the separators that stand outside of brackets and quotes; none of an empty text."""
    found, depth, quote, piece = [], 0, "", ""
    for letter in text:
        if quote:
            quote = "" if letter == quote else quote
        elif letter in "\"'":
            quote = letter
        elif letter in "([{":
            depth += 1
        elif letter in ")]}":
            depth -= 1
        if letter == separator and depth == 0 and not quote:
            found.append(piece.strip())
            piece = ""
        else:
            piece += letter
    found.append(piece.strip())
    return [] if found == [""] else found


def closing(text, opening):
    """Where the bracket that opens at this place closes."""
    depth, quote = 0, ""
    for place in range(opening, len(text)):
        letter = text[place]
        if quote:
            quote = "" if letter == quote else quote
        elif letter in "\"'":
            quote = letter
        elif letter in "([{":
            depth += 1
        elif letter in ")]}":
            depth -= 1
            if depth == 0:
                return place
    raise Trouble(f"no end: {text[opening:opening + 60]}")


def without_comments(text, marks, quotes='"', brackets=()):
    """Comments become a blank: from a mark to the end of its line, and between pairs of brackets."""
    between = [re.escape(begin) + ".*?" + re.escape(end) for begin, end in brackets]
    to_the_end = [mark + r"[^\n]*" for mark in marks]
    strings = [f"{quote}(?:{quote}{quote}|[^{quote}\n])*{quote}" for quote in quotes]
    pattern = "|".join([f"(?P<string>{'|'.join(strings)})"] + between + to_the_end)
    return re.sub(pattern, lambda found: found.group("string") or " ", text, flags=re.DOTALL | re.MULTILINE)


def fitting(pattern, text, what):
    """The match of a whole statement."""
    found = re.fullmatch(pattern, text.strip(), re.IGNORECASE | re.DOTALL)
    if not found:
        raise Trouble(f"{what}: {text.strip()}")
    return found


def kind_of(table, type_name, what):
    kind = table.get(type_name)
    if kind is None:
        raise Trouble(f"{what}: {type_name} is no type that a call can carry")
    return kind
