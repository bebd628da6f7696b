"""What a worker carries out on each family of printers, and what it says when the printer does not."""
import pathlib
import tempfile
import unittest

from counter import Counter, CUSTOMER, Worker, came_out, invoice, ticket, write_settings


def delivery(kind, words):
    return {"tipo": kind, "cliente": CUSTOMER, "renglones": [{"descripcion": words, "precio": "0", "iva": "0"}]}


class Jobs(Counter):
    kinds = [ticket()]

    def test_every_document_of_the_family_comes_out_once(self):
        worker = self.start()
        told = [worker.job(n, "comprobante", body) for n, body in enumerate(self.kinds, 1)]
        paper = self.printer.stop()
        for body, outcome in zip(self.kinds, told):
            self.assertEqual(outcome["estado"], "hecho", outcome)
            numbers, cancelled = came_out(paper, body["renglones"][0]["descripcion"])
            self.assertEqual((numbers, cancelled), ([outcome["datos"]["numero"]], 0), paper)
            total = outcome["datos"].get("total")
            if total:
                whole, cents = total.split(".")
                self.assertIn(f"{int(whole):,}".replace(",", ".") + "," + cents, paper)

    def test_everything_else_is_done_and_asked(self):
        worker = self.start()
        self.assertEqual((worker.token, worker.facts["familia"]), ("abc", self.family))
        for operation, body in [("no_fiscal", {"renglones": ["Cierre de caja", "Ñandú"]}), ("cajon", {}),
                                ("encabezados", {"lineas": [{"linea": 1, "texto": "Bazar"}]}),
                                ("informe", {"tipo": "x"}), ("informe", {"tipo": "numeros", "desde": 1, "hasta": 5}),
                                ("informe", {"tipo": "fechas", "desde": "2026-01-01", "hasta": "2026-12-31"})]:
            self.assertEqual(worker.job(1, operation, body)["estado"], "hecho", body)
        closing = worker.job(2, "informe", {"tipo": "z"})
        self.assertEqual((closing["estado"], closing["datos"]["numero"]), ("hecho", "00000001"))
        self.assertEqual(worker.job(3, "reloj", {"fecha_hora": "2031-05-06T07:08:09"})["estado"], "hecho")
        self.assertRegex(worker.ask("leer_reloj")["datos"]["fecha_hora"], "2031-05-06T07:08:[0-5][0-9]")
        self.assertIn({"clase": "cierre_z", "numero": "00000001"}, worker.ask("numeracion")["datos"]["contadores"])
        self.assertTrue(worker.ask("estado")["datos"]["contesta"])
        self.assertEqual(worker.end(), 0)
        paper = self.printer.stop()
        for words, times in (("Nandu", 1), ("I N F O R M E   X", 1), ("C I E R R E   Z", 1), ("Bazar", 4)):
            self.assertEqual(paper.count(words), times, words)

    def test_what_is_wrong_is_told_and_nothing_is_sent(self):
        worker = self.start()
        outcome = worker.job(1, "comprobante", {**self.kinds[0], "total": "1.00"})
        self.assertEqual((outcome["estado"], outcome["errores"][0]["puntero"]), ("no_hecho", "/total"))
        self.assertEqual(self.printer.stop(), "")


class JobsOnRolls(Jobs):
    family = "TF"
    kinds = [invoice(words="Resma uno"), invoice("nota_credito", words="Resma dos")]


class JobsOnForms(Jobs):
    family = "FC"
    kinds = [invoice(words="Resma uno"), invoice("nota_credito", words="Resma dos"),
             invoice("nota_debito", words="Resma tres"), delivery("remito", "Cajon uno"), delivery("otro", "Cajon dos")]


class FullSheets(Counter):
    family = "FC"
    flags = ("--lineas-hoja", "2")
    settings = {"UtilizaTransporte": 1}

    def test_are_turned_and_every_line_is_printed(self):
        lines = [{"descripcion": f"Renglon {n}", "precio": "10", "iva": "21"} for n in range(1, 8)]
        body = {"tipo": "factura", "letra": "B", "renglones": lines, "total": "70.00"}
        self.assertEqual(self.start().job(1, "comprobante", body)["estado"], "hecho")
        paper = self.printer.stop()
        self.assertEqual([paper.count(f"Renglon {n}") for n in range(1, 8)], [1] * 7)


