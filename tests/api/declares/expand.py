"""Examples as the calls that they make: a text is walked from top to bottom, its routines are gone into, and no branch
is taken or left. What a failure alone would do is told apart by the routine's name.
"""
import dataclasses
import re

from examples import GRAMMARS, given_words
from shapes import without_comments
from story import Buffer

ROOM = 400  # for what an example keeps in a variable of its own
ON_FAILURE = ("Fallar", "FiscalFallar")
AS_IT_STANDS = "Texto"  # what the pages call the routine that makes bytes of a text
FIRST_ROUTINE = r"(?m)^\s*(?:PROCEDURE|FUNCTION)\s+\w+\("
ENDS = r"^\s*(?:End (?:Sub|Function)|ENDPROC|ENDFUNC)\b"
CONSTANTS = (r"^\s*(?:Public |Private )?Const (\w+) As \w+ = (\w+)", r"^#DEFINE (\w+) (\w+)",
             r"^(\w+)\s+STRING\((\w+)\)", r"^\s*(\w+) = (STRING_\d+_)\s*$")
SIZES = r"^(\w+)\s+STRING\((\d+)\)"  # Clarion's, which are always full


@dataclasses.dataclass
class Program:
    code: str  # without comments; its texts are STRING_0_, STRING_1_ ...
    strings: list
    routines: dict  # {name: (parameters, body)}
    values: dict  # {name in small letters: word}
    sizes: dict  # {name in small letters: bytes that it has}
    declares: dict
    language: str


def program(texts, language, declares):
    grammar, strings = GRAMMARS[language], []

    def put_away(found):
        strings.append(found.group()[1:-1])
        return f"STRING_{len(strings) - 1}_"

    code = without_comments("\n".join(texts), grammar.marks, grammar.quotes, grammar.brackets)
    code = re.sub("|".join(f"{quote}[^{quote}\n]*{quote}" for quote in grammar.quotes), put_away, code)
    code = re.sub(grammar.longer, " ", code) if grammar.longer else code
    values = {name.lower(): word for pattern in CONSTANTS for name, word in re.findall(pattern, code, re.MULTILINE)}
    sizes = {name.lower(): int(size) for name, size in re.findall(SIZES, code, re.MULTILINE)}
    return Program(code, strings, routines(code, grammar), values, sizes, {one.name: one for one in declares}, language)


def routines(code, grammar):
    found = re.finditer(grammar.routine, code, re.IGNORECASE | re.MULTILINE) if grammar.routine else ()
    return {one["name"]: (re.findall(r"(\w+)(?: As \w+[^,]*)?(?:,|$)", one["parameters"]),
                          re.split(ENDS, code[one.end():], maxsplit=1, flags=re.MULTILINE)[0]) for one in found}


def begin(whole, entry):
    """Where the program begins: in that routine, or with what stands before every routine."""
    if entry:
        return whole.routines[entry][1]
    return re.split(FIRST_ROUTINE, whole.code)[0] if whole.routines else whole.code


def calls(whole, code, values):
    """(declare, words of its arguments) of each call, in the order of the text."""
    names = "|".join(sorted([*whole.declares, *whole.routines], key=len, reverse=True))
    place = 0
    while found := re.compile(rf"(?<![.\w])(?:{names})\b").search(code, place):
        name, place = found.group(), found.end()
        words, after = given_words(code, place, GRAMMARS[whole.language])
        if words is None or name in ON_FAILURE or name == AS_IT_STANDS:
            continue
        place = after
        for word in words:
            yield from calls(whole, word, values)
        known = [values.get(word.strip("@ ").lower(), word) for word in words]
        if name in whole.declares:
            yield whole.declares[name], known
        else:
            parameters, body = whole.routines[name]
            padded = known + ["EMPTY"] * (len(parameters) - len(known))
            yield from calls(whole, body, {**values, **dict(zip(map(str.lower, parameters), padded))})


def value(whole, word, kind):
    """What the word stands for, as story.argument takes it."""
    word = word.strip("@ ")
    size, word = whole.sizes.get(word.lower(), 0), whole.values.get(word.lower(), word)
    if inner := re.fullmatch(rf"{AS_IT_STANDS}\((.*)\)", word):
        word = inner.group(1)
    if found := re.fullmatch(r"STRING_(\d+)_", word):
        words = whole.strings[int(found.group(1))].encode("cp1252")
        return words.ljust(size) if whole.language == "clarion" else words + b"\0"
    if re.fullmatch(r"-?\d+(?:\.\d+)?#?", word):
        number = float(word.rstrip("#"))
        return b" " * int(number) if kind in ("text", "buffer") else number
    if word in ("Nothing", "nada", "EMPTY"):
        return 0 if word == "Nothing" else b"\0"
    return Buffer(ROOM) if kind in ("text", "buffer") else ROOM


def values_of(whole, declare, words):
    return [value(whole, word, one.kind) for word, one in zip(words, declare.arguments, strict=True)]


def made(texts, language, declares, entry=""):
    """(declare, values) of each call that the program makes."""
    whole = program(texts, language, declares)
    return [(declare, values_of(whole, declare, words)) for declare, words in calls(whole, begin(whole, entry), {})]
