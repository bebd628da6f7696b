#!/usr/bin/env python3
"""The mutants of small samples, who is compiled again for them, and the verdict on their fates."""
import unittest

from mutants import mutants_of
from names import Users
from results import explained_in, judge

HEADER = """
constexpr char kStart = 'a';
constexpr char kEnd = 'z';
enum class Step { kAgain, kDone, kFailed };
"""

# What is written, and each change that is made of it, in the order of their places.
SAMPLES = {
    "a comparison and its bound": (
        "bool F(int a) { return a < 10; }",
        ["returns {}", "returned value negated", "< -> <=", "< -> >=", "10 -> 0", "10 -> 11",
         "10 -> 9"]),
    "equality is negated once": (
        "void F(int a) { if (a == b) G(a); }",
        ["== -> !=", "statement removed"]),
    "a condition of several": (
        "void F() { while (a && !b) ++a; }",
        ["condition negated", "&& -> ||", "! -> nothing", "++ -> --", "statement removed"]),
    "arithmetic, not signs and pointers": (
        "int F(int* p, int& r) { r = -*p * 2; return r; }",
        ["statement removed", "- -> nothing", "* -> /", "2 -> 0", "2 -> 1", "2 -> 3", "returns {}"]),
    "zero has neighbours only": ("int F() { return 0; }", ["0 -> -1", "0 -> 1"]),
    "unsigned numbers stay so, hexadecimal ones too": (
        "unsigned k = 0x00u + 0x0Fu;",
        ["0x00u -> 0x01u", "+ -> -", "0x0Fu -> 0x00u", "0x0Fu -> 0x0Eu", "0x0Fu -> 0x10u"]),
    "numbers with a point": ("double k = 0.5;", ["0.5 -> -0.5", "0.5 -> 0.0", "0.5 -> 1.5"]),
    "characters and their codes": (
        "char k[] = {'0', '\\x1C', '\\''};",
        ["'0' -> '/'", "'0' -> '1'", "'\\x1C' -> '\\x1B'", "'\\x1C' -> '\\x1D'", "'\\'' -> '&'",
         "'\\'' -> '('"]),
    "one character of a text": ('auto k = "Falta papel";', ['"Falta papel" -> "Faltaxpapel"']),
    "an empty text": ('auto k = "";', ['"" -> "x"']),
    "each of a table of characters": (
        'auto k = "A\\xF1";', ['"A\\xF1" -> "A\\xF0"', '"A\\xF1" -> "x\\xF1"']),
    "a text of the printer's letters": (
        'auto k = "año"_ansi;', ['"año"_ansi -> "axo"_ansi']),
    "named constants become the next of their kind": (
        "char k = kStart + kEnd;", ["kStart -> kEnd", "+ -> -", "kEnd -> kStart"]),
    "enumerators become the others": (
        "auto k = Step::kDone;", ["kDone -> kAgain", "kDone -> kFailed"]),
    "truth values of both kinds": (
        "bool a = true; Boolean b = kFalse;", ["true -> false", "kFalse -> kTrue"]),
    "a choice": (
        "int F(bool a) { return a ? x : y; }", ["choice negated", "returns {}"]),
    "the same change twice on a line": (
        "auto k = true == (a == b) != true;",
        ["true -> false", "== -> !=", "== -> != #2", "!= -> ==", "true -> false #2"]),
    "calls, assignments and jumps are removed, declarations are not": (
        "void F() { int a; Line& b(c); std::array<char, N> d{}; G(); a = c; for (;;) break; throw E(); }",
        ["statement removed"] * 4),
    "a label is no choice": (
        "void F() { switch (a) { case Step::kDone: G(); } b = c ? d : H(e); }",
        ["kDone -> kAgain", "kDone -> kFailed", "statement removed", "choice negated",
         "statement removed"]),
    "comments, directives and assertions are left alone": (
        "// a < 1\n#include <array>\n#define N 1\n/* b && c */ static_assert(1 == 1);\n", []),
    "templates are no comparisons": (
        "template <typename T> std::vector<std::array<T, N>> F(T&& a);", []),
    "special members are no statements": (
        "class A { public: A(const A&) = delete; A() { } ~A() = default; };", []),
}


def numbered(changes):
    """The second and later ones of the same on a line have a number."""
    counts, listed = {}, []
    for change in changes:
        counts[change] = counts.get(change, 0) + 1
        listed.append(change if counts[change] == 1 else f"{change} #{counts[change]}")
    return listed


