"""What the till in the browser makes of everything that a door may answer."""

import os
import re
import unittest

from contract import SOURCE
from fake_door import FakeDoor, MOMENT, job, printer, problem
from till import TillStory


def causes():
    """(number, what happened) of every cause of the manual."""
    with open(os.path.join(SOURCE, "docs", "manual", "causas.md"), encoding="utf-8") as file:
        rows = re.findall(r"(?m)^\| *(\d+) \| `KESTRA_CAUSA_\w+` \| (.*?) \| (.*?) \|$", file.read())
    return [(int(number), what, "" if do == "-" else do) for number, what, do in rows if number != "0"]


class TheTillsWords(TillStory):
    def setUp(self):
        self.door = FakeDoor().__enter__()
        self.addCleanup(self.door.__exit__)
        self.open_till(self.door.port)

    def sell_bread(self):
        self.add("Pan", "100.50", "2")
        self.charge("500")

    def test_sells_and_shows_the_ticket(self):
        self.add("Resma A4", "320", "10")
        self.add("Diccionario", "4500.00", "2", "10.5")
        self.page.fill("#descuento", "200")
        self.page.wait("#total", "$ 12.000,00")
        self.page.fill("#monto", "20000")
        self.page.wait("#vuelto", "$ 8.000,00")
        self.charge("20000")
        self.page.wait("#mensaje.bien", "número 00000001")
        self.assertEqual(self.ticket().splitlines()[-11:], [
            "10 x 320,00 (21,00)",
            "Resma A4                        3.200,00",
            "2 x 4.500,00 (10,50)",
            "Diccionario                     9.000,00",
            "Descuento                        -200,00",
            "-" * 40,
            "T O T A L                    $ 12.000,00",
            "",
            "RECIBI(MOS)",
            "Efectivo                       20.000,00",
            "Su vuelto                       8.000,00",
            "=" * 40][-11:])
        (_, body), = self.door.told
        self.assertEqual(body["total"], "12000.00")
        self.assertEqual(body["pagos"], [{"descripcion": "Efectivo", "monto": "20000.00"}])
        self.assertEqual(self.no_errors(), [])

    def test_says_every_cause(self):
        """Those of a whole sentence and those of a number alone."""
        self.sell_bread()
        self.page.wait("#mensaje.bien")
        for number, what, do in causes():
            self.door.answer = lambda n, body, number=number: problem(
                409, causa=number, desenlace=2, trabajo=n, estado="no_hecho", detail="")
            self.sell_bread()
            self.page.wait("#mensaje.mal", what)
            self.assertIn(do, self.page.text("#mensaje"))
            self.assertIn("La impresora no hizo la operación.", self.page.text("#mensaje"))
        self.assertEqual(len(self.door.keys), len(causes()) + 1)
        self.door.answer = lambda n, body: problem(
            503, causa=203, desenlace=3, trabajo=n, estado="no_hecho", detail="Todo dicho por la puerta.")
        self.sell_bread()
        self.page.wait("#mensaje.mal", "Todo dicho por la puerta.")
        self.assertEqual(self.no_errors(), [])

    def test_goes_on_asking_until_it_is_known(self):
        unknown = "La impresora no contestó. No se sabe si la operación se hizo"
        self.door.answer = lambda n, body: (202, job(
            n, estado="no_se_sabe", desenlace=4, causa=301, texto=unknown, definitivo=False))
        self.sell_bread()
        self.page.wait("#mensaje.ojo", unknown)
        self.assertIn("MIRE EL PAPEL", self.ticket())
        self.door.answer = lambda n, body: (201, job(n, comprobante={
            "tipo": "factura", "letra": "B", "numero": "00000044", "total": "201.00"}))
        self.page.wait("#mensaje.bien", "número 00000044")
        self.assertEqual(len(self.door.keys), 1)
        self.assertGreater(len(self.door.told), 1)

    def test_does_not_ask_again_where_nobody_will_know(self):
        self.door.answer = lambda n, body: (202, job(
            n, estado="no_se_sabe", desenlace=4, causa=601, texto="Nada lo muestra.", definitivo=True))
        self.sell_bread()
        self.page.wait("#mensaje.ojo", "Nada lo muestra.")
        self.page.evaluate("new Promise((go) => setTimeout(go, 2500))")
        self.assertEqual(len(self.door.told), 1)

    def test_shows_what_is_to_be_corrected_and_gives_it_back(self):
        self.door.answer = lambda n, body: (422, {
            "type": "/problemas/datos-invalidos", "title": "Datos inválidos", "status": 422, "detail": "No se imprimió nada.",
            "errores": [{"puntero": "/renglones/0/descripcion", "mensaje": "es muy larga"},
                        {"puntero": "/cliente/documento/numero", "mensaje": "el CUIT no da"}]})
        self.customer("Responsable inscripto", "Librería Muñoz", "30000000008")
        self.sell_bread()
        for words in ("No se imprimió nada.", "es muy larga", "el CUIT no da"):
            self.page.wait("#mensaje.mal", words)
        self.page.click("#pedidos .botones button")
        self.page.wait("#carrito li", "Pan")
        self.assertEqual(self.page.evaluate("document.getElementById('nombre').value"), "Librería Muñoz")
        self.assertEqual(self.requests(), [])

    def test_keeps_what_needs_a_person(self):
        self.door.answer = lambda n, body: (401, {
            "type": "/problemas/sin-clave-de-caja", "title": "Falta la clave", "status": 401, "detail": "Mande la clave."})
        self.sell_bread()
        self.page.wait("#mensaje.ojo", "Mande la clave.")
        self.door.answer = lambda n, body: (201, job(n, comprobante={"tipo": "factura", "letra": "B", "numero": "00000001"}))
        self.page.click("#pedidos .botones button")
        self.page.wait("#mensaje.bien", "número 00000001")
        self.assertEqual(len(self.door.keys), 1)

    def test_shows_the_printers_states_as_they_come(self):
        states = (({"conexion": "sin_respuesta", "causa": 301, "texto": "La impresora no contestó."}, "#maquina.mal", "no contesta"),
                  ({"conexion": "imprimiendo"}, "#maquina.ojo", "imprimiendo"),
                  ({"conexion": "detenida", "causa": 206, "texto": "No hay permiso."}, "#maquina.mal", "detenida"),
                  ({"conexion": "lista"}, "#maquina.bien", "lista"))
        for changes, lamp, words in states:
            self.door.tell("impresora", printer(**changes))
            self.page.wait(lamp, words)
            if "texto" in changes:
                self.page.wait("#avisos", changes["texto"])
        state = {"impresora": "caja1", "contesta": True, "papel": "falta", "causa": 414, "texto": "", "momento": MOMENT,
                 "condiciones": [{"causa": 414, "texto": ""}]}
        self.door.tell("estado", state)
        self.page.wait("#papel.mal", "sin papel")
        self.page.wait("#avisos", "La impresora no tiene papel. Coloque papel y siga.")
        self.door.tell("estado", dict(state, papel="hay", condiciones=[]))
        self.page.wait("#maquina.bien")
        self.assertEqual(self.page.text("#avisos"), "")
        self.assertEqual(self.no_errors(), [])

    def test_texts_are_texts(self):
        self.add("<img src=x onerror=alert(1)>", "1")
        self.charge()
        self.page.wait("#mensaje.bien")
        self.assertEqual(self.page.count("main img"), 0)
        self.assertIn("<img src=x", self.ticket())

    def test_fits(self):
        self.sell_bread()
        self.page.wait("#mensaje.bien")
        self.add("Un artículo de nombre bastante largo para que ocupe", "123456.78", "12.5")
        for width in (360, 1280):
            self.page.size(width, 800)
            self.assertTrue(self.page.evaluate("document.documentElement.scrollWidth <= innerWidth"), width)
            self.assertTrue(self.page.evaluate(
                "(() => { const t = document.getElementById('tique'); return t.scrollWidth <= t.clientWidth; })()"), width)
            self.picture(f"caja_{width}")

    def picture(self, name):
        folder = os.environ.get("KESTRA_PICTURES")
        if folder:
            self.page.picture(os.path.join(folder, name + ".png"))


class ItsCauses(unittest.TestCase):
    def test_are_the_manuals(self):
        with open(os.path.join(SOURCE, "hosts", "web", "causas.js"), encoding="utf-8") as file:
            rows = re.findall(r'(?m)^  (\d+): \["(.*)", "(.*)"\],$', file.read())
        self.assertEqual([row for row in rows if row[0] != "0"], [(str(number), what, do) for number, what, do in causes()])

    def test_say_of_the_outcome_what_the_library_says(self):
        sentence = r'(?m)^ +"(.*)"(?:_ansi)?,$'
        with open(os.path.join(SOURCE, "hosts", "web", "causas.js"), encoding="utf-8") as file:
            told = re.findall(sentence, file.read().split("DESENLACES = [")[1].split("]")[0])
        with open(os.path.join(SOURCE, "src", "state", "causes.cpp"), encoding="utf-8") as file:
            own = re.findall(sentence, file.read().split("kOutcomeTexts = {")[1].split("}")[0])
        self.assertEqual(told, own)
        self.assertEqual(len(told), 7)


if __name__ == "__main__":
    unittest.main()
