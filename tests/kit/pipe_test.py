"""A till that reaches the virtual printer by a named pipe, as Fiscal.ini has it: Kestra.dll, the tool, and a witness
before the printer."""

import os
import re
import unittest

from kit import DAY, TOOL, WINDOWS, InAShop


class ByPipe(InAShop):
    pipe = rf"\\.\pipe\impresora fiscal {os.getpid()}"

    def live(self):
        self.settings(ImpresoraDispositivo=self.pipe)
        code, said = self.run_it(command=DAY)
        self.assertEqual(code, 0, said)
        return said

    def paper(self, name):
        """Without dates and times."""
        return re.sub(r"\d\d/\d\d/\d{4}|\d\d:\d\d:\d\d", "#", self.read(name))

    def test_a_day_is_the_same_as_by_tcp(self):
        printer = self.start("--familia", "TF", "--tuberia", self.pipe, "--papel", "papel.txt")
        self.assertEqual(printer.port, self.pipe)
        said = self.live()
        code, found = self.shown("diagnostico")
        self.assertEqual(code, 0, found)
        self.assertIn(self.pipe, found)
        printer.kill()
        other = self.start("--familia", "TF", "--tcp", "127.0.0.1:0", "--papel", "otro.txt")
        self.settings(ImpresoraDispositivo=other.port)
        self.assertEqual(self.run_it(command=DAY), (0, said))
        self.assertEqual(self.paper("papel.txt"), self.paper("otro.txt"))

    def test_a_witness_lets_the_till_in(self):
        printer = self.start("--familia", "TF", "--tcp", "127.0.0.1:0", "--papel", "papel.txt")
        witness = self.start("presenciar", "--impresora", printer.port, "--tuberia", self.pipe, command=TOOL)
        self.live()
        witness.kill()
        self.assertEqual(witness.words(0).count(" ok "), 16, witness.words(0))

    def test_where_nobody_serves_it_there_is_no_device(self):
        self.settings(ImpresoraDispositivo=self.pipe)
        code, said = self.shown("diagnostico")
        self.assertEqual(code, 3, said)
        self.assertIn("El dispositivo no existe", said)


if __name__ == "__main__":
    assert WINDOWS
    unittest.main()
