"""The virtual printer of the soak, on a pseudo-terminal, and what befalls it and its cable."""
import os
import signal
import subprocess
import time

# What goes wrong on the line, in millionths of all exchanges. The first part costs the host a time-out of
# five seconds each.
SILENT = (
    ("comando", "perder", 80), ("respuesta", "callar", 80), ("respuesta", "nak", 60),
    ("respuesta", "anterior", 40), ("respuesta", "truncar en byte al azar", 40),
    ("respuesta", "apagar 1 s", 15),
)
SWIFT = (
    ("respuesta", "perder byte al azar", 200), ("respuesta", "invertir byte al azar con 01", 200),
    ("respuesta", "duplicar byte al azar", 200), ("respuesta", "ruido 8 bytes", 300),
    ("respuesta", "suma mala", 300), ("respuesta", "anterior antes", 300),
    ("respuesta", "partir en 4 partes con 10 ms", 300), ("respuesta", "desenchufar", 200),
    ("comando", "desenchufar", 200), ("respuesta", "desenchufar en byte al azar", 200),
)
# For a run of seconds: bad moments more often, among them one silence and none by chance.
SHORT = (
    "siempre con probabilidad 0.4 %: ruido 8 bytes", "siempre con probabilidad 0.4 %: suma mala",
    "siempre con probabilidad 0.4 %: anterior antes", "siempre con probabilidad 0.3 %: desenchufar",
    "cada comando con probabilidad 0.3 %: desenchufar", "respuesta 500: callar",
)


def rules(short):
    if short:
        return "\n".join(SHORT) + "\n"
    each = {"comando": "cada comando", "respuesta": "cada respuesta"}
    return "".join(f"{each[when]} con probabilidad {millionths / 10000:.3f} %: {what}\n"
                   for when, what, millionths in SILENT + SWIFT)


class Printer:
    def __init__(self, program, folder, short):
        self.program, self.folder = program, folder
        self.link = os.path.join(folder, "impresora")
        self.faults = os.path.join(folder, "fallas.txt")
        with open(self.faults, "w", encoding="utf-8") as file:
            file.write(rules(short))
        self.starts = self.kills = 0
        self.process = None

    def start(self):
        self.starts += 1
        command = [
            self.program, "--familia", "TF", "--enlace", self.link, "--cierres-restantes", "9000",
            "--memoria", os.path.join(self.folder, "memoria.db"),
            "--papel", os.path.join(self.folder, f"papel-{self.starts:04}.txt"),
            "--fallas", self.faults, "--semilla", str(self.starts)]
        with open(os.path.join(self.folder, "impresora.log"), "ab") as said:
            self.process = subprocess.Popen(command, stdout=said, stderr=said)
        # The link of a killed one is still there: what counts is where it points to.
        deadline = time.monotonic() + 20
        while not self.serves():
            if self.process.poll() is not None or time.monotonic() > deadline:
                raise SystemExit(f"the printer does not start: see {self.folder}/impresora.log")
            time.sleep(0.005)

    def serves(self):
        try:
            device = os.readlink(self.link)
            held = os.listdir(f"/proc/{self.process.pid}/fd")
            return any(os.readlink(f"/proc/{self.process.pid}/fd/{fd}") == device for fd in held)
        except OSError:
            return False

    def end(self, how):
        self.process.send_signal(how)
        return self.process.wait(30)

    # -- What befalls it --

    def killed(self):
        self.kills += 1
        self.end(signal.SIGKILL)
        self.start()

    def switched_off(self, chance):
        code = self.end(signal.SIGTERM)
        if code != 0:
            raise SystemExit(f"the printer ended with {code}")
        time.sleep(chance.uniform(0, 0.3))
        self.start()

    def unplugged(self, chance):
        """The device's name is gone for a moment, as an adapter's is. The printer may make it anew when
        its line is hung up meanwhile; then the old one leads nowhere."""
        away = self.link + ".away"
        os.rename(self.link, away)
        time.sleep(chance.uniform(0.01, 0.3))
        if os.path.lexists(self.link):
            os.unlink(away)
        else:
            os.rename(away, self.link)
