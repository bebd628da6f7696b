"""A shop whose till is a Windows program: Kestra.dll beside it, and the virtual printer as its COM port."""

import os
import shutil
import socket

import programs
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


def text(data):
    return data.decode("cp1252").replace("\r\n", "\n")


class TillProgram(programs.Program):
    def communicate(self, said=""):
        """What it wrote to its standard output and error when it has ended; said to those that listen."""
        if self.call:
            self.call.sendall(said.encode())
            self.call.shutdown(socket.SHUT_WR)
        self.wait()
        return text(self.output()), text(self.errors())

    def first_line(self):
        return text(self.hear_output(rb".*\n").group())


class Till(Shop):
    def soon(self, seconds, story):
        """The story returns how long it took. A busy machine makes some of them long, and what waits all of
        them."""
        for _ in range(10):
            took = story()
            if took < seconds:
                return
            programs.note(f"{self.id()}: {took:.1f} s in place of {seconds} s")
        self.fail(f"{took:.1f} s, every time")

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
        listens = program == ENV["KESTRA_CLOCK"]
        return TillProgram([self.path(os.path.basename(program))], self.folder, variables=self.variables, talk=listens)

    def run_program(self, program):
        """What it wrote to its standard output and error when it has ended."""
        return self.start(program).communicate()
