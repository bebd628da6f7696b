#!/usr/bin/env python3
"""The windows that the operator sees: what is on them, whether it fits, and how they are answered.

    dialogs_test.py PROGRAM_DIRECTORY

PROGRAM_DIRECTORY holds show_dialog.exe. The Wine prefix and the display are the environment's; a window
manager is up and xdotool is installed.
"""
import functools
import os
import pathlib
import re
import subprocess
import sys
import unittest

import programs
from shop import until

CLOSE, RETRY, YES, NO, OK = "2", "4", "6", "7", "1"
RED, BLACK = "0000ff", "000000"  # blue, green, red
FINE, DENSE = 96, 144  # dots per inch
DESKTOP = r"HKCU\Control Panel\Desktop"

EVERY_ROW = pathlib.Path(__file__).resolve().parents[3] / "golden/cases/dialogs/every_row.golden"


def rows(group):
    """Number of each row of the report, is it an error, caption, hint: as the golden session has them."""
    found = re.findall(rf'^>   lit  {group} (\d+) \((error|info)\) "(.*)" hint "(.*)"$',
                       EVERY_ROW.read_text("utf-8"), re.MULTILINE)
    return [(int(number), kind == "error", *texts) for number, kind, *texts in dict.fromkeys(found)]


PRINTER, FISCAL = rows("printer"), rows("fiscal")
assert (len(PRINTER), len(FISCAL)) == (9, 14)
# Number of the control of row 0, its picture and its label; the rows.
WORDS = {"printer": (400, 500, PRINTER), "fiscal": (600, 700, FISCAL)}
FIXED = {301: "Estado Impresora", 302: "Estado Fiscal", 303: "Estados", 304: "Impresora:",
         305: "Fiscal:", 2: "Cerrar", 4: "Reintentar"}
MEMORY_TEXT = ("Restan menos de 30 (treinta) cierres Z para que la memoria fiscal se complete (memoria "
               "fiscal llena). Consulte a su técnico fiscal para prevenir un bloqueo futuro por memoria "
               "fiscal llena.")


class Control:
    def __init__(self, fields):
        self.number, self.kind = int(fields[0]), fields[1]
        self.left, self.top, self.width, self.height, self.needs_width, self.needs_height = (
            int(each) for each in fields[2:8])
        self.colour, self.hint, self.text = fields[8], fields[10], fields[11]
        self.picture = None
        if re.fullmatch(r"(\d+ ){3}", fields[9]):
            self.picture = tuple(int(each) for each in fields[9].split())

    def holds(self, other):
        return (self.left <= other.left and other.left + other.width <= self.left + self.width
                and self.top <= other.top and other.top + other.height <= self.top + self.height)

    def meets(self, other):
        return (self.left < other.left + other.width and other.left < self.left + self.width
                and self.top < other.top + other.height and other.top < self.top + self.height)


class Shown:
    """What show_dialog printed about one window."""

    def __init__(self, lines):
        self.controls = []
        for line in lines:
            word, *fields = line.rstrip("\r\n").split("\t")
            if word == "control":
                self.controls.append(Control(fields))
            elif word == "window":
                self.caption, self.owner, self.caption_needs = fields[0], fields[5], int(fields[6])
                self.left, self.top, self.width, self.height = (int(each) for each in fields[1:5])
            elif word == "client":
                self.client = tuple(int(each) for each in fields)
            elif word == "screen":
                self.screen, self.density = (int(fields[0]), int(fields[1])), int(fields[2])
                self.grey = fields[3]
            elif word == "codepage":
                self.code_page = int(fields[0])
            elif word == "beeps":
                self.beeps = int(fields[0])
        self.by_number = {control.number: control for control in self.controls}


