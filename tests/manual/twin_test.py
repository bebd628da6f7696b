"""README.md and LEEME.md say the same: as many headings and rows, the same commands, figures, links and pictures."""
import pathlib
import re
import sys
import unittest

SOURCE = pathlib.Path(sys.argv.pop(1)).resolve()


def read(name):
    return (SOURCE / name).read_text(encoding="utf-8")


def headings(text):
    return [len(marks) for marks in re.findall(r"(?m)^(#+) ", re.sub(r"(?ms)^```.*?^```", "", text))]


def blocks(text):
    """What is typed or shown, without the remarks behind it."""
    return [re.sub(r"\s+# .*", "", block) for block in re.findall(r"(?ms)^```\w*\n(.*?)^```", text)]


def commands(text):
    return sorted(set(re.findall(r"`([^`\n]*(?:scripts/|cmake |impresora-virtual |--|=)[^`\n]*)`", text)))


def links(text):
    return sorted(re.findall(r"\]\(([^)]*)\)", text))


def rows(text):
    return [line.count("|") for line in text.splitlines() if line.startswith("|")]


def figures(text):
    """Numbers of the tables, however each tongue parts thousands and decimals."""
    tables = "\n".join(line for line in text.splitlines() if line.startswith("|"))
    return sorted(re.sub(r"[.,]", "", number) for number in re.findall(r"\d[\d.,]*", re.sub(r"\]\([^)]*\)", "", tables)))


class TheTwin(unittest.TestCase):
    maxDiff = None

    def test_has_the_same_shape(self):
        for what in (headings, rows):
            self.assertEqual(what(read("LEEME.md")), what(read("README.md")), what.__name__)

    def test_has_the_same_commands_figures_and_links(self):
        for what in (blocks, commands, links, figures):
            self.assertEqual(what(read("LEEME.md")), what(read("README.md")), what.__name__)

    def test_counts_the_fuzz_targets(self):
        targets = len([path for path in (SOURCE / "tests/fuzz/corpus").iterdir() if path.is_dir()])
        for name, words in (("README.md", {"twelve": 12, "thirteen": 13}), ("LEEME.md", {"doce": 12, "trece": 13})):
            [word] = re.findall(r"docs/proof/fuzzing\.md\), (\w+) ", read(name))
            self.assertEqual(words.get(word), targets, name)


if __name__ == "__main__":
    unittest.main()
