"""The kit's programs, of either system, and a host that speaks to the virtual printer in frames."""

import os
import platform
import re
import shutil
import signal
import socket
import subprocess
import tempfile
import time
import unittest

ENV = os.environ
WINDOWS = ENV["KIT_SYSTEM"] == "windows"
PATIENCE = 300.0  # seconds; only what hangs takes so long
EMPTY = "\x7f"
# Newer systems put the heap of a 64-bit program anywhere, once in 6000 times where Wine must have a page.
STEADY = ["setarch", platform.machine(), "--addr-no-randomize"]


def words_before():
    can = subprocess.run([*STEADY, "true"], stderr=subprocess.DEVNULL, check=False).returncode == 0
    return [*(STEADY if can else []), ENV["KIT_WINE"]]


def program(name):
    """The words that start a program of the system that is tried."""
    if not WINDOWS:
        return [os.path.join(ENV["KIT_LINUX"], name)]
    return [*words_before(), os.path.join(ENV["KIT_WINDOWS"], name + ".exe")]


COMMAND, TOOL, DAY = (program(name) for name in ("impresora-virtual", "kestra", "jornada"))


def at_home(path):
    """A path as the program's own system writes it."""
    return "Z:" + path.replace("/", "\\") if WINDOWS else path


class Gone(Exception):
    """The printer, or its line."""


class Program:
    """One at work in a folder. What it says goes to files: the other end of a pipe would be held by whatever Wine starts
    beside it, and outlive it."""

    def __init__(self, folder, command):
        self.said = tempfile.mkdtemp(prefix="kestra-said-")
        with open(self.file(0), "wb") as output, open(self.file(1), "wb") as errors:
            self.process = subprocess.Popen(command, cwd=folder, stdin=subprocess.DEVNULL, stdout=output, stderr=errors)

    def file(self, number):
        return os.path.join(self.said, str(number))

    def words(self, number):
        with open(self.file(number), "rb") as file:
            return file.read().decode("utf-8", "replace").replace("\r\n", "\n")

    def hear(self, begins):
        """What stands behind these words on a line that it writes to its standard output."""
        deadline = time.monotonic() + PATIENCE
        while True:
            over = self.process.poll() is not None
            found = re.search(rf"(?m)^{re.escape(begins)}(.*)\n", self.words(0))
            if found:
                return found.group(1)
            if over or time.monotonic() > deadline:
                raise Gone(self.words(1))
            time.sleep(0.005)

    def kill(self):
        """At once, as when the power goes: nothing of the program runs any more."""
        self.process.send_signal(signal.SIGKILL)
        self.end()

    def end(self):
        """Its result and what it wrote to its standard error."""
        return self.process.wait(PATIENCE), self.words(1)

    def forget(self):
        if self.process.poll() is None:
            self.kill()
        shutil.rmtree(self.said, ignore_errors=True)


class Printer(Program):
    """The virtual one, or whoever passes for it, with the name of its line."""

    def __init__(self, folder, *flags, command=COMMAND):
        super().__init__(folder, [*command, *flags])
        self.port = self.hear("Puerto: ")


class Host:
    """Whoever is at the other end of a line over TCP."""

    def __init__(self, port, first=0x20):
        self.line = socket.create_connection(("127.0.0.1", int(port.rpartition(":")[2])), PATIENCE)
        self.line.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.sequence = first

    def close(self):
        self.line.close()

    def ask(self, *fields):
        """The fields of the answer; the two status words are the first."""
        self.sequence = 0x20 if self.sequence >= 0x7E else self.sequence + 1
        frame = b"\x02" + bytes([self.sequence]) + "\x1c".join(fields).encode("cp1252") + b"\x03"
        try:
            self.line.sendall(frame + b"%04X" % sum(frame))
            answer = self.hear()
            self.line.sendall(b"\x06")
        except OSError as error:
            raise Gone(error) from error
        return answer[3:answer.index(b"\x03")].decode("cp1252").split("\x1c")[1:]

    def hear(self):
        heard = b""
        while not re.search(rb"\x03....", heard, re.DOTALL):
            more = self.line.recv(4096)
            if not more:
                raise Gone(heard)
            heard += more
        return heard[heard.index(b"\x02"):]

    # The everyday commands, with what a test does not care about filled in.

    def open_ticket(self):
        return self.ask("@", "C")

    def open_invoice(self, letter):
        return self.ask("`", "T", "C", letter, "1", "F", "12", "I", "I", "Juan Perez", " ", "CUIT", "20123456786",
                        "N", "Calle Falsa 123", EMPTY, EMPTY, EMPTY, EMPTY, "C")

    def ticket_item(self, text="Pan", price="1210"):
        return self.ask("B", text, "1000", price, "2100", "M", "0001", "0000", "000000000")

    def invoice_item(self):
        return self.ask("b", "Pan", "1000", "1210", "2100", "M", "0001", "0000", EMPTY, EMPTY, EMPTY, EMPTY, "000000000")

    def close_ticket(self):
        return self.ask("E", "T")

    def close_invoice(self, letter):
        return self.ask("e", "T", letter, EMPTY)


class InAFolder(unittest.TestCase):
    name = "kestra-"

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix=self.name)
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def start(self, *flags, **of_whom):
        printer = Printer(self.folder, *flags, **of_whom)
        self.addCleanup(printer.forget)
        return printer

    def run_it(self, *flags, command=COMMAND, typed=""):
        """The result of a run that ends by itself, and all that it said."""
        with tempfile.TemporaryFile() as said, tempfile.TemporaryFile() as keys:
            keys.write(typed.encode())
            keys.seek(0)
            ended = subprocess.run([*command, *flags], cwd=self.folder, stdin=keys, stdout=said, stderr=said,
                                   timeout=PATIENCE, check=False)
            said.seek(0)
            return ended.returncode, said.read().decode("utf-8", "replace").replace("\r\n", "\n")


class InAShop(InAFolder):
    """A folder with a name that has blanks and letters of ours, as shops have them."""
    name = "caja del ñandú "

    def read(self, *names):
        with open(self.path(*names), encoding="utf-8") as file:
            return file.read()

    def write(self, name, text, encoding="utf-8"):
        with open(self.path(name), "w", encoding=encoding) as file:
            file.write(text)

    def settings(self, **keys):
        """A Fiscal.ini for the family TF, with these keys in place of its own."""
        with open(ENV["KESTRA_SETTINGS"], encoding="utf-8") as file:
            text = file.read()
        for key, value in {"TipoComprobante": "TF", "ModeloNombre": "TM-U220AF", **keys}.items():
            text = re.sub(rf"(?m)^;?{key}=.*$", lambda _, line=f"{key}={value}": line, text)
        self.write("Fiscal.ini", text, "cp1252")

    def serial_printer(self, number):
        """A Linux printer at the far end of a serial line: the name of the near end where the tried program runs."""
        words = [os.path.join(ENV["KIT_LINUX"], "impresora-virtual"), "--familia", "TF", "--enlace", "línea"]
        printer = Program(self.folder, [*words, "--papel", "papel.txt"])
        self.addCleanup(printer.forget)
        printer.hear("Puerto: ")
        if not WINDOWS:
            return self.path("línea")
        link = os.path.join(ENV["WINEPREFIX"], "dosdevices", f"com{number}")
        os.symlink(self.path("línea"), link)
        self.addCleanup(os.unlink, link)
        return f"COM{number}"

    def shown(self, *words):
        """The tool's result, and what it said."""
        return self.run_it(*words, command=TOOL)
