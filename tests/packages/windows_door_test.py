"""The door on Windows: from the zip it sells as a program; the installer makes a service of it for who asks, and of nobody
else. Wine's services are as Windows' as far as they are made, listed, started, stopped and removed here; whose rights one
has, and that it begins with the machine, is not seen.
"""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest
import zipfile

import door_till
from wine_runs import Printer, command, run, wait_until

VERSION = os.environ["KESTRA_VERSION"]
FILES = pathlib.Path(os.environ["KESTRA_FILES"]) / "windows"
DRIVE = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c"
INSTALLER = FILES / f"kestra-{VERSION}-instalador.exe"
DATA = DRIVE / "ProgramData/Kestra/puerta"


def service_exists():
    return run("x86", "reg", "query", r"HKLM\System\CurrentControlSet\Services\kestra-puerta")[0] == 0


def settle(folder, device):
    """The example that lies in the folder, for a printer at that address and a port that nobody has."""
    settings = (folder / "caja1/Fiscal.ini").read_bytes().decode("cp1252")
    assert ";ImpresoraDispositivo=" in settings
    settings = settings.replace(";ImpresoraDispositivo=tcp:127.0.0.1:4001", f"ImpresoraDispositivo={device}")
    (folder / "caja1/Fiscal.ini").write_bytes(settings.encode("cp1252"))
    text = (folder / "puerta.json").read_text(encoding="utf-8")
    assert '"puerto": 8470' in text
    (folder / "puerta.json").write_text(text.replace('"puerto": 8470', '"puerto": 18470'), encoding="utf-8")


class TheDoor(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="caja del señor Núñez ")
        cls.addClassCleanup(folder.cleanup)
        with zipfile.ZipFile(FILES / f"kestra-{VERSION}-windows.zip") as packed:
            packed.extractall(folder.name)
        cls.tree = pathlib.Path(folder.name) / f"kestra-{VERSION}"

    def setUp(self):
        self.place = None
        self.leave_no_rest()
        self.addCleanup(self.leave_no_rest)

    def leave_no_rest(self):
        """Of a story that has failed, or of a service that somebody has changed."""
        if service_exists():
            run("x86", "net", "stop", "kestra-puerta")
            run("x86", "sc", "delete", "kestra-puerta")
        if self.place and (self.place / "desinstalar.exe").exists():
            self.uninstall()
        shutil.rmtree(DATA.parent, ignore_errors=True)

    def printer(self):
        folder = tempfile.TemporaryDirectory(prefix="impresora ñ ")
        self.addCleanup(folder.cleanup)
        printer = Printer(self.tree / "x64/impresora-virtual.exe", folder.name, "--familia", "TQ", "--tcp", "127.0.0.1:0",
                          "--papel", "papel.txt")
        self.addCleanup(printer.stop)
        return printer, pathlib.Path(folder.name) / "papel.txt"

    def start(self, name):
        """As a program, in a console."""
        log = self.tree.parent / name
        with open(log, "wb") as output:
            process = subprocess.Popen(command("x64", self.tree / "x64/kestra-puerta.exe", "--configuracion",
                                               self.tree / "puerta/puerta.json"),
                                       cwd=self.tree, stdin=subprocess.DEVNULL, stdout=output, stderr=output)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process, door_till.Door(log, lambda: process.poll() is None)

    def test_sells_and_remembers_as_a_program(self):
        printer, paper = self.printer()
        settle(self.tree / "puerta", printer.device)
        process, door = self.start("puerta-1.log")
        first = door_till.sells_once(self, door)
        process.kill()
        process.wait()
        _, door = self.start("puerta-2.log")
        door_till.remembers(self, door, first)
        self.assertEqual(paper.read_text(encoding="utf-8").count("Caña de azucar"), 2)

    def install(self, *words):
        result, _ = run("x86", INSTALLER, "/S", *words)
        self.assertEqual(result, 0)
        self.place = next(DRIVE.glob("Program Files*/Kestra"))

    def uninstall(self):
        run("x86", self.place / "desinstalar.exe", "/S")
        wait_until(lambda: not (self.place / "desinstalar.exe").exists())

    def test_nobody_gets_a_service_unasked(self):
        self.install("/AllUsers")
        self.assertFalse(service_exists())
        self.assertFalse(DATA.exists())

    def test_an_untouched_service_leaves_nothing(self):
        self.install("/AllUsers", "/Puerta")
        self.assertTrue(service_exists())
        self.assertTrue((DATA / "puerta.json").is_file())
        self.uninstall()
        wait_until(lambda: not service_exists())
        self.assertFalse(DATA.parent.exists())

    def test_the_service_sells_and_remembers(self):
        printer, paper = self.printer()
        self.install("/AllUsers", "/Puerta")
        settle(DATA, printer.device)
        kept = (DATA / "puerta.json").read_bytes()
        self.service("start")
        first = door_till.sells_once(self, self.service_door())
        self.service("stop")
        # A later version finds it, and leaves its configuration as it is.
        self.install("/AllUsers")
        self.assertEqual((DATA / "puerta.json").read_bytes(), kept)
        door_till.remembers(self, self.service_door(), first)
        self.uninstall()
        wait_until(lambda: not service_exists())
        self.assertEqual(paper.read_text(encoding="utf-8").count("Caña de azucar"), 2)
        # What it has done, and what somebody has written, is not ours to take away.
        self.assertEqual((DATA / "puerta.json").read_bytes(), kept)
        self.assertTrue(list(DATA.rglob("puerta.db")))

    def service(self, what):
        result, said = run("x86", "net", what, "kestra-puerta")
        self.assertEqual(result, 0, said)

    def service_door(self):
        door = door_till.Door(None, lambda: True, port=18470)

        def answers():
            try:
                return door.ask("GET", "/salud")[0] == 200
            except OSError:
                return False
        wait_until(answers)
        return door


if __name__ == "__main__":
    unittest.main()
