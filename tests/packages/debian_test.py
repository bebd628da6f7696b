"""What Debian users are given: in order by Debian's own judge, of use to a foreign project, and in a bare system they
come, work and go.

scripts/paquetes --comprobar makes the packages and tells in the environment where they are.
"""
import os
import pathlib
import re
import subprocess
import tempfile
import unittest

VERSION = os.environ["KESTRA_VERSION"]
FILES = pathlib.Path(os.environ["KESTRA_FILES"]) / "debian"
CLONE = pathlib.Path(os.environ["KESTRA_CLONE"])
SCRATCH = pathlib.Path(os.environ["KESTRA_SCRATCH"])
HERE = pathlib.Path(__file__).resolve().parent
AS_ROOT = [] if os.geteuid() == 0 else ["sudo"]
PACKAGES = ("libkestra0", "libkestra-dev", "kestra-herramientas", "kestra-doc")


def run(*command, check=True, **where):
    ended = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                           stderr=subprocess.STDOUT, text=True, check=False, **where)
    if check and ended.returncode != 0:
        raise AssertionError(f"{' '.join(map(str, command))} ended with {ended.returncode}:\n{ended.stdout[-4000:]}")
    return ended.stdout


def package(name):
    return next(FILES.glob(f"{name}_{VERSION}_*.deb"))


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
    """A system that has nothing but what every Debian has; made once, and copied for each run."""

    @classmethod
    def setUpClass(cls):
        cls.kept = SCRATCH.parent / "debian-desnudo.tar"
        cls.system = SCRATCH / "sistema"
        run(*AS_ROOT, "rm", "-rf", cls.system)
        if not cls.kept.exists():
            cls.make()
        cls.system.mkdir(parents=True)
        run(*AS_ROOT, "tar", "-xf", cls.kept, "-C", cls.system)
        cls.addClassCleanup(run, *AS_ROOT, "rm", "-rf", cls.system)

    @classmethod
    def make(cls):
        suite = re.search(r"^VERSION_CODENAME=(\w+)", pathlib.Path("/etc/os-release").read_text(encoding="utf-8"), re.M)[1]
        mirror = run("apt-get", "indextargets", "--format", "$(REPO_URI)", "Created-By: Packages",
                     f"Codename: {suite}").split()[0]
        run(*AS_ROOT, "debootstrap", "--variant=minbase", suite, cls.system, mirror)
        run(*AS_ROOT, "tar", "-cf", cls.kept, "-C", cls.system, ".")
        run(*AS_ROOT, "rm", "-rf", cls.system)

    def inside(self, *command, check=True):
        return run(*AS_ROOT, "chroot", self.system, "/usr/bin/env", "-i", "PATH=/usr/sbin:/usr/bin:/sbin:/bin",
                   "LC_ALL=C.UTF-8", "DEBIAN_FRONTEND=noninteractive", *command, check=check)

    def everything(self):
        """All files but apt's and dpkg's own books, and what they write of their work."""
        said = self.inside("find", "/", "-xdev", "-path", "/proc", "-prune", "-o", "-path", "/var/lib/apt", "-prune", "-o",
                           "-path", "/var/lib/dpkg", "-prune", "-o", "-path", "/var/log", "-prune", "-o",
                           "-path", "/var/cache", "-prune", "-o", "-path", "/paquetes*", "-prune", "-o", "-print")
        return set(said.splitlines())

    def install(self):
        """With what they need from the mirror, which the system's own sources name."""
        self.inside("mkdir", "-p", "/paquetes")
        run(*AS_ROOT, "cp", *(package(name) for name in PACKAGES), self.system / "paquetes")
        run(*AS_ROOT, "cp", "/etc/resolv.conf", self.system / "etc/resolv.conf")
        self.inside("apt-get", "update", check=False)
        # The library alone first: it needs nothing of the others.
        self.inside("apt-get", "install", "-y", "--no-install-recommends", *self.in_the_system("libkestra0"))
        self.inside("apt-get", "install", "-y", "--no-install-recommends",
                    *self.in_the_system("kestra-herramientas", "libkestra-dev", "kestra-doc"))

    @staticmethod
    def in_the_system(*names):
        return [f"/paquetes/{package(name).name}" for name in names]

    def test_they_come_and_work_and_go(self):
        before = self.everything()
        self.install()
        for program in ("impresora-virtual", "kestra"):
            self.assertEqual(self.inside(program, "--version"), f"{program} {VERSION}\n")
        self.assertIn("documentos", self.inside("impresora-virtual", "--ayuda"))
        for path in ("/usr/share/doc/kestra-doc/html/index.html", "/usr/share/kestra/kestra.json",
                     "/usr/include/kestra/kestra.h", "/usr/share/doc/libkestra0/copyright"):
            self.inside("test", "-s", path)
        self.inside("apt-get", "purge", "-y", *PACKAGES)
        self.inside("apt-get", "autoremove", "-y", "--purge")
        self.assertEqual(self.everything() - before, set())


if __name__ == "__main__":
    unittest.main()
