"""`kestra diagnostico` names what is wrong, in every shop of the table."""

import concurrent.futures
import json
import os
import re
import unittest

from broken_shops import ROWS, BrokenShop
from shop import ENV, read

# Most of them wait, for a printer that does not answer.
TOGETHER = concurrent.futures.ThreadPoolExecutor(max_workers=32)


def look_at(break_it):
    shop = BrokenShop()
    try:
        shop.open()
        break_it(shop)
        return shop.diagnose()
    finally:
        shop.doCleanups()


class AShop(unittest.TestCase):
    def __init__(self, name, verdict, told, found):
        super().__init__("is_diagnosed")
        self.name, self.verdict, self.told, self.found = name, verdict, told, found

    def __str__(self):
        return self.name

    def is_diagnosed(self):
        ended = self.found.result()
        self.assertEqual(ended.stderr, "")
        said = json.loads(ended.stdout)
        self.assertEqual(said["veredicto"], self.verdict, ended.stdout)
        self.assertEqual(said["termina"], ended.returncode)
        first = said["hallazgos"][0] if said["hallazgos"] else {"detalle": "", "hacer": "nada"}
        self.assertIn(self.told, first["detalle"])
        self.assertTrue(first["hacer"])


class TheTable(unittest.TestCase):
    def codes(self):
        """Code and level of all troubles, by the source."""
        text = read(os.path.join(ENV["KESTRA_SOURCE"], "tools", "kestra", "troubles.hpp"))
        return re.findall(r'TroubleRow\{\s*Trouble::\w+,\s*"([\w-]+)",\s*Level::k(\w+)', text)

    def test_each_trouble_has_a_shop_or_a_made_machine(self):
        shops = {verdict for _, verdict, _, _ in ROWS}
        machines = read(os.path.join(ENV["KESTRA_SOURCE"], "tests", "tool", "looks_test.cpp"))
        without = [code for code, level in self.codes()
                   if level != "Note" and code not in shops and f'"{code}"' not in machines]
        self.assertEqual(without, [])


def load_tests(loader, tests, pattern):
    del pattern
    suite = unittest.TestSuite(tests)
    for name, verdict, break_it, told in ROWS:
        suite.addTest(AShop(name, verdict, told, TOGETHER.submit(look_at, break_it)))
    return suite


if __name__ == "__main__":
    unittest.main()
