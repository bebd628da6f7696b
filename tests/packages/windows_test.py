"""What Windows users are given: the zip works where it is unpacked, the installer comes, stays and goes.

scripts/paquetes --comprobar makes both, starts a Wine and tells in the environment where all of it is.
"""
import os
import pathlib
import re
import shutil
import tempfile
import unittest
import zipfile

import pe_file
from wine_runs import Printer, run, wait_until

VERSION = os.environ["KESTRA_VERSION"]
FILES = pathlib.Path(os.environ["KESTRA_FILES"]) / "windows"
CLONE = pathlib.Path(os.environ["KESTRA_CLONE"])
PREFIX = pathlib.Path(os.environ["WINEPREFIX"])
INSTALLER = FILES / f"kestra-{VERSION}-instalador.exe"
EARLIER = pathlib.Path(os.environ["KESTRA_SCRATCH"]) / "anterior.exe"
KEY = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\Kestra"
OWN_SETTINGS = b"; de esta caja\r\n[Epson_Fiscal]\r\nImpresoraPuerto=3\r\n"


def sell_a_ticket(case, tree, width, folder):
    """A till of that width, with the library of the tree beside it, sells at the tree's printer."""
    shutil.copy(tree / width / "Kestra.dll", folder)
    shutil.copy(CLONE / f"build/windows-{width}/bin/ticket.exe", folder)
    printer = Printer(tree / "x64/impresora-virtual.exe", folder, "--familia", "TQ", "--tcp", "127.0.0.1:0", "--papel",
                      "papel.txt", "--documentos", "1")
    case.addCleanup(printer.stop)
    settings = (tree / "Fiscal/TQ/Fiscal.ini").read_bytes()
    line = f"ImpresoraDispositivo={printer.device}\r\n".encode()
    settings, times = re.subn(rb";ImpresoraDispositivo=.*\r\n", line, settings)
    case.assertEqual(times, 1)
    (folder / "Fiscal.ini").write_bytes(settings)
    result, said = run(width, folder / "ticket.exe", folder=folder)
    case.assertEqual((result, said.splitlines()[-1:]), (0, ["Ticket emitido: 00000001"]))
    printer.wait()
    case.assertIn("4.151,25", (folder / "papel.txt").read_text(encoding="utf-8"))


class TheZip(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="caja del señor Núñez ")
        cls.addClassCleanup(cls.folder.cleanup)
        with zipfile.ZipFile(FILES / f"kestra-{VERSION}-windows.zip") as packed:
            packed.extractall(cls.folder.name)
        cls.tree = pathlib.Path(cls.folder.name) / f"kestra-{VERSION}"

    def programs(self):
        return sorted(path for width in ("x86", "x64") for path in (self.tree / width).iterdir()
                      if path.suffix in (".exe", ".dll"))

    def test_each_program_says_its_version_and_what_it_is(self):
        for path in self.programs():
            with self.subTest(path.parent.name + "/" + path.name):
                held = path.read_bytes()
                for name, value in (("ProductVersion", VERSION), ("FileVersion", VERSION), ("ProductName", "Kestra"),
                                    ("OriginalFilename", path.name), ("FileDescription", "Kestra: ")):
                    self.assertRegex(held, re.escape(name.encode("utf-16-le")) + b"\0{2,5}" +
                                     re.escape(value.encode("utf-16-le")))

    def test_each_program_is_of_its_folders_width_and_carries_no_time(self):
        for path in self.programs():
            with self.subTest(path.parent.name + "/" + path.name):
                file = pe_file.PeFile(path)
                self.assertEqual(file.machine, {"x86": pe_file.X86, "x64": pe_file.X64}[path.parent.name])
                self.assertEqual(file.timestamp, 0)

    def test_each_program_runs_and_tells_the_same_version(self):
        for path in self.programs():
            if path.suffix == ".exe":
                with self.subTest(path.parent.name + "/" + path.name):
                    self.assertEqual(run(path.parent.name, path, "--version"), (0, f"{path.stem} {VERSION}\n"))

    def test_the_tool_of_64_bits_has_all_its_commands(self):
        whole = ("diagnostico", "estado", "numeracion", "reloj", "modelo", "resolver", "ini", "registro", "presenciar", "consola")
        said = run("x64", self.tree / "x64/kestra.exe", "--ayuda")[1]
        for name in whole:
            self.assertRegex(said, rf"(?m)^ +{name}\b")
        # It looks for the file; the one of 32 bits says where the command is.
        for width, result in (("x64", 6), ("x86", 2)):
            self.assertEqual(run(width, self.tree / width / "kestra.exe", "registro", "no hay.log")[0], result)

    def test_a_till_of_each_width_sells_with_what_is_in_it(self):
        for width in ("x86", "x64"):
            with self.subTest(width), tempfile.TemporaryDirectory(prefix="caja ñ ") as folder:
                sell_a_ticket(self, self.tree, width, pathlib.Path(folder))

    def test_each_family_has_its_settings(self):
        for family in ("TQ", "TF", "FC"):
            text = (self.tree / "Fiscal" / family / "Fiscal.ini").read_bytes()
            self.assertIn(f"\r\nTipoComprobante={family}\r\n".encode(), text)
            self.assertEqual(text.count(b"\n"), text.count(b"\r\n"))

    def test_what_is_inside_is_told(self):
        notices = (self.tree / "avisos/AVISOS.txt").read_text(encoding="utf-8")
        for path in self.programs():
            self.assertIn(f"{path.parent.name}/{path.name}", notices)
        self.assertTrue((self.tree / f"avisos/kestra-{VERSION}-windows.cdx.json").is_file())

    def test_has_the_manual_and_declares(self):
        for name in ("LEAME.txt", "manual/index.html", "puerta/puerta.json", "declaraciones/vb6/Kestra.bas", "include/kestra/kestra.h",
                     "ejemplos/kestra.json", "ejemplos/caja.vbs", "manual/kestra-manual.pdf", "documentos/CHANGELOG.md"):
            self.assertTrue((self.tree / name).is_file(), name)


