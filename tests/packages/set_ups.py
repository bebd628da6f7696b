"""What a technician may find in a shop, and the verdict that `kestra diagnostico` must come to in each: the same rows are
told of Windows' zip and of Debian's packages."""
import dataclasses
import json
import pathlib
import re
import socket
import threading
import urllib.request

import cables

SAFE = {"ModoSeguro": "1", "Diario": "diario.txt", "PacienciaSegura": "1"}
ONE_DAY_AND_MORE = 100_800  # seconds


def hang_up(line):
    line.close()


def saying(what):
    """Somebody at the printer's address who gives `what` makes of the bytes that come."""
    def serve(line):
        with line:
            while heard := line.recv(4096):
                line.sendall(what(heard))
    return serve


def nothing(heard):
    del heard
    return b""


@dataclasses.dataclass(frozen=True)
class SetUp:
    name: str
    verdict: str
    told: str = ""  # of the gravest finding
    keys: dict = dataclasses.field(default_factory=dict)  # of Fiscal.ini; None takes one away
    added: str = ""  # behind all of Fiscal.ini
    text: str = None  # in place of Fiscal.ini; "" is no file
    files: dict = dataclasses.field(default_factory=dict)
    instead: callable = None  # who is at the printer's address
    flags: tuple = ()  # a printer of its own, started so
    before: dict = dataclasses.field(default_factory=dict)  # the printer's controls when the lines are said
    lines: tuple = ()  # of a till, for `kestra consola`
    unanswered: tuple = ()  # likewise, when the printer has fallen silent
    printer: dict = dataclasses.field(default_factory=dict)  # its controls when the technician comes

    def needs_a_printer(self):
        return bool(self.flags or self.lines)


