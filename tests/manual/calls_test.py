"""The calls that the manual writes in each language, read without anything of what writes them: against the table itself
they have the right name, every argument in its place with the example's value, room for what comes back, and a result
only where there is one. Those of the languages that run here are built and run too, by tests/hosts.
"""
import dataclasses
import pathlib
import re
import sys
import tomllib
import unittest

SOURCE = pathlib.Path(sys.argv.pop(1)).resolve()
sys.path[:0] = [str(SOURCE / "api"), str(SOURCE / "docs/manual"), str(SOURCE / "tests/api/declares")]

from generator import table  # noqa: E402
from maker import languages  # noqa: E402
from shapes import closing, parts  # noqa: E402


@dataclasses.dataclass(frozen=True)
class Reader:
    """How a language writes what stands in a call."""
    text: str  # its text, as a pattern with the words in (.*)
    nothing: str  # its null pointer
    buffer: str = r"(\w+)"  # how a buffer is handed over; its name
    room: str = r"\b{}\b.*?(\d+)(?=\D*$)"  # where it says how many bytes the buffer has
    last: bool = False  # it says the last byte's number instead
    variable: str = r"^$"  # a text in a variable


BYTES = r'[Tt]\("(.*)"\)'
DOUBLE, SINGLE = r'"(.*)"', r"'(.*)'"
READERS = {
    "C": Reader(DOUBLE, "NULL"), "C++Builder": Reader(DOUBLE, "NULL"), "Python": Reader('b"(.*)"', "None"),
    "Visual Basic 6": Reader(DOUBLE, "ByVal 0&", room=r"\b{} = Space\$\((\d+)\)"),
    "VBA": Reader(DOUBLE, "ByVal 0&", room=r"\b{} = Space\$\((\d+)\)"),
    "Delphi": Reader(SINGLE, "nil", room=r"\b{}: array\[0\.\.(\d+)\] of AnsiChar", last=True),
    "C#": Reader(BYTES, "IntPtr.Zero"), "VB.NET": Reader(BYTES, "IntPtr.Zero", room=r"\bDim {}\((\d+)\) As Byte", last=True),
    "FoxPro": Reader(DOUBLE, "0", r"@(\w+)"), "Java": Reader(BYTES, "null"), "Go": Reader(BYTES, "nil", r"&(\w+)\[0\]"),
    "Node.js": Reader(r"t\('(.*)'\)", "null"), "PHP": Reader(DOUBLE, "null", r"\$(\w+)"), "Ruby": Reader(SINGLE, "nil"),
    "Perl": Reader(SINGLE, "undef", r"\$(\w+)_en", r'\${} = "\\0" x (\d+);'), "Rust": Reader(r'"(.*)\\0"\.as_ptr\(\)', "std::ptr::null()", r"(\w+)\.as_mut_ptr\(\)",
                                                                  r"\b{} = \[0u8; (\d+)\]"),
    "LuaJIT": Reader(DOUBLE, "nil"), "Harbour": Reader(DOUBLE, "NIL", r"@(\w+)"),
    "Clarion": Reader(r"^$", "0", room=r"^{}  C?STRING\((\d+)\)$", variable=r"(\w+)"),
    "PowerBuilder": Reader(DOUBLE, "0", room=r"\b{} = Space\((\d+)\)"), "Xojo": Reader(BYTES, "Nil"),
    "WinDev": Reader(DOUBLE, "0"), "Gambas": Reader(DOUBLE, "Null", r"(\w+)\.Data"),
}


def rows():
    """{export: its row of the table}, of those that programs call."""
    with (SOURCE / "api/kestra.toml").open("rb") as file:
        whole = tomllib.load(file)["row"]
    found, hidden = {}, False
    for row in whole:
        hidden = "only_if" in row if "section" in row else hidden
        if "function" in row and not hidden:
            found[row["function"]] = row
    return found


ROWS = rows()


def room(reader, text, name):
    found = re.search(reader.room.replace("{}", name), text, re.MULTILINE)
    return int(found[1]) + reader.last if found else 0


def said_text(reader, word, before, size):
    """The words of a text, whether they stand in the call or in a variable of that size."""
    if found := re.fullmatch(reader.text, word):
        return found[1]
    if re.fullmatch(reader.variable, word) and room(reader, before, word) == size:
        assigned = re.search(rf"(?m)^  {word} = '(.*)'$", before)
        return assigned and assigned[1]
    return None


