#!/usr/bin/env python3
"""The library as a provider of classes: registering, creating, start-up, and nothing left behind.

    components_test.py DLL_DIRECTORY [HOST_DIRECTORY]

DLL_DIRECTORY holds Kestra.dll; HOST_DIRECTORY (the same one when not given) components_host.exe and
registry_dump.exe of the same width. The Wine prefix is the environment's. Every case compares the names of the registry's classes before and after, the whole run all of
their keys and values.
"""
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

import programs
from programs import windows_path

HERE = pathlib.Path(__file__).resolve().parent

# Complete settings: a missing key would show its box and wait for an operator.
SAMPLE_INI = (HERE.parents[2] / "tools" / "Fiscal.ini").read_bytes().decode("cp1252")


def ini_with_port(number):
    """The sample settings on a numbered port."""
    lines = [line for line in SAMPLE_INI.splitlines() if not line.startswith("ImpresoraDispositivo")]
    return "".join(re.sub(r"^ImpresoraPuerto=.*", f"ImpresoraPuerto={number}", line) + "\r\n"
                   for line in lines)


GOOD_INI = ini_with_port(20)
BAD_PORT_INI = ini_with_port(0)
BAD_KEY_INI = re.sub(r"(?m)^EntPrecio=.*?\r", "EntPrecio=x\r", GOOD_INI)

# Stories of components_host.exe that every run must know.
STORIES = [
    "classes_come_from_their_factories",
    "objects_follow_the_rules_of_interfaces",
    "what_is_in_use_keeps_the_library",
    "scripts_find_the_method_by_name",
    "objects_describe_themselves",
    "compiled_clients_call_the_method_directly",
    "names_work_while_registered",
    "host_without_components",
    "started_twice_ended_twice",
    "ended_without_start",
    "host_in_a_single_threaded_apartment",
    "host_in_the_multithreaded_apartment",
    "host_leaves_before_the_library",
    "ended_on_another_thread",
    "started_on_a_thread_with_the_number_of_one_that_ended",
    "failed_start_leaves_no_registration",
    "user_without_rights_registers_for_himself",
    "user_without_rights_starts",
    "start_without_rights",
    "start_that_cannot_take_its_registration_back",
    "another_copy_serves",
    "leaves_without_ending",
]

# These need other settings than a good till's, or other things in the registry.
SETTINGS = {
    "failed_start_leaves_no_registration": BAD_PORT_INI,
    "start_that_cannot_take_its_registration_back": BAD_KEY_INI,
}
TOLD_ELSEWHERE = ["another_copy_serves"]

# A class of another product, or of a copy of the library from before these classes.
FOREIGN_CLASS = "{11111111-2222-3333-4444-555555555555}"
NAMES = ["Kestra.InitClass", "Kestra.InitClass.1", "Kestra.ExampleClass", "Kestra.ExampleClass.1"]
HIVES = ["HKLM", "HKCU"]


