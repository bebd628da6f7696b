"""A shop with a witness between its door and whoever talks to it, and with the till's files."""

import os

from counter import ENV
from shop import Shop, new_key
from witness import Witness

TILL_FILES = os.path.join(ENV["KESTRA_SOURCE"], "hosts", "web")


class Doorway(Shop):
    family = "TF"
    settings = {"caja_web": TILL_FILES, "espera": 20}

    def setUp(self):
        super().setUp()
        self.witness = Witness(self.door.port).__enter__()
        self.addCleanup(self.end_witness)

    def end_witness(self):
        self.witness.__exit__()
        self.assertEqual(self.witness.complaints, [])
        self.assertGreater(self.witness.passed, 0)

    def kill_door(self):
        self.door.kill()

    def start_door(self):
        """On another port: to the till it is the same."""
        self.door.start()
        self.witness.door_port = self.door.port

    def unplug(self):
        self.port_of_printer = self.printer.port
        self.printer.stop()

    def plug(self):
        """The same printer, with its memory, where it was."""
        self.printer = type(self.printer)(self.place, self.family, self.flags, self.port_of_printer)
        self.addCleanup(self.printer.stop)

    def ask(self, method, path, body=None, key=None, **headers):
        return self.door.ask(method, path, body, key, headers, port=self.witness.port)

    def sell_document(self, body, key=None, printer="caja1", **headers):
        return self.ask("POST", f"/v1/impresoras/{printer}/comprobantes", body, key or new_key(), **headers)
