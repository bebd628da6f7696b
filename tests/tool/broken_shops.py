"""Shops in which something is wrong: a row for each, with the verdict that `kestra diagnostico` must come to."""

import contextlib
import datetime
import os
import signal
import socket
import subprocess
import sys
import threading
import zlib

import cables
import counters  # noqa: F401
from shop import ENV, Shop, read, until

# A root without this may not open what its owner has closed, as anybody else.
PLAIN = ["setpriv", "--bounding-set=-dac_override,-dac_read_search"] if os.geteuid() == 0 else []

HOLD = "import os, sys, fcntl, time; fd = os.open(sys.argv[1], os.O_RDWR | os.O_NOCTTY)\n"
SAFE = {"ModoSeguro": "1", "Diario": "diario.txt", "PacienciaSegura": "1"}


class BrokenShop(Shop):
    """A shop that is well, until something is done to it."""

    settings = {"ModeloNombre": "TM-U220AF"}
    before = ()  # what the tool is started by
    arguments = ()

    def runTest(self):
        pass

    def open(self):
        self.setUp()

    def diagnose(self):
        command = [*self.before, ENV["KESTRA_TOOL"], "diagnostico", "--json", *self.arguments]
        return subprocess.run(command, cwd=self.folder, capture_output=True, text=True, check=False, timeout=300)

    # ---- What may be done to it ----

    def ini(self, **changes):
        """Keys of Fiscal.ini; None takes one away."""
        lines = read(self.path("Fiscal.ini")).splitlines()
        for key, value in changes.items():
            lines = [line for line in lines if not line.startswith(key + "=")]
            if value is not None:
                lines.append(f"{key}={value}")
        self.write("Fiscal.ini", "\n".join(lines) + "\n")

    def write(self, name, text):
        with open(self.path(name), "w", encoding="cp1252") as file:
            file.write(text)

    def cable(self, say=None, printer=False):
        link = self.path("cable")
        cable = cables.Cable(link, say, self.device if printer else None)
        self.addCleanup(cable.cut)
        self.ini(ImpresoraDispositivo=link)

    def hold(self, how="time.sleep(300)"):
        holder = subprocess.Popen([sys.executable, "-c", HOLD + how, self.device], stdout=subprocess.PIPE)
        self.addCleanup(holder.communicate)
        self.addCleanup(holder.kill)
        until(lambda: self.has_open(holder.pid), "the other program's port")

    def has_open(self, process):
        folder = f"/proc/{process}/fd"
        target = os.path.realpath(self.device)
        return any(os.readlink(os.path.join(folder, fd)) == target for fd in os.listdir(folder)
                   if os.path.islink(os.path.join(folder, fd)))

    def turn_away(self):
        """A server that hangs up on whoever calls."""
        server = socket.create_server(("127.0.0.1", 0))
        self.addCleanup(server.close)

        def serve():
            try:
                while True:
                    server.accept()[0].close()
            except OSError:
                pass
        threading.Thread(target=serve, daemon=True).start()
        self.addCleanup(server.shutdown, socket.SHUT_RDWR)
        self.ini(ImpresoraDispositivo="tcp:127.0.0.1:%d" % server.getsockname()[1])

    def other_printer(self, *flags, family="TQ"):
        self.stop_printer()
        # One that was stopped as it began has left its link, which may lead to another shop's printer by now.
        with contextlib.suppress(FileNotFoundError):
            os.unlink(self.device)
        self.printer_flags, self.family = list(flags), family
        self.printer = self.start_printer()

    def till(self, code, **settings):
        self.ini(**settings)
        return self.run_host("assert lib.EP_Init() == 1\n" + code + "\nlib.EP_Kill()")

    def silence(self):
        self.printer.send_signal(signal.SIGSTOP)
        self.addCleanup(self.printer.send_signal, signal.SIGCONT)

    def leave_pending(self):
        self.till("import signal\nassert open_document('FC', 'B') == 0\n"
                  f"os.kill({self.printer.pid}, signal.SIGSTOP)\nassert item('Yerba', 1, 2.0) == 1", **SAFE)
        self.printer.send_signal(signal.SIGCONT)

    def yesterdays_sale(self):
        """A day that was opened 28 hours ago, by a printer that keeps it."""
        memory = ("--memoria", self.path("memoria.db"), "--estado")
        self.other_printer(*memory, "desfase_reloj=-100800")
        subprocess.run([ENV["KESTRA_TICKET"]], cwd=self.folder, capture_output=True, check=True)
        self.other_printer(*memory, "desfase_reloj=0")

    def foreign_journal(self):
        self.till("assert open_document('FC', 'B') == 0\nlib.EP_Cancelar()", **SAFE)
        os.symlink(os.path.realpath(self.device), self.path("otra"))
        self.ini(ImpresoraDispositivo=self.path("otra"))

    def gap(self):
        self.till("assert open_document('FC', 'B') == 0\nlib.EP_Cancelar()", **SAFE)
        line = b"hueco\t9\t2026-11-21 10:30:00\t"
        with open(self.path("diario.txt"), "ab") as file:
            file.write(line[:-1] + b"\t%08x\n" % zlib.crc32(line[:-1]))

    def age(self, hours):
        """What the journal tells is so many hours older."""
        def older(line):
            kind, number, moment, rest = line.rpartition(b"\t")[0].split(b"\t", 3)
            then = datetime.datetime.fromisoformat(moment.decode()) - datetime.timedelta(hours=hours)
            line = b"\t".join([kind, number, str(then).encode(), rest])
            return b"%s\t%08x\n" % (line, zlib.crc32(line))
        with open(self.path("diario.txt"), "rb") as file:
            lines = file.read().splitlines()
        with open(self.path("diario.txt"), "wb") as file:
            file.writelines(older(line) for line in lines)

    def long_day(self):
        self.till("assert open_document('FC', 'B') == 0\nlib.EP_Cancelar()", **SAFE)
        self.age(hours=21)

    def crowd(self):
        """A server that leaves its callers ringing."""
        server = socket.create_server(("127.0.0.1", 0), backlog=0)
        self.addCleanup(server.close)
        for _ in range(4):
            ringing = socket.socket()
            self.addCleanup(ringing.close)
            ringing.setblocking(False)
            ringing.connect_ex(server.getsockname())
        self.ini(ImpresoraDispositivo="tcp:127.0.0.1:%d" % server.getsockname()[1])

    def closed_device(self):
        os.chmod(os.path.realpath(self.device), 0)
        self.before = PLAIN

    def closed_folder(self):
        self.before = PLAIN
        os.chmod(self.folder, 0o555)
        self.addCleanup(os.chmod, self.folder, 0o755)

    def full_disk(self):
        self.before = ["env", "LLVM_PROFILE_FILE=" + os.devnull, "prlimit", "--fsize=0"]


