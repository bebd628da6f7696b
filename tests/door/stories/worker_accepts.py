"""What passes the check is printed: random documents at a printer that refuses whatever a shop's would, and both come to
the same total.

PUERTA_DOCUMENTOS=N makes so many for each family, PUERTA_SEMILLA another series of them.
"""
import os
import random
import unittest
from decimal import Decimal

from counter import Counter

DOCUMENTS = int(os.environ.get("PUERTA_DOCUMENTOS", "40"))
SEED = int(os.environ.get("PUERTA_SEMILLA", "1"))
WORDS = ["Café molido", "Yerba mate 1 kg", "Ñoquis", "Pan", "½ docena", "Azúcar «La Dulce»", "Jabón 3×1", "a" * 26]
CONDITIONS = {"responsable_inscripto": "A", "monotributo": "AB", "exento": "B", "consumidor_final": "B",
              "no_responsable": "B", "no_categorizado": "B"}


class Accepted(Counter):
    family = "TQ"
    kinds = ["tique"]
    settings = {"TipoIVA": "I"}
    flags = ("--estricta",)

    def setUp(self):
        super().setUp()
        self.random = random.Random(SEED)

    def amount(self, most, places=2):
        return str(Decimal(self.random.randrange(1, most * 10 ** places)) / 10 ** places)

    def line(self):
        if self.random.random() < 0.1:
            return {"texto": "Gracias por su compra"}
        made = {"descripcion": self.random.choice(WORDS), "precio": self.amount(self.random.choice([5, 500, 90000])),
                "cantidad": self.amount(self.random.choice([3, 200]), self.random.choice([0, 3])),
                "iva": self.random.choice(["0", "2.5", "5", "10.5", "21", "27.00"])}
        if self.random.random() < 0.2:
            made["impuestos_internos"] = self.amount(3)
        if self.random.random() < 0.2:
            made["extra"] = [self.random.choice(WORDS)[:22]]
        return made

    def corrections(self, chance, most):
        return [{"descripcion": "Según convenio", "monto": self.amount(most)}
                for _ in range(self.random.randint(1, 2)) if self.random.random() < chance]

    def document(self, kind):
        lines = [self.line() for _ in range(self.random.randint(1, 6))]
        if self.random.random() < 0.2 and "precio" in lines[0]:
            lines.append({**lines[0], "cantidad": "-" + lines[0]["cantidad"]})
        body = {"tipo": kind, "renglones": lines, "descuentos": self.corrections(0.4, 60),
                "recargos": self.corrections(0.3, 60)}
        if kind != "tique":
            condition = self.random.choice(list(CONDITIONS))
            body["cliente"] = {"nombre": "Peña & Muñoz S.R.L.", "condicion_iva": condition, "domicilio": ["Güemes 1º B"],
                               "documento": {"tipo": "CUIT", "numero": "30123456781"}}
            body["letra"] = self.random.choice(CONDITIONS[condition])
            body["percepciones"] = [{"tipo": "otra", "descripcion": "IIBB", "monto": self.amount(40)}]
        if self.random.random() < 0.5:
            body["pagos"] = [{"descripcion": "Tarjeta de débito", "monto": self.amount(9_000_000)}]
        return body

    def test_documents_are_printed_and_come_to_what_was_said(self):
        worker = self.start()
        printed = 0
        for number in range(1, DOCUMENTS + 1):
            body = self.document(self.random.choice(self.kinds))
            outcome = worker.job(number, "comprobante", body)
            if "errores" in outcome:
                continue
            self.assertEqual(outcome["estado"], "hecho", (body, outcome))
            paper = self.printer.documents()[-1]
            self.assertEqual(f"{paper['numero']:08}", outcome["datos"]["numero"])
            difference = abs(Decimal(paper["total"]) - Decimal(outcome["datos"]["total"]))
            least = Decimal("0.10") if body.get("letra") == "A" else Decimal(0)
            self.assertLessEqual(difference, least, (body, outcome, paper))
            printed += 1
        self.assertGreater(printed, DOCUMENTS // 2)


class AcceptedOnRolls(Accepted):
    family = "TF"
    kinds = ["factura", "nota_credito"]


class AcceptedOnForms(Accepted):
    family = "FC"
    kinds = ["factura", "nota_debito", "nota_credito"]


if __name__ == "__main__":
    unittest.main()
