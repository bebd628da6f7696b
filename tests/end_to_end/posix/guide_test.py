"""The guide's examples, as they stand in the guide."""

import os
import re
import subprocess
import sys

from shop import ENV, Shop, read, until


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
                text = text.replace('FAMILIA = "TQ"', f'FAMILIA = "{self.family}"')
                file.write(text.replace("ESPERA = 6 ", "ESPERA = 0 "))  # no frame is on its way here

    def host_environment(self):
        return dict(super().host_environment(), LD_LIBRARY_PATH=os.path.dirname(ENV["KESTRA_LIBRARY"]))

    def run_program(self, *command, ends_with=0):
        ended = subprocess.run(command, cwd=self.folder, env=self.host_environment(), text=True, timeout=90,
                               capture_output=True, start_new_session=True, check=False)
        self.assertEqual(ended.returncode, ends_with, ended.stderr)
        self.assertNotIn("Traceback", ended.stderr)
        return ended.stdout if ends_with == 0 else ended.stderr

    def run_example(self, name, ends_with=0):
        return self.run_program(sys.executable, name, ends_with=ends_with)


class ATicketPrinter(Guide):
    def test_every_example_is_run_here(self):
        tried = ["tique.c", "kestra.py", "tique.py", "factura_a.py", "nota_de_credito.py",
                 "nota_de_credito_formulario.py", "cierre_z.py", "que_paso.py",
                 "tras_un_corte.py", "cierre_seguro.py"]
        self.assertEqual(list(examples()), tried)

    def test_a_ticket_from_c(self):
        # The sanitizers' run time comes to this host as to the others: before it.
        preloaded = ["-Wl,--allow-shlib-undefined"] if "KESTRA_PRELOAD" in ENV else []
        self.run_program(ENV["CC"], "tique.c", "-I" + ENV["KESTRA_INCLUDE"],
                         ENV["KESTRA_LIBRARY"], "-o", "tique", *preloaded)
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
    """The closing says failure; the shop has one document all the same, and knows its number."""

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

    def issue_nothing(self, words):
        """It ends in words, and leaves no document open."""
        self.assertIn(words, self.run_example("cierre_seguro.py", ends_with=1))
        self.assertNotIn("RECIBI(MOS)", self.paper())
        self.assertNotIn("documento abierto", read(self.path("traza.txt")).splitlines()[-1])


class TheOutcomeOfAReport(Doubt):
    rule = "comando 2 de 9: bateria_baja\nrespuesta 3 de 9: callar"

    def test_is_told_in_a_sentence(self):
        done = self.run_example("que_paso.py")
        self.assertEqual(done, "El informe está en el papel. La operación se hizo.\n")
        low = self.run_example("que_paso.py")
        self.assertTrue(low.startswith("El informe está en el papel. La impresora tiene la batería baja."), low)
        lost = self.run_example("que_paso.py")
        self.assertTrue(lost.startswith("Hay que mirar el papel. La impresora no contestó."), lost)

    def test_of_a_printer_that_is_not_there(self):
        self.stop_printer()
        none = self.run_example("que_paso.py")
        self.assertRegex(none, r"^No se imprimió \(causa 2\d\d\)\. .* La operación no se mandó a la impresora\.")


class ATillThatDiesAtTheClosing(Doubt):
    rule = "en la 1ra respuesta de E: callar"
    added_settings = {"ModoSeguro": 1, "Diario": "diario.txt"}

    def test_learns_at_its_next_start_that_the_ticket_was_issued(self):
        till = subprocess.Popen([sys.executable, "tique.py"], cwd=self.folder, env=self.host_environment(),
                                start_new_session=True)
        self.addCleanup(till.wait)
        self.addCleanup(till.kill)
        until(lambda: "Cerrar tique" in read(self.path("traza.txt")), "the closing")
        till.kill()
        self.assertRegex(self.run_example("tras_un_corte.py"),
                         r"^EP_Cerr+arComprobanteFiscal\('FC','B'\) 1 00000001\n$")
        self.assertEqual(self.run_example("tras_un_corte.py"), "Nada pendiente\n")
        paper = self.paper()
        self.assertEqual(paper.count("TIQUE\n"), 1, paper)


# What befalls the closing, the rule that makes it so, and the document that there is all the same.
ISSUED = (
    ("TheAnswerIsLost", "TQ", "en la 1ra respuesta de E: callar", "TIQUE\n"),
    ("TheCommandIsLost", "TQ", "en el 1er comando de E: perder", "TIQUE\n"),
    ("TheAnswerToAnInvoiceIsLost", "TF", "en la 1ra respuesta de e: callar", "TIQUE FACTURA"),
    ("TheBatteryIsLow", "TQ", "comando 1 de *: bateria_baja", "TIQUE\n"),
    ("TheBatteryFallsBeforeTheClosing", "TQ", "comando 1 de E: bateria_baja", "TIQUE\n"),
    ("TheBatteryIsLowAndTheAnswerIsLost", "TF",
     "comando 1 de e: bateria_baja\nrespuesta 1 de e: callar", "TIQUE FACTURA"),
    ("TheDayEndsBeforeTheClosing", "TQ", 'comando 1 de E: reloj = "2099-01-01 00:00:00"', "TIQUE\n"),
)
# And what keeps the example from issuing any, with its words.
NOT_ISSUED = (
    ("ThePrinterFailsAtTheItem",
     "comando 1 de B: falla_de_impresora\ncomando de D: falla_de_impresora = no", "no se pudo emitir"),
    ("ThePrinterIsSilent", "cada respuesta de *: callar", "no informa su numeración"),
)


def story(name, family, rule, test):
    """A class of one test."""
    globals()[name] = type(name, (Doubt,), {"family": family, "rule": rule, "test_the_shop_knows": test,
                                            "__module__": __name__})


for row_name, row_family, row_rule, row_title in ISSUED:
    story(row_name, row_family, row_rule, lambda self, title=row_title: self.issue(title))
for row_name, row_rule, row_words in NOT_ISSUED:
    story(row_name, "TQ", row_rule, lambda self, words=row_words: self.issue_nothing(words))


class TheDayIsOver(Doubt):
    rule = 'comando 1 de E: reloj = "2099-01-01 00:00:00"'

    def test_nothing_is_opened_until_the_closing_z(self):
        self.run_example("cierre_seguro.py")
        refused = self.run_example("cierre_seguro.py", ends_with=1)
        self.assertIn("no se pudo emitir", refused)
        self.assertRegex(self.run_example("cierre_z.py"), r"^Z 0\n")
        self.assertEqual(self.run_example("cierre_seguro.py"), "Comprobante 00000002\n")


del Guide, Doubt  # what they share is no test
