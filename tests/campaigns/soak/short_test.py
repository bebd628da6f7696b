"""A soak of seconds has to end in order, and its judge has to see what is not.

SOAK_LIBRARY, SOAK_PRINTER, SOAK_SETTINGS and SOAK_FOLDER say with what and where.
"""
import glob
import os
import shutil
import sqlite3
import unittest

from judge import Judge
from ledger import Reader
from soak import Soak, report

ENV = os.environ
SEED = 1
SOLD = "(SELECT MIN(ordinal) FROM comprobantes WHERE clase = 'fiscal' AND NOT cancelado)"
# What somebody might do to the books, and what the judge says about it.
ALTERED_BOOKS = (
    (f"DELETE FROM comprobantes WHERE ordinal = {SOLD}", "a gap, a repeat"),
    (f"UPDATE comprobantes SET total = total + 1 WHERE ordinal = {SOLD}", "not "),
    (f"UPDATE comprobantes SET iva = iva + 1 WHERE ordinal = {SOLD}", "not "),
    (f"UPDATE comprobantes SET cancelado = 1, total = 0, iva = 0 WHERE ordinal = {SOLD}",
     "no host had given it up"),
    ("INSERT INTO comprobantes SELECT (SELECT MAX(ordinal) + 1 FROM comprobantes), clase, tipo, codigo,"
     " letra, (SELECT MAX(numero) + 1 FROM comprobantes b WHERE b.codigo = a.codigo AND b.letra = a.letra),"
     f" fecha, momento, total, iva, cuit, cancelado FROM comprobantes a WHERE ordinal = {SOLD}",
     "no host knows of it"),
    ("UPDATE movimientos SET total = total + 1 WHERE cierre = 0 AND operacion = 'ventas'", "day 0"),
    ("DELETE FROM cierres", "closings Z: 0"),
)


class AShortSoak(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.soak = Soak(ENV["SOAK_LIBRARY"], ENV["SOAK_PRINTER"], ENV["SOAK_SETTINGS"],
                        ENV["SOAK_FOLDER"], 300, SEED)
        try:
            cls.problems = cls.soak.run()
        finally:
            cls.soak.stop()
        cls.problems += cls.soak.growth()[1] + cls.soak.leftovers()

    @classmethod
    def tearDownClass(cls):
        cls.soak.ledger.file.close()

    def judged(self, folder, ledger=None, printer_kills=0):
        judge = Judge(folder, ledger or self.soak.ledger, printer_kills)
        judge.judge(str(SEED))
        judge.books.close()
        return judge

    def altered(self):
        folder = self.soak.folder + "-altered"
        shutil.rmtree(folder, ignore_errors=True)
        shutil.copytree(self.soak.folder, folder)
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        return folder

    def test_ends_in_order(self):
        judge = self.judged(self.soak.folder, printer_kills=self.soak.printer.kills)
        report(self.soak, judge, self.soak.growth()[0])
        self.assertEqual(self.problems + judge.breaches, [])

    def test_altered_books_are_noticed(self):
        for statement, words in ALTERED_BOOKS:
            with self.subTest(statement):
                folder = self.altered()
                with sqlite3.connect(os.path.join(folder, "memoria.db")) as books:
                    self.assertGreater(books.execute(statement).rowcount, 0)
                books.close()
                self.assertRegex("\n".join(self.judged(folder).breaches), words)

    def test_a_lost_sheet_is_noticed(self):
        folder = self.altered()
        for path in glob.glob(os.path.join(folder, "papel-*.txt")):
            with open(path, encoding="utf-8") as file:
                text = file.read()
            with open(path, "w", encoding="utf-8") as file:
                file.write(text.replace("Nº 00000002", "Nº 99999999"))
        breaches = "\n".join(self.judged(folder).breaches)
        self.assertRegex(breaches, "sheets missing")
        self.assertRegex(breaches, "sheets that are not in the books")

    def test_a_document_that_no_host_was_told_of_is_noticed(self):
        folder = self.altered()
        path = os.path.join(folder, "ledger.txt")
        with open(path, encoding="ascii") as file:
            lines = file.readlines()
        last = max(n for n, line in enumerate(lines) if line.startswith("= ") and " closed " in line)
        with open(path, "w", encoding="ascii") as file:
            file.writelines(lines[:last] + lines[last + 1:])
        with Reader(path) as ledger:
            self.assertRegex("\n".join(self.judged(folder, ledger.read()).breaches), "no host knows of it")


if __name__ == "__main__":
    unittest.main()
