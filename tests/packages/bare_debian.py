"""A Debian that has nothing but what every Debian has: made once from the machine's own mirror, and copied for each run.
Its devices, its processes' list and its terminals are its own."""
import atexit
import functools
import os
import pathlib
import re
import subprocess
import time

VERSION = os.environ["KESTRA_VERSION"]
FILES = pathlib.Path(os.environ["KESTRA_FILES"]) / "debian"
SCRATCH = pathlib.Path(os.environ["KESTRA_SCRATCH"])
AS_ROOT = [] if os.geteuid() == 0 else ["sudo"]
PACKAGES = ("libkestra0", "libkestra-dev", "kestra-herramientas", "kestra-doc", "kestra-puerta")
TILL_USER = os.getuid() or 1000
PATIENCE = 300  # seconds; only what hangs takes so long
# Mounts in a space of their own go when the last of its processes does.
OWN_SPACE = ('mount -t proc proc "$0/proc" && mkdir -p "$0/dev/pts" && '
             'mount -t devpts -o newinstance,ptmxmode=0666,mode=0620 devpts "$0/dev/pts" && echo $$ && exec sleep infinity')


def run(*command, check=True, **where):
    ended = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                           stderr=subprocess.STDOUT, text=True, check=False, **where)
    if check and ended.returncode != 0:
        raise AssertionError(f"{' '.join(map(str, command))} ended with {ended.returncode}:\n{ended.stdout[-4000:]}")
    return ended.stdout


def package(name):
    return next(FILES.glob(f"{name}_{VERSION}_*.deb"))


class System:
    def __init__(self):
        self.kept = SCRATCH.parent / "debian-desnudo.tar"
        self.root = SCRATCH / "sistema"
        run(*AS_ROOT, "rm", "-rf", self.root)
        if not self.kept.exists():
            self.make()
        self.root.mkdir(parents=True)
        run(*AS_ROOT, "tar", "-xf", self.kept, "-C", self.root)
        self.space = subprocess.Popen([*AS_ROOT, "unshare", "--mount", "--propagation", "private", "sh", "-c", OWN_SPACE,
                                       str(self.root)], stdout=subprocess.PIPE, text=True)
        self.number = self.space.stdout.readline().strip()
        assert self.number, "the bare system has no space of its own"

    def make(self):
        suite = re.search(r"^VERSION_CODENAME=(\w+)", pathlib.Path("/etc/os-release").read_text(encoding="utf-8"), re.M)[1]
        mirror = run("apt-get", "indextargets", "--format", "$(REPO_URI)", "Created-By: Packages",
                     f"Codename: {suite}").split()[0]
        run(*AS_ROOT, "debootstrap", "--variant=minbase", suite, self.root, mirror)
        run(*AS_ROOT, "tar", "-cf", self.kept, "-C", self.root, ".")
        run(*AS_ROOT, "rm", "-rf", self.root)

    def remove(self):
        run(*AS_ROOT, "kill", self.number)
        self.space.wait()
        self.space.stdout.close()
        run(*AS_ROOT, "rm", "-rf", self.root)

    # -- What is done in it --

    def command(self, *words, folder="/", user=0):
        return [*AS_ROOT, "nsenter", f"--mount=/proc/{self.number}/ns/mnt", "chroot", str(self.root),
                "setpriv", f"--reuid={user}", f"--regid={user}", "--clear-groups",
                "/usr/bin/env", "-i", f"--chdir={folder}", "PATH=/usr/sbin:/usr/bin:/sbin:/bin", "LC_ALL=C.UTF-8",
                "DEBIAN_FRONTEND=noninteractive", *map(str, words)]

    def inside(self, *words, check=True, **how):
        return run(*self.command(*words, **how), check=check)

    def install(self, *names):
        """Debian's, or ours, which are those of PACKAGES, with what they need from the mirror that the system knows."""
        if not (self.root / "paquetes").exists():
            run(*AS_ROOT, "mkdir", self.root / "paquetes")
            run(*AS_ROOT, "cp", *(package(name) for name in PACKAGES), self.root / "paquetes")
            run(*AS_ROOT, "cp", "/etc/resolv.conf", self.root / "etc/resolv.conf")
            self.inside("apt-get", "update")
        self.inside("apt-get", "install", "-y", "--no-install-recommends",
                    *(f"/paquetes/{package(name).name}" if name in PACKAGES else name for name in names))

    def files(self):
        """All files but apt's and dpkg's own books, those of the users and their copies, and what is written of such work."""
        kept = ("/proc", "/var/lib/apt", "/var/lib/dpkg", "/var/log", "/var/cache", "/paquetes*", "/tmp/*", "/run/*",
                "/etc/*shadow-", "/etc/group-", "/etc/passwd-")
        pruned = [word for path in kept for word in ("-path", path, "-prune", "-o")]
        return set(self.inside("find", "/", "-xdev", *pruned, "-print").splitlines())

    def new_folder(self, name):
        """A folder of a till's user, as this system and as the bare one name it."""
        path = f"/home/{name}"
        self.inside("install", "-d", "-o", TILL_USER, "-g", TILL_USER, path)
        return self.root / path[1:], path


@functools.cache
def the_system():
    system = System()
    atexit.register(system.remove)
    return system


class Printer:
    """The virtual printer at work in the system, with a panel: `device` is its line, `url` its panel's."""

    def __init__(self, system, folder, said, *flags):
        with open(said, "wb") as output:
            self.process = subprocess.Popen(system.command("impresora-virtual", *flags, folder=folder, user=TILL_USER),
                                            stdin=subprocess.DEVNULL, stdout=output)
        self.said = said
        try:
            self.device, self.url = self.hear("Puerto"), self.hear("Panel")
        except BaseException:
            self.stop()
            raise

    def hear(self, name):
        end = time.monotonic() + PATIENCE
        while True:
            over = self.process.poll() is not None
            found = re.search(rf"(?m)^{name}: (.*)\n", self.said.read_text(encoding="utf-8"))
            if found:
                return found[1]
            if over or time.monotonic() > end:
                raise AssertionError(f"the printer does not say its {name}: {self.said.read_text(encoding='utf-8')}")
            time.sleep(0.02)

    def stop(self):
        if self.process.poll() is None:
            self.process.terminate()
        self.process.wait(PATIENCE)
