"""The contract's own examples fit it, and what does not is told."""

import json
import unittest

from contract import Contract

KEY = {"Idempotency-Key": "0b0e7d5e", "Content-Type": "application/json"}
SALE = {"tipo": "tique", "letra": "B", "renglones": [{"descripcion": "Pan", "precio": "10.00", "iva": "21.00"}]}
JOB = {"trabajo": 1, "impresora": "caja1", "operacion": "cajon", "estado": "hecho", "desenlace": 1, "causa": 0,
       "texto": "", "creado": "2026-11-22T18:30:00-03:00"}
SELL = "/v1/impresoras/caja1/comprobantes"


def examples(content):
    return [content["example"]] if "example" in content else [each["value"] for each in content.get("examples", {}).values()]


class TheContract(unittest.TestCase):
    contract = Contract()

    def operations(self):
        for path, item in self.contract.document["paths"].items():
            for method, operation in item.items():
                if method != "parameters":
                    yield method.upper(), path.replace("{id}", "caja1").replace("{n}", "17"), operation

    def test_takes_its_own_examples(self):
        taken = 0
        for method, path, operation in self.operations():
            for content in operation.get("requestBody", {}).get("content", {}).values():
                for example in examples(content):
                    taken += 1
                    self.assertEqual(self.contract.request_faults(method, path, KEY, json.dumps(example)), [], path)
        self.assertGreater(taken, 10)

    def test_gives_its_own_examples(self):
        given = 0
        for method, path, operation in self.operations():
            for status, answer in operation["responses"].items():
                for kind, content in self.contract.resolve(answer)["content"].items():
                    for example in examples(content) if kind.endswith("json") else []:
                        given += 1
                        headers = {"Content-Type": kind, "Location": "/v1/trabajos/17"}
                        self.assertEqual(self.contract.answer_faults(
                            method, path, int(status), headers, json.dumps(example)), [], f"{method} {path} {status}")
        self.assertGreater(given, 100)

    def test_every_operation_says_its_right(self):
        for method, path, operation in self.operations():
            self.assertIn(operation["x-derecho"], ("ninguno", "leer", "vender", "cerrar"), path)

    def test_the_example_of_the_stream_is_an_event(self):
        stream = self.contract.document["paths"]["/v1/eventos"]["get"]["responses"]["200"]["content"]["text/event-stream"]
        self.assertEqual(self.contract.event_faults(stream["example"].strip().split("\n")), [])

    def test_refuses_requests(self):
        for headers, body in (
                ({"Content-Type": "application/json"}, SALE),
                (dict(KEY, **{"Idempotency-Key": "short"}), SALE),
                (dict(KEY, **{"Content-Type": "text/plain"}), SALE),
                (KEY, dict(SALE, otro=1)),
                (KEY, dict(SALE, letra="Z")),
                (KEY, dict(SALE, renglones=[{"descripcion": "Pan", "precio": 10, "iva": "21"}])),
                (KEY, dict(SALE, renglones=[]))):
            self.assertNotEqual(self.contract.request_faults("POST", SELL, headers, json.dumps(body)), [], (headers, body))
        self.assertNotEqual(self.contract.request_faults("POST", SELL, KEY, b""), [])
        self.assertNotEqual(self.contract.request_faults("GET", "/v1/impresoras/caja1/trabajos?limite=0", {}, b""), [])
        self.assertNotEqual(self.contract.request_faults("GET", "/v1/impresoras/caja1/trabajos?otro=1", {}, b""), [])
        self.assertNotEqual(self.contract.request_faults("GET", "/v1/impresoras/Caja%201", {}, b""), [])

    def test_refuses_answers(self):
        kind = {"Content-Type": "application/json"}
        drawer = "/v1/impresoras/caja1/cajon"
        for status, headers, body in (
                (418, kind, JOB), (200, {"Content-Type": "text/html"}, JOB), (200, kind, dict(JOB, otro=1)),
                (200, kind, dict(JOB, estado="quizas")), (202, kind, dict(JOB, estado="en_cola")), (500, kind, JOB),
                (200, dict(kind, Location="/otro"), JOB)):
            self.assertNotEqual(self.contract.answer_faults("POST", drawer, status, headers, json.dumps(body)), [],
                                (status, headers, body))
        self.assertEqual(self.contract.answer_faults("POST", drawer, 200, kind, json.dumps(JOB)), [])


if __name__ == "__main__":
    unittest.main()