# Name, verdict, what is done, a word of what the finding tells.
ROWS = [
    ("all is well", "bien", lambda s: None, ""),
    ("a safe mode that is well", "bien", lambda s: s.till("", ReconoceRepetidas="1", **SAFE), ""),
    # Fiscal.ini
    ("another folder", "sin-fiscal-ini", lambda s: os.rename(s.path("Fiscal.ini"), s.path("Fiscal.bak")), ""),
    ("a file of something else", "sin-seccion", lambda s: s.write("Fiscal.ini", "[Otra]\nA=1\n"), ""),
    ("a key that is missing", "clave-faltante", lambda s: s.ini(EntPrecio=None), "EntPrecio"),
    ("a comment behind a value", "clave-sin-numero", lambda s: s.ini(DecPrecio="2 ; centavos"), "centavos"),
    ("a number that is too large", "clave-fuera-de-rango", lambda s: s.ini(EntIVA="99999"), "EntIVA"),
    ("no port", "puerto-invalido", lambda s: s.ini(ImpresoraDispositivo=None, ImpresoraPuerto="0"), "0"),
    ("no speed", "velocidad-invalida", lambda s: s.ini(ImpresoraDispositivo=None, ImpresoraConfig="9601"), "9601"),
    ("half an address", "direccion-invalida", lambda s: s.ini(ImpresoraDispositivo="tcp:caja"), "tcp:caja"),
    ("a family in small letters", "familia-invalida", lambda s: s.ini(TipoComprobante="tq"), "tq"),
    ("a key with a slip of the pen", "clave-desconocida", lambda s: s.ini(ModoSegruo="1"), "ModoSeguro"),
    ("a value that is none", "clave-sin-efecto", lambda s: s.ini(ModoSeguro="1", PacienciaSegura="0"), "Paciencia"),
    ("a key twice", "clave-repetida",
     lambda s: s.write("Fiscal.ini", read(s.path("Fiscal.ini")) + "\nentprecio=9\n"), "entprecio"),
    ("a journal without the safe mode", "clave-sin-modo-seguro", lambda s: s.ini(Diario="diario.txt"), "Diario"),
    ("a text of no width", "ancho-cero", lambda s: s.ini(LonDescripcionT="0"), "LonDescripcionT"),
    ("a speed that counts for nothing", "velocidad-sin-efecto", lambda s: s.ini(ImpresoraConfig="9601"), "9601"),
    ("two files", "varios-fiscal-ini", lambda s: s.write("FISCAL.INI", "[Epson_Fiscal]\n"), "FISCAL.INI"),
    # The device
    ("no such device", "dispositivo-inexistente", lambda s: s.ini(ImpresoraDispositivo="/dev/ttyUSB77"), "ttyUSB77"),
    ("what is no port", "no-es-puerto-serie", lambda s: s.ini(ImpresoraDispositivo="/dev/null"), "/dev/null"),
    ("no permission", "sin-permiso", BrokenShop.closed_device, ""),
    ("a port that another program has", "puerto-ocupado",
     lambda s: s.hold("fcntl.flock(fd, fcntl.LOCK_EX); time.sleep(300)"), "python"),
    ("another program that listens", "otro-programa-escucha", BrokenShop.hold, "python"),
    ("nobody at the address", "nadie-atiende", lambda s: s.ini(ImpresoraDispositivo="tcp:127.0.0.1:1"), ""),
    ("a name that nobody knows", "equipo-desconocido",
     lambda s: s.ini(ImpresoraDispositivo="tcp:no-hay-tal.invalid:4001"), "no-hay-tal"),
    ("an address that nothing leads to", "sin-camino",
     lambda s: s.ini(ImpresoraDispositivo="tcp:255.255.255.255:4001"), "255.255.255.255"),
    ("a server that does not pick up", "equipo-mudo", BrokenShop.crowd, ""),
    ("a server that hangs up", "conexion-cortada", BrokenShop.turn_away, ""),
    # The line
    ("another speed", "velocidad-equivocada",
     lambda s: s.cable(say=lambda data: b"\xf8\x80\x00", printer=True), "19200"),
    ("an echo", "eco", lambda s: s.cable(cables.echo), ""),
    ("nothing but refusals", "solo-rechazos", lambda s: s.cable(cables.refuse), "NAK"),
    ("busy for ever", "siempre-ocupada", lambda s: s.cable(cables.ask_for_patience), ""),
    ("answers to somebody else", "respuestas-ajenas", lambda s: s.cable(cables.answer_another), ""),
    ("damaged answers", "respuestas-danadas", lambda s: s.cable(cables.answer_damaged), ""),
    ("a scale in place of the printer", "ruido", lambda s: s.cable(cables.babble), "bytes"),
    ("a cable that ends nowhere", "impresora-muda", lambda s: s.cable(), "cable"),
    ("a printer that hangs", "impresora-muda", BrokenShop.silence, ""),
    # The printer
    ("another family", "otra-familia", lambda s: s.other_printer(family="TF"), "TF"),
    ("other digits", "otros-digitos", lambda s: s.other_printer("--digitos", "precio=8.3"), "EntPrecio=7"),
    ("another numbering", "otro-modelo", lambda s: s.ini(ModeloNombre="TM300AF"), "TM-U220AF"),
    ("no paper", "sin-papel", lambda s: s.other_printer("--sin-papel"), ""),
    ("off line", "fuera-de-linea", lambda s: s.other_printer("--fuera-de-linea"), ""),
    ("a mechanism that fails", "falla-mecanica", lambda s: s.other_printer("--estado", "falla_de_impresora=si"), ""),
    ("a memory that fails", "memoria-fiscal", lambda s: s.other_printer("--estado", "error_memoria_fiscal=si"), ""),
    ("a work memory that fails", "memoria-de-trabajo",
     lambda s: s.other_printer("--estado", "error_memoria_trabajo=si"), ""),
    ("a memory that is full", "memoria-llena", lambda s: s.other_printer("--cierres-restantes", "0"), ""),
    ("a memory that is nearly full", "quedan-pocos-cierres", lambda s: s.other_printer("--cierres-restantes", "12"), ""),
    ("a low battery", "bateria-baja", lambda s: s.other_printer("--bateria-baja"), ""),
    ("a clock of another time", "reloj-corrido", lambda s: s.other_printer("--estado", "desfase_reloj=-3600"), "atrasa"),
    ("a day of 28 hours", "jornada-vencida", BrokenShop.yesterdays_sale, ""),
    ("a day of 21 hours", "jornada-vieja", BrokenShop.long_day, "hace 21"),
    ("a document that is open", "documento-abierto", lambda s: s.till("open_document('FC', 'B')"), "renglones"),
    ("a printer that thinks for long", "lenta", lambda s: s.other_printer("--demora", "1200"), ""),
    ("a wrong promise of repeats", "repetidas-mal-declaradas",
     lambda s: (s.other_printer("--sin-repetidas"), s.ini(ReconoceRepetidas="1", ModoSeguro="1")), ""),
    # Files
    ("a call that is pending", "pendiente", BrokenShop.leave_pending, "Yerba"),
    ("the journal of another printer", "diario-ajeno", BrokenShop.foreign_journal, "otra"),
    ("what is no journal", "no-es-un-diario", lambda s: (s.write("n.txt", "Comprar papel\n"),
                                                        s.ini(ModoSeguro="1", Diario="n.txt")), "n.txt"),
    ("a journal with a gap", "diario-con-hueco", BrokenShop.gap, ""),
    ("a full disk", "disco-lleno", BrokenShop.full_disk, ""),
    ("a folder that nobody may write in", "carpeta-sin-permiso", BrokenShop.closed_folder, ""),
]
