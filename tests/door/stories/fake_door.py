"""A door without a printer, that says what it is told to say: for what a page makes of every answer."""

import http.server
import json
import os
import queue
import threading

from contract import SOURCE

TILL = os.path.join(SOURCE, "hosts", "web")
KINDS = {"html": "text/html", "js": "text/javascript", "css": "text/css", "svg": "image/svg+xml", "json": "application/json"}
MOMENT = "2026-11-22T18:30:00-03:00"


def printer(**changes):
    return {"id": "caja1", "modelo": "TM-U220AF", "familia": "TF", "conexion": "lista", "en_cola": 0, "causa": 0, "texto": "",
            **changes}


def job(number, **changes):
    return {"trabajo": number, "impresora": "caja1", "operacion": "comprobante", "estado": "hecho", "desenlace": 1, "causa": 0,
            "texto": "", "creado": MOMENT, "comenzado": MOMENT, "terminado": MOMENT, **changes}


def problem(status, **members):
    return status, {"type": "/problemas/no-hecho", "title": "No se hizo", "status": status, "detail": "No se hizo.", **members}


class FakeDoor:
    """`answer(number, body)` gives (status, answer) for the first request with a key; a final answer is the key's for ever."""

    def __init__(self):
        self.answer = lambda number, body: (201, job(number, comprobante={
            "tipo": body["tipo"], "letra": body["letra"], "numero": f"{number:08}", "total": body.get("total", "0.00")}))
        self.printers = [printer()]
        self.keys, self.told, self.listeners = {}, [], []
        self.lock = threading.Lock()
        fake = self

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def log_message(self, *words):
                pass

            def say(self, status, value, kind=None, **headers):
                body = value if isinstance(value, bytes) else json.dumps(value).encode()
                self.send_response(status)
                kind = kind or ("application/problem+json" if status >= 400 else "application/json")
                for key, text in {"Content-Type": kind, "Content-Length": str(len(body)), **headers}.items():
                    self.send_header(key, text)
                self.end_headers()
                self.wfile.write(body)

            def do_GET(self):
                path = self.path.split("?")[0]
                if path.startswith("/caja/"):
                    name = path.removeprefix("/caja/") or "index.html"
                    with open(os.path.join(TILL, os.path.basename(name)), "rb") as file:
                        return self.say(200, file.read(), KINDS[name.rsplit(".", 1)[1]])
                if path == "/v1/impresoras":
                    return self.say(200, {"impresoras": fake.printers})
                if path == "/v1/eventos":
                    return self.stream()
                return self.say(*problem(404, type="/problemas/no-existe"))

            def stream(self):
                mine = queue.Queue()
                with fake.lock:
                    fake.listeners.append(mine)
                self.send_response(200)
                self.send_header("Content-Type", "text/event-stream")
                self.send_header("Connection", "close")
                self.end_headers()
                self.close_connection = True
                try:
                    self.wfile.write(b": hola\n\n")
                    while (event := mine.get()) is not None:
                        self.wfile.write(f"id: {event['suceso']}\nevent: {event['tipo']}\n"
                                         f"data: {json.dumps(event)}\n\n".encode())
                        self.wfile.flush()
                except OSError:
                    pass

            def do_POST(self):
                body = json.loads(self.rfile.read(int(self.headers["Content-Length"])))
                status, answer = fake.take(self.headers["Idempotency-Key"], body)
                self.say(status, answer, **({"Location": f"/v1/trabajos/{answer['trabajo']}"} if status == 202 else {}))

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.server.daemon_threads = True
        self.port = self.server.server_address[1]

    def __enter__(self):
        threading.Thread(target=self.server.serve_forever, args=(0.05,), daemon=True).start()
        return self

    def __exit__(self, *_):
        for listener in self.listeners:
            listener.put(None)
        self.server.shutdown()
        self.server.server_close()

    def take(self, key, body):
        with self.lock:
            number, first = self.keys.setdefault(key, (len(self.keys) + 1, body))
            self.told.append((key, body))
            assert first == body, "another request under the same key"
        return self.answer(number, body)

    def tell(self, kind, data, printer_name="caja1"):
        with self.lock:
            for listener in self.listeners:
                listener.put({"suceso": 1, "tipo": kind, "impresora": printer_name, "momento": MOMENT, "datos": data})
