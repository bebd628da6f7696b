"""The guide's examples, as they stand in the guide."""

import os
import re
import subprocess
import sys

from shop import ENV, Shop, read


def examples():
    """Name and text of each example: a block of code whose first line is its file's name."""
    found = {}
    for block in re.findall(r"```(?:python|c)\n(.*?)```", read(ENV["KESTRA_GUIDE"]), re.DOTALL):
        name = re.match(r"(?:# |/\* )([a-z_]+\.(?:py|c))\b", block)
        if name:
            found[name.group(1)] = block
    return found


class Guide(Shop):
    def setUp(self):
        super().setUp()
        for name, text in examples().items():
            with open(self.path(name), "w", encoding="utf-8") as file:
                file.write(text.replace('FAMILIA = "TQ"', f'FAMILIA = "{self.family}"'))

    def run_program(self, *command):
        environment = dict(self.host_environment(),
                           LD_LIBRARY_PATH=os.path.dirname(ENV["KESTRA_LIBRARY"]))
        ended = subprocess.run(command, cwd=self.folder, env=environment, text=True, timeout=90,
                               capture_output=True, start_new_session=True, check=False)
        self.assertEqual(ended.returncode, 0, ended.stderr)
        return ended.stdout

    def run_example(self, name):
        return self.run_program(sys.executable, name)


class ATicketPrinter(Guide):
    def test_every_example_is_run_here(self):
        tried = ["tique.c", "kestra.py", "tique.py", "factura_a.py", "nota_de_credito.py",
                 "nota_de_credito_formulario.py", "cierre_z.py", "cierre_seguro.py"]
        self.assertEqual(list(examples()), tried)

    def test_a_ticket_from_c(self):
        self.run_program(ENV["CC"], "tique.c", "-I" + ENV["KESTRA_INCLUDE"],
                         ENV["KESTRA_LIBRARY"], "-o", "tique")
        self.assertEqual(self.run_program("./tique"), "Tique 00000001\n")

    def test_a_ticket_and_the_closing(self):
        self.assertEqual(self.run_example("tique.py"), "(0, '00000001')\n")
        closing = self.run_example("cierre_z.py")
        self.assertRegex(closing, r"^Z 0\n0000100000001\d{66}\n$")


class ATicketInvoicePrinter(Guide):
    family = "TF"

    def test_an_invoice_and_its_credit_note(self):
        self.assertEqual(self.run_example("factura_a.py"), "(0, '00000001')\n")
        self.assertEqual(self.run_example("nota_de_credito.py"), "(0, '00000001')\n")


class AFormPrinter(Guide):
    family = "FC"

    def test_an_invoice_and_its_credit_note(self):
        self.assertEqual(self.run_example("factura_a.py"), "(0, '00000001')\n")
        self.assertEqual(self.run_example("nota_de_credito_formulario.py"), "0\n")


class Doubt(Guide):
    """The close goes wrong once; the shop has one document all the same, and knows its number."""

    rule = ""

    def start_printer(self):
        self.printer_flags = ["--fallas", self.path("fallas.txt")]
        with open(self.path("fallas.txt"), "w", encoding="utf-8") as file:
            file.write(self.rule + "\n")
        return super().start_printer()

    def issue(self, title):
        self.assertEqual(self.run_example("cierre_seguro.py"), "Comprobante 00000001\n")
        paper = self.paper()
        self.assertEqual(paper.count(title), 1, paper)
        self.assertNotIn("CANCELADO", paper)


class TheAnswerIsLost(Doubt):
    rule = "en la 1ra respuesta de E: callar"

    def test_the_ticket_is_known_all_the_same(self):
        self.issue("TIQUE\n")


class TheCommandIsLost(Doubt):
    rule = "en el 1er comando de E: perder"

    def test_the_ticket_is_closed_again(self):
        self.issue("TIQUE\n")


class TheAnswerToAnInvoiceIsLost(Doubt):
    family = "TF"
    rule = "en la 1ra respuesta de e: callar"

    def test_its_own_counter_is_looked_at(self):
        self.issue("TIQUE FACTURA")


del Guide, Doubt  # what they share is no test
