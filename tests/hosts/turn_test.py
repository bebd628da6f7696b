"""Which languages' shops a build server runs."""
import unittest

from languages import Language
from turn import turn

LANGUAGES = {name: Language(name, run=(), folder=folder)
             for name, folder in (("c", ""), ("go", ""), ("python", ""), ("go-win32", "go"))}
CASES = [  # what has changed, the commit's number, whose turn it is
    (["hosts/python/tienda.py", "src/frame/exports.cpp"], 0, ["python"]),
    (["hosts/go/tienda/main.go"], 0, ["go", "go-win32"]),
    (["hosts/vb6/Kestra.bas"], 1, ["go"]),  # of which there is no shop to be run
    (["api/kestra.toml"], 0, ["c", "go", "python"]),  # of all, as many as there is time for
    (["include/kestra/kestra.h", "hosts/c/tienda.c"], 1, ["go-win32", "c", "go"]),
    (["tests/hosts/shop_test.py"], 2, ["python", "go-win32", "c"]),
    (["hosts/python/tienda.py", "hosts/go/go.mod", "hosts/c/tienda.c"], 3, ["go", "python", "go-win32"]),
    (["docs/manual/maker/languages.py"], 0, ["c", "go", "python"]),
    (["docs/manual/maker/pages.py"], 0, ["c"]),
    (["src/frame/exports.cpp"], 2, ["python"]),
    ([""], 7, ["go-win32"]),
]


class Turns(unittest.TestCase):
    def test_each_case(self):
        for changed, share, expected in CASES:
            with self.subTest(changed):
                self.assertEqual(turn(changed, share, LANGUAGES), expected)


if __name__ == "__main__":
    unittest.main()
