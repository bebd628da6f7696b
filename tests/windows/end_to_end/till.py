"""A shop whose till is a Windows program: Kestra.dll beside it, and the virtual printer as its COM port."""

import os
import shutil
import subprocess

from shop import ENV, Shop

FIRST_PORT, LAST_PORT = 20, 256  # Wine itself deals out the low ones


def plug(number, device):
    """Makes the device a COM port; False when the number is taken."""
    try:
        os.symlink(device, port_link(number))
        return True
    except FileExistsError:
        return False


def port_link(number):
    return os.path.join(ENV["WINEPREFIX"], "dosdevices", f"com{number}")


class Till(Shop):
    port = None

    def line_settings(self):
        if self.port is None:
            self.port = next(n for n in range(FIRST_PORT, LAST_PORT + 1) if plug(n, self.device))
            self.addCleanup(os.unlink, port_link(self.port))
        return {"ImpresoraPuerto": self.port}

    def plug_in(self, device):
        """Another device under the till's number."""
        os.unlink(port_link(self.port))
        self.assertTrue(plug(self.port, device))

    def start(self, program):
        """Starts a program that lies in the shop's folder with nothing of ours but the library."""
        for file in (program, ENV["KESTRA_LIBRARY"]):
            shutil.copy(file, self.folder)
        return subprocess.Popen([ENV["KESTRA_WINE"], os.path.basename(program)], cwd=self.folder,
                                encoding="cp1252", stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE)

    def run_program(self, program):
        """What it wrote to its standard output and error when it has ended."""
        return self.start(program).communicate(timeout=60)
