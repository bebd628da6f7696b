"""A till of the door, whichever system the door is on: it asks by HTTP, and reads the log that the door writes, a JSON object
on each line."""
import http.client
import json
import pathlib
import time

PATIENCE = 300  # seconds; only what hangs takes so long
TICKET = {"tipo": "tique", "letra": "B",
          "renglones": [{"descripcion": "Caña de azucar", "cantidad": "2", "precio": "890.50", "iva": "21.00"}],
          "pagos": [{"descripcion": "Efectivo", "monto": "2000.00"}]}


class Door:
    """`log` is the file that the door writes its log to, or None where its `port` is known."""

    def __init__(self, log, alive, port=None):
        self.log, self.alive = log and pathlib.Path(log), alive
        self.port = port or int(self.hear("escuchando")["direccion"].rpartition(":")[2])

    def hear(self, what):
        """The first line of that kind, when it comes."""
        end = time.monotonic() + PATIENCE
        while True:
            over = not self.alive()
            text = self.log.read_text(encoding="utf-8", errors="replace")
            for line in text.split("\n")[:-1]:
                if line.startswith("{") and json.loads(line).get("suceso") == what:
                    return json.loads(line)
            if over or time.monotonic() > end:
                raise AssertionError(f"the door does not say «{what}»: {text}")
            time.sleep(0.05)

    def ask(self, method, path, body=None, **headers):
        """Status and body. A printer's worker may still be on its way: until then it is asked again."""
        line = http.client.HTTPConnection("127.0.0.1", self.port, timeout=PATIENCE)
        try:
            data = None if body is None else json.dumps(body).encode()
            line.request(method, path, data, {"Content-Type": "application/json", **headers} if data else headers)
            answer = line.getresponse()
            return answer.status, answer.read().decode("utf-8")
        finally:
            line.close()

    def sell(self, key):
        """The ticket, until its outcome is final: the same key prints nothing twice."""
        end = time.monotonic() + PATIENCE
        while True:
            answer = self.ask("POST", "/v1/impresoras/caja1/comprobantes", TICKET, **{"Idempotency-Key": key})
            if answer[0] != 202 or time.monotonic() > end:
                return answer
            time.sleep(0.1)


def sells_once(case, door):
    """Two tickets, the first of them asked for three times."""
    first, again, second = door.sell("caja-1-venta-1"), door.sell("caja-1-venta-1"), door.sell("caja-1-venta-2")
    case.assertEqual((first[0], second[0]), (201, 201), (first, second))
    case.assertEqual(first, again)
    case.assertEqual([json.loads(answer[1])["comprobante"]["numero"] for answer in (first, second)], ["00000001", "00000002"])
    return first


def remembers(case, door, first):
    """After a start, whatever ended the one before."""
    case.assertEqual(door.sell("caja-1-venta-1"), first)
    case.assertEqual(door.ask("GET", "/v1/impresoras")[0], 200)
    for page in ("/", "/documentacion", "/v1/openapi.json", "/salud"):
        case.assertEqual(door.ask("GET", page)[0], 200, page)
