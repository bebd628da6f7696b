"""A shop: a door with its virtual printers, tills that repeat what they are not sure of, and who kills what."""
import contextlib
import http.client
import json
import os
import pathlib
import random
import shutil
import signal
import subprocess
import tempfile
import threading
import time

from chain import free_port, until
from counter import Printer, papers, write_settings

FINAL = ("hecho", "no_hecho", "cancelado")


def ticket(word, items=1):
    item = {"descripcion": word, "cantidad": "1", "precio": "100.00", "iva": "21"}
    return {"tipo": "tique", "renglones": [item] * items,
            "pagos": [{"descripcion": "Efectivo", "monto": f"{100 * items}"}]}


class Shop:
    """`settings` goes into puerta.json as it is; `folder` is made when there is none."""

    def __init__(self, printers=2, folder=None, flags=(), program=None, **settings):
        self.folder = pathlib.Path(folder or tempfile.mkdtemp(prefix="local-"))
        self.own = folder is None
        self.program = program or os.environ["PUERTA_PROGRAM"]
        self.port = free_port()
        self.printers = {}
        for i in range(1, printers + 1):
            place = self.folder / f"caja{i}"
            place.mkdir()
            self.printers[f"caja{i}"] = Printer(place, "TQ", flags)
            write_settings(place, "TQ", self.printers[f"caja{i}"].device)
        shape = {"escuchar": {"direccion": "127.0.0.1", "puerto": self.port}, "datos": str(self.folder / "datos"),
                 "impresoras": [{"id": name, "carpeta": str(self.folder / name)} for name in self.printers], **settings}
        (self.folder / "datos").mkdir()
        (self.folder / "puerta.json").write_text(json.dumps(shape), encoding="utf-8")
        self.process = None

    def __enter__(self):
        self.start()
        return self

    def __exit__(self, *_):
        self.kill()
        for printer in self.printers.values():
            printer.stop()
        if self.own:
            shutil.rmtree(self.folder, ignore_errors=True)

    def start(self):
        with open(self.folder / "puerta.log", "ab") as log:
            self.process = subprocess.Popen([self.program, "--configuracion", str(self.folder / "puerta.json")],
                                            stdout=log, stderr=log, cwd=self.folder)
        until(self.answers, 60, 0.005)

    def answers(self):
        if self.process.poll() is not None:
            raise AssertionError("the door is gone:\n" + (self.folder / "puerta.log").read_text()[-3000:])
        with contextlib.suppress(OSError, http.client.HTTPException):
            return self.ask("GET", "/salud")[0] < 500
        return False

    def workers(self):
        with contextlib.suppress(OSError):
            text = pathlib.Path(f"/proc/{self.process.pid}/task/{self.process.pid}/children").read_text()
            return [int(word) for word in text.split()]
        return []

    def kill(self):
        if self.process:
            self.process.kill()
            self.process.wait()
        self.process = None

    def stop(self):
        self.process.send_signal(signal.SIGTERM)
        self.process.wait(60)
        self.process = None

    def kill_worker(self):
        workers = self.workers()
        if not workers:
            return False
        with contextlib.suppress(ProcessLookupError):
            os.kill(random.choice(workers), signal.SIGKILL)
            return True
        return False

    def ask(self, method, path, body=None, headers=(), seconds=30):
        line = http.client.HTTPConnection("127.0.0.1", self.port, timeout=seconds)
        try:
            line.request(method, path, None if body is None else json.dumps(body),
                         {"Content-Type": "application/json", **dict(headers)})
            answer = line.getresponse()
            text = answer.read()
            return answer.status, json.loads(text) if text[:1] in (b"{", b"[") else {}
        finally:
            line.close()

    def sell(self, printer, word, items=1, **headers):
        """Repeats the request with its key until the door says what became of it."""
        while True:
            with contextlib.suppress(OSError, http.client.HTTPException, ValueError):
                status, answer = self.ask("POST", f"/v1/impresoras/{printer}/comprobantes", ticket(word, items),
                                          {"Idempotency-Key": f"clave-{word}", **headers})
                if answer.get("estado") in FINAL or (answer.get("estado") == "no_se_sabe" and answer.get("definitivo")):
                    return answer
                if status in (400, 404, 422):
                    raise AssertionError(f"{status} {answer}")
            time.sleep(0.03)

    def papers(self):
        """Of each printer: [(word, number, whether it is valid)] of what came out."""
        found = {}
        for name, printer in self.printers.items():
            found[name] = [read_paper(paper) for paper in papers(printer.paper.read_text(encoding="utf-8"))]
            found[name] = [row for row in found[name] if row[0]]
        return found


def read_paper(paper):
    import re
    word = re.search(r"\bV\d{7}\b", paper)
    number = re.search(r"P\.V\. Nº \d+ +Nº (\d{8})", paper)
    valid = "CANCELADO" not in paper and "INCOMPLETO" not in paper
    return word.group() if word else None, number.group(1) if number else None, valid


class Till(threading.Thread):
    """Sells at one printer until it is told to stop, and keeps what it was told."""

    def __init__(self, shop, printer, first):
        super().__init__(daemon=True)
        self.shop, self.printer, self.next = shop, printer, first
        self.told = {}
        self.failure = None
        self.stops = threading.Event()

    def run(self):
        try:
            while not self.stops.is_set():
                word = f"V{self.next:07}"
                self.next += 1
                later = {"Prefer": "respond-async"} if self.next % 2 else {}
                self.told[word] = self.shop.sell(self.printer, word, **later)
        except Exception as failure:  # told by who waits for it
            self.failure = failure


def judge(shop, tills):
    """What the papers say of what the tills were told: {doubles, lost, contradictions, ...}."""
    count = {"sales": 0, "done": 0, "not_done": 0, "unknown": 0, "cancelled_papers": 0,
             "doubles": 0, "lost": 0, "contradictions": 0, "failures": 0}
    wrong = []
    valid = {}
    for name, rows in shop.papers().items():
        for word, number, good in rows:
            if good:
                valid.setdefault((name, word), []).append(number)
            else:
                count["cancelled_papers"] += 1

    def fault(kind, *words):
        count[kind] += 1
        wrong.append((kind, *words))

    for till in tills:
        if till.failure:
            fault("failures", repr(till.failure))
        for word, answer in till.told.items():
            numbers = valid.pop((till.printer, word), [])
            state = answer["estado"]
            count["sales"] += 1
            count["done"] += state == "hecho"
            count["not_done"] += state in ("no_hecho", "cancelado")
            count["unknown"] += state == "no_se_sabe"
            if len(numbers) > 1:
                fault("doubles", word, numbers, answer)
            elif state == "hecho" and not numbers:
                fault("lost", word, answer)
            elif state == "hecho" and answer["comprobante"].get("numero") != numbers[0]:
                fault("contradictions", word, numbers, answer)
            elif state in ("no_hecho", "cancelado") and numbers:
                fault("contradictions", word, numbers, answer)
    for what, numbers in valid.items():
        fault("contradictions", "a paper that nobody was told of", what, numbers)
    return count, wrong
