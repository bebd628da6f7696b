#!/usr/bin/env python3
"""The calls that each language's declares describe, made in Kestra.dll of 32 bits against the virtual printer.

What is proven is that the declares, as their languages' rules are understood here, are the library's own calls; the
languages themselves do not run.
"""
import os
import pathlib
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))

import story  # noqa: E402
from declares import LANGUAGES, NOT_FOR_PROGRAMS, header, text_of  # noqa: E402
from shop import ENV, SHARED, read  # noqa: E402
from tcp_test import NetworkShop  # noqa: E402
from till import Till, TillProgram  # noqa: E402

SOURCE = HERE.parents[2]
CALLER = os.path.join(ENV["KESTRA_BIN"], "declare_caller.exe")
ROWS = story.DAY + story.REST


def of_32_bits():
    return {name: language for name, language in LANGUAGES.items() if language.pointer == 4}


def calls(lines):
    """The lines that tell of a call; without the time of day."""
    return [line if not line.startswith("EP_ObtenerFechaHora") else line[:line.rindex(" ")]
            for line in lines if " = " in line]


class ADayOfCalls(NetworkShop, Till):
    family = "TF"
    maxDiff = None

    def line_settings(self):
        return {"ImpresoraDispositivo": self.device}

    def make(self, lines):
        """What the caller says of the calls."""
        pathlib.Path(self.folder, "calls.txt").write_text("\n".join(lines) + "\n", encoding="ascii")
        program = TillProgram([CALLER, ENV["KESTRA_LIBRARY"], "calls.txt"], self.folder)
        out, err = program.communicate()
        self.assertEqual((program.returncode, err), (0, ""), out[-2000:])
        return out.splitlines()

    def day(self, declares):
        """What came of every row, by these declares, and the paper."""
        known = {declare.name: declare for declare in reversed(declares)}
        out = self.make([story.line(known[name], values) for _, name, *values in ROWS])
        return out, self.paper()

    def expect_results(self, out):
        told = [line for line in out if " = " in line]
        self.assertEqual(len(told), len(ROWS), out)
        for (wanted, name, *_), line in zip(ROWS, told):
            with self.subTest(name):
                self.assertRegex(line, rf"\A{name} = {'-?[0-9]+' if wanted is None else wanted} stack 0\b")


class TheHeadersDay(ADayOfCalls):
    def test_has_every_export_and_the_paper_of_the_day_in_c(self):
        prototypes = header(SOURCE)
        self.assertEqual({name for _, name, *_ in ROWS} | set(NOT_FOR_PROGRAMS), set(prototypes))
        out, paper = self.day(list(prototypes.values()))
        self.expect_results(out)
        day = read(os.path.join(SHARED, "jornada.txt")).rstrip("\n")
        self.assertEqual(paper[:len(day)], day)


class EachLanguagesDay(ADayOfCalls):
    def test_is_the_same(self):
        seen = {}
        declares = {name: language.read(text_of(SOURCE, language)) for name, language in of_32_bits().items()}
        for name, those in {"": list(header(SOURCE).values()), **declares}.items():
            self.stop_printer()
            self.port = 0
            self.printer = self.start_printer()
            self.write_settings()
            out, paper = self.day(those)
            os.unlink(self.path("papel.txt"))
            with self.subTest(name):
                self.expect_results(out)
                seen.setdefault("calls", calls(out))
                seen.setdefault("paper", paper)
                self.assertEqual(calls(out), seen["calls"])
                self.assertEqual(paper, seen["paper"])


class TheCaller(ADayOfCalls):
    def test_notices_what_a_wrong_declare_does_to_the_stack(self):
        for line, left in (("EP_DatosCliente stdcall w:00000000 w:00000000 w:00000000 w:00000000", 4),
                           ("EP_Copias stdcall w:00000000 w:00000000", -4),
                           ("EP_Copias stdcall w:0000000000000000", -4),
                           ("EP_DatosCliente cdecl w:00000000 w:00000000 w:00000000 w:00000000 w:00000000", 20),
                           ("EP_Copias stdcall w:00000000", 0)):
            with self.subTest(line):
                self.assertEqual(self.make([line]), [f"{line.split()[0]} = 0 stack {left}"])
        self.assertEqual(self.make(["EP_Copia stdcall w:00000000"]), ["EP_Copia is not there"])

    def test_makes_the_call_of_a_spoiled_declare_as_it_stands(self):
        for name, words, instead, call, told in (
                ("Visual Basic 6", "ByVal cajon As Long", "cajon As Long", ("EP_AbrirCajonDeDinero", 1), "= 1 stack 0"),
                ("Visual FoxPro", "DOUBLE total", "SINGLE total", ("EP_AjusteRedondeo", 1.0), "= 0 stack 4"),
                ("Clarion", "REAL total),LONG,PASCAL", "REAL total),LONG,C", ("EP_AjusteRedondeo", 1.0), "= 0 stack 8"),
                ("Delphi", "lineas: Integer", "lineas, mas: Integer", ("EP_AvanzaPapel", 1), "= 0 stack -4")):
            for spoiled, outcome in ((False, "= 0 stack 0"), (True, told)):
                with self.subTest(name, spoiled=spoiled):
                    text = text_of(SOURCE, LANGUAGES[name])
                    declares = LANGUAGES[name].read(text.replace(words, instead) if spoiled else text)
                    known = {declare.name: declare for declare in declares}
                    lines = [story.line(known[export], values) for export, *values in (("EP_Init",), call)]
                    self.assertEqual(self.make(lines)[-1], f"{call[0]} {outcome}")


if __name__ == "__main__":
    unittest.main(verbosity=2)
