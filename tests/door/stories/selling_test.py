"""A till sells through the real door at a virtual printer: one paper for each key, whoever dies in between."""
import threading
import time
import unittest

from counter import came_out, ticket, until
from shop import Shop, kill_worker, new_key
from witness import Witness


class Selling(Shop):
    def setUp(self):
        super().setUp()
        self.door.ready()
        witness = Witness(self.door.port)
        witness.__enter__()
        self.addCleanup(lambda: self.assertEqual(witness.complaints, []))
        self.addCleanup(lambda: witness.__exit__(None, None, None))
        self.witness = witness

    def sell(self, words, key, **more):
        return self.door.sell(ticket(words), key, port=self.witness.port, **more)

    def came(self, words):
        return came_out(self.printer.stop(), words)

    def test_a_sale_has_its_number_and_its_repetition_the_same_one(self):
        key = new_key()
        first = self.sell("Cafe", key)
        self.assertEqual((first.status, first.body["estado"], first.body["desenlace"]), (201, "hecho", 1))
        number = first.body["comprobante"]["numero"]
        again = self.sell("Cafe", key)
        self.assertEqual((again.status, again.body), (201, first.body))
        self.assertEqual(again.headers["Idempotency-Replayed"], "true")
        other = self.sell("Te", key)
        self.assertEqual((other.status, other.body["type"]), (422, "/problemas/clave-usada"))
        self.assertEqual(self.door.ask("GET", first.headers["Location"], port=self.witness.port).body, first.body)
        self.assertEqual(self.came("Cafe"), ([number], 0))

    def test_every_error_at_once_and_the_key_is_free(self):
        key = new_key()
        wrong = ticket("Cafe", total="1.00")
        wrong["renglones"][0]["precio"] = "12,50"
        wrong["pagos"][0]["monto"] = "-1"
        answer = self.door.sell(wrong, key, port=self.witness.port)
        self.assertEqual(answer.status, 422)
        pointers = {error["puntero"] for error in answer.body["errores"]}
        self.assertLessEqual({"/renglones/0/precio", "/pagos/0/monto"}, pointers)
        self.assertEqual(self.sell("Cafe", key).status, 201)

    def test_who_does_not_wait_is_told_where_to_ask(self):
        answer = self.sell("Cafe", new_key(), headers={"Prefer": "respond-async"})
        self.assertEqual((answer.status, answer.body["estado"]), (202, "en_cola"))
        self.assertEqual(self.door.settled(answer.body["trabajo"])["estado"], "hecho")

    def test_what_waits_can_be_taken_back_and_what_prints_not(self):
        self.printer.fault("en la 1ra respuesta de B: demorar 3000 ms")
        asked = {"headers": {"Prefer": "respond-async"}}
        first = self.sell("Cafe", new_key(), **asked).body["trabajo"]
        key = new_key()
        second = self.sell("Te", key, **asked).body["trabajo"]
        until(lambda: self.door.job(first)["estado"] == "imprimiendo", "the first one")
        self.assertEqual(self.door.ask("DELETE", f"/v1/trabajos/{first}", port=self.witness.port).status, 409)
        self.assertEqual(self.door.ask("DELETE", f"/v1/trabajos/{second}", port=self.witness.port).body["estado"], "cancelado")
        refused = self.sell("Te", key)
        self.assertEqual((refused.status, refused.body["type"]), (409, "/problemas/cancelado"))
        self.assertEqual(self.door.settled(first)["estado"], "hecho")
        self.assertEqual(self.came("Te"), ([], 0))

    def test_the_worker_dies_in_the_middle_of_a_sale(self):
        self.printer.fault("en la 1ra respuesta de B: demorar 1500 ms")
        key = new_key()
        number = self.sell("Cafe", key, headers={"Prefer": "respond-async"}).body["trabajo"]
        until(lambda: self.door.job(number)["estado"] == "imprimiendo", "printing")
        time.sleep(0.5)
        kill_worker(self.door)
        told = self.door.settled(number)
        self.assertEqual(self.sell("Cafe", key).status, 201 if told["estado"] == "hecho" else 409)
        self.assertEqual(self.sell("Te", new_key()).status, 201)
        self.agree("Cafe", told)

    def test_the_door_dies_in_the_middle_of_a_sale(self):
        self.printer.fault("en la 1ra respuesta de B: demorar 1500 ms")
        key = new_key()
        number = self.sell("Cafe", key, headers={"Prefer": "respond-async"}).body["trabajo"]
        waiting = self.sell("Te", new_key(), headers={"Prefer": "respond-async"}).body["trabajo"]
        until(lambda: self.door.job(number)["estado"] == "imprimiendo", "printing")
        self.door.kill()
        self.door.start()
        self.witness.door_port = self.door.port
        told = self.door.settled(number)
        again = self.sell("Cafe", key)
        self.assertEqual(again.status, 201 if told["estado"] == "hecho" else 409)
        self.assertEqual(self.door.settled(waiting)["estado"], "hecho")
        self.agree("Cafe", told)

    def agree(self, words, told):
        numbers, _ = self.came(words)
        wanted = [told["comprobante"]["numero"]] if told["estado"] == "hecho" else []
        self.assertEqual(numbers, wanted)

    def test_a_printer_that_is_not_there_is_said_so(self):
        self.printer.stop()
        answer = self.sell("Cafe", new_key())
        self.assertEqual((answer.status, answer.body["type"]), (503, "/problemas/sin-impresora"))
        state = self.door.ask("GET", "/v1/impresoras/caja1/estado", port=self.witness.port)
        self.assertEqual((state.status, state.body["contesta"]), (200, False))

    def test_eight_tills_at_once(self):
        answers = []

        def till(number):
            for _ in range(3):
                answers.append(self.sell(f"Caja {number}", new_key()))

        tills = [threading.Thread(target=till, args=(number,)) for number in range(8)]
        for thread in tills:
            thread.start()
        for thread in tills:
            thread.join()
        numbers = sorted(answer.body["comprobante"]["numero"] for answer in answers)
        self.assertEqual([answer.status for answer in answers], [201] * 24)
        self.assertEqual(len(set(numbers)), 24)
        self.assertEqual(sorted(self.came("Caja")[0]), numbers)

    def test_what_can_be_read(self):
        for path in ("/v1/impresoras", "/v1/impresoras/caja1", "/v1/impresoras/caja1/estado", "/v1/impresoras/caja1/numeracion",
                     "/v1/impresoras/caja1/reloj", "/v1/impresoras/caja1/trabajos", "/v1/openapi.json", "/documentacion", "/",
                     "/metrics", "/salud"):
            self.assertEqual(self.door.ask("GET", path, port=self.witness.port).status, 200, path)

    def test_the_other_operations(self):
        rows = [("POST", "informes", {"tipo": "x"}, 200), ("POST", "no-fiscales", {"renglones": ["Hola"]}, 201),
                ("POST", "cajon", {"cajon": 1}, 200), ("PUT", "encabezados", {"lineas": [{"linea": 1, "texto": "Bazar"}]}, 200),
                ("PUT", "reloj", {"fecha_hora": time.strftime("%Y-%m-%dT%H:%M:%S")}, 200), ("POST", "informes", {"tipo": "z"}, 200)]
        for method, what, body, status in rows:
            answer = self.door.ask(method, f"/v1/impresoras/caja1/{what}", body, new_key(), port=self.witness.port)
            self.assertEqual((what, answer.status), (what, status), answer.body)

    def test_news_come_as_they_happen_and_again_to_who_was_away(self):
        line = self.door.connect()
        line.request("GET", "/v1/eventos", headers={"Last-Event-ID": "0"})
        stream = line.getresponse()
        self.sell("Cafe", new_key())
        kinds, last = [], 0
        while "documento" not in kinds:
            text = stream.readline().decode()
            if text.startswith("event: "):
                kinds.append(text[7:].strip())
            if text.startswith("id: "):
                last = int(text[4:])
        line.close()
        self.assertEqual(kinds[0], "impresora")
        line = self.door.connect()
        line.request("GET", "/v1/eventos", headers={"Last-Event-ID": str(last - 1)})
        self.assertEqual(line.getresponse().readline().decode(), f"id: {last}\n")
        line.close()


if __name__ == "__main__":
    unittest.main()
