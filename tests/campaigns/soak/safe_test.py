"""A few documents of tills in the safe mode that are killed have to end in order, and the judge has to see what is not.

SOAK_LIBRARY, SOAK_PRINTER, SOAK_SETTINGS and SOAK_FOLDER say with what and where.
"""
import os
import unittest

from safe import Soak

ENV = os.environ


class ASafeSoak(unittest.TestCase):
    def test_ends_in_order_and_an_altered_book_is_noticed(self):
        soak = Soak(ENV["SOAK_LIBRARY"], ENV["SOAK_PRINTER"], ENV["SOAK_SETTINGS"], ENV["SOAK_FOLDER"] + "-safe", 8, "1")
        self.assertEqual(soak.run() + soak.judge(), [])
        path = os.path.join(soak.folder, "libro.txt")
        with open(path, encoding="ascii") as file:
            book = file.read()
        closing = [line for line in book.splitlines(True) if line.startswith("<") and "000" in line][-1]
        for altered in ("", closing.replace("< 8 ", "< 7 "), closing + "! 8 0 unknown\n"):
            with self.subTest(altered), open(path, "w", encoding="ascii") as file:
                file.write(book.replace(closing, altered))
                file.flush()
                self.assertNotEqual(soak.judge(), [])


if __name__ == "__main__":
    unittest.main()
