"""A language's calls as the manual writes them: all of them are built, and the manual's days are lived with them."""
import json
import os
import pathlib
import re
import shutil
import subprocess
import tempfile

import manual_calls
from shop import ENV, read

TOOLS = manual_calls.Tools(pathlib.Path(ENV["KESTRA_PRINTER"]), pathlib.Path(ENV["KESTRA_LIBRARY"]))
MANUAL = manual_calls.SOURCE / "docs/manual"


def without_times(text):
    """The printer's clock goes on between one call and the next; its date stays."""
    return re.sub(r"(?m)^(261121)\d{6}$|\d\d:\d\d(:\d\d)?", r"\1", text)


def lines_without_times(lines):
    return without_times("\n".join(lines)).split("\n")


def paper(folder):
    """What is on each document of the roll."""
    return {path.name: without_times(path.read_text(encoding="utf-8")) for path in sorted((folder / "papel").glob("*.txt"))}


def line(folder):
    """What went to the printer, field by field."""
    text = (folder / "traza.jsonl").read_text(encoding="utf-8", errors="replace")
    commands = [json.loads(each)["comando"] for each in text.splitlines()]
    return [(command["byte"], [(field["nombre"], field["valor"].rstrip()) for field in command["campos"]]) for command in commands]


class ManualCalls:
    maxDiff = None

    def build_program(self, row, text):
        """Written and built in the language's folder."""
        path = pathlib.Path(self.host, manual_calls.programs.PROGRAMS[row.language].file)
        path.parent.mkdir(exist_ok=True)
        encoding = "utf-8" if row.language in manual_calls.languages.UTF_8 else "cp1252"
        path.write_text(text, encoding=encoding)
        for command in row.build:
            made = subprocess.run(self.filled(command), cwd=self.host, env=self.environment(), text=True, encoding="utf-8",
                                  errors="replace", capture_output=True, check=False)
            self.assertEqual(made.returncode, 0, f"{' '.join(command)}:\n{made.stdout}{made.stderr}")

    def run_calls(self, row, folder):
        ran = subprocess.run(self.filled(row.run), cwd=folder, env=self.environment(), capture_output=True,
                             stdin=subprocess.DEVNULL, start_new_session=True, timeout=600, check=False)
        mode = manual_calls.MODES[row.language in manual_calls.languages.UTF_8]
        said = ran.stdout.decode("utf-8" if mode == 2 else "cp1252")
        self.assertEqual(ran.returncode, 0, said + ran.stderr.decode("utf-8", "replace"))
        return said.splitlines(), mode

    def test_the_manuals_examples_are_built(self):
        row = manual_calls.ROWS[self.language.name]
        self.build_program(row, manual_calls.program_of(row, manual_calls.EXAMPLES))

    def test_the_manuals_days_are_those_of_its_till(self):
        row = manual_calls.ROWS[self.language.name]
        for day in manual_calls.DAYS:
            with self.subTest(day.name), tempfile.TemporaryDirectory(prefix="kestra-manual-") as place:
                place = pathlib.Path(place)
                calls = manual_calls.live(TOOLS, MANUAL, place / "caja", day, manual_calls.FUNCTIONS_OF_ALL)
                self.build_program(row, manual_calls.program_of(row, manual_calls.calls_of(row, day)))
                folder = place / "programa"
                folder.mkdir()
                settings = manual_calls.settings(MANUAL, {"TipoComprobante": day.family, **day.settings})
                (folder / "Fiscal.ini").write_text(settings, encoding="cp1252")
                with manual_calls.printer(TOOLS, folder, *day.options):
                    said, mode = self.run_calls(row, folder)
                self.assertEqual(lines_without_times(said), lines_without_times(manual_calls.told(calls, mode)))
                self.assertEqual(line(folder), line(place / "caja"))
                self.assertEqual(paper(folder), paper(place / "caja"))
                self.assertNotEqual(paper(folder), {})

    def test_the_manuals_program_reads_a_line_of_the_heading(self):
        row = manual_calls.ROWS[self.language.name]
        self.build_program(row, manual_calls.programs.whole(manual_calls.language_of(row), manual_calls.FUNCTIONS) + "\n")
        said, _ = self.run_calls(row, self.folder)
        self.assertEqual([line.rstrip() for line in said], [""])
        self.assertIn("EP_GetEncabezado", read(self.path("fiscal.log")))

    def test_the_manuals_first_ticket_is_printed_as_it_says(self):
        """From the folder of Fiscal.ini, with a copy of the language's folder in it."""
        ticket = manual_calls.TICKETS[self.language.folder or self.language.name]
        copy = pathlib.Path(self.folder, ticket.folder)
        shutil.copytree(manual_calls.SOURCE / "hosts" / ticket.folder, copy, ignore=shutil.ignore_patterns("node_modules"))
        path = copy / ticket.file
        path.parent.mkdir(exist_ok=True)
        path.write_text(manual_calls.code_of(manual_calls.SOURCE, ticket) + "\n", encoding="utf-8")
        commands = ticket.run.replace("/usr/local/lib", os.path.dirname(ENV["KESTRA_LIBRARY"]))
        ran = self.run_here(["sh", "-e", "-c", commands])
        self.assertEqual((ran.returncode, ran.stdout.splitlines()[-1:]), (0, ["00000001"]), ran.stdout + ran.stderr)
        self.assertIn("Yerba mate 1 kg", self.paper())
