"""The operator's windows as Kestra.dll itself shows them in a till's program, and what comes of each answer."""

import json
import socket
import tempfile
import unittest
import urllib.request

import ticket_test
from shop import until
from till_operator import CLOSE, LOOK, NO, OK, RETRY, YES, AttendedTill, shown


class TheQuestionBeforeEachCommand(AttendedTill):
    settings = {"MostrarComandos": 1}

    def see_question(self, operation):
        return self.see("Envia?", operation + "(")

    def say_no_to_the_rest(self):
        def over():
            return self.till.poll() is not None

        while True:
            until(lambda: over() or shown("Envia?"), "the next question or the end", LOOK)
            if over():
                return
            self.see("Envia?").press(NO)

    def test_no_sends_nothing(self):
        self.open("KESTRA_TICKET")
        question = self.see_question("EP_AbrirComprobanteFiscal")
        self.take_picture("confirmacion")
        question.press(NO)
        self.see_question("EP_ImprimirItem")
        self.say_no_to_the_rest()
        out, result = self.finish()
        self.assertNotIn(" ok", out)
        self.assertEqual((out.count("FALLO"), result), (7, 1))
        self.assertEqual(self.exchanges(), [])

    def test_yes_shows_the_frame_and_sends_it(self):
        self.open("KESTRA_TICKET")
        self.see_question("EP_AbrirComprobanteFiscal").press(YES)
        before = self.see("ticket", "Comando a enviar:")
        self.take_picture("trama")
        self.assertEqual(self.exchanges(), [])
        before.press(OK)
        after = self.see("ticket", "Comando enviado:")
        self.assertEqual(len(self.exchanges()), 1)
        after.press(OK)
        self.say_no_to_the_rest()
        out, _ = self.finish()
        self.assertEqual((out.count(" ok"), out.count("FALLO")), (1, 6))
        self.assertEqual(len(self.exchanges()), 1)


class TheListOfAnswers(AttendedTill):
    settings = {"MostrarRespuestas": 1}

    def test_is_closed_and_the_till_goes_on(self):
        self.open("KESTRA_TICKET")
        answers = self.see("ticket", "Respuestas al ultimo comando:", "Respuesta_1: ", "Respuesta_13: ")
        self.take_picture("respuestas")
        self.assertEqual(len(self.exchanges()), 1)
        answers.press(OK)
        self.see("ticket", "Respuesta_1: ")
        self.assertEqual(len(self.exchanges()), 2)


class TheQuestionAfterSilence(AttendedTill):
    """The printer never gets the first item, and says nothing."""

    def setUp(self):
        with tempfile.NamedTemporaryFile("w", suffix=".txt") as faults:
            faults.write("comando 1 de B: perder\n")
            faults.flush()
            self.printer_flags = ["--fallas", faults.name]
            super().setUp()

    def see_question(self):
        self.open("KESTRA_TICKET")
        return self.see("Error !", "Error de Comunicación con la fiscal. Reintentar?")

    def test_yes_sends_again(self):
        question = self.see_question()
        self.take_picture("sin_respuesta")
        question.press(YES)
        out, result = self.finish()
        self.assertIn("Ticket emitido: 00000001", out)
        self.assertEqual(result, 0)
        self.assertEqual(self.paper().rstrip("\n"), ticket_test.PAPER.rstrip("\n"))

    def test_no_fails_that_call_alone(self):
        self.see_question().press(NO)
        out, result = self.finish()
        self.assertEqual((out.count(" ok"), out.count("FALLO"), result), (6, 1, 1))
        self.assertRegex(out, r"EP_ImprimirItem  2 x 1500,00 +FALLO")
        paper = self.paper()
        self.assertNotIn("Cafe molido", paper)
        self.assertIn("Yerba mate", paper)


class TheStatusReport(AttendedTill):
    """A printer without paper; its panel is where paper is put back."""

    settings = {"ErrorMostrar": 0}

    def setUp(self):
        with socket.socket() as free:
            free.bind(("127.0.0.1", 0))
            self.panel = "127.0.0.1:%d" % free.getsockname()[1]
        self.printer_flags = ["--sin-papel", "--panel", self.panel]
        super().setUp()

    def put_paper_back(self):
        request = urllib.request.Request(
            f"http://{self.panel}/api/controles", json.dumps({"sin_papel": False}).encode(),
            {"Content-Type": "application/json"})
        urllib.request.urlopen(request, timeout=20).close()

    def see_report(self):
        self.open("KESTRA_TICKET")
        return self.see("Error al ejecutar comando fiscal", "Impresora sin papel", "Estado Impresora",
                        "Estado Fiscal", "Factura o Impresión en hoja suelta inicializada")

    def test_retry_after_the_paper_is_back_completes_the_call(self):
        report = self.see_report()
        self.take_picture("informe_estados")
        self.put_paper_back()
        report.press(RETRY)
        out, result = self.finish()
        self.assertIn("Ticket emitido: 00000001", out)
        self.assertEqual(result, 0)
        self.assertEqual(self.paper().rstrip("\n"), ticket_test.PAPER.rstrip("\n"))

    def test_retry_without_paper_asks_again(self):
        self.see_report().press(RETRY)
        self.see("Error al ejecutar comando fiscal", "Impresora sin papel")
        self.assertEqual(len(self.exchanges()), 2)

    def test_close_fails_the_call_though_the_paper_is_back(self):
        report = self.see_report()
        self.put_paper_back()
        report.press(CLOSE)
        out, result = self.finish()
        self.assertRegex(out, r"EP_AbrirComprobanteFiscal +FALLO")
        self.assertNotIn("Ticket emitido", out)
        self.assertEqual(result, 1)


class TheMemoryWarning(AttendedTill):
    family = "TF"
    printer_flags = ["--cierres-restantes", "20"]

    def test_closes_and_the_result_of_the_closing_stays(self):
        self.open("KESTRA_DAY")
        warning = self.see("ATENCIÓN", "ATENCIÓN!", "Restan menos de 30 (treinta) cierres Z",
                           "Consulte a su técnico fiscal")
        self.take_picture("memoria_llena")
        warning.press(CLOSE)
        out, result = self.finish()
        self.assertRegex(out, r"EP_ReporteZ +ok")
        self.assertNotIn("FALLO", out)
        self.assertEqual(result, 0)


if __name__ == "__main__":
    unittest.main()
