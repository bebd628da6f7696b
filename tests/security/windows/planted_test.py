"""Libraries that somebody planted in the till's directory, or beside Kestra.dll, are not loaded.

The host lies in one directory, Kestra.dll in another, and the current directory, with Fiscal.ini, is a third
one. What lies beside the host's own program is the system's first choice for any program, and whoever can
write there can replace the program itself: nothing in a library can help against that.
"""
import os
import pathlib
import shutil
import sys
import unittest

import programs
import tcp_test
from shop import ENV
from till import Till, text

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parents[1] / "host" / "windows"))
import pe_file  # noqa: E402

# What is usually planted: libraries that the system's own ask for later, by a bare name.
USUAL = (
    "bcrypt bcryptprimitives cfgmgr32 clbcatq coml2 combase comdlg32 crypt32 cryptbase cryptsp dbghelp devobj "
    "dnsapi dwmapi edputil fwpuclnt gdiplus iertutil imagehlp imm32 iphlpapi kernel.appcore linkinfo mlang "
    "mpr msasn1 msctf msimg32 msvcp_win mswsock napinsp netapi32 netutils normaliz nlaapi ntmarta nsi ntshrui "
    "olepro32 pnrpnsp powrprof profapi propsys psapi rasadhlp riched20 riched32 rpcrt4 rpcss rsaenh samcli "
    "sechost secur32 setupapi shcore shell32 shfolder shlwapi srvcli sspicli stdole2.tlb sxs textshaping "
    "usp10 userenv uxtheme version wevtapi winhttp wininet winmm winnsi winrnr winspool.drv wintrust wintypes "
    "wkscli wldp wsock32 wshtcpip wship6 wtsapi32 wow64log").split()


def planted_names(library):
    names = set(pe_file.PeFile(library).imports()) - {"kernel32.dll"}
    names.update(name if "." in name else name + ".dll" for name in USUAL)
    return sorted(names)


class PlantedLibraries(tcp_test.NetworkShop, Till):
    settings = {"MostrarComandos": 1}

    def line_settings(self):
        return {"ImpresoraDispositivo": f"tcp:localhost:{self.port}"}

    def setUp(self):
        super().setUp()
        self.marks = self.path("marks.txt")
        self.host = self.copy(ENV["KESTRA_CAREFUL_HOST"], "program")
        self.library = self.copy(ENV["KESTRA_LIBRARY"], "library")

    def copy(self, file, folder):
        os.makedirs(self.path(folder), exist_ok=True)
        return shutil.copy(file, self.path(folder))

    def plant(self, folder, names):
        for name in names:
            shutil.copy(ENV["KESTRA_PLANTED"], os.path.join(folder, name))

    def run_host(self, *words):
        ended = programs.run([self.host, *words], folder=self.folder,
                             variables={"KESTRA_MARKS": programs.windows_path(self.marks)})
        return text(ended.output())

    def marked(self):
        return pathlib.Path(self.marks).read_text("cp1252") if os.path.exists(self.marks) else ""

    def work(self):
        said = self.run_host("Z:" + self.library.replace("/", "\\"))
        for words in ("EP_Init 1", "EP_ObtenerFechaHora 0", "EP_CortaPapel 0", "EP_Cancelar 1"):
            self.assertIn(words + "\n", said)
        pressed = int(said.rpartition("pressed ")[2])
        self.assertGreater(pressed, 4)  # questions, the frames shown, the status report
        return [line.removeprefix("module ").lower() for line in said.splitlines()
                if line.startswith("module ")]

    def test_what_is_planted_shows_when_it_is_loaded(self):
        self.plant(self.folder, ["plantada.dll"])
        self.assertEqual(self.run_host("-name", "plantada.dll"), "loaded\n")
        self.assertIn("plantada.dll", self.marked())

    def test_nothing_is_loaded_from_the_current_directory(self):
        self.plant(self.folder, planted_names(self.library) + ["Kestra.dll"])
        self.expect_own_and_system(self.work())

    def test_nothing_is_loaded_from_beside_the_library(self):
        self.plant(self.path("library"), planted_names(self.library))
        self.expect_own_and_system(self.work())

    def expect_own_and_system(self, modules):
        self.assertEqual(self.marked(), "")
        own = {"z:" + path.replace("/", "\\").lower() for path in (self.host, self.library)}
        elsewhere = {module for module in modules if not module.startswith("c:\\windows\\")}
        self.assertEqual(elsewhere, own)
        self.assertGreater(len(modules), 10)


class TheLibrarysFile(unittest.TestCase):
    def test_is_put_where_nobody_can_foresee_and_its_data_is_not_run(self):
        file = pe_file.PeFile(ENV["KESTRA_LIBRARY"])
        wanted = pe_file.DYNAMIC_BASE | pe_file.NX_COMPATIBLE
        if file.machine == pe_file.X64:
            wanted |= pe_file.HIGH_ENTROPY
        self.assertEqual(file.characteristics & wanted, wanted)

    def test_is_asked_for_by_full_path_wherever_the_library_loads_anything(self):
        """Every call in the sources that takes a library's or a class's name, and what it is given."""
        known = {
            "LoadLibraryW(path.c_str())": "components/start_up.cpp",  # the library's own full path
            "LoadTypeLibEx(ModulePath().c_str(),": "components/public_classes.cpp",  # the same
        }
        loading = ("LoadLibrary", "LoadTypeLib", "LoadModule", "WinExec", "CreateProcess", "ShellExecute",
                   "SearchPath", "LoadPackagedLibrary", "CoLoadLibrary", "LdrLoadDll")
        found = []
        for path in sorted((HERE.parents[2] / "src").rglob("*.?pp")):
            for line in path.read_text(encoding="utf-8").splitlines():
                if any(name in line for name in loading) and not line.lstrip().startswith("//"):
                    found.append((line.strip(), str(path)))
        self.assertEqual(len(found), len(known), found)
        for line, path in found:
            self.assertTrue(any(call in line and path.endswith(file) for call, file in known.items()),
                            (line, path))


if __name__ == "__main__":
    unittest.main()
