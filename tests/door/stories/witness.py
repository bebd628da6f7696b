"""Who stands between a client and the door, hands on what passes and holds it against the contract.

    with Witness(door_port) as witness:
        ... talk to witness.port ...
    assert not witness.complaints

A request that the contract does not allow must be refused, an answer must be one that it describes. It is the network
too: `witness.cut("before")` loses requests, `witness.cut("after")` hands them on and loses the answers, and
`witness.mend()` makes it whole again.
"""

import http.client
import http.server
import socket
import threading

from contract import Contract

HOP_BY_HOP = {"connection", "keep-alive", "transfer-encoding", "te", "upgrade", "proxy-authorization", "trailer"}
WAIT = 600  # seconds until the door has answered, at most


class Witness:
    def __init__(self, door_port, port=0, contract=None):
        self.door_port = door_port
        self.contract = contract or Contract()
        self.complaints = []
        self.passed = 0  # requests that were held against the contract
        self.cut_at = None
        self.lock = threading.Lock()
        self.streams = set()
        witness = self

        class Handler(http.server.BaseHTTPRequestHandler):
            protocol_version = "HTTP/1.1"

            def log_message(self, *words):
                pass

            def handle_one_request(self):
                try:
                    super().handle_one_request()
                except (ConnectionError, TimeoutError):
                    self.close_connection = True

            def hand_on(self):
                witness.hand_on(self)

            do_GET = do_POST = do_PUT = do_DELETE = do_OPTIONS = do_HEAD = do_PATCH = hand_on

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", port), Handler)
        self.server.daemon_threads = True
        self.port = self.server.server_address[1]

    def __enter__(self):
        threading.Thread(target=self.server.serve_forever, args=(0.05,), daemon=True).start()
        return self

    def __exit__(self, *_):
        self.server.shutdown()
        self.server.server_close()
        self.close_streams()

    @property
    def url(self):
        return f"http://127.0.0.1:{self.port}"

    def cut(self, where="before"):
        self.cut_at = where
        self.close_streams()

    def mend(self):
        self.cut_at = None

    def close_streams(self):
        with self.lock:
            streams, self.streams = self.streams, set()
        for stream in streams:
            for end in stream:
                try:
                    end.shutdown(socket.SHUT_RDWR)
                except OSError:
                    pass

    def complain(self, request, faults):
        with self.lock:
            self.complaints += [f"{request}: {fault}" for fault in faults]

    def drop(self, client):
        client.close_connection = True
        try:
            client.connection.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass

    def hand_on(self, client):
        body = client.rfile.read(int(client.headers.get("Content-Length") or 0))
        if self.cut_at == "before":
            return self.drop(client)
        door = http.client.HTTPConnection("127.0.0.1", self.door_port, timeout=WAIT)
        try:
            headers = self.as_the_door_s({key: value for key, value in client.headers.items()
                                          if key.lower() not in HOP_BY_HOP})
            door.request(client.command, client.path, body or None, headers)
            answer = door.getresponse()
            if (answer.getheader("Content-Type") or "").startswith("text/event-stream"):
                return self.stream(client, door, answer)
            content = answer.read()
        except (OSError, http.client.HTTPException):
            return self.drop(client)  # the door died: the client sees a broken connection, as it would without us
        finally:
            door.close()
        self.judge(client, headers, body, answer, content)
        if self.cut_at:
            return self.drop(client)
        client.send_response_only(answer.status, answer.reason)
        for key, value in answer.getheaders():
            if key.lower() not in HOP_BY_HOP | {"content-length"}:
                client.send_header(key, value)
        if answer.status not in (204, 304):
            client.send_header("Content-Length", str(len(content)))
        client.end_headers()
        if client.command != "HEAD":
            client.wfile.write(content)

    def as_the_door_s(self, headers):
        """The same for the door's own address: a network has no name."""
        own, door = f"127.0.0.1:{self.port}", f"127.0.0.1:{self.door_port}"
        return {key: value.replace(own, door) if key.lower() in ("host", "origin", "referer") else value
                for key, value in headers.items()}

    def judge(self, client, headers, body, answer, content):
        request = f"{client.command} {client.path} -> {answer.status}"
        if client.command not in ("OPTIONS", "HEAD"):
            wrong = self.contract.request_faults(client.command, client.path, headers, body)
            if wrong and answer.status < 400:
                self.complain(request, ["taken, although " + fault for fault in wrong])
        self.complain(request, self.contract.answer_faults(
            client.command, client.path, answer.status, dict(answer.getheaders()), content))
        with self.lock:
            self.passed += 1

    def stream(self, client, door, answer):
        """The events, one after the other, until somebody goes."""
        self.judge(client, dict(client.headers.items()), b"", answer, None)
        ends = (client.connection, answer.fp.raw._sock if door.sock is None else door.sock)
        with self.lock:
            self.streams.add(ends)
        client.close_connection = True
        try:
            client.send_response_only(answer.status, answer.reason)
            for key, value in answer.getheaders():
                if key.lower() not in HOP_BY_HOP:
                    client.send_header(key, value)
            client.send_header("Connection", "close")
            client.end_headers()
            event = []
            for line in answer:
                client.wfile.write(line)
                client.wfile.flush()
                text = line.decode("utf-8").rstrip("\r\n")
                if text:
                    event.append(text)
                else:
                    self.complain(f"GET {client.path}", self.contract.event_faults(event))
                    event = []
        except (OSError, http.client.HTTPException, ValueError):
            pass
        finally:
            with self.lock:
                self.streams.discard(ends)