def wrong_argument(reader, argument, word, before, example):
    """What is wrong with one argument, or nothing."""
    kind, name = argument["kind"], argument["name"]
    if kind in ("text", "terminated"):
        said = said_text(reader, word, before, argument.get("bytes", len(example) + 1))
        return None if said == example else f"{name}: {word} is not the text {example!r}"
    if kind in ("result", "buffer"):
        buffer = re.fullmatch(reader.buffer, word)
        wanted = argument.get("bytes", 400) + 1
        return None if buffer and room(reader, before, buffer[1]) == wanted else f"{name}: {word} has no room for {wanted}"
    if kind == "length":
        return None if word == "400" else f"{name}: {word} is no length"
    if kind in ("amount", "integer"):
        return None if re.fullmatch(r"-?\d+(\.\d+)?", word) and float(word) == example else f"{name}: {word} is not {example}"
    return None if word == reader.nothing else f"{name}: {word} is nothing that stands for nothing"


def complaints(reader, name, text):
    row = ROWS[name]
    found = re.search(rf"\b{name}\b(?:'\]\.call|\}}->)?[ ]?\(", text)
    if not found or len(re.findall(r"\b(?:EP|Kestra)_\w+", text)) != 1:
        return [f"no one call of {name}"]
    opening = found.end() - 1
    words, before = parts(text[opening + 1:closing(text, opening)].strip()), text[:found.start()]
    arguments = row.get("arguments", [])
    if len(words) != len(arguments):
        return [f"{len(words)} arguments, not {len(arguments)}"]
    last = before.rpartition("\n")[2]
    said = ["takes a result that there is not"] if row.get("returns") == "nothing" and re.search(r"= *$|\? *$|= \w+\.$", last) else []
    examples = iter(row.get("example", []))
    for argument, word in zip(arguments, words):
        example = next(examples) if argument["kind"] in ("text", "terminated", "amount", "integer", "length") else None
        said.append(wrong_argument(reader, argument, word, before, example))
    return [one for one in said if one]


def call(language, name):
    functions = {row.name: row for row in table.read(SOURCE).functions}
    return languages.call(language, functions[name])


SPOILED = [  # export, words of its call in Visual Basic 6, what stands there instead, what is said
    ("EP_CerrarComprobanteFiscal", '"FC", ', "", "2 arguments, not 3"),
    ("EP_CerrarComprobanteFiscal", '"FC", "A"', '"A", "FC"', "tipo: \"A\" is not the text 'FC'"),
    ("EP_CerrarComprobanteFiscal", "Space$(9)", "Space$(7)", "numero: numero has no room for 9"),
    ("EP_CerrarComprobanteFiscal", "Fiscal(", "Fiscales(", "no one call of EP_CerrarComprobanteFiscal"),
    ("EP_ImprimirItem", "10, 320", "320, 10", "cantidad: 320 is not 10"),
    ("EP_ImprimirItem", "10, 320", '"10", 320', "cantidad: \"10\" is not 10"),
    ("Kestra_DefinirOperador", "Call Kestra", "r = Kestra", "takes a result that there is not"),
    ("Kestra_CausaTexto", "400", "texto", "longitud: texto is no length"),
]


class TheManualsCalls(unittest.TestCase):
    def test_are_those_of_the_table_in_each_language(self):
        functions = table.read(SOURCE).hosts_functions
        self.assertEqual({row.name for row in functions}, set(ROWS))
        self.assertEqual({language.name for language in languages.LANGUAGES}, set(READERS))
        for language in languages.LANGUAGES:
            for function in functions:
                text = languages.call(language, function)
                with self.subTest(language=language.name, text=text):
                    self.assertEqual(complaints(READERS[language.name], function.name, text), [])

    def test_of_clarion_have_variables_of_its_prototypes_types(self):
        text = (SOURCE / "hosts/clarion/kestra.clw").read_text(encoding="cp1252").replace(" |\n        ", "")
        clarion = next(language for language in languages.LANGUAGES if language.name == "Clarion")
        for name in ROWS:
            declared = dict((word, kind) for kind, word in re.findall(r"\*(\w+) (\w+)", re.search(rf"(?m)^    {name}\((.*?)\)", text)[1]))
            used = dict(re.findall(r"(?m)^(\w+)  (C?STRING)\(", call(clarion, name)))
            with self.subTest(name):
                self.assertEqual(used, declared)

    def test_that_are_spoiled_are_noticed(self):
        basic = next(language for language in languages.LANGUAGES if language.name == "Visual Basic 6")
        for name, words, instead, said in SPOILED:
            text = call(basic, name)
            with self.subTest(name, words=words, instead=instead):
                self.assertIn(words, text)
                self.assertEqual(complaints(READERS[basic.name], name, text.replace(words, instead))[0], said)


if __name__ == "__main__":
    unittest.main()
