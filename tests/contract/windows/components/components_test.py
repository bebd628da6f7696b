#!/usr/bin/env python3
"""The library as a provider of classes: registering, creating, start-up, and nothing left behind.

    components_test.py DLL_DIRECTORY [HOST_DIRECTORY]

DLL_DIRECTORY holds Kestra.dll; HOST_DIRECTORY (the same one when not given) components_host.exe and
registry_dump.exe of the same width. The Wine prefix is the environment's. Every case compares the registry's
classes before and after, all of their keys and values.
"""
import pathlib
import re
import shutil
import socket
import sys
import tempfile
import unittest

import programs
from programs import windows_path

HERE = pathlib.Path(__file__).resolve().parent

# Complete settings: a missing key would show its box and wait for an operator.
SAMPLE_INI = (HERE.parents[3] / "tools" / "Fiscal.ini").read_bytes().decode("cp1252")


def ini_with_port(number):
    """The sample settings on a numbered port."""
    lines = [line for line in SAMPLE_INI.splitlines() if not line.startswith("ImpresoraDispositivo")]
    return "".join(re.sub(r"^ImpresoraPuerto=.*", f"ImpresoraPuerto={number}", line) + "\r\n"
                   for line in lines)


GOOD_INI = ini_with_port(20)
BAD_PORT_INI = ini_with_port(0)
BAD_KEY_INI = re.sub(r"(?m)^EntPrecio=.*?\r", "EntPrecio=x\r", GOOD_INI)

STORIES = 36  # of components_host.exe

# These need other settings than a good till's, or other things in the registry.
SETTINGS = {
    "failed_start_leaves_no_registration": BAD_PORT_INI,
    "start_that_cannot_take_its_registration_back": BAD_KEY_INI,
}
TOLD_ELSEWHERE = ["another_copy_serves"]

# A class of another product, or of a copy of the library from before these classes.
FOREIGN_CLASS = "{11111111-2222-3333-4444-555555555555}"
NAMES = ["Kestra.InitClass", "Kestra.InitClass.1", "Kestra.ExampleClass", "Kestra.ExampleClass.1"]
TILL_NAMES = ["Kestra.Caja", "Kestra.Caja.1"]
# What a script is told of each call that cannot be: VBScript's own numbers.
TILL_SAYS = ["creada: Object", "desenlace 0, 0 []", "no hay: 438", "falta: 450", "sobra: 450", "palabras: 13",
             "coma: 13", "cifras: 0", "sin variable: 13", "por valor: 13", "variable: 0"]
HIVES = {"HKLM": "HKEY_LOCAL_MACHINE", "HKCU": "HKEY_CURRENT_USER"}


class Wine:
    """Programs of one width, and the library under test."""

    def __init__(self, dll_directory, host_directory):
        self.library = pathlib.Path(dll_directory).resolve() / "Kestra.dll"
        self.hosts = pathlib.Path(host_directory).resolve()
        self.dump = None  # the program that saves the registry, for all of a run

    @staticmethod
    def run(*arguments, directory=None):
        return programs.run(arguments, folder=directory)

    def tell(self, story, directory, library=None):
        return self.run(self.hosts / "components_host.exe", story,
                        windows_path(library or self.library), directory=directory)

    def stories(self):
        listed = self.run(self.hosts / "components_host.exe", "list")
        return listed.output().decode().split()

    def registry(self):
        """Every key and value of the classes, the machine's and the user's, as texts of many lines."""
        if self.dump is None:
            self.dump = programs.Program([self.hosts / "registry_dump.exe"], talk=True)
        with tempfile.TemporaryDirectory(prefix="kestra-registry-") as folder:
            self.dump.call.sendall(windows_path(folder).encode() + b"\n")
            assert self.dump.call.recv(1) == b"1", self.dump.output()
            hives = [without_times(pathlib.Path(folder, hive + ".reg")) for hive in ("machine", "user")]
        assert hives[0].count("\n") > 100, "the registry cannot be read"
        return hives

    def close(self):
        self.dump.call.shutdown(socket.SHUT_WR)
        assert self.dump.wait() == 0, self.dump.output()

    def regsvr32(self, *arguments):
        return self.run("regsvr32", "/s", *arguments).returncode

    def script(self, name):
        return self.run("cscript", "//nologo", windows_path(HERE / name))


