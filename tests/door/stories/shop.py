"""A shop: virtual printers, the door in front of them, and tills that ask it."""
import http.client
import json
import os
import pathlib
import signal
import subprocess
import tempfile
import unittest
import uuid

from counter import ENV, WAIT, Printer, until, write_settings
from witness import Witness


class Answer:
    def __init__(self, response):
        self.status = response.status
        self.headers = response.headers
        self.bytes = response.read()
        kind = response.headers.get("Content-Type", "")
        self.body = json.loads(self.bytes) if "json" in kind and self.bytes else None


class Door:
    """kestra-puerta with its configuration; `start` again after `kill` is what a shop does in the morning."""

    def __init__(self, folder, printers, **more):
        self.folder = pathlib.Path(folder)
        self.file = self.folder / "puerta.json"
        self.said = self.folder / "puerta.log"
        self.settings = {"escuchar": {"direccion": "127.0.0.1", "puerto": 0}, "datos": "datos",
                         "impresoras": [{"id": name, "carpeta": str(place)} for name, place in printers.items()], **more}
        self.process, self.port, self.witness = None, 0, None
        self.start()

    def start(self):
        self.file.write_text(json.dumps(self.settings), encoding="utf-8")
        with open(self.said, "w", encoding="utf-8") as output:
            self.process = subprocess.Popen([ENV["PUERTA_PROGRAM"], "--configuracion", str(self.file)],
                                            stdout=output, stderr=output)
        until(lambda: self.said_of("escuchando") or self.process.poll() is not None, "the door")
        if self.process.poll() is not None:
            raise AssertionError(self.said.read_text(encoding="utf-8"))
        self.address = self.said_of("escuchando")[0]["direccion"]
        self.port = int(self.address.rsplit(":", 1)[1])
        if self.witness:
            self.witness.door_port = self.port

    def watch(self):
        """From now on what is asked and answered is held against the contract, but where it is encrypted."""
        if self.address.startswith("http:"):
            self.witness = Witness(self.port).__enter__()

    def said_of(self, what):
        lines = self.said.read_text(encoding="utf-8").split("\n")[:-1]
        return [line for line in map(json.loads, filter(None, lines)) if line.get("suceso") == what]

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait(WAIT)

    def stop(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
        return self.process.wait(WAIT)

    def connect(self):
        return http.client.HTTPConnection("127.0.0.1", self.port, timeout=WAIT)

    def ask(self, method, path, body=None, key=None, headers=None, port=None):
        fields = dict(headers or {})
        if key:
            fields["Idempotency-Key"] = key
        data = None
        if body is not None:
            data = json.dumps(body).encode()
            fields.setdefault("Content-Type", "application/json")
        line = http.client.HTTPConnection("127.0.0.1", port or (self.witness.port if self.witness else self.port), timeout=WAIT)
        line.request(method, path, data, fields)
        answer = Answer(line.getresponse())
        line.close()
        return answer

    def sell(self, body, key=None, printer="caja1", **more):
        return self.ask("POST", f"/v1/impresoras/{printer}/comprobantes", body, key or new_key(), **more)

    def job(self, number):
        return self.ask("GET", f"/v1/trabajos/{number}").body

    def settled(self, number):
        until(lambda: self.job(number)["estado"] not in ("en_cola", "imprimiendo", "no_se_sabe"), f"job {number}")
        return self.job(number)

    def ready(self, printer="caja1"):
        until(lambda: self.ask("GET", f"/v1/impresoras/{printer}").body["conexion"] == "lista", "a printer that is ready")

    def workers(self):
        """Their process numbers, by what the system knows of the door's children."""
        found = []
        for place in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                words = (place / "cmdline").read_bytes().split(b"\0")
                parent = (place / "stat").read_text().rsplit(")", 1)[1].split()[1]
            except (OSError, IndexError):
                continue
            if b"--trabajador" in words and int(parent) == self.process.pid:
                found.append(int(place.name))
        return found


def new_key():
    return str(uuid.uuid4())


class Shop(unittest.TestCase):
    """One printer and one door, unless a story wants more of them."""

    family = "TQ"
    flags = ()
    settings = {}      # of the door
    printer_settings = {}  # of Fiscal.ini

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="puerta-", ignore_cleanup_errors=True)
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        place = self.folder / "caja1"
        place.mkdir()
        self.place = place
        self.printer = Printer(place, self.family, self.flags)
        self.addCleanup(self.printer.stop)
        write_settings(place, self.family, self.printer.device, **self.printer_settings)
        self.door = Door(self.folder, {"caja1": place}, **self.settings)
        self.addCleanup(self.door.stop)
        self.door.watch()
        self.addCleanup(self.end_witness)

    def end_witness(self):
        if self.door.witness:
            self.door.witness.__exit__()
            self.assertEqual(self.door.witness.complaints, [])

    def papers(self):
        """Fiscal documents that came out whole."""
        return [paper for paper in self.printer.documents()]


def kill_worker(door):
    for number in door.workers():
        os.kill(number, signal.SIGKILL)
