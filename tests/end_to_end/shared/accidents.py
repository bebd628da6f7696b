"""What a till with the safe mode lives through: told once, for every till. A till says how its program is started."""
import os

from shop import read, until

FAULTS = """
respuesta 2 de ítem: demorar 2 s
respuesta de cierre: desenchufar en byte 7
"""
STEPS = ["apertura", "item Cafe molido 2 x 1500.00", "item Yerba mate 1 x 890.50", "item Alfajor 3 x 120.25",
         "pago 5000.00", "cierre 00000001"]


class AKilledTillAndAPulledCable:
    added_settings = {"ModoSeguro": 1, "Diario": "diario.txt"}

    def start_printer(self):
        faults = self.path("fallas.txt")
        with open(faults, "w", encoding="utf-8") as file:
            file.write(FAULTS)
        self.printer_flags = ["--fallas", faults]
        return super().start_printer()

    def intended(self, words):
        journal = self.path("diario.txt")
        return os.path.exists(journal) and words in open(journal, encoding="cp1252").read()

    def test_leave_the_same_in_the_tills_book_and_on_the_paper(self):
        killed = self.start_till()
        until(lambda: self.intended("Yerba"), "the second item under way")
        killed.kill()
        killed.wait()
        out, err = self.start_till().communicate()
        self.assertRegex(out, "cierre +ok 00000001\n")
        self.assertEqual(err, "")
        self.assertEqual(read(self.path("caja.txt")).splitlines(), STEPS)
        paper = self.paper()
        for words, times in (("TIQUE\n", 1), ("Nº 00000001", 1), ("Cafe", 1), ("Yerba", 1), ("Alfajor", 1),
                             ("T O T A L                     $ 4.251,25", 1), ("Efectivo", 1), ("CANCELADO", 0)):
            self.assertEqual(paper.count(words), times, paper)
