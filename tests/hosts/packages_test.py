"""What the languages' own tools make packages of: of this version, and with every file of the layer.

    packages_test.py SOURCE
"""
import json
import pathlib
import re
import sys
import unittest
import xml.etree.ElementTree as xml

SOURCE = pathlib.Path(sys.argv.pop(1)).resolve()
HOSTS = SOURCE / "hosts"
POM = {"m": "http://maven.apache.org/POM/4.0.0"}


def read(name):
    return (SOURCE / name).read_text(encoding="utf-8")


def line(name, pattern):
    [found] = re.findall(pattern, read(f"hosts/{name}"), re.MULTILINE)
    return found


VERSION = re.search(r"project\(kestra VERSION (\S+)", read("CMakeLists.txt"))[1]
VERSIONS = {  # of each package
    "gambas/.project": lambda name: line(name, r"^Version=(.*)$"),
    "java/pom.xml": lambda name: xml.parse(HOSTS / name).getroot().findtext("m:version", namespaces=POM),
    "node/package.json": lambda name: json.loads(read(f"hosts/{name}"))["version"],
    "python/kestra/_declaraciones.py": lambda name: line(name, r'^__version__ = "(.*)"$'),
    "ruby/lib/kestra/declaraciones.rb": lambda name: line(name, r"^# Kestra (\d+\.\d+\.\d+):"),
    "rust/Cargo.toml": lambda name: line(name, r'^version = "(.*)"$'),
}


class Packages(unittest.TestCase):
    def test_are_of_this_version(self):
        for name, version in VERSIONS.items():
            with self.subTest(name):
                self.assertEqual(version(name), VERSION)

    def test_node_takes_every_module_along(self):
        package = json.loads(read("hosts/node/package.json"))
        self.assertEqual(set(package["files"]), {path.name for path in (HOSTS / "node").glob("*.mjs")})

    def test_composer_finds_every_class_and_loads_the_rest(self):
        loaded = json.loads(read("hosts/php/composer.json"))["autoload"]
        self.assertEqual(loaded["psr-4"], {"Kestra\\": "src/"})
        for path in (HOSTS / "php/src").glob("*.php"):
            kind = re.search(r"(?m)^(?:final )?class (\w+)", path.read_text(encoding="utf-8"))
            if kind:
                self.assertEqual(f"{kind[1]}.php", path.name)
            else:
                self.assertIn(f"src/{path.name}", loaded["files"])
        self.assertTrue(all((HOSTS / "php" / name).is_file() for name in loaded["files"]))

    def test_who_uses_no_composer_gets_the_same(self):
        required = set(re.findall(r"__DIR__ \. '/([^']*)'", read("hosts/php/kestra.php")))
        sources = {f"src/{path.name}" for path in (HOSTS / "php/src").glob("*.php")}
        self.assertEqual(required, sources | {"constantes.php"})

    def test_maven_compiles_what_lies_where_it_looks(self):
        root = xml.parse(HOSTS / "java/pom.xml").getroot()
        self.assertEqual(root.findtext(".//m:dependency/m:artifactId", namespaces=POM), "jna")
        sources = list((HOSTS / "java").rglob("*.java"))
        self.assertEqual(sources, list((HOSTS / "java/src/main/java").rglob("*.java")))
        self.assertGreater(len(sources), 5)

    def test_ruby_and_the_crate_know_their_sources(self):
        required = set(re.findall(r"require_relative '([^']*)'", read("hosts/ruby/lib/kestra.rb")))
        self.assertEqual(required, {f"kestra/{path.stem}" for path in (HOSTS / "ruby/lib/kestra").glob("*.rb")})
        modules = set(re.findall(r"(?m)^(?:pub )?mod (\w+);", read("hosts/rust/src/lib.rs")))
        self.assertEqual(modules, {path.stem for path in (HOSTS / "rust/src").glob("*.rs")} - {"lib"})


if __name__ == "__main__":
    unittest.main()
