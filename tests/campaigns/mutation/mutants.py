"""Every small change that is tried on a source: one at a time, each on one statement."""
from dataclasses import dataclass

import literals
from names import Names, constants_of
from tokens import OPENING, end_of_statement, matching, spaced, tokens_of

BINARY = {"<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"),
          "==": ("!=",), "!=": ("==",), "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",),
          "%": ("/",), "&&": ("||",), "||": ("&&",), "&": ("|",), "|": ("&",), "<<": (">>",),
          ">>": ("<<",), "+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "/=": ("*=",),
          "&=": ("|=",), "|=": ("&=",)}
UNARY = {"++": "--", "--": "++", "!": "", "-": ""}
FEW = 8  # Enumerators that are all tried for each other; of more, those beside it.
BOOLEANS = {"true": "false", "false": "true", "kTrue": "kFalse", "kFalse": "kTrue"}
LOGICAL = ("<", "<=", ">", ">=", "==", "!=", "&&", "||")
ASSIGNMENTS = ("=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>=", "++", "--")
# Words that begin a statement that is no call and no assignment, or a declaration.
NOT_REMOVED = set("""return if else for while do switch case default using namespace const constexpr
    static auto inline template class struct enum public private protected explicit friend virtual
    try catch extern typedef union""".split())
REMOVED_WORDS = ("throw", "break", "continue")


@dataclass(frozen=True)
class Mutant:
    path: str
    start: int
    end: int
    text: str  # what stands between start and end instead
    line: int
    source: str  # the line as it is, without the indentation
    change: str  # as it is listed

    def key(self):
        return f"{self.path}|{self.line}|{self.source}|{self.change}"

    def apply(self, code):
        return code[:self.start] + self.text + code[self.end:]


