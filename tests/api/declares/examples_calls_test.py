#!/usr/bin/env python3
"""What the examples of the pages and the shops would call, called by their languages' declares in Kestra.dll of 32 bits.

The examples are read from top to bottom, not run: what they do about a failure is not seen here.
"""
import os
import unittest

import calls_test
import expand
import story
from calls_test import SOURCE
from declares import LANGUAGES, header, text_of
from examples import PAGES, SHOPS, page, shop
from shop import SHARED, read

RESULTS = {"EP_Init": "1", "EP_Kill": r"\d+", "Kestra_Textos": r"\d+", "Kestra_CausaTexto": r"\d+"}  # of the others, 0


def of_32_bits(names):
    return [(name, LANGUAGES[name].read(text_of(SOURCE, LANGUAGES[name]))) for name in names if LANGUAGES[name].pointer == 4]


class Examples(calls_test.ADayOfCalls):
    def called(self, texts, language, declares, entry):
        """The paper of the calls, when each has gone well."""
        self.stop_printer()
        self.port = 0
        self.printer = self.start_printer()
        self.write_settings()
        made = expand.made(texts, language, declares, entry)
        operator = story.line(header(SOURCE)["Kestra_DefinirOperador"], [story.OPERATOR])
        out = self.make([operator, *(story.line(declare, values) for declare, values in made)])
        self.assertEqual(len(out), len(made) + 1, out)
        for (declare, _), line in zip(made, out[1:]):
            self.assertRegex(line, rf"\A{declare.export} = {RESULTS.get(declare.export, '0')} stack 0\b")
        paper = self.paper()
        os.unlink(self.path("papel.txt"))
        return paper

    def test_of_each_page_print_their_ticket(self):
        for folder, language, names, entry in PAGES:
            for name, declares in of_32_bits(names):
                with self.subTest(name):
                    paper = self.called(page(SOURCE, folder, language), language, declares, entry)
                    for words in ('TIQUE FACTURA "B"', "Nº 00000001", "\n1 x 890,50 (21,00)\n", "Yerba mate 1 kg", "1.000,00", "Su vuelto"):
                        self.assertEqual(paper.count(words), 1, paper)

    def test_that_are_whole_shops_print_the_day_of_the_shop_in_c(self):
        day = read(os.path.join(SHARED, "jornada.txt")).rstrip("\n")
        for files, language, names, entry in SHOPS:
            for name, declares in of_32_bits(names):
                with self.subTest(name):
                    paper = self.called(shop(SOURCE, files), language, declares, entry)
                    self.assertEqual(paper.rstrip("\n"), day)


if __name__ == "__main__":
    unittest.main(verbosity=2)