class Dialog:
    """show_dialog at work: the first window that it shows is there when the object is."""

    def __init__(self, *arguments):
        self.program = programs.Program([PROGRAM, *arguments])
        if not self.program.hear_output(rb"\nready\r\n"):
            raise AssertionError(f"{arguments}: ended with {self.program.wait()} after "
                                 f"{self.program.output()} {self.program.wines_words()}")
        self.shown = Shown(self.lines()[0])

    def lines(self):
        """Those up to the window's first answer, and those after it."""
        return [each.splitlines() for each in self.program.output().decode("utf-8").split("\nready\r\n")]

    def press(self, *keys):
        """Once it has the keyboard."""
        until(lambda: xdotool("getwindowfocus", "getwindowname") == self.shown.caption, "the focus", 0.05)
        xdotool("key", *keys)

    def end(self):
        """The lines printed after the answer, by their first word."""
        code = self.program.wait()
        rest = self.lines()[-1]
        assert code == 0, (code, rest, self.program.wines_words())
        return {line.split("\t")[0]: line.split("\t")[-1] for line in rest}


def show(*arguments):
    """What a dialog showed and how it ended: once for all who look at the same one."""
    return shown_at(tuple(sorted(os.environ.items())), Density.now, arguments)


@functools.cache
def shown_at(_environment, _density, arguments):
    dialog = Dialog(*arguments)
    return dialog.shown, dialog.end()


def typed(keys, *arguments):
    """The dialog answered at the keyboard, once it has the focus."""
    dialog = Dialog("with", "wait", *arguments)
    dialog.press(*keys)
    return dialog.end()


def wine(*arguments):
    return programs.run(arguments).returncode


def xdotool(*arguments):
    ended = subprocess.run(["xdotool", *arguments], stdout=subprocess.PIPE,
                           stderr=subprocess.DEVNULL, check=False)
    return ended.stdout.decode("utf-8").rstrip("\n")


class Density:
    """A system set to so many dots per inch, for programs that start meanwhile."""

    now = None

    def __init__(self, density):
        self.density = density

    def __enter__(self):
        assert wine("reg", "add", DESKTOP, "/v", "LogPixels", "/t", "REG_DWORD", "/d",
                    str(self.density), "/f") == 0
        Density.now = self.density

    def __exit__(self, *_):
        Density.now = None
        assert wine("reg", "delete", DESKTOP, "/v", "LogPixels", "/f") == 0


