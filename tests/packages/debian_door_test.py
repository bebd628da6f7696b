"""The door's package in a bare Debian, as far as a system goes in which no systemd is at work: its unit is judged by systemd's
own tools, and the program that it names is started as it says, by its user, in its folder.
"""
import json
import pathlib
import re
import shlex
import subprocess
import tempfile
import unittest

import door_till
import set_ups
from bare_debian import PACKAGES, Printer, the_system

UNIT = "lib/systemd/system/kestra-puerta.service"
STATE = "/var/lib/kestra-puerta"
CONFIGURATION = "/etc/kestra/puerta.json"
WORST = 20  # tenths: 0 is safe, 100 exposed, by systemd's own measure


class TheDoor(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.system = the_system()
        cls.system.install(*PACKAGES)
        cls.unit = (cls.system.root / UNIT).read_text(encoding="utf-8")
        said = tempfile.TemporaryDirectory()
        cls.addClassCleanup(said.cleanup)
        cls.said = pathlib.Path(said.name)

    def of_unit(self, key):
        return re.findall(rf"(?m)^{key}=(.*)$", self.unit)[-1]

    def inside(self, *words, **how):
        return self.system.inside(*words, **how)

    def test_systemd_takes_its_unit_and_finds_it_safe(self):
        self.system.install("systemd")
        self.assertEqual(self.inside("systemd-analyze", "--man=no", "verify", "/" + UNIT), "")
        said = self.inside("systemd-analyze", "security", "--offline=yes", "--no-pager", f"--threshold={WORST}", "/" + UNIT,
                           check=False)
        level = float(re.search(r"Overall exposure level for .*: ([0-9.]+)", said)[1])
        self.assertLessEqual(level * 10, WORST, said)
        print(f"exposure of the door's service, 0 to 10 by systemd's measure: {level}", flush=True)

    def test_is_enabled_and_waits_for_its_configuration(self):
        self.assertTrue((self.system.root / "etc/systemd/system/multi-user.target.wants/kestra-puerta.service").is_symlink())
        self.assertEqual(self.of_unit("ConditionPathExists"), CONFIGURATION)
        self.assertEqual(self.inside("stat", "-c", "%U:%G %a", "/etc/kestra", STATE),
                         "root:kestra-puerta 750\nkestra-puerta:kestra-puerta 750\n")
        self.assertFalse((self.system.root / CONFIGURATION[1:]).exists())

    def start(self, name):
        """As the unit says."""
        log = self.said / name
        user = self.of_unit("User")
        words = ["setpriv", f"--reuid={user}", f"--regid={user}", "--init-groups", "--no-new-privs", "--bounding-set=-all",
                 *shlex.split(self.of_unit("ExecStart"))]
        with open(log, "wb") as output:
            process = subprocess.Popen(self.system.command(*words, folder=self.of_unit("WorkingDirectory")),
                                       stdin=subprocess.DEVNULL, stdout=output, stderr=output)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process, door_till.Door(log, lambda: process.poll() is None)

    def test_sells_and_remembers(self):
        _, there = self.system.new_folder("la impresora")
        printer = Printer(self.system, there, self.said / "impresora", "--familia", "TQ", "--tcp", "127.0.0.1:0", "--panel",
                          "127.0.0.1:0", "--papel", "papel.txt")
        self.addCleanup(printer.stop)
        # As its README.Debian says.
        self.inside("install", "-d", "-m", "0750", "-o", "kestra-puerta", "-g", "kestra-puerta", STATE + "/caja1")
        self.inside("setpriv", "--reuid=kestra-puerta", "--regid=kestra-puerta", "--init-groups", "kestra", "ini", "--escribir",
                    "--dispositivo", printer.device, folder=STATE + "/caja1")
        self.inside("install", "-m", "0640", "-g", "kestra-puerta", "/usr/share/doc/kestra-puerta/examples/puerta.json",
                    CONFIGURATION)
        # The example as it stands, but for a port that others may have.
        file = self.system.root / CONFIGURATION[1:]
        text = file.read_text(encoding="utf-8")
        self.assertIn('"puerto": 8470', text)
        file.write_text(text.replace('"puerto": 8470', '"puerto": 0'), encoding="utf-8")
        process, door = self.start("puerta-1")
        first = door_till.sells_once(self, door)
        self.assertIn("<html", door.ask("GET", "/caja/index.html")[1])
        process.kill()
        process.wait()
        process, door = self.start("puerta-2")
        door_till.remembers(self, door, first)
        process.terminate()
        self.assertEqual(process.wait(door_till.PATIENCE), 0)
        paper = set_ups.ask_panel(printer.url, "api/papel")
        self.assertEqual(paper.count("Caña de azucar"), 2, paper)
        self.assertEqual(json.loads(first[1])["estado"], "hecho")

    def test_when_it_goes_nothing_is_left(self):
        self.inside("apt-get", "purge", "-y", "kestra-puerta")
        for path in ("/etc/kestra", STATE, "/usr/share/kestra-puerta", "/" + UNIT):
            self.assertFalse((self.system.root / path[1:]).exists(), path)


if __name__ == "__main__":
    unittest.main()