ROWS = (
    SetUp("all is well", "bien"),
    SetUp("a safe mode that is well", "bien", keys={"ReconoceRepetidas": "1", **SAFE}),
    # Fiscal.ini
    SetUp("another folder", "sin-fiscal-ini", text=""),
    SetUp("a file of something else", "sin-seccion", text="[Otra]\nA=1\n"),
    SetUp("a key that is missing", "clave-faltante", "EntPrecio", {"EntPrecio": None}),
    SetUp("a comment behind a value", "clave-sin-numero", "centavos", {"DecPrecio": "2 ; centavos"}),
    SetUp("a number that is too large", "clave-fuera-de-rango", "EntIVA", {"EntIVA": "99999"}),
    SetUp("no port", "puerto-invalido", "0", {"ImpresoraDispositivo": None, "ImpresoraPuerto": "0"}),
    SetUp("no speed", "velocidad-invalida", "9601", {"ImpresoraDispositivo": None, "ImpresoraConfig": "9601"}),
    SetUp("half an address", "direccion-invalida", "tcp:caja", {"ImpresoraDispositivo": "tcp:caja"}),
    SetUp("a family in small letters", "familia-invalida", "tq", {"TipoComprobante": "tq"}),
    SetUp("a key with a slip of the pen", "clave-desconocida", "ModoSeguro", {"ModoSegruo": "1"}),
    SetUp("a value that is none", "clave-sin-efecto", "Paciencia", {"ModoSeguro": "1", "PacienciaSegura": "0"}),
    SetUp("a key twice", "clave-repetida", "entprecio", added="entprecio=9\n"),
    SetUp("a journal without the safe mode", "clave-sin-modo-seguro", "Diario", {"Diario": "diario.txt"}),
    SetUp("a text of no width", "ancho-cero", "LonDescripcionT", {"LonDescripcionT": "0"}),
    SetUp("what is no journal", "no-es-un-diario", "n.txt", {"ModoSeguro": "1", "Diario": "n.txt"},
          files={"n.txt": "Comprar papel\n"}),
    # The line
    SetUp("no such port", "dispositivo-inexistente", keys={"ImpresoraDispositivo": None, "ImpresoraPuerto": "250"}),
    SetUp("nobody at the address", "nadie-atiende", keys={"ImpresoraDispositivo": "tcp:127.0.0.1:1"}),
    SetUp("a server that hangs up", "conexion-cortada", instead=hang_up),
    SetUp("a cable that ends nowhere", "impresora-muda", "tcp:", instead=saying(nothing)),
    SetUp("an echo", "eco", instead=saying(cables.echo)),
    SetUp("nothing but refusals", "solo-rechazos", "NAK", instead=saying(cables.refuse)),
    SetUp("busy for ever", "siempre-ocupada", instead=saying(cables.ask_for_patience)),
    SetUp("answers to somebody else", "respuestas-ajenas", instead=saying(cables.answer_another)),
    SetUp("damaged answers", "respuestas-danadas", instead=saying(cables.answer_damaged)),
    SetUp("a scale in place of the printer", "ruido", "bytes", instead=saying(cables.babble)),
    # The printer
    SetUp("another family", "otra-familia", "TQ", {"TipoComprobante": "FC"}),
    SetUp("other digits", "otros-digitos", "DecPrecio=3", {"DecPrecio": "3"}),
    SetUp("another numbering", "otro-modelo", "TM300AF", {"ModeloNombre": "TM300AF"}),
    SetUp("no paper", "sin-papel", printer={"sin_papel": True}),
    SetUp("off line", "fuera-de-linea", printer={"fuera_de_linea": True}),
    SetUp("a mechanism that fails", "falla-mecanica", printer={"falla_de_impresora": True}),
    SetUp("a memory that fails", "memoria-fiscal", printer={"error_memoria_fiscal": True}),
    SetUp("a memory that is full", "memoria-llena", printer={"cierres_restantes": 0}),
    SetUp("a memory that is nearly full", "quedan-pocos-cierres", printer={"cierres_restantes": 12}),
    SetUp("a low battery", "bateria-baja", printer={"bateria_baja": True}),
    SetUp("a clock of another time", "reloj-corrido", "atrasa", printer={"desfase_reloj": -3600}),
    SetUp("a printer that thinks for long", "lenta", flags=("--demora", "1200")),
    SetUp("a wrong promise of repeats", "repetidas-mal-declaradas", keys={"ReconoceRepetidas": "1", "ModoSeguro": "1"},
          flags=("--sin-repetidas",)),
    SetUp("a document that is open", "documento-abierto", "renglones", lines=("AbrirComprobanteFiscal FC B",)),
    SetUp("a day of 28 hours", "jornada-vencida", before={"desfase_reloj": -ONE_DAY_AND_MORE},
          lines=("AbrirComprobanteFiscal FC B", "ImprimirItem Pan 1 2 21", "CerrarComprobanteFiscal FC B"),
          printer={"desfase_reloj": 0}),
    SetUp("a call that is pending", "pendiente", "Yerba", SAFE, lines=("AbrirComprobanteFiscal FC B",),
          unanswered=("ImprimirItem Yerba 1 2 21",)),
)


def ask_panel(url, path="", body=None):
    """What the panel's page asks, or a POST of what it changes."""
    question = urllib.request.Request(url + path, data=None if body is None else json.dumps(body).encode(),
                                      headers={"Content-Type": "application/json"} if body is not None else {})
    with urllib.request.urlopen(question, timeout=60) as answer:
        return answer.read().decode("utf-8")


def forget_faults(url):
    urllib.request.urlopen(urllib.request.Request(url + "api/fallas", method="DELETE"), timeout=60).close()


class Server:
    """Who is where the printer should be."""

    def __init__(self, serve):
        self.socket = socket.create_server(("127.0.0.1", 0))
        self.device = f"tcp:127.0.0.1:{self.socket.getsockname()[1]}"
        self.serve = serve
        threading.Thread(target=self.attend, daemon=True).start()

    def attend(self):
        try:
            while True:
                threading.Thread(target=self.attend_to, args=(self.socket.accept()[0],), daemon=True).start()
        except OSError:
            pass

    def attend_to(self, line):
        try:
            self.serve(line)
        except OSError:
            pass

    def stop(self):
        self.socket.shutdown(socket.SHUT_RDWR)
        self.socket.close()


