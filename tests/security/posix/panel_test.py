"""What a page from elsewhere, a neighbour on the machine or a flood can do to the panel: nothing that lasts."""
import json
import os
import re
import socket
import subprocess
import threading
import time
import unittest
import xml.etree.ElementTree as xml

from shop import ENV, Shop, read, until

WAIT = 20.0
REQUEST_TIME = 10.0  # seconds that the panel gives a request to arrive whole
ROOM = 4096          # kB that the printer may have more after a flood than before
SCRIPT = "<script>alert(1)</script>"
TICKET = """
assert lib.EP_Init() == 1
assert open_document("FC", "B") == 0
assert item(%r, 1, 10) == 0
print(close("FC", "B")[1])
"""


def read_all(connection):
    answer = b""
    try:
        while data := connection.recv(65536):
            answer += data
    except ConnectionResetError:
        pass
    return answer.decode("utf-8", "replace")


class PanelTest(Shop):
    address = "127.0.0.1"

    def start_printer(self):
        command = [ENV["KESTRA_PRINTER"], "--familia", "TQ", "--enlace", self.device, "--papel",
                   os.devnull, "--panel", self.address + ":0"]
        with open(self.path("errores.txt"), "w", encoding="utf-8") as errors:
            printer = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=errors, text=True)
        self.addCleanup(self.stop, printer)
        said = printer.stdout.readline() + printer.stdout.readline()
        self.port = int(re.search(r"Panel: http://[^/]*:(\d+)/", said)[1])
        self.own = f"127.0.0.1:{self.port}"
        return printer

    def stop(self, printer):
        self.assertEqual(self.stop_printer(printer), 0)
        printer.stdout.close()

    def errors(self):
        return read(self.path("errores.txt"))

    def connect(self):
        connection = socket.create_connection(("127.0.0.1", self.port), timeout=WAIT)
        self.addCleanup(connection.close)
        return connection

    def say(self, text):
        """Raw bytes there; status and everything that comes back."""
        with self.connect() as connection:
            try:
                connection.sendall(text if isinstance(text, bytes) else text.encode("latin-1"))
                connection.shutdown(socket.SHUT_WR)
            except OSError:
                pass  # turned away before all of it was sent
            answer = read_all(connection)
        found = re.match(r"HTTP/1.1 (\d+) ", answer)
        return int(found[1]) if found else 0, answer

    def ask(self, method, target, fields="", body=None):
        text = f"{method} {target} HTTP/1.1\r\nHost: {self.own}\r\n{fields}"
        if body is not None:
            text += f"Content-Type: application/json\r\nContent-Length: {len(body.encode())}\r\n"
        return self.say((text + "\r\n" + (body or "")).encode("utf-8"))

    def state(self):
        status, answer = self.ask("GET", "/api/estado")
        self.assertEqual(status, 200, answer)
        return json.loads(answer.partition("\r\n\r\n")[2])

    def print_ticket(self, words="Pan"):
        return self.run_host(TICKET % words)[0].strip()

    def footprint(self):
        with open(f"/proc/{self.printer.pid}/status", encoding="ascii") as status:
            resident = int(re.search(r"VmRSS:\s+(\d+)", status.read())[1])
        return resident, len(os.listdir(f"/proc/{self.printer.pid}/fd"))


class Methods(PanelTest):
    def test_only_the_four_that_are_served_get_in(self):
        for method in ("OPTIONS", "PUT", "PATCH", "TRACE", "CONNECT", "get", "PROPFIND", "X" * 300):
            status, answer = self.ask(method, "/api/estado")
            self.assertEqual(status, 405, method)
            self.assertIn("Allow: GET, HEAD, POST, DELETE\r\n", answer)
            self.assertNotIn("Access-Control", answer)

    def test_head_is_the_head_and_nothing_else(self):
        status, answer = self.ask("HEAD", "/api/estado")
        self.assertEqual(status, 200)
        self.assertTrue(answer.endswith("\r\n\r\n"), answer)

    def test_what_a_link_or_a_picture_of_another_page_asks_for_changes_nothing(self):
        for target in ("/api/controles", "/api/reiniciar", "/api/fallas", "/api/verificar"):
            self.assertIn(self.ask("GET", target)[0], (200, 405))
        self.assertEqual(self.state()["fallas"], [])


