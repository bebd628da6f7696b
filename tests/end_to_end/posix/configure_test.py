"""What a new user is told when he configures: what he gets, and what to install for the rest."""

import os
import re
import subprocess
import tempfile
import unittest

ENV = os.environ
INSTALLED = ["-DCMAKE_BUILD_TYPE=Release", "-DKESTRA_BUILD_TESTS=OFF", "-DKESTRA_BUILD_BENCH=OFF"]
BARE = "-DCMAKE_IGNORE_PATH=/usr/include"  # a machine without any library's headers


class Configuring(unittest.TestCase):
    def configure(self, *options, ends_with=0):
        with tempfile.TemporaryDirectory(prefix="kestra-") as folder:
            ended = subprocess.run(
                [ENV["CMAKE"], "-S", ENV["KESTRA_SOURCE"], "-B", folder, "-G", "Ninja",
                 "-DCMAKE_C_COMPILER=" + ENV["CC"], "-DCMAKE_CXX_COMPILER=" + ENV["CXX"],
                 *INSTALLED, *options], text=True, capture_output=True, check=False)
        self.assertEqual(ended.returncode, ends_with, ended.stderr)
        return ended.stdout + " ".join(ended.stderr.split())

    def test_ends_with_what_will_be_built(self):
        said = self.configure()
        summary = said[said.index("-- Kestra "):]
        self.assertRegex(summary, r"^-- Kestra \d+\.\d+\.\d+ for \w+ \w+, \w+ [\d.]+, Release\n")
        for line in ["virtual printer: yes",
                     "tests: no - KESTRA_BUILD_TESTS is OFF",
                     "benchmarks: no - KESTRA_BUILD_BENCH is OFF"]:
            self.assertIn(f"--   {line}\n", summary)
        self.assertRegex(summary, r"\n--   the printer's fiscal memory: SQLite 3\.[\d.]+\n")
        self.assertNotIn("measuring", summary)

    def test_names_a_library_that_is_not_installed(self):
        said = self.configure("-DCMAKE_DISABLE_FIND_PACKAGE_SQLite3=ON", ends_with=1)
        self.assertIn("The virtual printer cannot be built here: install libsqlite3-dev, or configure", said)

    def test_the_library_alone_needs_no_library(self):
        said = self.configure(BARE, "-DKESTRA_BUILD_SIMULATOR=OFF", "-DKESTRA_SANITIZE=ON")
        self.assertIn("--   virtual printer: no - KESTRA_BUILD_SIMULATOR is OFF\n", said)
        self.assertIn("--   built for measuring: KESTRA_SANITIZE\n", said)

    def test_names_the_packages_that_the_printer_cannot_do_without(self):
        said = self.configure(BARE, ends_with=1)
        self.assertIn("install libasio-dev libboost-dev nlohmann-json3-dev libstb-dev", said)

    def test_the_documents_name_the_packages_that_the_scripts_install(self):
        def text(*path):
            with open(os.path.join(ENV["KESTRA_SOURCE"], *path), encoding="utf-8") as file:
                return file.read()
        wanted = re.search(r"(?s)\nprinter_packages=\((.*?)\)", text("scripts", "packages.sh")).group(1)
        wanted = {"cmake", "g++", "ninja-build", *wanted.split()}
        for document in ["README.md", "docs/manual/guia.md"]:
            told = " ".join(re.findall(r"apt-get install (.*)", text(document))).split()
            # Our own packages come from a folder.
            self.assertEqual({name for name in told if not name.startswith("./")}, wanted, document)


if __name__ == "__main__":
    unittest.main()
