"""Texts and settings are the same whatever code page the Windows they run on has for its old programs."""

import os
import subprocess
import tempfile
import unittest

import dialogs_test
import programs
from shop import ENV
from till import Till

SYSTEMS = {"ja_JP": 932, "ru_RU": 1251}  # one whose characters take two bytes, one without our accents


class OtherSystems(Till):
    """Wine has the code page of the user's locale, and the machine may have none but its own."""

    @classmethod
    def setUpClass(cls):
        """Once: a locale takes long to make, and programs of one environment have one starter."""
        dialogs_test.PROGRAM = os.path.join(ENV["KESTRA_BIN"], "show_dialog.exe")
        cls.locales = tempfile.TemporaryDirectory(prefix="kestra-")
        cls.addClassCleanup(cls.locales.cleanup)
        for locale in SYSTEMS:
            subprocess.run(["localedef", "-i", locale, "-f", "UTF-8",
                            os.path.join(cls.locales.name, locale + ".UTF-8")], check=True)

    def setUp(self):
        super().setUp()
        self.change("LOCPATH", self.locales.name)

    def change(self, name, value):
        before = os.environ.get(name)
        self.addCleanup(lambda: os.environ.pop(name) if before is None
                        else os.environ.update({name: before}))
        os.environ[name] = value

    def each(self):
        for locale, code_page in SYSTEMS.items():
            self.change("LC_ALL", locale + ".UTF-8")
            with self.subTest(code_page=code_page):
                yield code_page

    def test_the_memory_warning(self):
        for code_page in self.each():
            shown, _ = dialogs_test.show("with", dialogs_test.CLOSE, "memory")
            self.assertEqual((shown.code_page, shown.caption), (code_page, "ATENCIÓN"))
            texts = [control.text for control in shown.controls if control.text]
            self.assertEqual(texts, ["ATENCIÓN!", dialogs_test.MEMORY_TEXT, "Cerrar"])

    def test_the_status_report(self):
        rows = {text: hint for _, _, table in dialogs_test.WORDS.values() for *_, text, hint in table}
        for code_page in self.each():
            shown, _ = dialogs_test.show("with", dialogs_test.CLOSE, "report", "FFFF", "FFFF")
            self.assertEqual(shown.code_page, code_page)
            told = {control.text: control.hint for control in shown.controls if control.text in rows}
            self.assertEqual(told, rows)

    def test_a_message(self):
        text = "Error de Comunicación con la fiscal. Reintentar?"
        for code_page in self.each():
            shown, _ = dialogs_test.show("with", dialogs_test.NO, "message", "4", "Año ñandú", text)
            self.assertEqual((shown.code_page, shown.caption), (code_page, "Año ñandú"))
            self.assertIn(text, [control.text for control in shown.controls])

    def test_settings_are_read_byte_for_byte(self):
        program = os.path.join(ENV["KESTRA_BIN"], "kestra_contract_tests.exe")
        for _ in self.each():
            ended = programs.run([program, "--gtest_filter=ProfileTest.*"], folder=self.folder)
            said = ended.output()
            self.assertEqual(ended.returncode, 0, said.decode("cp1252", "replace"))
            self.assertIn(b"ProfileTest.EveryByteOfAValueStaysAsItIs", said)

    def test_a_name_with_accents_comes_from_the_settings_into_the_log(self):
        self.write_settings(ImpresoraDispositivo="COMÁSÍÑ")
        for _ in self.each():
            out, _ = self.run_program(ENV["KESTRA_CLOCK"])
            self.assertTrue(out.startswith("(1, "), out)
            self.assertIn("(No existe el dispositivo COMÁSÍÑ) in procedure Enviar", self.log())
            os.unlink(self.path("fiscal.log"))


if __name__ == "__main__":
    unittest.main()
