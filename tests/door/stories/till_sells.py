"""The till in the browser against the real door and the virtual printer: whatever happens, papers and page agree."""

import re

from counter import came_out, until
from doorway import Doorway
from till import TillStory


def body_of(text):
    """The lines of a ticket that do not depend on the shop or the moment."""
    lines = text.splitlines()
    first = next(at for at, line in enumerate(lines) if line.startswith("CANT. x"))
    last = next(at for at, line in enumerate(lines) if at > first and line.startswith("===="))
    return [line.rstrip() for line in lines[first:last]]


class TheTillSells(Doorway, TillStory):
    def setUp(self):
        super().setUp()
        self.use_browser()
        self.come_in()
        self.page.wait("#maquina.bien")

    def paper(self):
        return self.printer.paper.read_text(encoding="utf-8")

    def sell_one(self, words, **how):
        self.add(words, "1500.00", "2")
        self.charge("5000", **how)

    def agree(self, *words):
        """Each of these articles was sold on one valid paper, whose number the page shows; nothing else was."""
        shown = {number for _, text in self.shown("hecho") for number in re.findall(r"\b\d{8}\b", text)}
        printed = []
        for word in words:
            good, _ = came_out(self.paper(), word)
            self.assertEqual(len(good), 1, f"{word}: {good}")
            printed += good
        self.assertEqual(shown, set(printed))
        return printed

    def shown(self, state):
        return [row for row in self.requests() if row[0] == state]

    def wait_shown(self, state, count):
        until(lambda: len(self.shown(state)) == count, f"{count} x {state}: {self.requests()}")

    def test_the_ticket_on_screen_is_that_on_paper(self):
        self.add("Resma A4", "320", "10")
        self.add("Diccionario", "4500.00", "2", "10.5")
        self.page.fill("#descuento", "200")
        self.charge("20000", "Transferencia")
        self.page.wait("#mensaje.bien", "número 00000001")
        self.assertEqual(body_of(self.ticket()), body_of(self.paper()))
        self.agree("Resma")
        self.assertEqual(self.no_errors(), [])

    def test_an_invoice_a_has_its_customer(self):
        self.customer("Responsable inscripto", "Libreria Muñoz S.R.L.", "30000000007", "Belgrano 1234")
        self.add("Resma A4", "320", "10")
        self.page.wait("#clase", "factura A")
        self.page.wait("#total", "$ 3.872,00")
        self.charge("4000")
        self.page.wait("#mensaje.bien", "número 00000001")
        for words in ('TIQUE FACTURA "A"', "Libreria Muñoz S.R.L.", "CUIT: 30000000007", "$ 3.872,00", "Su vuelto"):
            self.assertIn(words, self.ticket())
            self.assertIn(words, self.paper())
        self.agree("Resma")

    def test_the_network_is_cut_before_the_request_arrives(self):
        self.witness.cut("before")
        self.page.wait("#puerta.mal")
        self.sell_one("Cafe")
        self.page.wait("#mensaje.ojo", "No hay conexión con la puerta")
        self.assertIn("TODAVÍA NO SE IMPRIMIÓ", self.ticket())
        self.assertNotIn("Cafe", self.paper())
        self.witness.mend()
        self.page.wait("#mensaje.bien", "número 00000001")
        self.page.wait("#puerta.bien")
        self.agree("Cafe")

    def test_the_network_is_cut_in_the_middle_of_a_sale(self):
        self.witness.cut("after")
        self.sell_one("Cafe")
        until(lambda: "Su vuelto" in self.paper(), "the paper")
        self.page.wait("#mensaje.ojo", "No hay conexión con la puerta")
        self.witness.mend()
        self.page.wait("#mensaje.bien", "número 00000001")
        self.agree("Cafe")
        self.assertEqual(body_of(self.ticket()), body_of(self.paper()))

    def test_sales_without_a_network_come_in_their_order(self):
        self.witness.cut("before")
        words = ["Cafe", "Yerba", "Alfajor"]
        for each in words:
            self.sell_one(each)
        self.wait_shown("pendiente", 3)
        self.witness.mend()
        self.wait_shown("hecho", 3)
        self.assertEqual(self.agree(*words), ["00000001", "00000002", "00000003"])

    def test_the_tab_is_closed_in_the_middle_of_a_sale(self):
        for word in ("Cafe", "Yerba", "Alfajor"):
            self.sell_one(word)
            self.page.wait("#pedidos li")
            self.page.leave()
            self.come_in()
            self.page.wait("#pedidos li")
        self.wait_shown("hecho", 3)
        self.agree("Cafe", "Yerba", "Alfajor")

    def test_the_tab_is_closed_while_the_answer_is_lost(self):
        self.witness.cut("after")
        self.sell_one("Cafe")
        until(lambda: "Su vuelto" in self.paper(), "the paper")
        self.page.leave()
        self.witness.mend()
        self.come_in()
        self.page.wait("#mensaje.bien", "número 00000001")
        self.agree("Cafe")

    def test_the_door_is_killed_in_the_middle_of_a_sale(self):
        self.printer.fault("respuesta 1 de ítem: demorar 3 s")
        self.sell_one("Cafe")
        until(lambda: "Cafe" in self.paper(), "the item on the paper")
        self.door.kill()
        self.page.wait("#puerta.mal")
        self.sell_one("Yerba")
        self.door.start()
        until(lambda: all(state in ("hecho", "no_hecho") for state, _ in self.requests()), "what became of both")
        done = [word for word in ("Cafe", "Yerba") if came_out(self.paper(), word)[0]]
        self.assertIn("Yerba", done)
        self.agree(*done)
        self.page.wait("#puerta.bien")

    def test_the_printer_is_unplugged_in_the_middle_of_a_sale(self):
        self.printer.fault("respuesta de cierre: desenchufar en byte 7")
        self.sell_one("Cafe")
        self.wait_shown("hecho", 1)
        self.agree("Cafe")

    def test_the_printer_is_not_there(self):
        self.unplug()
        self.sell_one("Cafe")
        self.page.wait("#mensaje.mal", "La operación no se mandó a la impresora.")
        self.page.wait("#maquina.mal")
        self.wait_shown("no_hecho", 1)
        self.plug()
        self.page.wait("#maquina.bien")
        self.sell_one("Yerba")
        self.wait_shown("hecho", 1)
        self.agree("Yerba")
        self.assertEqual(came_out(self.paper(), "Cafe")[0], [])

    def test_the_paper_runs_out_and_the_page_says_so(self):
        self.printer.switch(sin_papel=True)
        self.page.wait("#papel.mal", "sin papel")
        self.page.wait("#avisos", "Coloque papel")
        self.printer.switch(sin_papel=False)
        until(lambda: self.page.text("#avisos") == "", "the warning to go")

    def test_closes_the_day(self):
        self.sell_one("Cafe")
        self.page.wait("#mensaje.bien", "número")
        self.page.click("#operaciones summary")
        self.page.click("[data-informe=z]")
        self.page.click("#dialogo-seguro [value=si]")
        self.page.wait("#mensaje.bien", "Cierre Z: hecho, número 00000001")
        self.assertIn("C I E R R E   Z", self.paper())

    def test_gives_one_back(self):
        self.page.click("#devolucion")
        self.customer("Monotributo", "Ana Peña", "20123456786")
        self.add("Cafe", "100")
        self.charge()
        self.page.wait("#mensaje.bien", "número 00000001")
        self.assertIn("NOTA DE CRÉDITO", self.paper())
        self.agree("Cafe")


class ATicketPrinter(Doorway, TillStory):
    family = "TQ"

    def test_prints_tickets(self):
        self.use_browser()
        self.come_in()
        self.page.wait("#maquina.bien")
        self.add("Cafe molido", "1500", "0.25")
        self.page.wait("#clase", "tique B")
        self.charge("500")
        self.page.wait("#mensaje.bien", "número 00000001")
        self.assertEqual(body_of(self.ticket()), body_of(self.printer.paper.read_text(encoding="utf-8")))
