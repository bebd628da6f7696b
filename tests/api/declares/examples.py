"""Examples in languages that do not run here: the calls in them, counted against the declares."""
import dataclasses
import pathlib
import re

from shapes import closing, parts, without_comments


@dataclasses.dataclass(frozen=True)
class Grammar:
    """How a language writes comments, texts, longer lines and routines of its own."""
    marks: tuple
    quotes: str = '"'
    brackets: tuple = ()
    longer: str = ""  # what goes on in the next line
    routine: str = ""  # a definition: name and parameters
    bare: bool = False  # a statement may call without brackets


BASIC_ROUTINE = r"^\s*(?:(?:Public|Private|Protected)\s+)?(?:Sub|Function)\s+(?P<name>\w+)\s*\((?P<parameters>[^\n]*?)\)(?=\s*(?:As \w+\s*)?$)"
GRAMMARS = {
    "vb": Grammar(("'",), longer=r"[ \t]_\n", routine=BASIC_ROUTINE, bare=True),
    "foxpro": Grammar((r"^\s*\*", "&&"), quotes="\"'", longer=r";[ \t]*\n",
                      routine=r"^\s*(?:PROCEDURE|FUNCTION)\s+(?P<name>\w+)\s*\((?P<parameters>[^\n]*?)\)\s*$"),
    "clarion": Grammar(("!",), quotes="'", longer=r"\|[ \t]*\n"),
    "powerbuilder": Grammar(("//",), quotes="\"'", longer=r"&[ \t]*\n", brackets=(("/*", "*/"),)),
    "xojo": Grammar(("//",), longer=r"[ \t]_\n"),
    "windev": Grammar(("//",)),
    "harbour": Grammar(("//",), quotes="\"'", longer=r";[ \t]*\n", brackets=(("/*", "*/"),)),
    "cpp": Grammar(("//",), quotes="\"", brackets=(("/*", "*/"),)),
    "vbnet": Grammar(("'",), longer=r"[ \t]_\n", routine=BASIC_ROUTINE),
}


def plain(text, grammar):
    """The code: texts are one letter, so that nothing in them counts; a line is a line."""
    text = without_comments(text, grammar.marks, grammar.quotes, grammar.brackets)
    strings = "|".join(f"{quote}(?:{quote}{quote}|[^{quote}\n])*{quote}" for quote in grammar.quotes)
    text = re.sub(strings, "T", text)
    return re.sub(grammar.longer, " ", text) if grammar.longer else text


def counts_of(declares):
    """{name: (fewest, most arguments)}"""
    return {one.name: (len(one.arguments), len(one.arguments)) for one in declares}


def routines(text, grammar):
    """The same of the routines that the text defines, and where the definitions stand."""
    counts, places = {}, []
    for found in re.finditer(grammar.routine, text, re.IGNORECASE | re.MULTILINE) if grammar.routine else ():
        words = parts(found["parameters"])
        optional = sum(word.lower().startswith("optional ") for word in words)
        counts[found["name"]] = (len(words) - optional, len(words))
        places.append(found.span())
    return counts, places


def given_words(text, end, grammar):
    """(arguments of the call whose name ends here, where it ends); None for the arguments where it is no call."""
    if opening := re.compile(r"[ \t]*\(").match(text, end):
        close = closing(text, opening.end() - 1)
        return parts(text[opening.end():close]), close + 1
    rest = text[end:].split("\n", 1)[0]
    if not grammar.bare or rest.strip().startswith(("=", ".")):
        return None, end
    return parts(rest), end + len(rest)


def calls(texts, language, declares):
    """(name, arguments, fewest, most) of every call of a declare or of a routine of the texts; most is -1 for a name
    of the library's sort that nobody has declared."""
    grammar = GRAMMARS[language]
    codes = [plain(text, grammar) for text in texts]
    counts = counts_of(declares)
    for code in codes:
        counts.update(routines(code, grammar)[0])
    names = "|".join([*(re.escape(name) for name in counts), r"EP_\w+", r"Kestra_\w+"])
    for code in codes:
        definitions = routines(code, grammar)[1]
        for found in re.finditer(rf"\b(?<![.])(?:{names})\b", code):
            if any(begin <= found.start() < end for begin, end in definitions):
                continue
            words, _ = given_words(code, found.end(), grammar)
            if words is not None:
                yield (found.group(), len(words), *counts.get(found.group(), (0, -1)))


def complaints(texts, language, declares):
    return [f"{name}: {count} arguments" if most >= 0 else f"{name}: nobody declares it"
            for name, count, fewest, most in calls(texts, language, declares) if not fewest <= count <= most]


# -- Where they are --

# The first ticket of each page: (folder, how the page names the language, whose declares, where it begins).
PAGES = [
    ("vb6", "vb", ("Visual Basic 6",), "Main"),
    ("vba", "vb", ("VBA before 7", "VBA of 32 bits", "VBA of 64 bits"), "PrimerTique"),
    ("foxpro", "foxpro", ("Visual FoxPro",), ""),
    ("clarion", "clarion", ("Clarion",), ""),
    ("powerbuilder", "powerbuilder", ("PowerBuilder",), ""),
    ("xojo", "xojo", ("Xojo",), ""),
    ("windev", "windev", ("WinDev",), ""),
    ("harbour", "harbour", ("Harbour",), ""),
    ("cppbuilder", "cpp", ("C++Builder",), ""),
    ("vbnet", "vbnet", ("Visual Basic .NET",), "Main"),
]

# The shops: (files, how they are written, whose declares, where they begin).
SHOPS = [
    (("vb6/tienda.bas", "vb6/KestraCapa.bas"), "vb", ("Visual Basic 6", "VBA before 7", "VBA of 32 bits", "VBA of 64 bits"),
     "Jornada"),
    (("foxpro/tienda.prg", "foxpro/kestra_capa.prg"), "foxpro", ("Visual FoxPro",), ""),
]


def blocks(text, language):
    """The code of a page: what stands between ```language and ```."""
    return re.findall(rf"^```{language}\n(.*?)^```$", text, re.DOTALL | re.MULTILINE)


def page(source, folder, language):
    return blocks(pathlib.Path(source, "hosts", folder, "README.md").read_text(encoding="utf-8"), language)


def shop(source, names):
    return [pathlib.Path(source, "hosts", name).read_bytes().decode("cp1252").replace("\r\n", "\n") for name in names]