class Shop:
    """A folder with a Fiscal.ini of the packages. Who derives from it says how things are run there:
    start_printer(FLAG...), which gives `device`, `url` and stop(), and kestra(WORD...), which gives result and output.
    """
    line_end = "\n"

    def __init__(self, folder, settings):
        """`settings` is the text of the file that comes with the packages."""
        self.folder = pathlib.Path(folder)
        self.settings = settings.replace("\r\n", "\n")
        self.printers = []

    def write(self, name, text):
        (self.folder / name).write_bytes(text.replace("\n", self.line_end).encode("cp1252"))

    def write_settings(self, keys, added=""):
        text = self.settings
        for key, value in keys.items():
            text = re.sub(rf"(?m)^{key}=.*\n", "", text)
            text += "" if value is None else f"{key}={value}\n"
        self.write("Fiscal.ini", text + added)

    def open_printer(self, *flags):
        """One that is as the file says, with a panel."""
        self.write_settings({})
        printer = self.start_printer("--ini", "Fiscal.ini", "--tcp", "127.0.0.1:0", "--panel", "127.0.0.1:0", "--papel",
                                     f"papel{len(self.printers)}.txt", *flags)
        self.printers.append(printer)
        return printer

    def clear(self):
        """What a shop before this one has left here."""
        for path in self.folder.iterdir():
            if path.name in ("diario.txt", "n.txt", "guion.txt", "fiscal.log"):
                path.unlink()

    def say(self, lines, result, *words):
        self.write("guion.txt", "\n".join(lines) + "\n")
        ended, said = self.kestra("consola", "guion.txt", *words)
        if ended != result:
            raise AssertionError(f"consola ended with {ended}: {said}")

    def break_it(self, row, printer):
        keys = {"ImpresoraDispositivo": printer.device, **row.keys}
        self.write_settings(keys, row.added)
        for name, text in row.files.items():
            self.write(name, text)
        if row.before:
            ask_panel(printer.url, "api/controles", row.before)
        if row.lines:
            self.say(row.lines, 0)
        if row.unanswered:
            ask_panel(printer.url, "api/fallas", {"reglas": "siempre: callar"})
            # One that says nothing cannot say that it is virtual.
            self.say(row.unanswered, 5, "--impresora-real")
            forget_faults(printer.url)
        if row.printer:
            ask_panel(printer.url, "api/controles", row.printer)
        if row.text is not None:
            (self.folder / "Fiscal.ini").unlink()
            if row.text:
                self.write("Fiscal.ini", row.text)

    def diagnose(self, row):
        """What the tool says in this set-up, as JSON, and its result."""
        self.clear()
        own = Server(row.instead) if row.instead else self.open_printer(*row.flags) if row.needs_a_printer() else None
        printer = own or self.printers[0]
        well = {} if own else {control["clave"]: control["valor"] for control in
                               json.loads(ask_panel(printer.url, "api/controles"))}
        try:
            self.break_it(row, printer)
            result, said = self.kestra("diagnostico", "--json")
            return json.loads(said), result
        finally:
            if own:
                own.stop()
            elif row.printer:
                ask_panel(printer.url, "api/controles", {key: well[key] for key in row.printer})


def judge(case, row, said, result):
    case.assertEqual((said["veredicto"], said["termina"]), (row.verdict, result), said)
    first = said["hallazgos"][0] if said["hallazgos"] else {"detalle": "", "hacer": "nada"}
    case.assertIn(row.told, first["detalle"])
    case.assertTrue(first["hacer"])


def judge_all(case, shop, rows=ROWS):
    """Each in a subtest; tells how many there were."""
    shop.open_printer()
    right = 0
    for row in rows:
        with case.subTest(row.name):
            judge(case, row, *shop.diagnose(row))
            right += 1
    broken = sum(row.verdict != "bien" for row in rows)
    print(f"kestra diagnostico: {right} of {len(rows)} set-ups right, {broken} of them broken", flush=True)
