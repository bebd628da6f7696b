"""The named constants and enumerators of the sources, and who uses a constant."""
from dataclasses import dataclass

from tokens import end_of_statement, matching, tokens_of



@dataclass(frozen=True)
class Constant:
    name: str
    family: str  # constants that could stand for each other have the same
    position: int  # of its name where it is declared
    start: int
    end: int


def constants_of(code):
    tokens, found = tokens_of(code), []
    for k, token in enumerate(tokens):
        if token.text != "constexpr":
            continue
        i = k + 1
        while i < len(tokens) and tokens[i].text not in ("=", "{", "(", ";"):
            i += 1
        end = end_of_statement(tokens, i) if i < len(tokens) and tokens[i].text in "={" else None
        name = tokens[i - 1] if i else None
        if end is not None and name.kind == "word":
            family = code[token.end:name.start].strip()
            found.append(Constant(name.text, family, name.start, token.start, tokens[end].end))
    return found


def enumerations_of(code):
    """{name of the enumeration: its enumerators}"""
    tokens, found = tokens_of(code), {}
    for k, token in enumerate(tokens):
        if token.text != "enum":
            continue
        name = tokens[k + 2 if tokens[k + 1].text in ("class", "struct") else k + 1].text
        while tokens[k].text not in ("{", ";"):
            k += 1
        if tokens[k].text == "{":
            inside = tokens[k + 1:matching(tokens, k)]
            found[name] = [inside[i].text for i in range(len(inside))
                           if inside[i].kind == "word" and (i == 0 or inside[i - 1].text == ",")]
    return found


class Names:
    """What the headers of `src` and one source declare."""

    def __init__(self, codes):
        self.enumerations, self.next_constant = {}, {}
        for code in codes:
            self.enumerations.update(enumerations_of(code))
            families = {}
            for constant in constants_of(code):
                families.setdefault(constant.family, []).append(constant.name)
            for family in families.values():
                for name, following in zip(family, family[1:] + family[:1]):
                    if name != following:
                        self.next_constant[name] = following


@dataclass(frozen=True)
class Declaration:
    name: str
    start: int
    end: int


def declarations_of(code):
    """What a header declares outside of functions and classes."""
    tokens, found, k = tokens_of(code), [], 0
    while k < len(tokens):
        if tokens[k].text in ("namespace", "extern"):
            while tokens[k].text != "{":
                k += 1
        if tokens[k].text in ("{", "}", ";"):
            k += 1
            continue
        end, head = end_of_declaration(tokens, k)
        found.append(Declaration(declared_by(tokens[k:head]), tokens[k].start, tokens[end].end))
        k = end + 1
    return found


def end_of_declaration(tokens, k):
    """Where it ends, and where its value, its parameters or its body begin."""
    head, is_function = None, False
    while tokens[k].text != ";":
        text = tokens[k].text
        if head is None and text in ("(", "=", "{"):
            head, is_function = k, text == "("
        if text in ("(", "[", "{"):
            k = matching(tokens, k)
        if text == "{" and is_function:
            return k, head
        k += 1
    return k, k if head is None else head


def declared_by(head):
    words = [token.text for token in head]
    if words[0] == "template":
        words = words[words.index(">") + 1:]
    for keyword in ("enum", "class", "struct", "union", "using"):
        if keyword in words:
            following = words[words.index(keyword) + 1:]
            return next(word for word in following if word not in ("class", "struct"))
    return words[-1].rpartition('"')[2]


def names_in(code):
    """Words, and what is behind a literal."""
    return {token.text.rpartition('"')[2] for token in tokens_of(code)
            if token.kind in ("word", "string")}


class Users:
    """Which files have to be compiled again when something in a header changes."""

    def __init__(self, files):
        """`files`: {path: code} of everything that is compiled."""
        self.declarations, self.words = {}, {}
        for path, code in files.items():
            if path.endswith(".hpp"):
                self.declarations[path] = [(declaration, names_in(code[declaration.start:declaration.end]))
                                           for declaration in declarations_of(code)]
            else:
                self.words[path] = names_in(code)

    def of(self, header, offset):
        """The sources that mention what is declared around `offset`, or something whose declaration does,
        and so on. None: it is outside of any declaration."""
        names = {declaration.name for declaration, _ in self.declarations[header]
                 if declaration.start <= offset < declaration.end}
        grown = set()
        while names and names != grown:
            grown = set(names)
            for declaration, words in self.all_declarations():
                if declaration.name in names or words & names:
                    names.add(declaration.name)
        if not names:
            return None
        return sorted(path for path, words in self.words.items() if names & words)

    def all_declarations(self):
        return (pair for declarations in self.declarations.values() for pair in declarations)
