"""What surrounds libkestra.so cannot be used against its host: how the file is loaded, and what it touches."""
import ctypes
import os
import pathlib
import re
import struct
import subprocess
import sys
import unittest

from shop import ENV, Shop

LIBRARY = ENV["KESTRA_LIBRARY"]

# Functions that load code or start programs.
NOT_CALLED = {"dlopen", "dlmopen", "dlsym", "system", "popen", "fork", "vfork", "posix_spawn", "execv",
              "execve", "execvp", "execl", "execlp", "mktemp", "tmpnam", "gets", "strcpy", "strcat",
              "sprintf"}
# Names that somebody might hope the library, or what it needs, looks for in the current directory.
BAIT = ("libkestra.so", "libkestra.so.0", "libstdc++.so.6", "libm.so.6", "libgcc_s.so.1", "libc.so.6",
        "libnss_files.so.2", "libnss_dns.so.2", "libnss_compat.so.2", "libresolv.so.2", "gconv-modules",
        "gconv-modules.cache", "CP1252.so", "UTF-16.so", "locale-archive", "LC_CTYPE", "localtime",
        "resolv.conf", "hosts", "nsswitch.conf", "host.conf", "ld.so.preload", "ld.so.cache", "Kestra.ini",
        "kestra.conf", "impresora", "ttyS0")
HOST = """
import ctypes, sys
lib = ctypes.CDLL(sys.argv[1])
buffer = ctypes.create_string_buffer(80)
print(lib.EP_Init(), [lib.EP_ObtenerFechaHora(buffer) for _ in range(3)], lib.EP_ReporteX())
lib.EP_Kill()
"""


def run(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, text=True, timeout=60, **options).stdout


class TheLibrarysFile(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.dynamic = run("readelf", "--wide", "--dynamic", LIBRARY)
        cls.segments = run("readelf", "--wide", "--segments", LIBRARY)

    def test_is_looked_for_and_looks_in_the_systems_directories_alone(self):
        self.assertNotRegex(self.dynamic, r"\((RPATH|RUNPATH|AUDIT|DEPAUDIT|FILTER|AUXILIARY)\)")

    def test_is_bound_when_loaded_and_read_only_from_then_on(self):
        self.assertRegex(self.dynamic, r"BIND_NOW|FLAGS_1\).*NOW")
        self.assertIn("GNU_RELRO", self.segments)
        self.assertNotIn("TEXTREL", self.dynamic)

    def test_has_no_memory_that_is_both_written_and_run(self):
        flags = re.findall(r"^ +(?:LOAD|GNU_STACK) .* ([R ][W ][E ]) 0x", self.segments, re.MULTILINE)
        self.assertGreater(len(flags), 3)
        self.assertEqual([f for f in flags if "W" in f and "E" in f], [])

    def test_loads_no_code_and_starts_no_program(self):
        names = {line.split()[-1].split("@")[0]
                 for line in run("nm", "--dynamic", "--undefined-only", LIBRARY).splitlines()}
        self.assertGreater(len(names), 50)
        self.assertEqual(names & NOT_CALLED, set())


class Watch:
    """What is opened, made or changed in a directory."""

    ALL, DIRECTORY, WATCHED = 0xFFF, 0x40000000, 0x20 | 0x100 | 0x2 | 0x4 | 0xC0 | 0x200

    def __init__(self, folder):
        libc = ctypes.CDLL(None, use_errno=True)
        self.fd = libc.inotify_init1(os.O_NONBLOCK | os.O_CLOEXEC)
        assert self.fd >= 0 and libc.inotify_add_watch(self.fd, folder.encode(), self.WATCHED) >= 0

    def names(self):
        """Names that were touched; "." for the directory's own list."""
        found = set()
        try:
            while data := os.read(self.fd, 1 << 16):
                at = 0
                while at < len(data):
                    _, mask, _, length = struct.unpack_from("iIII", data, at)
                    name = data[at + 16:at + 16 + length].rstrip(b"\0").decode()
                    found.add("." if mask & self.DIRECTORY else name)
                    at += 16 + length
        except BlockingIOError:
            return found

    def close(self):
        os.close(self.fd)


class TheCurrentDirectory(Shop):
    """A till in a folder of its own, with bait beside its settings."""

    def start_printer(self):
        self.till = self.path("caja")
        os.mkdir(self.till)
        for name in BAIT:
            pathlib.Path(self.till, name).write_text("this is bait\n", encoding="ascii")

    def path(self, name):
        return super().path("caja/Fiscal.ini" if name == "Fiscal.ini" else name)

    def write_settings(self, **values):
        """None until a test asks for them."""
        if values:
            super().write_settings(**values)

    def touched(self):
        watch = Watch(self.till)
        self.addCleanup(watch.close)
        with open(os.path.join(self.till, "hosts"), encoding="ascii"):
            pass
        self.assertEqual(watch.names(), {"hosts"})  # the watch sees what is to be seen
        # Isolated: Python itself looks at nothing here. In a session of its own: nobody is asked.
        ended = subprocess.run([sys.executable, "-I", "-B", "-c", HOST, LIBRARY], cwd=self.till,
                               capture_output=True, text=True, timeout=100, check=True,
                               start_new_session=True, env=dict(os.environ, LC_ALL="C.UTF-8"))
        return ended.stdout, watch.names()

    def test_a_working_till_touches_its_settings_and_its_log(self):
        super().start_printer()
        self.write_settings(ImpresoraDispositivo=self.device)
        said, names = self.touched()
        self.assertEqual(said, "1 [0, 0, 0] 0\n")
        self.assertEqual(names, {"Fiscal.ini", "fiscal.log"})

    def test_a_till_on_the_network_that_finds_nobody_touches_no_more(self):
        self.write_settings(ImpresoraDispositivo="tcp:localhost:1")
        said, names = self.touched()
        self.assertEqual(said, "1 [1, 1, 1] 1\n")
        self.assertEqual(names, {"Fiscal.ini", "fiscal.log"})

    def test_a_till_without_a_log_touches_its_settings_alone(self):
        self.write_settings(ImpresoraDispositivo="tcp:localhost:1", LogComandos=0)
        self.assertEqual(self.touched()[1], {"Fiscal.ini"})

    def test_a_till_without_settings_looks_for_them_in_other_letters(self):
        said, names = self.touched()
        self.assertEqual(said, "0 [1, 1, 1] 1\n")
        self.assertEqual(names, {"."})


if __name__ == "__main__":
    unittest.main()