class DialogTest(unittest.TestCase):
    def assert_centred(self, shown):
        self.assertEqual(((shown.screen[0] - shown.width) // 2, (shown.screen[1] - shown.height) // 2),
                         (shown.left, shown.top))

    def assert_nothing_is_cut(self, shown):
        self.assertLessEqual(shown.caption_needs, shown.width)
        inside = Control(["0", "", "0", "0", *map(str, shown.client), "0", "0", "", "", "", ""])
        for control in shown.controls:
            with self.subTest(density=shown.density, text=control.text or control.number):
                self.assertTrue(inside.holds(control))
                if control.text:
                    spare = 8 if control.kind == "Button" else 0
                    self.assertLessEqual(control.needs_width + spare, control.width)
                    self.assertLessEqual(control.needs_height, control.height)

    def assert_nothing_overlaps(self, shown):
        frames = {301, 302, 303, 801}
        pieces = [control for control in shown.controls if control.number not in frames]
        for i, one in enumerate(pieces):
            for other in pieces[i + 1:]:
                self.assertFalse(one.meets(other), f"{one.text or one.number} {other.text or other.number}")


class TheStatusReport(DialogTest):
    def assert_row(self, shown, word, row, error, lit):
        picture_base, label_base, _ = WORDS[word]
        label = shown.by_number[label_base + row]
        red, green, blue = shown.by_number[picture_base + row].picture
        with self.subTest(word=word, row=row, lit=lit):
            self.assertEqual(label.colour, (RED if error else BLACK) if lit else shown.grey)
            if not lit:
                self.assertLess(max(red, green, blue) - min(red, green, blue), 10)
            elif error:
                self.assertGreater(red, green + 60)
            else:
                self.assertGreater(blue, red + 60)

    def assert_lit(self, words, printer, fiscal):
        shown, _ = show("with", CLOSE, "report", *words)
        for word, lit in (("printer", printer), ("fiscal", fiscal)):
            for row, error, _, _ in WORDS[word][2]:
                self.assert_row(shown, word, row, error, row in lit)
        self.assertEqual([shown.by_number[306].text, shown.by_number[307].text], list(words))

    def test_paper_out_alone(self):
        self.assert_lit(("4000", "0000"), {14}, set())

    def test_low_battery_and_memory_nearly_full_are_information(self):
        self.assert_lit(("0000", "0104"), set(), {2, 8})

    def test_every_row_lit(self):
        self.assert_lit(("FFFF", "FFFF"), {row[0] for row in PRINTER}, {row[0] for row in FISCAL})

    def test_texts(self):
        shown, _ = show("with", CLOSE, "report", "0000", "0000")
        self.assertEqual(shown.caption, "Error al ejecutar comando fiscal")
        for number, text in FIXED.items():
            self.assertEqual(shown.by_number[number].text, text)

    def test_captions_and_hints_of_the_rows(self):
        shown, _ = show("with", CLOSE, "report", "0000", "0000")
        for picture_base, label_base, rows in WORDS.values():
            for row, _, caption, hint in rows:
                label, picture = shown.by_number[label_base + row], shown.by_number[picture_base + row]
                self.assertEqual((label.text, label.hint, picture.hint), (caption, hint, hint))
        self.assertEqual(len(shown.controls), 2 * (len(PRINTER) + len(FISCAL)) + 9)

    def test_rows_stand_in_their_groups(self):
        shown, _ = show("with", CLOSE, "report", "0000", "0000")
        for group, members in ((301, range(400, 600)), (302, range(600, 800)), (303, range(304, 308))):
            for number in members:
                if number in shown.by_number:
                    self.assertTrue(shown.by_number[group].holds(shown.by_number[number]), number)

    def test_one_beep(self):
        self.assertEqual(show("with", CLOSE, "report", "4000", "0000")[0].beeps, 1)

    def test_in_the_middle_with_nothing_cut(self):
        for density in (FINE, DENSE):
            with Density(density):
                shown, _ = show("with", CLOSE, "report", "FFFF", "FFFF")
            self.assertEqual(shown.density, density)
            self.assert_centred(shown)
            self.assert_nothing_is_cut(shown)
            self.assert_nothing_overlaps(shown)

    def test_owned_by_the_host_which_waits(self):
        shown, ended = show("with", CLOSE, "report", "4000", "0000")
        self.assertEqual(shown.owner, "a disabled host")
        self.assertEqual(ended["host"], "enabled")

    def test_a_host_without_windows(self):
        shown, ended = show("without", RETRY, "report", "4000", "0000")
        self.assertEqual(shown.owner, "nobody")
        self.assertEqual(ended["answer"], "1")

    def test_answers(self):
        for how, answer in ((CLOSE, "0"), (RETRY, "1"), ("closebox", "0")):
            with self.subTest(how=how):
                self.assertEqual(show("with", how, "report", "0004", "0000")[1]["answer"], answer)

    def test_keyboard(self):
        for keys, answer in ((["Escape"], "0"), (["Return"], "0"), (["Tab", "Return"], "1"),
                             (["Tab", "space"], "1"), (["Tab", "Escape"], "0"),
                             (["Tab", "Tab", "Return"], "0")):
            with self.subTest(keys=keys):
                self.assertEqual(typed(keys, "report", "0004", "0000")["answer"], answer)

    def test_the_host_goes_on_and_may_show_another_dialog_meanwhile(self):
        dialog = Dialog("with", RETRY, "nested", "0004", "0000")
        self.assertEqual(dialog.shown.caption, "ATENCIÓN")
        ended = dialog.end()
        self.assertEqual(ended["answer"], "1")
        self.assertGreater(int(ended["ticks"]), 0)


class TheMemoryWarning(DialogTest):
    def test_texts_without_a_beep(self):
        shown, _ = show("with", CLOSE, "memory")
        self.assertEqual(shown.caption, "ATENCIÓN")
        texts = [control.text for control in shown.controls if control.text]
        self.assertEqual(texts, ["ATENCIÓN!", MEMORY_TEXT, "Cerrar"])
        self.assertIsNotNone(shown.by_number[802].picture)
        self.assertEqual(shown.beeps, 0)

    def test_in_the_middle_with_nothing_cut(self):
        for density in (FINE, DENSE):
            with Density(density):
                shown, _ = show("with", CLOSE, "memory")
            self.assertEqual(shown.density, density)
            self.assert_centred(shown)
            self.assert_nothing_is_cut(shown)
            self.assert_nothing_overlaps(shown)
            for number in (802, 803, 804):
                self.assertTrue(shown.by_number[801].holds(shown.by_number[number]))

    def test_answers(self):
        for how in (CLOSE, "closebox"):
            self.assertEqual(show("without", how, "memory")[1]["answer"], "0")
        for key in ("Escape", "Return", "space"):
            self.assertEqual(typed([key], "memory")["answer"], "0")


class MessageBoxes(DialogTest):
    def box(self, answer, style, title, text, owner="with"):
        shown, ended = show(owner, answer, "message", style, title, text)
        self.assertEqual(ended["answer"], answer)
        return shown

    def test_question_before_a_command(self):
        for answer in (YES, NO):
            shown = self.box(answer, "36", "Envia?", "EP_CortaPapel()")
            self.assertEqual(shown.caption, "Envia?")
            self.assertIn("EP_CortaPapel()", [control.text for control in shown.controls])

    def test_question_after_a_failed_exchange(self):
        text = "Error de Comunicación con la fiscal. Reintentar?"
        shown = self.box(NO, "4", "Error !", text)
        self.assertEqual(shown.caption, "Error !")
        self.assertIn(text, [control.text for control in shown.controls])

    def test_the_hosts_name_where_there_is_no_title(self):
        self.assertEqual(self.box(OK, "0", "", "Bateria Baja").caption, "show_dialog")

    def test_carriage_returns_break_lines(self):
        shown = self.box(OK, "0", "", r"Respuestas al ultimo comando: \r\rRespuesta_1: & ñ")
        told = next(control for control in shown.controls if "Respuestas" in control.text)
        self.assertEqual(re.sub(r"\|+", lambda bars: "/" * (len(bars.group()) // 2), told.text),
                         "Respuestas al ultimo comando: //Respuesta_1: & ñ")

    def test_zero_bytes_of_a_hosts_buffer_are_blanks_and_what_is_behind_them_is_seen(self):
        shown = self.box(YES, "36", "Envia?", r"EP_ImprimirPago(Efectivo\0\0\0\0,00000012345)")
        self.assertIn("EP_ImprimirPago(Efectivo    ,00000012345)",
                      [control.text for control in shown.controls])

    def test_owned_by_the_host_which_waits(self):
        self.assertEqual(self.box(OK, "0", "", "Hola").owner, "a disabled host")

    def test_a_host_without_windows(self):
        self.assertEqual(self.box(OK, "0", "", "Hola", owner="without").owner, "nobody")


class AService(unittest.TestCase):
    """Nobody can press what no screen shows: the answer that does no harm, at once."""

    def answer(self, *dialog):
        ended = programs.run([PROGRAM, "service", "none", *dialog])
        self.assertEqual(ended.returncode, 0, ended.wines_words())
        return ended.output().decode("utf-8").split("answer\t")[1].strip()

    def test_says_no_to_questions(self):
        self.assertEqual(self.answer("message", "36", "Envia?", "EP_CortaPapel()"), NO)
        self.assertEqual(self.answer("message", "4", "Error !", "Reintentar?"), NO)

    def test_takes_note_of_messages(self):
        self.assertEqual(self.answer("message", "0", "", "Hola"), OK)

    def test_closes_the_report_and_the_warning(self):
        self.assertEqual(self.answer("report", "4000", "0000"), "0")
        self.assertEqual(self.answer("memory"), "0")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    PROGRAM = str(pathlib.Path(sys.argv[1]).resolve() / "show_dialog.exe")
    unittest.main(argv=sys.argv[:1], verbosity=2)
