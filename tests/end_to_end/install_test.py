"""What a new user does: install, compile against the header, run."""

import glob
import os
import subprocess
import tempfile
import unittest

ENV = os.environ
HOST = """
#include <kestra/kestra.h>
int main(void) { return EP_Chequear_Error() == 0 && EP_Copias(1) == 0 ? 0 : 1; }
"""


class AnInstalledLibrary(unittest.TestCase):
    def test_serves_a_host_that_has_nothing_else(self):
        with tempfile.TemporaryDirectory(prefix="kestra-") as folder:
            subprocess.run([ENV["CMAKE"], "--install", ENV["KESTRA_BUILD"], "--prefix", folder],
                           check=True, stdout=subprocess.DEVNULL)
            library = glob.glob(folder + "/lib*/**/libkestra.so", recursive=True)[0]
            self.assertTrue(os.access(folder + "/bin/impresora-virtual", os.X_OK))
            source = folder + "/host.c"
            with open(source, "w", encoding="ascii") as file:
                file.write(HOST)
            sanitize = ["-fsanitize=address,undefined"] if "KESTRA_PRELOAD" in ENV else []
            lib_dir = os.path.dirname(library)
            subprocess.run([ENV["CC"], "-std=c99", "-Wall", "-Wextra", "-Wpedantic", "-Werror",
                            "-I" + folder + "/include", source, "-o", folder + "/host",
                            "-L" + lib_dir, "-lkestra", "-Wl,-rpath," + lib_dir] + sanitize,
                           check=True)
            subprocess.run([folder + "/host"], check=True)


if __name__ == "__main__":
    unittest.main()