class Wine:
    """Programs of one width, and the library under test."""

    def __init__(self, dll_directory, host_directory):
        self.library = pathlib.Path(dll_directory).resolve() / "Kestra.dll"
        self.hosts = pathlib.Path(host_directory).resolve()

    @staticmethod
    def run(*arguments, directory=None):
        return programs.run(arguments, folder=directory)

    def tell(self, story, directory, library=None):
        return self.run(self.hosts / "components_host.exe", story,
                        windows_path(library or self.library), directory=directory)

    def stories(self):
        listed = self.run(self.hosts / "components_host.exe", "list")
        return listed.output().decode().split()

    def registry(self, *arguments):
        """All keys and values; with "names" the keys alone, down to where classes are named: much quicker."""
        dump = self.run(self.hosts / "registry_dump.exe", *arguments)
        lines = dump.output().decode().splitlines()
        assert dump.returncode == 0 and len(lines) > 100, "the registry cannot be read"
        return lines

    def regsvr32(self, *arguments):
        return self.run("regsvr32", "/s", *arguments).returncode

    def script(self, name):
        return self.run("cscript", "//nologo", windows_path(HERE / name))


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
        changed = sorted(set(cls.everything) ^ set(wine.registry()))
        assert not changed, f"left behind in the registry: {changed}"

    def setUp(self):
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="kestra-components-"))
        self.addCleanup(shutil.rmtree, self.directory, ignore_errors=True)
        (self.directory / "Fiscal.ini").write_bytes(GOOD_INI.encode("cp1252"))
        self.before = wine.registry("names")

    def unchanged_since(self, before):
        after = wine.registry("names")
        self.assertEqual(sorted(set(before) ^ set(after)), [])

    def tell(self, story):
        told = wine.tell(story, self.directory)
        self.assertEqual(told.returncode, 0, told.output().decode(errors="replace"))

    def test_every_story_is_told(self):
        self.assertEqual(wine.stories(), STORIES)

    def test_stories_leave_the_registry_as_it_was(self):
        for story in STORIES:
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

    def test_unregistering_twice_is_fine(self):
        for _ in range(2):
            self.assertEqual(wine.regsvr32("/u", windows_path(wine.library)), 0)
        self.unchanged_since(self.before)

    def start_over(self, registered):
        """Start-up and shut-down over a lasting registration of the file `registered`."""
        self.assertEqual(wine.regsvr32(windows_path(registered)), 0)
        try:
            lasting = wine.registry("names")
            self.assertNotEqual(lasting, self.before)
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
        lasting = wine.registry("names")
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

    def reg(self, *arguments):
        ran = wine.run("reg", *arguments)
        self.assertEqual(ran.returncode, 0, arguments)
        return ran.output()

    def foreign_name(self, hive, name):
        """A name that leads to somebody else's class; with more below and beside it than ours have."""
        key = rf"{hive}\Software\Classes\{name}"
        self.addCleanup(wine.run, "reg", "delete", key, "/f")  # when the test fails
        self.reg("add", key, "/ve", "/d", "Otro producto", "/f")
        self.reg("add", key, "/v", "EditFlags", "/t", "REG_DWORD", "/d", "65536", "/f")
        self.reg("add", key + r"\CLSID", "/ve", "/d", FOREIGN_CLASS, "/f")
        self.reg("add", key + r"\CLSID", "/v", "Nota", "/d", "suya", "/f")
        if name == "Kestra.InitClass":
            self.reg("add", key + r"\CurVer", "/ve", "/d", "Kestra.InitClass.7", "/f")
            self.reg("add", key + r"\DefaultIcon", "/ve", "/d", "otro.exe,1", "/f")
        return key

    def untouched(self, keys, action):
        def values():
            return [sorted(self.reg("query", key, "/s").splitlines()) for key in keys]
        names, before = wine.registry("names"), values()
        action()
        self.assertEqual(values(), before)
        self.unchanged_since(names)

    def unregister(self):
        self.assertEqual(wine.regsvr32("/u", windows_path(wine.library)), 0)

    def fail_to_start(self):
        (self.directory / "Fiscal.ini").write_bytes(BAD_PORT_INI.encode("cp1252"))
        self.tell("failed_start_leaves_no_registration")

    def test_names_of_other_products_survive(self):
        for hive in HIVES:
            keys = [self.foreign_name(hive, name) for name in NAMES]
            for what, action in [
                    ("a start", lambda: self.tell("host_without_components")),
                    ("two starts", lambda: self.tell("started_twice_ended_twice")),
                    ("being removed without being there", self.unregister),
                    ("a start that fails", self.fail_to_start)]:
                (self.directory / "Fiscal.ini").write_bytes(GOOD_INI.encode("cp1252"))
                with self.subTest(what, hive=hive):
                    self.untouched(keys, action)
            self.remove_keys(keys)

    def remove_keys(self, keys):
        for key in keys:
            self.reg("delete", key, "/f")

    def test_one_name_of_another_product_survives(self):
        for name in NAMES:
            key = self.foreign_name("HKLM", name)
            with self.subTest(name):
                self.untouched([key], lambda: self.tell("host_without_components"))
                self.untouched([key], self.unregister)
            self.remove_keys([key])

    def test_names_that_others_took_from_a_lasting_registration_stay_theirs(self):
        other = self.directory / "Otra.dll"
        shutil.copy(wine.library, other)
        for registered in (other, wine.library):
            self.assertEqual(wine.regsvr32(windows_path(registered)), 0)
            key = self.foreign_name("HKLM", "Kestra.InitClass")
            with self.subTest(registered.name):
                self.untouched([key], lambda: self.tell("host_without_components"))
            self.remove_keys([key])
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
