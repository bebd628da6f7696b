"""What a new user does: install, compile against the header, run."""

import glob
import os
import shutil
import subprocess
import tempfile
import unittest

ENV = os.environ
# The hosts to start from: each is a whole program in a file of its own.
HOSTS = ["ticket.c", "jornada.c"]


class AnInstalledLibrary(unittest.TestCase):
    def test_serves_a_host_that_has_nothing_else(self):
        with tempfile.TemporaryDirectory(prefix="kestra-") as folder:
            subprocess.run([ENV["CMAKE"], "--install", ENV["KESTRA_BUILD"], "--prefix", folder],
                           check=True, stdout=subprocess.DEVNULL)
            library = glob.glob(folder + "/lib*/**/libkestra.so", recursive=True)[0]
            self.assertTrue(os.access(folder + "/bin/impresora-virtual", os.X_OK))
            for host in HOSTS:
                self.compile_and_run(folder, host, os.path.dirname(library))

    def compile_and_run(self, folder, host, lib_dir):
        shutil.copy(os.path.join(ENV["KESTRA_SOURCE"], "tools", host), folder)
        sanitize = ENV["KESTRA_SANITIZER_FLAGS"].split() if "KESTRA_PRELOAD" in ENV else []
        subprocess.run([ENV["CC"], "-std=c99", "-Wall", "-Wextra", "-Wpedantic", "-Werror",
                        "-I" + folder + "/include", host, "-o", "host",
                        "-L" + lib_dir, "-lkestra", "-Wl,-rpath," + lib_dir] + sanitize,
                       cwd=folder, check=True)
        ended = subprocess.run([folder + "/host"], cwd=folder, text=True, capture_output=True,
                               start_new_session=True, check=False)
        self.assertEqual(ended.returncode, 1)  # nobody has written a Fiscal.ini yet
        self.assertIn("ImpresoraPuerto", ended.stderr)


if __name__ == "__main__":
    unittest.main()
