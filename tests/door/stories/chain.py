"""A chain of shops: a real broker, a real database and the consumer between them, each in a folder of its own and on
ports of its own, to be killed and started again."""
import contextlib
import glob
import os
import pathlib
import shutil
import signal
import socket
import subprocess
import tempfile
import time

SOURCE = pathlib.Path(os.environ["KESTRA_SOURCE"])
CENTRAL = SOURCE / "ejemplos/central/central.py"
# Debian's own, which has the packages of Debian.
PYTHON = "/usr/bin/python3"
BIN = sorted(glob.glob("/usr/lib/postgresql/*/bin"))[-1]
# A database refuses to be run by root, and a broker has no need to be.
NOBODY = {"user": "nobody", "group": "nogroup", "extra_groups": []} if os.getuid() == 0 else {}


def free_port():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


def until(what, seconds=60, pause=0.05):
    """What is true or not empty, as soon as it is."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        found = what()
        if found:
            return found
        time.sleep(pause)
    raise AssertionError(f"not within {seconds} s: {what}")


def listens(port):
    with socket.socket() as s:
        return s.connect_ex(("127.0.0.1", port)) == 0


class Program:
    """One that is started, killed and started again."""

    def __init__(self, name, folder, command, **options):
        self.name, self.folder, self.command, self.options = name, folder, command, options
        self.process = None

    def start(self):
        with open(self.folder / f"{self.name}.log", "ab") as log:
            options = {"stdout": log, "stderr": log, **self.options}
            self.process = subprocess.Popen(self.command, cwd=self.folder, start_new_session=True, **options)
        return self

    def kill(self):
        """As the power would."""
        if self.process:
            with contextlib.suppress(ProcessLookupError):
                os.killpg(self.process.pid, signal.SIGKILL)
            self.process.wait()
        self.process = None

    def log(self):
        return (self.folder / f"{self.name}.log").read_text(encoding="utf-8", errors="replace")


class Broker(Program):
    def __init__(self, folder, settings=""):
        self.port = free_port()
        shape = (SOURCE / "ejemplos/central/mosquitto.conf").read_text(encoding="utf-8")
        shape = shape.replace("listener 1883", f"listener {self.port} 127.0.0.1\nset_tcp_nodelay true")
        shape = shape.replace("/var/lib/mosquitto/", f"{folder}/")
        (folder / "mosquitto.conf").write_text(shape + settings, encoding="utf-8")
        super().__init__("mosquitto", folder, [shutil.which("mosquitto") or "/usr/sbin/mosquitto", "-c",
                                               str(folder / "mosquitto.conf")], **NOBODY)

    def start(self):
        super().start()
        until(lambda: listens(self.port))
        return self


class Base(Program):
    def __init__(self, folder, settings=()):
        self.port = free_port()
        subprocess.run([f"{BIN}/initdb", "-D", str(folder / "base"), "-U", "central", "-A", "trust", "-E", "UTF8",
                        "--no-locale"], check=True, capture_output=True, cwd=folder, **NOBODY)
        options = ["listen_addresses=127.0.0.1", f"unix_socket_directories={folder}", *settings]
        super().__init__("postgres", folder, [f"{BIN}/postgres", "-D", str(folder / "base"), "-p", str(self.port),
                                              *(word for option in options for word in ("-c", option))], **NOBODY)
        self.words = f"host=127.0.0.1 port={self.port} dbname=postgres user=central"

    def start(self):
        super().start()
        until(self.answers)
        return self

    def answers(self):
        return subprocess.run([f"{BIN}/pg_isready", "-q", "-h", "127.0.0.1", "-p", str(self.port)],
                              check=False).returncode == 0

    def kill(self):
        super().kill()
        # Its children, which see that it has gone, have to be gone before another may start.
        time.sleep(0.5)

    def rows(self, sql):
        asked = subprocess.run([f"{BIN}/psql", "-XAtq", "-F", "\t", "-v", "ON_ERROR_STOP=1", "-c", sql, self.words],
                               capture_output=True, text=True, check=False)
        if asked.returncode:
            raise RuntimeError(asked.stderr)
        return [tuple(line.split("\t")) for line in asked.stdout.splitlines()]

    def number(self, sql):
        return int(self.rows(sql)[0][0])


class Network:
    """A line between two that can be cut: nothing passes any more, and nobody is told."""

    def __init__(self, target):
        self.target = target
        self.server = socket.create_server(("127.0.0.1", 0))
        self.port = self.server.getsockname()[1]
        self.pairs = []
        self.is_cut = False
        import threading
        self.threads = threading
        threading.Thread(target=self.accept, daemon=True).start()

    def accept(self):
        while True:
            try:
                near, _ = self.server.accept()
                far = socket.create_connection(("127.0.0.1", self.target))
            except OSError:
                with contextlib.suppress(Exception):
                    near.close()
                if self.server.fileno() < 0:
                    return
                continue
            self.pairs.append((near, far))
            for a, b in ((near, far), (far, near)):
                self.threads.Thread(target=self.hand_on, args=(a, b), daemon=True).start()

    def hand_on(self, one, other):
        with contextlib.suppress(OSError):
            while data := one.recv(65536):
                while self.is_cut:
                    time.sleep(0.05)
                other.sendall(data)
        for end in (one, other):
            with contextlib.suppress(OSError):
                end.close()

    def cut(self):
        self.is_cut = True

    def mend(self):
        """The old connections do not come back."""
        for pair in self.pairs:
            for end in pair:
                with contextlib.suppress(OSError):
                    end.shutdown(socket.SHUT_RDWR)
        self.pairs = []
        self.is_cut = False


class Chain:
    def __init__(self, broker_settings="", base_settings=()):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="cadena-"))
        if NOBODY:
            shutil.chown(self.folder, NOBODY["user"], NOBODY["group"])
        self.broker = Broker(self.folder, broker_settings)
        self.base = Base(self.folder, base_settings)
        self.central = Program("central", self.folder, [
            PYTHON, "-B", str(CENTRAL), "--mqtt", f"127.0.0.1:{self.broker.port}", "--base", self.base.words])

    def __enter__(self):
        self.broker.start()
        self.base.start()
        self.central.start()
        until(lambda: "escucha" in self.central.log())
        return self

    def __exit__(self, *_):
        for program in (self.central, self.base, self.broker):
            program.kill()
        shutil.rmtree(self.folder, ignore_errors=True)