class APrinterThatDoesNot(Counter):
    family = "TF"

    def sell(self, worker, word="Resma A4"):
        return worker.job(1, "comprobante", invoice(words=word))

    def judge(self, outcome, state, numbers, cancelled):
        self.assertEqual(outcome["estado"], state, outcome)
        self.assertEqual(came_out(self.printer.stop(), "Resma A4"), (numbers, cancelled), outcome)

    def test_without_paper_nothing_is_begun(self):
        self.printer.switch(sin_papel=True)
        worker = self.start()
        outcome = self.sell(worker)
        self.assertEqual((outcome["estado"], outcome["causa"]), ("no_hecho", 414), outcome)
        self.assertEqual(worker.news[-1]["papel"], "falta")
        self.printer.switch(sin_papel=False)
        self.judge(self.sell(worker), "hecho", ["00000001"], 0)

    def test_without_paper_half_way_it_is_asked_again(self):
        self.printer.fault("comando 2 de ítem: sin_papel")
        worker = self.start()
        outcome = self.sell(worker)
        self.assertEqual((outcome["estado"], outcome["definitivo"]), ("no_se_sabe", False), outcome)
        self.printer.switch(sin_papel=False)
        told = worker.recover(1, "comprobante", invoice(words="Resma A4"), worker.before)
        self.assertIn("cancelado", told["texto"])
        self.judge(told, "no_hecho", [], 1)

    def test_a_cable_that_comes_back_in_time_is_no_trouble(self):
        self.printer.fault("respuesta 1 de ítem: desenchufar", "comando 1 de cierre: desenchufar")
        self.judge(self.sell(self.start()), "hecho", ["00000001"], 0)

    def test_a_number_that_was_not_heard_is_that_of_the_books(self):
        self.printer.fault("respuesta 1 de jornada: callar", "respuesta 1 de cierre: callar")
        worker = self.start()
        outcome = self.sell(worker)
        self.assertEqual((outcome["estado"], outcome["datos"]["numero"]), ("hecho", "00000001"), outcome)
        outcome = worker.job(2, "informe", {"tipo": "z"})
        self.assertEqual((outcome["estado"], outcome["datos"]["numero"]), ("hecho", "00000001"), outcome)
        self.assertEqual(self.printer.stop().count("C I E R R E   Z"), 1)

    def test_a_printer_that_is_gone_at_the_closing_is_asked_when_it_is_back(self):
        self.printer.fault("comando 1 de cierre: apagar 8 s")
        worker = self.start()
        outcome = self.sell(worker)
        for _ in range(20):
            if outcome["definitivo"]:
                break
            self.assertEqual(outcome["estado"], "no_se_sabe", outcome)
            outcome = worker.recover(1, "comprobante", invoice(words="Resma A4"), worker.before)
        numbers = ["00000001"] if outcome["estado"] == "hecho" else []
        self.judge(outcome, outcome["estado"], numbers, 0 if numbers else 1)

    def test_a_printer_that_is_not_there_gets_nothing(self):
        self.printer.process.kill()
        self.printer.process.wait()
        outcome = self.sell(self.start())
        self.assertEqual((outcome["estado"], outcome["definitivo"]), ("no_hecho", True), outcome)
        self.assertIn(outcome["causa"], (216, 219), outcome)

    def test_a_document_of_somebody_else_is_left_alone(self):
        folder = tempfile.TemporaryDirectory(prefix="puerta-")
        self.addCleanup(folder.cleanup)
        write_settings(pathlib.Path(folder.name), self.family, self.printer.device)
        other = Worker(folder.name)
        other.say(trabajo=1, operacion="comprobante", cuerpo=invoice(words="Resma A4"))
        other.hear("antes")
        other.say(siga=1)
        for _ in range(3):
            other.hear("paso")
        other.kill()
        worker = self.start()
        outcome = self.sell(worker)
        self.assertEqual((outcome["estado"], outcome["causa"]), ("no_hecho", 505), outcome)
        self.assertEqual(worker.job(2, "cancelar", {})["estado"], "hecho")
        self.judge(self.sell(worker), "hecho", ["00000002"], 1)


class ADoorThatIsGone(Counter):
    flags = ("--demora", "30")

    def test_gets_no_paper_that_nobody_waits_for(self):
        body = ticket(words="Cafe solo")
        body["renglones"] *= 6
        body["pagos"][0]["monto"] = "5000"
        worker = self.start()
        worker.say(trabajo=1, operacion="comprobante", cuerpo=body)
        before = worker.hear("antes")
        worker.say(siga=1)
        for _ in range(3):
            worker.hear("paso")
        worker.file.close()
        worker.line.close()
        worker.process.wait(60)
        told = self.start().recover(1, "comprobante", body, before)
        self.assertEqual((told["estado"], told["definitivo"]), ("no_hecho", True), told)
        paper = self.printer.stop()
        self.assertEqual(came_out(paper, "Cafe solo"), ([], 1))
        self.assertLess(paper.count("Cafe solo"), 6)


class APrinterThatRefuses(Counter):
    family = "TF"
    flags = ("--digitos", "cantidad=1.1")

    def test_a_line_gets_the_document_cancelled(self):
        outcome = self.start().job(1, "comprobante", invoice(words="Resma A4"))
        self.assertEqual((outcome["estado"], outcome["desenlace"], outcome["causa"]), ("no_hecho", 2, 504), outcome)
        self.assertIn("El comprobante quedó cancelado.", outcome["texto"])
        paper = self.printer.stop()
        self.assertEqual((paper.count("CANCELADO"), paper.count("T O T A L")), (1, 0), paper)


if __name__ == "__main__":
    unittest.main()
