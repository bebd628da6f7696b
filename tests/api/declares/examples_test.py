#!/usr/bin/env python3
"""The examples of the languages that do not run here: every call has as many arguments as its declare.

    examples_test.py SOURCE_DIRECTORY
"""
import pathlib
import sys
import unittest

import examples
from declares import LANGUAGES, text_of
from examples import PAGES, SHOPS, page, shop

SOURCE = sys.argv[1]
TICKET = {"EP_Init", "EP_AbrirComprobanteFiscal", "EP_ImprimirItem", "EP_ImprimirPago", "EP_CerrarComprobanteFiscal", "EP_Kill"}
DAY = TICKET | {"EP_SetEncabezado", "EP_DescuentoGeneral", "EP_EspecificarPercepcionGlobal", "EP_AbrirComprobanteNoFiscal",
                "EP_ImprimirTextoNoFiscal", "EP_CerrarComprobanteNoFiscal", "EP_ReporteX", "EP_ReporteZ"}

# Spoiled words of the shops: (shop, words, what stands there instead, what is said about it).
SPOILED = [
    (0, '"", "", "", "", 1)', '"", "", "", 1)', "EP_AbrirComprobanteFiscal: 12 arguments"),
    (0, 'EP_SetEncabezado("Gracias, muchas", 1, 0)', 'EP_SetEncabezado("Gracias, muchas", 1)', "EP_SetEncabezado: 2 arguments"),
    (0, "EP_ReporteX()", "EP_ReportX()", "EP_ReportX: nobody declares it"),
    (0, "EP_ReporteX()", "EP_ReporteX(1)", "EP_ReporteX: 1 arguments"),
    (0, "Kestra_Textos TEXTOS", "Kestra_Textos TEXTOS, 1, TEXTOS", "Kestra_Textos: 3 arguments"),
    (0, "    EP_Kill", "    EP_Kill 1", "EP_Kill: 1 arguments"),
    (0, 'FiscalPago "Transferencia", 20000', 'FiscalPago "Transferencia"', "FiscalPago: 1 arguments"),
    (0, 'FiscalItem "Diccionario", 2, 4500, 10.5', 'FiscalItem "Diccionario", 2, 4500', "FiscalItem: 3 arguments"),
    (0, 'FiscalItem "Diccionario", 2, 4500, 10.5', 'FiscalItem "Diccionario", 2, 4500, 10.5, "a, b", "c"', "FiscalItem: 6 arguments"),
    (1, '"", "", "", "", 1))', '"", "", "", 1))', "EP_AbrirComprobanteFiscal: 12 arguments"),
    (1, "tcDocumentoNumero, tcResponsabilidadIva, tcDomicilio, ", "tcDocumentoNumero, tcResponsabilidadIva, ",
     "EP_AbrirComprobanteFiscal: 12 arguments"),
    (1, "Kestra_CausaTexto(@lcCausa, ", "Kestra_CausaTexto(", "Kestra_CausaTexto: 1 arguments"),
    (1, "EP_ReporteZ()", "EP_ReporteZeta()", "EP_ReporteZeta: nobody declares it"),
    (1, 'FiscalPago("Transferencia", 20000.00)', 'FiscalPago("Transferencia, 20000.00")', "FiscalPago: 1 arguments"),
]


def declares(name):
    return LANGUAGES[name].read(text_of(SOURCE, LANGUAGES[name]))


class Examples(unittest.TestCase):
    def expect_calls(self, texts, language, names, wanted):
        for name in names:
            known = declares(name)
            self.assertEqual(examples.complaints(texts, language, known), [])
            self.assertLessEqual(wanted, {call for call, *_ in examples.calls(texts, language, known)})

    def test_on_each_page_are_a_ticket_of_calls_that_fit(self):
        for folder, language, names, _ in PAGES:
            with self.subTest(folder):
                texts = page(SOURCE, folder, language)
                self.assertNotEqual(texts, [])
                self.expect_calls(texts, language, names, TICKET)

    def test_that_are_whole_shops_have_the_calls_of_the_day(self):
        for names, language, whose, _ in SHOPS:
            with self.subTest(names):
                self.expect_calls(shop(SOURCE, names), language, whose, DAY)

    def test_of_old_windows_have_its_ends_of_lines(self):
        for names, *_ in SHOPS:
            for name in names:
                with self.subTest(name):
                    text = pathlib.Path(SOURCE, "hosts", name).read_bytes()
                    self.assertEqual(text.count(b"\n"), text.count(b"\r\n"))

    def test_that_are_spoiled_are_noticed(self):
        for number, words, instead, line in SPOILED:
            with self.subTest(words=words, instead=instead):
                names, language, whose, _ = SHOPS[number]
                texts = [text.replace("Gracias por su compra", "Gracias, muchas") for text in shop(SOURCE, names)]
                self.assertTrue(any(words in text for text in texts))
                spoiled = [text.replace(words, instead) for text in texts]
                self.assertIn(line, examples.complaints(spoiled, language, declares(whose[0])))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