def without_times(file):
    """A saved part of the registry."""
    return re.sub(r"(?m)(?<=\]) \d+$|^#time=.*\n", "", file.read_text("utf-8", "replace"))


def entries(hives):
    """Keys, and lines of values with the key that they are in."""
    for number, text in enumerate(hives):
        key = ""
        for line in text.splitlines():
            if line.startswith("["):
                key = f"{number} {line}"
                yield key
            elif line and not line.startswith(("#", ";;")):
                yield f"{key} @ {line}"


def changes(before, after):
    """What is in one of them alone. Most are the same to the letter."""
    return [] if before == after else sorted(set(entries(before)) ^ set(entries(after)))


wine = None


class Components(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        # Every Windows has this key; a new Wine prefix gets it with the first class of a user's own.
        wine.run("reg", "add", r"HKCU\Software\Classes", "/f")
        # The script host registers interfaces of its own when it first runs.
        wine.script("both_classes.vbs")
        cls.everything = wine.registry()

    @classmethod
    def tearDownClass(cls):
        changed = changes(cls.everything, wine.registry())
        wine.close()
        assert not changed, f"left behind in the registry: {changed}"

    def setUp(self):
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="kestra-components-"))
        self.addCleanup(shutil.rmtree, self.directory, ignore_errors=True)
        (self.directory / "Fiscal.ini").write_bytes(GOOD_INI.encode("cp1252"))
        self.before = self.everything  # as each case found it and has to leave it

    def unchanged_since(self, before):
        self.assertEqual(changes(before, wine.registry()), [])

    def tell(self, story):
        told = wine.tell(story, self.directory)
        self.assertEqual(told.returncode, 0, told.output().decode(errors="replace"))

    def test_stories_leave_the_registry_as_it_was(self):
        stories = wine.stories()
        self.assertEqual(len(set(stories)), STORIES)
        for story in stories:
            if story in TOLD_ELSEWHERE:
                continue
            ini = SETTINGS.get(story, GOOD_INI)
            (self.directory / "Fiscal.ini").write_bytes(ini.encode("cp1252"))
            with self.subTest(story):
                self.tell(story)
                self.unchanged_since(self.before)

    def test_scripts_create_both_classes_while_registered(self):
        self.assertNotIn(b"creadas", wine.script("both_classes.vbs").output())
        self.assertEqual(wine.regsvr32(windows_path(wine.library)), 0)
        try:
            said = wine.script("both_classes.vbs").output()
        finally:
            self.assertEqual(wine.regsvr32("/u", windows_path(wine.library)), 0)
        self.assertIn(b"creadas: IInitClass IExampleClass", said)
        self.assertNotIn(b"creadas", wine.script("both_classes.vbs").output())
        self.unchanged_since(self.before)

    def install_till(self, library=None):
        self.assertEqual(wine.regsvr32("/n", "/i:caja", windows_path(library or wine.library)), 0)

    def remove_till(self, library=None):
        self.assertEqual(wine.regsvr32("/u", "/n", "/i:caja", windows_path(library or wine.library)), 0)

    def test_scripts_call_the_functions_while_the_till_is_installed(self):
        self.assertEqual(wine.script("till_methods.vbs").output(), b"")
        self.install_till()
        try:
            said = wine.script("till_methods.vbs").output().decode().splitlines()
            others = wine.script("both_classes.vbs").output()
        finally:
            self.remove_till()
        self.assertEqual(said, TILL_SAYS)
        self.assertNotIn(b"creadas", others)
        self.assertEqual(wine.script("till_methods.vbs").output(), b"")
        self.unchanged_since(self.before)

    def test_nothing_is_installed_that_has_no_name_of_ours(self):
        for words in ("/i", "/i:otra"):
            self.assertNotEqual(wine.regsvr32("/n", words, windows_path(wine.library)), 0, words)
        self.unchanged_since(self.before)

    def test_the_till_and_the_classes_do_not_take_one_another_along(self):
        self.install_till()
        installed = wine.registry()
        for key in changes(self.before, installed):
            self.assertRegex(key, r"(?i)Kestra\.Caja|889B85C9-1FB0-407E-ABE4-3C706AA9564C")
        self.assertEqual(wine.regsvr32(windows_path(wine.library)), 0)
        self.tell("started_twice_ended_twice")
        self.unregister()
        self.unchanged_since(installed)
        self.assertEqual(wine.regsvr32(windows_path(wine.library)), 0)
        both = wine.registry()
        self.install_till()
        self.remove_till()
        self.assertNotEqual(changes(installed, both), [])
        self.unregister()
        self.unchanged_since(self.before)

    def test_the_till_of_another_copy_is_not_removed(self):
        other = self.directory / "Otra.dll"
        shutil.copy(wine.library, other)
        self.install_till(other)
        installed = wine.registry()
        self.remove_till()
        self.unchanged_since(installed)
        self.remove_till(other)
        self.unchanged_since(self.before)

    def test_a_till_of_another_product_survives(self):
        for hive in HIVES:
            keys = self.foreign_names(hive, TILL_NAMES)
            with self.subTest(hive):
                self.untouched(self.remove_till)
                self.untouched(lambda: self.tell("host_without_components"))
            self.remove_keys(keys)

    def test_unregistering_twice_is_fine(self):
        for _ in range(2):
            self.assertEqual(wine.regsvr32("/u", windows_path(wine.library)), 0)
        self.unchanged_since(self.before)

    def start_over(self, registered):
        """Start-up and shut-down over a lasting registration of the file `registered`."""
        self.assertEqual(wine.regsvr32(windows_path(registered)), 0)
        try:
            lasting = wine.registry()
            self.assertTrue(changes(self.before, lasting))
            for story in ("host_without_components", "started_twice_ended_twice"):
                self.tell(story)
                self.unchanged_since(lasting)
        finally:
            self.assertEqual(wine.regsvr32("/u", windows_path(registered)), 0)
        self.unchanged_since(self.before)

    def test_start_leaves_a_lasting_registration(self):
        self.start_over(wine.library)

    def test_start_puts_back_the_registration_of_another_copy(self):
        other = self.directory / "Otra.dll"
        shutil.copy(wine.library, other)
        self.start_over(other)

    def test_removing_a_copy_leaves_the_registration_of_the_other(self):
        other = self.directory / "Otra.dll"
        shutil.copy(wine.library, other)
        self.assertEqual(wine.regsvr32(windows_path(other)), 0)
        lasting = wine.registry()
        self.assertEqual(wine.regsvr32("/u", windows_path(wine.library)), 0)
        self.unchanged_since(lasting)
        self.assertEqual(wine.regsvr32("/u", windows_path(other)), 0)
        self.unchanged_since(self.before)

    def test_another_copy_serves_where_nothing_can_be_registered(self):
        other = self.directory / "Otra.dll"
        shutil.copy(wine.library, other)
        self.assertEqual(wine.regsvr32(windows_path(other)), 0)
        try:
            self.tell("another_copy_serves")
        finally:
            self.assertEqual(wine.regsvr32("/u", windows_path(other)), 0)
        self.unchanged_since(self.before)

    def change_registry(self, keys):
        """{key: {name of a value: as a registry file writes it}}; None in place of values removes the key."""
        lines = ["Windows Registry Editor Version 5.00", ""]
        for key, values in keys.items():
            path = re.sub("^HK(LM|CU)", lambda short: HIVES[short.group()], key)
            lines.append(f"[{'-' if values is None else ''}{path}]")
            lines += [f"{name}={value}" for name, value in (values or {}).items()] + [""]
        file = self.directory / "change.reg"
        file.write_text("\r\n".join(lines), encoding="utf-16")
        self.assertEqual(wine.run("reg", "import", windows_path(file)).returncode, 0, lines)

    def remove_keys(self, keys):
        self.change_registry({key: None for key in keys})

    def foreign_names(self, hive, names):
        """Names that lead to somebody else's class; with more below and beside them than ours have."""
        keys = [rf"{hive}\Software\Classes\{name}" for name in names]
        self.addCleanup(self.remove_keys, keys)  # when the test fails
        made = {}
        for key in keys:
            made[key] = {"@": '"Otro producto"', '"EditFlags"': "dword:00010000"}
            made[key + r"\CLSID"] = {"@": f'"{FOREIGN_CLASS}"', '"Nota"': '"suya"'}
            if key.endswith("Kestra.InitClass"):
                made[key + r"\CurVer"] = {"@": '"Kestra.InitClass.7"'}
                made[key + r"\DefaultIcon"] = {"@": '"otro.exe,1"'}
        self.change_registry(made)
        return keys

    def untouched(self, action):
        before = wine.registry()
        action()
        self.unchanged_since(before)

    def unregister(self):
        self.assertEqual(wine.regsvr32("/u", windows_path(wine.library)), 0)

    def fail_to_start(self):
        (self.directory / "Fiscal.ini").write_bytes(BAD_PORT_INI.encode("cp1252"))
        self.tell("failed_start_leaves_no_registration")

    def test_names_of_other_products_survive(self):
        for hive in HIVES:
            keys = self.foreign_names(hive, NAMES)
            for what, action in [
                    ("a start", lambda: self.tell("host_without_components")),
                    ("two starts", lambda: self.tell("started_twice_ended_twice")),
                    ("being removed without being there", self.unregister),
                    ("a start that fails", self.fail_to_start)]:
                (self.directory / "Fiscal.ini").write_bytes(GOOD_INI.encode("cp1252"))
                with self.subTest(what, hive=hive):
                    self.untouched(action)
            self.remove_keys(keys)

    def test_one_name_of_another_product_survives(self):
        for name in NAMES:
            keys = self.foreign_names("HKLM", [name])
            with self.subTest(name):
                self.untouched(lambda: self.tell("host_without_components"))
                self.untouched(self.unregister)
            self.remove_keys(keys)

    def test_names_that_others_took_from_a_lasting_registration_stay_theirs(self):
        other = self.directory / "Otra.dll"
        shutil.copy(wine.library, other)
        for registered in (other, wine.library):
            self.assertEqual(wine.regsvr32(windows_path(registered)), 0)
            keys = self.foreign_names("HKLM", ["Kestra.InitClass"])
            with self.subTest(registered.name):
                self.untouched(lambda: self.tell("host_without_components"))
            self.remove_keys(keys)
            self.assertEqual(wine.regsvr32("/u", windows_path(registered)), 0)
        self.unchanged_since(self.before)

    def test_a_planted_file_in_the_current_directory_is_not_loaded(self):
        (self.directory / "Kestra.DLL").write_bytes(b"not a library")
        self.tell("host_without_components")
        self.unchanged_since(self.before)

    def test_programs_that_start_at_the_same_time(self):
        story = [wine.hosts / "components_host.exe", "started_twice_ended_twice", windows_path(wine.library)]
        running = [programs.Program(story, self.directory) for _ in range(6)]
        for program in running:
            self.assertEqual(program.wait(), 0, program.output().decode(errors="replace"))
        self.unchanged_since(self.before)


def main():
    global wine
    if len(sys.argv) not in (2, 3):
        print(__doc__)
        return 2
    wine = Wine(sys.argv[1], sys.argv[-1])
    program = unittest.main(argv=sys.argv[:1], exit=False, verbosity=2)
    return 0 if program.result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
