"""What Debian users are given: in order by Debian's own judge, of use to a foreign project, and in a bare system they
come, work and go.

scripts/paquetes --comprobar makes the packages and tells in the environment where they are.
"""
import os
import pathlib
import re
import tempfile
import unittest

from bare_debian import FILES, PACKAGES, VERSION, package, run, the_system

CLONE = pathlib.Path(os.environ["KESTRA_CLONE"])
HERE = pathlib.Path(__file__).resolve().parent


class ThePackages(unittest.TestCase):
    def test_are_these_of_this_version(self):
        self.assertEqual(sorted(path.name.split("_")[0] for path in FILES.glob(f"*_{VERSION}_*.deb")), sorted(PACKAGES))

    def test_are_in_order(self):
        said = run("lintian", "--allow-root", "--no-cfg", "--tag-display-limit", "0", *sorted(FILES.glob("*.deb")), check=False)
        self.assertEqual(said, "")

    def test_the_library_has_the_interface_that_was_frozen(self):
        built = next(CLONE.glob("obj-*/lib/libkestra.so"))
        run("abidiff", "--exported-interfaces-only", "--no-added-syms", HERE / "libkestra0.abi", built)

    def test_a_changed_interface_is_noticed(self):
        built = next(CLONE.glob("obj-*/lib/libkestra.so"))
        frozen = (HERE / "libkestra0.abi").read_text(encoding="utf-8")
        for what, changed in (("gone", frozen.replace("EP_ImprimirPago", "EP_ImprimirCobro")),
                              ("of another kind", re.sub(r"<parameter type-id='type-id-\d+' name='monto'/>", "", frozen))):
            with self.subTest(what), tempfile.NamedTemporaryFile("w", suffix=".abi") as other:
                self.assertNotEqual(changed, frozen)
                other.write(changed)
                other.flush()
                said = run("abidiff", "--exported-interfaces-only", "--no-added-syms", other.name, built, check=False)
                self.assertRegex(said, "[1-9][0-9]* (Removed|Changed)")


class AForeignProject(unittest.TestCase):
    """What libkestra-dev holds is enough for somebody who has never seen the sources."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="tienda-ajena-")
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.root = cls.folder / "sistema"
        for name in ("libkestra0", "libkestra-dev"):
            run("dpkg-deb", "-x", package(name), cls.root)
        cls.libraries = next(cls.root.glob("usr/lib/*/libkestra.so.0")).parent

    def works(self, program, needs):
        with tempfile.TemporaryDirectory() as folder:
            said = run(program, cwd=folder, env=dict(os.environ, LD_LIBRARY_PATH=str(self.libraries)))
        self.assertIn("EP_Init: ", said)
        self.assertEqual("libkestra.so.0" in run("objdump", "-p", program), needs)

    def test_finds_it_with_cmake(self):
        build = self.folder / "con-cmake"
        run("cmake", "-S", HERE / "foreign", "-B", build, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={self.root}/usr",
            f"-DCMAKE_LIBRARY_ARCHITECTURE={self.libraries.name}")
        run("cmake", "--build", build)
        self.works(build / "con_biblioteca", True)
        self.works(build / "con_archivo", False)

    def test_finds_it_with_pkg_config(self):
        place = dict(os.environ, PKG_CONFIG_LIBDIR=str(self.libraries / "pkgconfig"))
        words = ["pkg-config", f"--define-variable=prefix={self.root}/usr"]
        self.assertEqual(run(*words, "--modversion", "kestra", env=place).strip(), VERSION)
        source = HERE / "foreign/tienda.c"
        program = self.folder / "con_pkg_config"
        run("gcc", "-Wall", "-Werror", source, "-o", program, *run(*words, "--cflags", "--libs", "kestra", env=place).split())
        self.works(program, True)
        archive = [self.libraries / "libkestra.a" if flag == "-lkestra" else flag
                   for flag in run(*words, "--static", "--cflags", "--libs", "kestra", env=place).split()]
        run("gcc", source, "-o", program, *archive)
        self.works(program, False)


class ABareDebian(unittest.TestCase):
    def test_they_come_and_work_and_go(self):
        system = the_system()
        before = system.files()
        # The library alone first: it needs nothing of the others.
        system.install("libkestra0")
        system.install("kestra-herramientas", "libkestra-dev", "kestra-doc", "kestra-puerta")
        for program in ("impresora-virtual", "kestra", "kestra-puerta"):
            self.assertEqual(system.inside(program, "--version"), f"{program} {VERSION}\n")
        self.assertIn("documentos", system.inside("impresora-virtual", "--ayuda"))
        for path in ("/usr/share/doc/kestra-doc/html/index.html", "/usr/share/doc/kestra-doc/kestra-manual.pdf",
                     "/usr/share/kestra/kestra.json", "/usr/include/kestra/kestra.h", "/usr/share/doc/libkestra0/copyright"):
            system.inside("test", "-s", path)
        system.inside("apt-get", "purge", "-y", *PACKAGES)
        system.inside("apt-get", "autoremove", "-y", "--purge")
        self.assertEqual(system.files() - before, set())


if __name__ == "__main__":
    unittest.main()