def contents(folder):
    return {path.relative_to(folder).as_posix(): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def registry():
    """The registry's lines that tell of programs."""
    run("x86", "reg", "export", "HKCU\\Software", "Z:" + str(PREFIX / "usuario.reg").replace("/", "\\"), "/y")
    run("x86", "reg", "export", "HKLM\\Software", "Z:" + str(PREFIX / "maquina.reg").replace("/", "\\"), "/y")
    return {name: (PREFIX / name).read_bytes() for name in ("usuario.reg", "maquina.reg")}


class TheInstaller(unittest.TestCase):
    """For the user and for the machine: where it goes, and the hive that the list of programs is in."""
    maxDiff = None

    def setUp(self):
        self.place = None
        self.addCleanup(self.leave_no_rest)
        with zipfile.ZipFile(FILES / f"kestra-{VERSION}-windows.zip") as packed:
            self.zipped = {name.split("/", 1)[1]: packed.read(name) for name in packed.namelist()}

    def leave_no_rest(self):
        """Of a story that has failed."""
        for hive in ("HKCU", "HKLM"):
            run("x86", "reg", "delete", rf"{hive}\{KEY}", "/f")
        for folder in (self.place, *PREFIX.rglob("Start Menu/Programs/Kestra")):
            shutil.rmtree(folder or "", ignore_errors=True)

    def install(self, installer, *words, place):
        result, _ = run("x86", installer, "/S", *words)
        self.assertEqual(result, 0)
        self.place = next(PREFIX.glob(f"drive_c/{place}"))

    def uninstall(self):
        run("x86", self.place / "desinstalar.exe", "/S")
        # It goes on under another name, to delete itself.
        wait_until(lambda: not (self.place / "desinstalar.exe").exists())
        wait_until(lambda: not self.menu())

    def menu(self):
        return sorted(path.name for path in PREFIX.rglob("Start Menu/Programs/Kestra/*"))

    def listed(self, hive):
        result, said = run("x86", "reg", "query", rf"{hive}\{KEY}", "/v", "DisplayVersion")
        return said.split()[-1] if result == 0 else None

    def test_comes_and_goes_and_leaves_nothing(self):
        for words, hive, place in (([], "HKCU", "users/*/AppData/Local/Programs/Kestra"),
                                   (["/AllUsers"], "HKLM", "Program Files (x86)/Kestra")):
            with self.subTest(hive):
                before = registry()
                self.install(INSTALLER, *words, place=place)
                held = contents(self.place)
                self.assertEqual(held.pop("Fiscal.ini"), self.zipped["Fiscal/TQ/Fiscal.ini"])
                held.pop("desinstalar.exe")
                self.assertEqual(sorted(held), sorted(self.zipped))
                self.assertEqual(held, self.zipped)
                self.assertEqual(self.listed(hive), VERSION)
                self.assertEqual(self.menu(), ["Desinstalar.lnk", "Impresora virtual.lnk", "Manual.lnk",
                                               "Panel de la impresora virtual.url"])
                self.uninstall()
                self.assertFalse(self.place.exists())
                wait_until(lambda: registry() == before)

    def test_a_later_version_takes_the_place_of_an_earlier_one_and_keeps_the_settings(self):
        # Where it is told; a later one finds it there.
        self.install(EARLIER, r"/D=C:\ñandúes", place="ñandúes")
        self.assertEqual(self.listed("HKCU"), "0.9.0")
        (self.place / "Fiscal.ini").write_bytes(OWN_SETTINGS)
        (self.place / "x86" / "de la anterior.dll").write_bytes(b"")
        self.install(INSTALLER, place="ñandúes")
        self.assertEqual(self.listed("HKCU"), VERSION)
        self.assertEqual((self.place / "Fiscal.ini").read_bytes(), OWN_SETTINGS)
        self.assertFalse((self.place / "x86" / "de la anterior.dll").exists())
        with tempfile.TemporaryDirectory() as folder:
            sell_a_ticket(self, self.place, "x86", pathlib.Path(folder))
        self.uninstall()
        # What somebody wrote is not ours.
        self.assertEqual(contents(self.place), {"Fiscal.ini": OWN_SETTINGS})


if __name__ == "__main__":
    unittest.main()