class Requests(PanelTest):
    def test_a_second_one_behind_the_first_is_not_served(self):
        hidden = (f"POST /api/controles HTTP/1.1\r\nHost: {self.own}\r\nContent-Type: application/json\r\n"
                  'Content-Length: 19\r\n\r\n{"sin_papel": true}')
        body = "{}"
        rows = (
            ("GET /api/estado", "", ""), ("POST /api/verificar", "Content-Type: application/json\r\n"
                                          f"Content-Length: {len(body)}\r\n", body),
            ("GET /api/estado", "Content-Length: 0\r\n", ""),
            ("GET /api/estado", "Connection: keep-alive\r\n", ""),
        )
        for line, fields, content in rows:
            request = f"{line} HTTP/1.1\r\nHost: {self.own}\r\n{fields}\r\n{content}{hidden}"
            answer = self.say(request)[1]
            self.assertEqual(answer.count("HTTP/1.1 "), 1, line)
            self.assertIn("Connection: close\r\n", answer)
        self.assertEqual(self.state()["impresora"]["palabra"], "0080")

    def test_one_whose_length_can_be_read_in_two_ways_is_refused(self):
        for fields in ("Content-Length: 19\r\nContent-Length: 0\r\n", "Content-Length: 19, 0\r\n",
                       "Content-Length: +19\r\n", "Content-Length: 0x13\r\n", "Content-Length: 1 9\r\n",
                       "Content-Length: 19\r\nTransfer-Encoding: chunked\r\n",
                       "Transfer-Encoding: identity\r\n", "Content-Length : 19\r\n",
                       "Content-Length:\r\n 19\r\n", "Content-Length: 19\rX: 1\r\n"):
            request = (f"POST /api/controles HTTP/1.1\r\nHost: {self.own}\r\nContent-Type: application/json"
                       f'\r\n{fields}\r\n{{"sin_papel": true}}')
            self.assertIn(self.say(request)[0], (400, 411), fields)
        self.assertEqual(self.state()["impresora"]["palabra"], "0080")

    def test_whatever_stands_in_numbers_and_texts_gets_an_answer(self):
        huge = "9" * 40
        for method, target, fields, body in (
                ("GET", f"/api/documentos/{huge}/papel", "", None),
                ("GET", "/api/documentos/-1/papel.svg", "", None),
                ("GET", f"/api/traza?desde={huge}", "", None), ("GET", "/api/traza?desde=-1", "", None),
                ("GET", "/api/traza?desde[]=%00&desde=%ff", "", None),
                ("GET", "/api/estado%00.html", "", None), ("GET", "/" + "%2e" * 500, "", None),
                ("DELETE", f"/api/fallas/{huge}", "", None), ("DELETE", "/api/fallas/0", "", None),
                ("POST", "/api/controles", "", '{"reloj": "' + "9" * 1000 + '"}'),
                ("POST", "/api/controles", "", '{"papel": 1e999}'),
                ("POST", "/api/controles", "", '{"' + "ñ\\u0000" * 500 + '": true}'),
                ("POST", "/api/controles", "", '{"sin_papel": true, "sin_papel": 7}'),
                ("POST", "/api/fallas", "", '{"reglas": "' + "ñandú " * 5000 + '"}'),
                ("POST", "/api/fallas", "", '{"reglas": "\\ud800"}'),
                ("POST", "/api/fallas", "", json.dumps({"reglas": "siempre: " + "demorar 9999999999 min"})),
                ("POST", "/api/verificar", "", "[" * 30000 + "]" * 30000),
                ("POST", "/api/verificar", "", '{"papel_contiene": ' + '"' + "a" * 60000 + '"}')):
            status, answer = self.ask(method, target, fields, body)
            self.assertIn(status, (200, 400, 404, 409, 414), (target, body, answer[:300]))
        self.assertEqual(self.print_ticket(), "00000001")

    def test_bytes_that_are_no_text_get_an_answer(self):
        for body in (b'{"reglas": "\xff\xfe"}', b"\x00" * 100, b'{"reglas": "\xc3"}'):
            head = (f"POST /api/fallas HTTP/1.1\r\nHost: {self.own}\r\nContent-Type: application/json\r\n"
                    f"Content-Length: {len(body)}\r\n\r\n").encode()
            self.assertEqual(self.say(head + body)[0], 400, body)

    def test_a_text_on_the_paper_is_a_text_in_every_shape(self):
        self.print_ticket(SCRIPT)
        _, picture = self.ask("GET", "/api/documentos/0/papel.svg")
        self.assertIn("Content-Security-Policy: default-src 'none'", picture)
        drawing = xml.fromstring(picture.partition("\r\n\r\n")[2])
        self.assertEqual([e.tag for e in drawing.iter() if e.tag.endswith("script")], [])
        self.assertNotIn(SCRIPT, picture)
        _, text = self.ask("GET", "/api/documentos/0/papel")
        self.assertIn("Content-Type: text/plain", text)
        self.assertIn("X-Content-Type-Options: nosniff", text)
        self.assertIn("<script>alert(1)", text)