class Finder:
    def __init__(self, code, names):
        self.code = code
        self.names = names
        self.tokens = tokens_of(code)
        self.declared = {constant.position for constant in constants_of(code)}
        self.found = []

    def add(self, start, end, text, change=None):
        old = self.code[start:end]
        if text != old:
            self.found.append((start, end, text, change or f"{old or 'nothing'} -> {text or 'nothing'}"))

    def replace(self, token, *texts, change=None):
        for text in texts:
            self.add(token.start, token.end, text, change)

    def all(self):
        for k, token in enumerate(self.tokens):
            getattr(self, token.kind)(k, token)
        self.statements()
        return self.found

    # ---- One token ----

    def number(self, _, token):
        self.replace(token, *literals.other_numbers(token.text))

    def char(self, _, token):
        self.replace(token, *literals.other_characters(token.text))

    def string(self, k, token):
        if self.tokens[k - 1].text != "operator":
            self.replace(token, *literals.other_strings(token.text))

    def word(self, k, token):
        before = self.tokens[k - 1].text if k else ""
        owner = self.tokens[k - 2].text if k > 1 and before == "::" else ""
        if token.text in BOOLEANS and token.start not in self.declared:
            self.replace(token, BOOLEANS[token.text])
        elif owner in self.names.enumerations:
            values = self.names.enumerations[owner]
            if token.text in values:
                at = values.index(token.text)
                self.replace(token, *(values if len(values) <= FEW else values[max(at - 1, 0):at + 2]))
        elif token.text in self.names.next_constant and token.start not in self.declared:
            self.replace(token, self.names.next_constant[token.text])
        elif token.text == "return":
            self.returned(k)
        elif token.text in ("if", "while") and self.tokens[k + 1].text == "(":
            self.negated(k + 2, matching(self.tokens, k + 1) - 1, "condition negated")

    def operator(self, k, token):
        if token.text in BINARY and spaced(self.code, token):
            self.replace(token, *BINARY[token.text])
        elif token.text in UNARY and not self.code[token.end].isspace() or token.text in ("++", "--"):
            if token.text in ("++", "--") or self.is_prefix(k):
                self.replace(token, UNARY[token.text])
        elif token.text == "?":
            self.choice(k)

    def is_prefix(self, k):
        before = self.tokens[k - 1]
        return before.text == "return" or (before.kind == "operator" and before.text not in ")]")

    # ---- Several tokens ----

    def is_logical(self, first, last):
        """Does an operator outside brackets make it a truth value?"""
        outside, k = [], first
        while k <= last:
            token = self.tokens[k]
            if token.kind == "operator" and token.text in "([{":
                k = matching(self.tokens, k)
            elif token.text in LOGICAL and spaced(self.code, token) or token.text in ("!", "?"):
                outside.append(token.text)
            k += 1
        return bool(outside) and "?" not in outside

    def one_comparison(self, first, last):
        """Is it `a == b`, `a != b` or `!a`, which another change negates already?"""
        inside = [token.text for token in self.tokens[first:last + 1]]
        signs = [text for text in inside if text in LOGICAL]
        return signs in (["=="], ["!="]) or (not signs and inside[0] == "!")

    def negated(self, first, last, change):
        if first <= last and not self.one_comparison(first, last):
            start, end = self.tokens[first].start, self.tokens[last].end
            self.add(start, end, f"!({self.code[start:end]})", change)

    def returned(self, k):
        semicolon = end_of_statement(self.tokens, k)
        if semicolon is None or semicolon == k + 1:
            return
        first, last = k + 1, semicolon - 1
        start, end = self.tokens[first].start, self.tokens[last].end
        if first != last or self.tokens[first].kind == "word":
            if self.tokens[first].text not in BOOLEANS and self.code[start:end] != "{}":
                self.add(start, end, "{}", "returns {}")
        if self.is_logical(first, last):
            self.negated(first, last, "returned value negated")

    def choice(self, k):
        first = k
        while first > 0:
            text = self.tokens[first - 1].text
            if text in (")", "]", "}") and self.tokens[first - 1].kind == "operator":
                first = self.opening(first - 1)
            elif text in ("return", "=", "(", ",", "{", ";", "[", "?", ":", "+=", "-="):
                break
            else:
                first -= 1
        self.negated(first, k - 1, "choice negated")

    def opening(self, k):
        depth = 0
        while True:
            if self.tokens[k].kind == "operator":
                depth += (self.tokens[k].text in OPENING) - (self.tokens[k].text in "([{")
            if depth == 0:
                return k
            k -= 1

    # ---- Whole statements ----

    def statements(self):
        for k in range(len(self.tokens)):
            if not self.begins_statement(k):
                continue
            semicolon = end_of_statement(self.tokens, k)
            if semicolon is not None and self.is_removable(k, semicolon):
                self.add(self.tokens[k].start, self.tokens[semicolon].start, "", "statement removed")

    def begins_statement(self, k):
        if k == 0:
            return False
        before = self.tokens[k - 1].text
        if before == ")":
            head = self.opening(k - 1)
            return self.tokens[head - 1].text in ("if", "while", "for")
        return before in (";", "{", "}", "else") or (before == ":" and self.is_label(k - 1))

    def is_label(self, k):
        while self.tokens[k - 1].text not in (";", "{", "}", ":"):
            k -= 1
        return self.tokens[k].text in ("case", "default", "public", "protected", "private")

    def is_removable(self, first, semicolon):
        inside = self.tokens[first:semicolon]
        if inside and inside[0].text in REMOVED_WORDS:
            return True
        if not inside or inside[0].text in NOT_REMOVED or self.declares(first):
            return False
        if inside[-1].text in ("delete", "default") or self.has_body(inside):
            return False
        acts = any(token.text in ASSIGNMENTS for token in inside) or inside[-1].text == ")"
        return acts and inside[0].text not in (".", ")", "[", "{")

    def has_body(self, inside):
        """Does it begin with a function's body, or end an initialiser?"""
        return any(a.text in (")", "const", "noexcept", "override") and b.text == "{"
                   for a, b in zip(inside, inside[1:]) if not self.within_parentheses(inside, b))

    @staticmethod
    def within_parentheses(inside, token):
        before = [other.text for other in inside if other.start < token.start]
        return before.count("(") > before.count(")")

    def declares(self, k):
        """Is it a type and a name?"""
        if self.tokens[k].kind != "word":
            return False
        k += 1
        while self.tokens[k].text == "::":
            k += 2
        if self.tokens[k].text == "<" and not spaced(self.code, self.tokens[k]):
            while self.tokens[k].text not in (">", ">>"):
                k += 1
            k += 1
        while self.tokens[k].text in ("&", "*", "&&"):
            k += 1
        return self.tokens[k].kind == "word"


def mutants_of(path, code, headers=()):
    """The mutants of one file. `headers`: the code of those that declare constants for it."""
    found = Finder(code, Names([*headers, code])).all()
    seen, listed, changes = set(), [], {}
    for start, end, text, change in sorted(found):
        made = (start, end, text)
        if made in seen:
            continue
        seen.add(made)
        line = code.count("\n", 0, start) + 1
        source = code.splitlines()[line - 1].strip()
        changes[line, change] = changes.get((line, change), 0) + 1
        if changes[line, change] > 1:
            change = f"{change} #{changes[line, change]}"
        listed.append(Mutant(path, start, end, text, line, source, change))
    return listed
