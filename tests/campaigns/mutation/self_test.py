#!/usr/bin/env python3
"""The mutants of small samples, who is compiled again for them, and the verdict on their fates."""
import pathlib
import unittest

from mutants import mutants_of
from names import Users
from results import explained_in, judge

HEADER = """
constexpr char kStart = 'a';
constexpr char kEnd = 'z';
enum class Step { kAgain, kDone, kFailed };
"""

HERE = pathlib.Path(__file__).resolve().parent


def samples():
    """(title, code, its changes) of each."""
    for text in (HERE / "samples.txt").read_text(encoding="utf-8").split("\n== ")[1:]:
        title, *lines = text.rstrip("\n").split("\n")
        changes = [line[2:] for line in lines if line.startswith("  ")]
        yield title, "\n".join(lines[:len(lines) - len(changes)]) + "\n", changes


class Samples(unittest.TestCase):
    def test_each_sample_has_exactly_its_mutants(self):
        told = list(samples())
        self.assertEqual(len(told), 23)
        for sentence, code, changes in told:
            with self.subTest(sentence):
                made = [mutant.change for mutant in mutants_of("a.cpp", code, [HEADER])]
                self.assertEqual(sorted(made), sorted(changes))

    def test_a_mutant_differs_in_its_place_only(self):
        code = "int F(int a) {\n  return a + 1;\n}\n"
        made = {mutant.change: mutant.apply(code) for mutant in mutants_of("a.cpp", code)}
        self.assertEqual(made, {
            "returns {}": "int F(int a) {\n  return {};\n}\n",
            "+ -> -": "int F(int a) {\n  return a - 1;\n}\n",
            "1 -> 2": "int F(int a) {\n  return a + 2;\n}\n",
            "1 -> 0": "int F(int a) {\n  return a + 0;\n}\n"})

    def test_of_many_enumerators_the_two_beside_it_are_tried(self):
        many = "enum class Day { " + ", ".join(f"k{k}" for k in range(9)) + " };"
        for code, expected in (("f(Day::k0);", ["k0 -> k1"]), ("f(Day::k4);", ["k4 -> k3", "k4 -> k5"])):
            made = [mutant.change for mutant in mutants_of("a.cpp", f"void g() {{ {code} }}", [many])]
            self.assertEqual([change for change in made if "->" in change], expected)

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

    def test_blanks_within_the_line_do_not_matter(self):
        moved = self.EXPLAINED.replace("a < 1", "a   <  1")
        self.assertTrue(self.judged(["< -> <=", "1 -> 2"], moved).passes())

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
