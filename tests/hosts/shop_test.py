"""The same shop in every language: its day is that of the shop in C, it tells why a call failed, and it keeps away from
printers that are not virtual.

    python3 -m unittest shop_test.NAME
"""
import os
import re
import shutil
import subprocess
import tempfile
import unittest.mock

import manual_calls
from languages import LANGUAGES
from manual_test import ManualCalls
from shop import ENV, Shop, read
from windows_shop import UnderWine

HOSTS = os.path.join(ENV["KESTRA_SOURCE"], "hosts")
NOT_VIRTUAL = ["/dev/ttyS0", "/dev/null", "tcp:192.0.2.1:4001", "tcp:localhost.example:4001", "tcp:1127.0.0.1:4001",
               "/dev/pts/ninguna"]
NOBODY = "tcp:127.0.0.1:1"  # this machine, and nobody there
NOBODY_THERE = "Nadie atiende en la dirección de la impresora."
PAPER_ENDS = "comando 1 de ítem: sin_papel\ncomando 2 de ítem: sin_papel = no\n"
PAPER_IS_MISSING = ["Error y/o falla de impresora", "Impresora sin papel"] * 2  # of no paper, and of a refusal
NOBODY_KNOWN = "No se conoce el equipo de la impresora en la red."  # localhost, on a machine without /etc/hosts
REFUSED = "La impresora no aceptó un dato del comando."


def words(text):
    """Its lines without the blanks that align them."""
    return [" ".join(line.split()) for line in text.splitlines()]


class HostShop(Shop):
    family = "TF"
    language = None

    @classmethod
    def setUpClass(cls):
        place = tempfile.TemporaryDirectory(prefix="kestra-hosts-")
        cls.addClassCleanup(place.cleanup)
        hosts = os.path.join(place.name, "hosts")
        shutil.copytree(HOSTS, hosts, ignore=shutil.ignore_patterns("node_modules", "build", "dist"))
        cls.host = os.path.join(hosts, cls.language.folder or cls.language.name)
        cls.build(cls.language.build)

    @classmethod
    def build(cls, commands):
        for command in commands:
            made = subprocess.run(cls.filled(command), cwd=cls.host, env=cls.environment(), text=True,
                                  capture_output=True, check=False)
            if made.returncode != 0:
                raise AssertionError(f"{' '.join(command)}:\n{made.stdout}{made.stderr}")

    @classmethod
    def filled(cls, command):
        return [word.replace("{host}", cls.host) for word in command]

    @classmethod
    def environment(cls):
        """As if the library were installed: its file and its header are found without a word."""
        library = os.path.dirname(ENV["KESTRA_LIBRARY"])
        environment = dict(ENV, LC_ALL="C.UTF-8", LD_LIBRARY_PATH=library, LIBRARY_PATH=library,
                           CPATH=ENV["KESTRA_INCLUDE"])
        environment.update({name: value.replace("{host}", cls.host)
                            for name, value in cls.language.environment.items()})
        return environment

    def run_shop(self, *flags):
        """The shop at its till; it ends, whatever it meets."""
        return self.run_program([*self.filled(self.language.run), *flags])

    def run_program(self, command):
        return self.run_here(command)

    def run_here(self, command):
        return subprocess.run(command, cwd=self.folder,
                              env=self.environment(), text=True, encoding="utf-8", capture_output=True,
                              stdin=subprocess.DEVNULL, start_new_session=True, timeout=600, check=False)

    def other_printer(self, **settings):
        """A printer as it comes, without paper on it."""
        os.remove(self.path("papel.txt"))
        self.printer = self.start_printer()
        self.write_settings(**settings)

    def test_its_day_is_that_of_the_shop_in_c(self):
        shop_in_c = self.run_here([ENV["KESTRA_DAY"]])
        self.assertEqual((shop_in_c.returncode, shop_in_c.stderr), (0, ""))
        paper_in_c = self.paper()
        self.assertIn("Libreria Muñoz S.R.L.", paper_in_c)
        self.other_printer()
        shop = self.run_shop()
        self.assertEqual((shop.returncode, shop.stderr), (0, ""))
        self.assertEqual(words(shop.stdout), words(shop_in_c.stdout))
        self.assertEqual(self.paper().splitlines(), paper_in_c.splitlines())

    def test_keeps_away_from_a_printer_that_is_not_virtual(self):
        devices = [*NOT_VIRTUAL, self.path("ninguna"), None]
        for device in devices:
            with self.subTest(device=device):
                self.write_settings(ImpresoraDispositivo=device or "")
                shop = self.run_shop()
                self.assertEqual((shop.returncode, shop.stdout), (2, ""), shop.stderr)
                self.assertIn("--impresora-real", shop.stderr)
                self.assertEqual(len(shop.stderr.splitlines()), 1)
        with unittest.mock.patch.dict(self.language.environment, KESTRA_DISPOSITIVO="/dev/ttyS0"):
            self.write_settings()
            self.assertEqual(self.run_shop().returncode, 2, "does not see what goes before the file")
        self.write_settings(ImpresoraDispositivo="/dev/ttyS0")
        self.put_first("[Otra]\nImpresoraDispositivo=" + NOBODY)
        self.assertEqual(self.run_shop().returncode, 2, "believes another section")
        os.remove(self.path("Fiscal.ini"))
        self.assertEqual(self.run_shop().returncode, 2, "believes in a file that is not there")
        self.assertFalse(os.path.exists(self.path("fiscal.log")))
        self.assertEqual(self.paper(), "")

    def put_first(self, lines):
        settings = read(self.path("Fiscal.ini"))
        with open(self.path("Fiscal.ini"), "w", encoding="cp1252") as file:
            file.write(lines + "\n" + settings)

    def test_knows_a_virtual_printer_on_this_machines_network(self):
        for device in [NOBODY, "tcp:localhost:1", "tcp:[::1]:1"]:
            with self.subTest(device=device):
                self.write_settings(ImpresoraDispositivo=device)
                self.assert_failed(self.run_shop(), NOBODY_THERE, NOBODY_KNOWN)

    def test_goes_to_a_real_printer_when_told(self):
        self.write_settings(ImpresoraDispositivo=self.path("ninguna"))
        self.assert_failed(self.run_shop("--impresora-real"), "No existe el puerto de la impresora.")

    def test_tells_the_operator_why_a_call_failed(self):
        self.write_settings(ImpresoraDispositivo=NOBODY)
        self.assert_failed(self.run_shop(), NOBODY_THERE)
        self.write_settings(TipoComprobante="FC")
        self.assert_failed(self.run_shop(), REFUSED, done=1)

    def assert_failed(self, shop, *sentences, done=0):
        """With one of the sentences, and so many lines of what was done before."""
        self.assertEqual(shop.returncode, 1, shop.stderr)
        self.assertTrue(any(sentence in shop.stderr for sentence in sentences), shop.stderr)
        self.assertEqual(len(re.findall(r"(?m) ok$", shop.stdout)), done, shop.stdout)
        self.assertEqual(len(shop.stdout.splitlines()), done, shop.stdout)


