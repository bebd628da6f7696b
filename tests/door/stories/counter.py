"""The two ends between which a worker stands: the virtual printer with its papers, and the door as a script."""
import json
import os
import pathlib
import re
import signal
import socket
import subprocess
import tempfile
import time
import unittest
import urllib.request

ENV = os.environ
WAIT = 120.0  # seconds; only what hangs takes so long


def until(condition, what):
    deadline = time.monotonic() + WAIT
    while not condition():
        if time.monotonic() > deadline:
            raise AssertionError("still waiting for " + what)
        time.sleep(0.005)


class Printer:
    """The virtual printer: its line by TCP, its switches by its panel."""

    def __init__(self, folder, family, flags=(), port=0):
        self.folder, self.family = pathlib.Path(folder), family
        self.paper, said = self.folder / "papel.txt", self.folder / "impresora.txt"
        command = [ENV["KESTRA_PRINTER"], "--familia", family, "--tcp", f"127.0.0.1:{port}", "--panel", "127.0.0.1:0",
                   "--memoria", str(self.folder / "memoria.db"), "--papel", str(self.paper), *flags]
        with open(said, "w", encoding="utf-8") as output:
            self.process = subprocess.Popen(command, stdout=output, stderr=output)
        until(lambda: "Panel:" in said.read_text(encoding="utf-8"), "the virtual printer")
        words = said.read_text(encoding="utf-8")
        self.device = re.search(r"tcp:\S+", words).group()
        self.port = int(self.device.rsplit(":", 1)[1])
        self.panel = re.search(r"http://[^/\s]+", words).group()

    def post(self, path, **body):
        request = urllib.request.Request(self.panel + "/api/" + path, json.dumps(body).encode(),
                                         {"Content-Type": "application/json"})
        with urllib.request.urlopen(request, timeout=WAIT) as answer:
            return json.load(answer)

    def fault(self, *rules):
        self.post("fallas", reglas="\n".join(rules))

    def mend(self):
        urllib.request.urlopen(urllib.request.Request(self.panel + "/api/fallas", method="DELETE"), timeout=WAIT)

    def switch(self, **controls):
        self.post("controles", **controls)

    def documents(self):
        """What it has finished, the oldest first, as the panel tells it."""
        with urllib.request.urlopen(self.panel + "/api/documentos", timeout=WAIT) as answer:
            return json.load(answer)

    def stop(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
        self.process.wait(WAIT)
        return self.paper.read_text(encoding="utf-8")


class Worker:
    """A worker's process, and the door's end of its line."""

    def __init__(self, folder):
        self.folder = folder
        with socket.create_server(("127.0.0.1", 0)) as listener:
            listener.settimeout(WAIT)
            environment = dict(ENV, PUERTA_TRABAJADOR_PUERTO=str(listener.getsockname()[1]), PUERTA_TRABAJADOR_FICHA="abc")
            self.process = subprocess.Popen([ENV["PUERTA_PROGRAM"], "--trabajador"], cwd=folder, env=environment)
            self.line, _ = listener.accept()
        self.line.settimeout(WAIT)
        self.file = self.line.makefile("r", encoding="utf-8")
        self.news, self.steps = [], []
        self.token = self.hear("ficha")
        self.facts = self.hear("listo")

    def say(self, **line):
        self.line.sendall((json.dumps(line) + "\n").encode())

    def next(self):
        """The next line: (name, value). None when the worker is gone."""
        try:
            line = self.file.readline()
        except ConnectionError:
            return None
        if not line.endswith("\n"):
            return None
        (name, value), = json.loads(line).items()
        return name, value

    def hear(self, *names):
        """The value of the next line of one of these names; steps and news on the way are kept."""
        while True:
            heard = self.next()
            if heard is None:
                raise AssertionError(f"the worker is gone: {self.process.wait(WAIT)}")
            if heard[0] in names:
                return heard[1] if len(names) == 1 else heard
            if heard[0] == "paso":
                self.steps.append(heard[1])
            elif heard[0] == "novedad":
                self.news.append(heard[1])
            else:
                raise AssertionError(f"{heard} instead of {names}")

    def ask(self, operation):
        self.say(trabajo=-1, operacion=operation, cuerpo={})
        return self.hear("fin")

    def job(self, number, operation, body):
        """What became of it; what was before it stays in `before`."""
        self.say(trabajo=number, operacion=operation, cuerpo=body)
        name, value = self.hear("antes", "fin")
        if name == "fin":
            return value
        self.before = value
        self.say(siga=number)
        return self.hear("fin")

    def recover(self, number, operation, body, before):
        self.say(recupere={"trabajo": number, "operacion": operation, "cuerpo": body, "antes": before})
        return self.hear("recuperado")

    def kill(self):
        self.process.kill()
        self.process.wait(WAIT)
        self.file.close()
        self.line.close()

    def end(self):
        self.say(termine=True)
        code = self.process.wait(WAIT)
        self.file.close()
        self.line.close()
        return code


class Counter(unittest.TestCase):
    """A folder of a printer, the printer and a worker."""

    family = "TQ"
    flags = ()
    settings = {}

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="puerta-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.printer = Printer(self.folder, self.family, self.flags)
        self.addCleanup(lambda: self.printer.stop())
        write_settings(self.folder, self.family, self.printer.device, **self.settings)

    def start(self):
        worker = Worker(self.folder)
        self.addCleanup(worker.kill)
        return worker


def write_settings(folder, family, device, **more):
    text = pathlib.Path(ENV["KESTRA_SETTINGS"]).read_text(encoding="cp1252")
    wanted = {"TipoComprobante": family, "ImpresoraDispositivo": device, "ErrorMostrar": 0, "MostrarComandos": 0,
              "ModoSeguro": 1, "Diario": "diario.txt", "Transliterar": 1, "PacienciaSegura": 2, **more}
    for key, value in wanted.items():
        text = re.sub(rf"(?m)^;?{key}=.*\n", "", text) + f"\n{key}={value}\n"
    (folder / "Fiscal.ini").write_text(text, encoding="cp1252")


def ticket(words="Cafe", **more):
    return {"tipo": "tique", "renglones": [{"descripcion": words, "cantidad": "2", "precio": "150.00", "iva": "21"}],
            "pagos": [{"descripcion": "Efectivo", "monto": "500"}], **more}


def papers(text):
    """Each document of a printer's paper: its text from the shop's CUIT on."""
    return text.split("C.U.I.T. Nº 30-00000000-7")[1:]


def came_out(text, word):
    """The numbers of the documents with that word that are valid, and how many are not."""
    having = [paper for paper in papers(text) if word in paper]
    good = [paper for paper in having if "CANCELADO" not in paper and "PAGINA INCOMPLETA" not in paper]
    return [(re.findall(r"P\.V\. Nº \d+ +Nº (\d{8})", paper) or [""])[0] for paper in good], len(having) - len(good)


CUSTOMER = {"nombre": "Bazar Belgrano S.R.L.", "documento": {"tipo": "CUIT", "numero": "30123456781"},
            "condicion_iva": "responsable_inscripto", "domicilio": ["Belgrano 123", "Rosario"]}


def invoice(kind="factura", words="Resma A4", **more):
    return {"tipo": kind, "letra": "A", "cliente": CUSTOMER,
            "renglones": [{"descripcion": words, "cantidad": "3", "precio": "4200.00", "iva": "21", "extra": ["Blanca"]},
                          {"texto": "Oferta"}, {"descripcion": "Libro", "precio": "9500", "iva": "10.5"}],
            "descuentos": [{"descripcion": "Descuento", "monto": "500"}],
            "recargos": [{"descripcion": "Envio", "monto": "100"}],
            "percepciones": [{"tipo": "otra", "descripcion": "IIBB", "monto": "310.50"}],
            "pagos": [{"descripcion": "Cuenta corriente", "monto": "26000"}], **more}
