"""The judge of the coverage, on an export made by hand about a source of a few lines."""
import contextlib
import copy
import io
import json
import pathlib
import sys
import tempfile
import unittest
from unittest import mock

import judge

SOURCE = """\
int Sign(int n) {
  if (n < 0 && n != kMin) return -1;
  // ñandú
  return n;
}
"""
#             line, column, count, counted, entry, gap
SEGMENTS = [[1, 17, 3, True, True, False], [2, 27, 1, True, True, True], [2, 28, 1, True, True, False],
            [2, 37, 2, True, False, True], [4, 3, 2, True, True, False], [5, 2, 0, False, False, False]]
#            from, to, true, false
BRANCHES = [[2, 7, 2, 12, 1, 2, 0, 0, 4], [2, 16, 2, 25, 1, 1, 0, 0, 4]]
DECISIONS = [[2, 7, 2, 25, 0, 5, [True, True]]]


class Story(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve()
        self.source = self.root / "src/fields/sign.cpp"
        self.source.parent.mkdir(parents=True)
        self.source.write_text(SOURCE, encoding="utf-8")
        self.entry = copy.deepcopy({"filename": str(self.source), "segments": SEGMENTS,
                                    "branches": BRANCHES, "mcdc_records": DECISIONS})

    def judged(self, *flags):
        export = self.root / "export.json"
        export.write_text(json.dumps({"data": [{"files": [self.entry]}]}))
        said = io.StringIO()
        arguments = ["judge.py", *flags, str(self.root), str(export), "src/fields"]
        with mock.patch.object(sys, "argv", arguments), contextlib.redirect_stdout(said):
            return judge.main(), said.getvalue()

    def assert_accepted(self, *how):
        result, said = self.judged(*how)
        self.assertEqual(result, 0, said)
        return said

    def assert_refused(self, words, *how):
        result, said = self.judged(*how)
        self.assertEqual(result, 1, said)
        self.assertIn(words, said)


class Lines(Story):
    def miss_the_end(self):
        for segment in self.entry["segments"][3:5]:
            segment[2] = 0

    def test_all_reached(self):
        said = self.assert_accepted()
        self.assertIn("    5 /     5  100.0 %", said)
        self.assertIn("    4 /     4  100.0 %", said)

    def test_a_missed_line_is_told_with_its_text(self):
        self.miss_the_end()
        self.assert_refused("src/fields/sign.cpp:4: not reached: return n;")

    def test_a_line_is_as_reached_as_its_most_reached_piece(self):
        for segment in self.entry["segments"][1:3]:
            segment[2] = 0
        self.assert_accepted()

    def test_nearly_all_is_not_100(self):
        verdict = judge.Verdict()
        for reached in [True] * 9999 + [False]:
            verdict.count("line", reached)
        self.assertIn("99.9 %", verdict.figure("line"))


class Branches(Story):
    def test_a_missed_outcome_is_told(self):
        self.entry["branches"][1][5] = 0
        self.assert_refused("src/fields/sign.cpp:2: never false: n != kMin")

    def test_the_other_outcome_too(self):
        self.entry["branches"][0][4] = 0
        self.assert_refused("src/fields/sign.cpp:2: never true: n < 0")

    def test_another_instance_may_reach_it(self):
        self.entry["branches"][1][5] = 0
        self.entry["branches"].append([2, 16, 2, 25, 0, 7, 0, 0, 4])
        self.assert_accepted()

    def test_columns_count_bytes(self):
        self.source.write_text(SOURCE.replace("  if (n", "/*ñ*/if (n").replace("  // ñandú\n", "//\n"),
                               encoding="utf-8")
        for row in self.entry["branches"]:
            row[1], row[3] = row[1] + 4, row[3] + 4
        self.entry["branches"][1][5] = 0
        self.assert_refused("never false: n != kMin")

    def test_a_literal_decides_nothing(self):
        self.source.write_text(SOURCE.replace("n < 0", "true "), encoding="utf-8")
        self.entry["branches"][0] = [2, 7, 2, 11, 0, 0, 0, 0, 4]
        self.assert_accepted()

    def test_both_outcomes_are_told(self):
        self.entry["branches"][1][4:6] = [0, 0]
        self.assert_refused("never true: n != kMin")
        self.assert_refused("never false: n != kMin")


class Sources(Story):
    def test_one_that_was_not_measured_is_told(self):
        (self.source.parent / "new.cpp").write_text("int New() { return 1; }\n")
        self.assert_refused("src/fields/new.cpp: no test program has it")

    def test_one_without_counters_is_no_success(self):
        self.entry.pop("mcdc_records")
        self.assert_refused("no conditions were counted", "--mcdc")
        self.entry["branches"].clear()
        self.assert_refused("no branches were counted")

    def test_none_at_all_is_no_success(self):
        self.source.unlink()
        self.entry["filename"] = "/usr/include/string"
        self.assert_refused("no source in src/fields")


class Conditions(Story):
    def test_all_decide(self):
        self.assertIn("    2 /     2  100.0 %", self.assert_accepted("--mcdc"))

    def test_one_that_never_decides_alone_is_told(self):
        self.entry["mcdc_records"][0][-1][1] = False
        self.assert_refused("src/fields/sign.cpp:2: never decides alone: 2 of n < 0 && n != kMin", "--mcdc")

    def test_lines_are_another_judgement(self):
        for segment in self.entry["segments"]:
            segment[2] = 0
        self.assert_accepted("--mcdc")
        self.assert_refused("not reached")


if __name__ == "__main__":
    unittest.main()