class Examples:
    """Of the language's page, which are run as they stand there."""

    def run_example(self, section):
        example = self.language.example
        [text] = re.findall(rf"(?ms)^## {section}$.*?^```\w+\n(.*?)^```$", read(os.path.join(self.host, "README.md")))
        with open(os.path.join(self.host, example.file), "w", encoding="utf-8") as program:
            program.write(text)
        self.build(example.build)
        return self.run_program(self.filled(example.run))

    def test_the_example_of_its_page_prints_a_documents_number(self):
        shop = self.run_example("Usar")
        self.assertEqual((shop.returncode, shop.stderr, shop.stdout.strip()), (0, "", "00000001"))
        self.assertIn("Con palo", self.paper())

    def test_the_operator_of_its_page_answers_instead_of_the_boxes(self):
        """Each command is asked for, and the paper ends in the middle of the document: a box would say no to both."""
        self.stop_printer()
        with open(self.path("fallas.txt"), "w", encoding="utf-8") as faults:
            faults.write(PAPER_ENDS)
        self.printer_flags = ["--fallas", self.path("fallas.txt")]
        self.other_printer(MostrarComandos=1)
        shop = self.run_example("Contestar en lugar de los cuadros")
        self.assertEqual((shop.returncode, shop.stderr, words(shop.stdout)), (0, "", [*PAPER_IS_MISSING, "00000001"]))
        self.assertEqual(self.paper().count("Con palo"), 1)


for row in LANGUAGES.values():
    kinds = (*[UnderWine] * bool(row.windows), *[ManualCalls] * (row.name in manual_calls.ROWS),
             *[Examples] * bool(row.example), HostShop)
    globals()[row.name] = type(row.name, kinds, {"language": row, "__module__": __name__})


def load_tests(loader, _, __):
    """The languages' tests, not those of the class that they are made of."""
    return loader.suiteClass(loader.loadTestsFromTestCase(globals()[name]) for name in LANGUAGES)
