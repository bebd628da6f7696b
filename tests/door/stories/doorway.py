"""A shop that serves the till's files, and whose network and cables come and go."""

import os

from counter import ENV
from shop import Shop

TILL_FILES = os.path.join(ENV["KESTRA_SOURCE"], "hosts", "web")


class Doorway(Shop):
    family = "TF"
    settings = {"caja_web": TILL_FILES, "espera": 20}

    def setUp(self):
        super().setUp()
        self.witness = self.door.witness

    def end_witness(self):
        super().end_witness()
        self.assertGreater(self.witness.passed, 0)

    def unplug(self):
        self.port_of_printer = self.printer.port
        self.printer.stop()

    def plug(self):
        """The same printer, with its memory, where it was."""
        self.printer = type(self.printer)(self.place, self.family, self.flags, self.port_of_printer)
        self.addCleanup(self.printer.stop)