class Samples(unittest.TestCase):
    def test_each_sample_has_exactly_its_mutants(self):
        for sentence, (code, changes) in SAMPLES.items():
            with self.subTest(sentence):
                made = [mutant.change for mutant in mutants_of("a.cpp", code, [HEADER])]
                expected = changes if "#2" in str(changes) else numbered(changes)
                self.assertEqual(sorted(made), sorted(expected))

    def test_a_mutant_differs_in_its_place_only(self):
        code = "int F(int a) {\n  return a + 1;\n}\n"
        made = {mutant.change: mutant.apply(code) for mutant in mutants_of("a.cpp", code)}
        self.assertEqual(made, {
            "returns {}": "int F(int a) {\n  return {};\n}\n",
            "+ -> -": "int F(int a) {\n  return a - 1;\n}\n",
            "1 -> 2": "int F(int a) {\n  return a + 2;\n}\n",
            "1 -> 0": "int F(int a) {\n  return a + 0;\n}\n"})

    def test_a_mutant_knows_its_line(self):
        mutant = mutants_of("a.cpp", "int a;\n\n  int b = 0;\n")[0]
        self.assertEqual((mutant.line, mutant.source), (3, "int b = 0;"))


class CompiledAgain(unittest.TestCase):
    FILES = {
        "src/bytes.hpp": "namespace k {\nconstexpr char kStart = '\\x02';\nconstexpr int kOther = 1;\n}",
        "src/table.hpp": "#include \"bytes.hpp\"\nnamespace k {\ninline constexpr auto kTable = {kStart};\n"
                         "struct Frame { char first = kOther; };\n}",
        "src/direct.cpp": "char F() { return k::kStart; }",
        "src/table.cpp": "auto F() { return *k::kTable.begin(); }",
        "src/frame.cpp": "int F(const k::Frame& frame) { return frame.first; }",
        "src/neither.cpp": "// kStart\n#include \"table.hpp\"\nint F() { return 1; }",
    }

    def users_of(self, text):
        header = "src/bytes.hpp"
        return Users(self.FILES).of(header, self.FILES[header].index(text))

    def test_a_constants_users_and_those_of_what_is_made_of_it(self):
        self.assertEqual(self.users_of("'"), ["src/direct.cpp", "src/table.cpp"])

    def test_those_of_a_type_that_is_made_of_it(self):
        self.assertEqual(self.users_of("1"), ["src/frame.cpp"])

    def test_everything_that_includes_what_declares_nothing(self):
        self.assertIsNone(self.users_of("namespace"))


class Verdicts(unittest.TestCase):
    CODE = "bool F(int a) { return a < 1; }"
    EXPLAINED = "# why\na.cpp\n  " + CODE + "\n    < -> <=\n    1 -> 2\n      Nobody\n      asks.\n"

    def judged(self, survivors, text=EXPLAINED, **options):
        mutants = mutants_of("a.cpp", self.CODE) * 10  # few survivors among many
        fates = [(mutant, "survived" if k < 6 and mutant.change in survivors else "killed")
                 for k, mutant in enumerate(mutants)]
        return judge(fates, explained_in(text), **options)

    def test_explained_survivors_pass(self):
        verdict = self.judged(["< -> <=", "1 -> 2"])
        self.assertEqual((verdict.unexplained, verdict.stale), ([], []))
        self.assertEqual(verdict.total("survived"), 2)
        self.assertTrue(verdict.passes())

    def test_a_survivor_that_nobody_explains_does_not_pass(self):
        verdict = self.judged(["< -> <=", "1 -> 2", "1 -> 0"])
        self.assertEqual([mutant.change for mutant in verdict.unexplained], ["1 -> 0"])
        self.assertFalse(verdict.passes())

    def test_a_row_without_a_reason_explains_nothing(self):
        verdict = self.judged(["< -> <="], f"a.cpp\n  {self.CODE}\n    < -> <=\n")
        self.assertEqual(len(verdict.unexplained), 1)

    def test_a_row_whose_mutant_is_killed_is_stale(self):
        verdict = self.judged(["< -> <="])
        self.assertEqual([change for _, change in verdict.stale], ["1 -> 2"])
        self.assertFalse(verdict.passes())
        self.assertEqual(self.judged(["< -> <="], whole=False).stale, [])

    def test_fewer_than_95_of_100_do_not_pass(self):
        fates = [(mutant, "survived") for mutant in mutants_of("a.cpp", self.CODE)]
        self.assertFalse(judge(fates, [], whole=True).passes())

    def test_what_does_not_compile_does_not_count(self):
        mutants = mutants_of("a.cpp", self.CODE)
        fates = [(mutant, "does not compile") for mutant in mutants]
        self.assertEqual(judge([*fates, (mutants[0], "killed")], []).killed_percent(), 100.0)


if __name__ == "__main__":
    unittest.main()
