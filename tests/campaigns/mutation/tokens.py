"""C++ as a list of tokens, as far as the mutants need it."""
import re
from dataclasses import dataclass

OPERATORS = ("<<=", ">>=", "...", "->*", "<=>", "::", "->", "++", "--", "<<", ">>", "<=", ">=", "==",
             "!=", "&&", "||", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=")
TOKEN = re.compile(
    r"""(?P<comment>//[^\n]*|/\*.*?\*/)
      | (?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
      | (?P<string>"(?:\\.|[^"\\\n])*"(?:[A-Za-z_]\w*)?)
      | (?P<char>'(?:\\.|[^'\\\n])+')
      | (?P<number>(?:0[xX][0-9A-Fa-f']+|\d[\d']*(?:\.\d*)?(?:[eE][+-]?\d+)?)[uUlLfF]*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<operator>""" + "|".join(map(re.escape, OPERATORS)) + r"""|[^\s\w])
    """, re.VERBOSE | re.DOTALL | re.MULTILINE)
CLOSING = {"(": ")", "[": "]", "{": "}"}
OPENING = {close: opening for opening, close in CLOSING.items()}


@dataclass(frozen=True)
class Token:
    kind: str
    text: str
    start: int

    @property
    def end(self):
        return self.start + len(self.text)


def tokens_of(code):
    """The tokens of `code` without comments, directives and static assertions."""
    found = [Token(match.lastgroup, match.group(), match.start()) for match in TOKEN.finditer(code)
             if match.lastgroup not in ("comment", "directive")]
    return without_assertions(found)


def without_assertions(tokens):
    kept, k = [], 0
    while k < len(tokens):
        if tokens[k].text == "static_assert":
            k = matching(tokens, k + 1) + 2  # its semicolon too
        else:
            kept.append(tokens[k])
            k += 1
    return kept


def matching(tokens, k):
    """Where the bracket that opens at `k` closes."""
    depth = 0
    for i in range(k, len(tokens)):
        if tokens[i].kind == "operator":
            depth += (tokens[i].text in CLOSING) - (tokens[i].text in OPENING)
        if depth == 0:
            return i
    raise ValueError(f"no end for the bracket at offset {tokens[k].start}")


def end_of_statement(tokens, k):
    """Where the semicolon is that ends what begins at `k`; None when a bracket closes before."""
    while k < len(tokens):
        text = tokens[k].text
        if tokens[k].kind == "operator" and text in CLOSING:
            k = matching(tokens, k)
        elif text in OPENING and tokens[k].kind == "operator":
            return None
        elif text == ";":
            return k
        k += 1
    return None


def spaced(code, token):
    """Is there space on both sides? The house's format puts it around binary operators only."""
    return code[token.start - 1].isspace() and code[token.end:token.end + 1].isspace()
