"""The operator at a terminal, as the library asks when the host has no dialogs of its own."""

import os
import pty
import sys
import unittest

from shop import Shop


class AnOperatorAtTheTerminal(Shop):
    settings = {"MostrarComandos": "1"}

    def cut_paper(self, keys):
        """Runs a host on a terminal of its own and types `keys` at each question."""
        here = os.path.dirname(os.path.abspath(__file__))
        code = (f"import sys; sys.path.insert(0, {here!r})\nfrom kestra import *\n"
                "lib.EP_Init(); print('resultado', lib.EP_CortaPapel())")
        child, terminal = pty.fork()
        if child == 0:
            os.chdir(self.folder)
            os.execve(sys.executable, [sys.executable, "-c", code], self.host_environment())
        shown = b""
        keys = iter(keys)
        while True:
            try:
                piece = os.read(terminal, 4096)
            except OSError:  # the host has ended
                break
            if not piece:
                break
            shown += piece
            if piece.rstrip().endswith((b":", b"]")):  # a prompt
                os.write(terminal, next(keys, b"\n"))
        os.close(terminal)
        os.waitpid(child, 0)
        return shown.decode("utf-8")

    def test_yes_sends_the_command(self):
        shown = self.cut_paper([b"s\n", b"\n", b"\n"])
        self.assertIn("Envia?", shown)
        self.assertIn("EP_CortaPapel()", shown)
        self.assertIn("Comando a enviar:", shown)
        self.assertIn("Comando enviado:", shown)
        self.assertIn("/OK: True", shown)
        self.assertIn("resultado 0", shown)

    def test_no_sends_nothing(self):
        shown = self.cut_paper([b"n\n"])
        self.assertIn("resultado 1", shown)
        self.assertFalse(os.path.exists(self.path("fiscal.log")))


if __name__ == "__main__":
    unittest.main()