class Crowds(PanelTest):
    def test_slow_ones_are_sent_away_and_keep_nobody_from_the_line(self):
        """Twelve that send a byte now and then, two that announce a body and keep it."""
        slow = [self.connect() for _ in range(14)]
        began = time.monotonic()
        for connection in slow[:12]:
            connection.sendall(b"GET /api/estado HTTP/1.1\r\nX: ")
        for connection in slow[12:]:
            connection.sendall(f"POST /api/controles HTTP/1.1\r\nHost: {self.own}\r\nContent-Type: "
                               "application/json\r\nContent-Length: 100\r\n\r\n{".encode())
        over = threading.Event()

        def drip():
            while not over.wait(0.5):
                for connection in slow[:12]:
                    try:
                        connection.sendall(b"a")
                    except OSError:
                        pass
        dripping = threading.Thread(target=drip)
        dripping.start()
        self.assertEqual(self.print_ticket(), "00000001")
        self.assertEqual(self.ask("GET", "/api/estado")[0], 200)
        self.assertLess(time.monotonic() - began, REQUEST_TIME)
        answers = [read_all(connection) for connection in slow]
        over.set()
        dripping.join()
        self.assertTrue(REQUEST_TIME - 1 < time.monotonic() - began < REQUEST_TIME + 4)
        self.assertEqual([answer[9:12] for answer in answers[:12]], ["408"] * 12)
        self.assertEqual([answer[9:12] for answer in answers[12:]], ["400"] * 2)

    def test_a_listener_that_never_reads_stops_neither_the_printer_nor_the_others(self):
        deaf = self.connect()
        deaf.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 4096)
        deaf.sendall(f"GET /api/eventos HTTP/1.1\r\nHost: {self.own}\r\n\r\n".encode())
        for number in range(1, 6):
            self.assertEqual(self.print_ticket(), f"{number:08}")
        self.assertEqual(self.state()["ultimo_documento"]["numero"], 5)

    def test_a_flood_leaves_nothing_behind(self):
        self.print_ticket()
        self.ask("GET", "/api/estado")
        resident, descriptors = self.footprint()
        garbage = (b"", b"\r\n", b"GET", b"\xff" * 2000, b"GET / HTTP/1.1\r\n" * 100, b"A" * 20000)
        for turn in range(5):  # the system itself makes those behind the fifth in a row wait a second
            crowd = [self.connect() for _ in range(50)]
            for number, connection in enumerate(crowd):
                try:
                    connection.sendall(garbage[(turn + number) % len(garbage)])
                except OSError:
                    pass
            for connection in crowd:
                connection.close()
        until(lambda: self.footprint()[1] <= descriptors, "the end of the last connection")
        until(lambda: self.ask("GET", "/api/estado")[0] == 200, "an answer after the flood")
        self.assertLess(self.footprint()[0], resident + ROOM)
        self.assertEqual(self.print_ticket(), "00000002")


class OnThisMachineAlone(PanelTest):
    def test_nobody_else_can_connect(self):
        listening = subprocess.run(["cat", f"/proc/{self.printer.pid}/net/tcp"], capture_output=True,
                                   text=True, check=True).stdout
        mine = re.findall(rf" ([0-9A-F]{{8}}):{self.port:04X} 00000000:0000 0A", listening)
        self.assertEqual(mine, ["0100007F"])
        self.assertEqual(self.errors(), "")

    def test_a_name_that_leads_here_is_not_enough(self):
        for host in ("malo.example", f"malo.example:{self.port}", f"127.0.0.1.malo.example:{self.port}",
                     f"127.0.0.1:{self.port}@malo.example", f"localhost.:{self.port}", f"127.1:{self.port}",
                     f"2130706433:{self.port}", f"0.0.0.0:{self.port}", f"[::ffff:127.0.0.1]:{self.port}",
                     ""):
            status, _ = self.say(f"GET /api/estado HTTP/1.1\r\nHost: {host}\r\n\r\n")
            self.assertEqual(status, 403, host)

    def test_the_port_cannot_be_shared(self):
        second = subprocess.run([ENV["KESTRA_PRINTER"], "--panel", self.own, "--papel", os.devnull], text=True,
                                capture_output=True, timeout=WAIT, check=False)
        self.assertEqual(second.returncode, 1)
        self.assertIn("no se puede abrir el panel", second.stderr)


class OnTheNetwork(PanelTest):
    address = "0.0.0.0"

    def test_it_is_said_and_names_still_do_not_get_in(self):
        until(lambda: "red" in self.errors(), "the warning")
        self.assertEqual(self.ask("GET", "/api/estado")[0], 200)
        status, _ = self.say(f"GET /api/estado HTTP/1.1\r\nHost: malo.example:{self.port}\r\n\r\n")
        self.assertEqual(status, 403)


if __name__ == "__main__":
    unittest.main()
