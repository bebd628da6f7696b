#!/usr/bin/env python3
"""The declares for Python on the built library.

    python_test.py SOURCE_DIRECTORY LIBRARY
"""
import ctypes
import os
import pathlib
import sys
import tempfile
import unittest

SOURCE, LIBRARY = pathlib.Path(sys.argv[1]), sys.argv[2]
sys.path.insert(0, str(SOURCE / "hosts/python"))

from kestra import _declaraciones as kestra  # noqa: E402

BLANK = b" " * 50


class Declares(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        os.chdir(folder.name)  # without a Fiscal.ini
        cls.addClassCleanup(os.chdir, SOURCE)
        cls.library = kestra.cargar(LIBRARY)
        cls.told = []

        def message(context, text, title, style):
            cls.told.append(text)
            return 1

        cls.answer = kestra.KestraMensaje(message)
        operator = kestra.KestraOperador(tamano=ctypes.sizeof(kestra.KestraOperador), mensaje=cls.answer)
        cls.library.Kestra_DefinirOperador(ctypes.byref(operator))

    def test_every_kind_of_argument_gets_there(self):
        self.assertEqual(self.library.EP_Init(), 0)
        self.assertEqual(self.library.Kestra_Causa(), kestra.KESTRA_CAUSA_PUERTO_NUMERO)
        self.assertIn(b"ImpresoraPuerto", b"".join(self.told))
        self.assertEqual(self.library.EP_ImprimirItem(BLANK, 1, 2.5, 21, 0, BLANK, BLANK, BLANK), 1)
        self.assertEqual(self.library.EP_ReporteZporNumeros(1, 2, 3), 1)
        sentence = ctypes.create_string_buffer(400)
        length = self.library.Kestra_CausaTexto(sentence, len(sentence))
        self.assertEqual(length, len(sentence.value))

    def test_a_number_that_is_no_text_is_turned_away(self):
        with self.assertRaises(ctypes.ArgumentError):
            self.library.EP_ImprimirTextoFiscal(1.5)

    def test_say_which_bytes_are_read_and_written(self):
        _, arguments = kestra.FUNCIONES["EP_CerrarComprobanteFiscal"]
        self.assertEqual([(name, size) for name, _, size in arguments], [("tipo", 2), ("letra", 1), ("numero", 8)])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
