"""What the virtual printer leaves in files and takes from them, on either system, in a folder with a name that has
blanks and letters of ours."""

import json
import os
import tty
import unittest
import urllib.request

from kit import COMMAND, ENV, PATIENCE, WINDOWS, Host, InAShop, at_home

FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf"
ALONE = ("--tcp", "127.0.0.1:0", "--papel", "papel.txt")


class AShopsFiles(InAShop):
    def sell(self, printer, first=0x20):
        host = Host(printer.port, first)
        self.addCleanup(host.close)
        host.open_ticket()
        host.ticket_item("Café añejo")
        return host.close_ticket()

    def test_a_document_leaves_its_pictures(self):
        printer = self.start("--tcp", "127.0.0.1:0", "--papel", "papeles de añil/", "--fuente", at_home(FONT),
                             "--documentos", "1")
        self.assertEqual(self.sell(printer)[2], "00000001")
        self.assertEqual(printer.end(), (0, ""))
        self.assertEqual(sorted(os.listdir(self.path("papeles de añil"))),
                         [f"0001-tique-B-00000001.{kind}" for kind in ("png", "svg", "txt")])
        self.assertIn("Café añejo", self.read("papeles de añil", "0001-tique-B-00000001.txt"))
        with open(self.path("papeles de añil", "0001-tique-B-00000001.png"), "rb") as file:
            self.assertEqual(file.read(8), b"\x89PNG\r\n\x1a\n")

    def test_a_recording_is_played_and_compared(self):
        first = self.start(*ALONE, "--grabar", "sesión.jsonl", "--traza", "traza.txt", "--documentos", "1")
        self.assertEqual(self.sell(first)[2], "00000001")
        self.assertEqual(first.end(), (0, ""))
        self.assertIn("Abrir tique", self.read("traza.txt"))
        played = self.start(*ALONE, "--reproducir", "sesión.jsonl")
        self.assertEqual(self.sell(played)[2], "00000001")
        played.kill()
        self.assertEqual(self.run_it("--comparar", "sesión.jsonl", "sesión.jsonl"), (0, "Iguales: 3 intercambios\n"))
        self.assertEqual(self.run_it("--comparar", "sesión.jsonl", "no hay")[0], 2)

    def test_a_fault_of_a_file_of_rules_is_caused(self):
        with open(self.path("fallas de señal.txt"), "w", encoding="utf-8") as file:
            file.write("en la 1ra respuesta de Y: demorar 300 ms\n")
        printer = self.start(*ALONE, "--fallas", "fallas de señal.txt", "--traza", "traza.txt")
        host = Host(printer.port)
        self.addCleanup(host.close)
        self.assertEqual(host.ask("Y")[0], "0080")
        self.assertEqual(host.ask("Y")[0], "0080")
        printer.kill()
        self.assertIn("demor", self.read("traza.txt"))

    def test_a_memory_goes_on_where_it_was_and_is_one_printers(self):
        for number in ("00000001", "00000002"):
            printer = self.start(*ALONE, "--memoria", "memoria año.db")
            self.assertEqual(self.sell(printer)[2], number)
            code, said = self.run_it(*ALONE, "--memoria", "memoria año.db")
            self.assertEqual(code, 1)
            self.assertIn("la está usando otra impresora virtual", said)
            printer.kill()
        code, said = self.run_it(*ALONE, "--memoria", "memoria año.db", "--punto-venta", "7")
        self.assertEqual(code, 1)
        self.assertIn("es de otra impresora: punto de venta 1, y esta tiene 7", said)
        code, said = self.run_it(*ALONE, "--memoria", ".")
        self.assertEqual(code, 1)
        self.assertIn("carpeta", said)

    def test_a_panel_answers_while_a_host_sells(self):
        printer = self.start(*ALONE, "--panel", "127.0.0.1:0")
        url = printer.hear("Panel: ")
        self.sell(printer)
        with urllib.request.urlopen(url + "api/estado", timeout=PATIENCE) as answer:
            state = json.load(answer)
        self.assertEqual(state["ultimo_documento"]["numero"], 1)
        code, said = self.run_it(*ALONE, "--panel", url.removeprefix("http://").rstrip("/"))
        self.assertEqual(code, 1)
        self.assertIn("no se puede abrir el panel", said)

    def test_what_cannot_be_read_is_told_by_its_name(self):
        for flag in ("--fallas", "--reproducir"):
            code, said = self.run_it(*ALONE, flag, "señal.txt")
            self.assertEqual(code, 1)
            self.assertIn("señal.txt", said)

    def test_it_works_on_a_serial_port(self):
        near, far = os.openpty()
        self.addCleanup(os.close, near)
        self.addCleanup(os.close, far)
        tty.setraw(far)
        device = os.ttyname(far)
        if WINDOWS:
            link = os.path.join(ENV["WINEPREFIX"], "dosdevices", "com77")
            if os.path.islink(link):
                os.unlink(link)
            os.symlink(device, link)
            device = "COM77"
        printer = self.start("--dispositivo", device, "--papel", "papel.txt")
        self.assertEqual(printer.port, device)
        frame = b"\x02!Y\x03"
        os.write(near, frame + b"%04X" % sum(frame))
        heard = b""
        while b"\x03" not in heard:
            heard += os.read(near, 100)
        self.assertIn(b"Y\x1c0080\x1c0600", heard)


if __name__ == "__main__":
    assert COMMAND
    unittest.main()
