"""The fiscal memory of a printer that is killed at any moment, again and again: no document is half, no number there
twice, and nothing that was answered is lost."""

import contextlib
import random
import sqlite3
import threading
import time
import unittest

from kit import ENV, EMPTY, Gone, Host, InAFolder, Printer

KILLS = int(ENV.get("KIT_KILLS", "250"))
LONGEST = 0.4  # seconds that a printer lives with a host
DOCUMENT_OPEN = 0x1000
SERIES = {"t": ("", "B"), "A": ("T", "A"), "B": ("T", "B")}


def sell(host, rng, heard):
    """Documents without end; what is heard of each is what its closing answered."""
    if int(host.ask("Y")[1], 16) & DOCUMENT_OPEN:
        host.ask("D", EMPTY, EMPTY, "C")
        host.ask("d", EMPTY, EMPTY, "C")
    while True:
        series = rng.choice(list(SERIES))
        if series == "t":
            host.open_ticket()
        else:
            host.open_invoice(series)
        for _ in range(rng.randint(1, 3)):
            host.ticket_item() if series == "t" else host.invoice_item()
        closed = host.close_ticket() if series == "t" else host.close_invoice(series)
        heard[series] = int(closed[2])
        if rng.randrange(16) == 0:
            host.ask("9", "Z", "P")


class KilledAtAnyMoment(InAFolder):
    def live_and_die(self, rng, heard):
        printer = Printer(self.folder, "--tcp", "127.0.0.1:0", "--papel", "papel.txt", "--memoria", "m.db")
        try:
            host = Host(printer.port)
            death = threading.Timer(rng.uniform(0, LONGEST), printer.process.kill)
            death.start()
            with contextlib.suppress(Gone):
                sell(host, rng, heard)
            death.join()
            host.close()
        finally:
            printer.forget()

    def check_series(self, book, series, heard):
        code, letter = SERIES[series]
        ours = f"FROM comprobantes WHERE clase = 'fiscal' AND codigo = '{code}' AND letra = '{letter}'"

        def number(what, more=""):
            return book.execute(f"SELECT {what} {ours} {more}").fetchone()[0]
        last = number("coalesce(max(numero), 0)")
        self.assertEqual(number("count(*)"), last)
        self.assertEqual(number("count(DISTINCT numero)"), last)
        # The host may have been left without an answer for one document, and none that it heard of is missing.
        sold = number("coalesce(max(numero), 0)", "AND cancelado = 0")
        known = heard.get(series, 0)
        self.assertGreaterEqual(sold, known)
        self.assertLessEqual(number("count(*)", f"AND cancelado = 0 AND numero > {known}"), 1)
        heard[series] = sold

    def check_sums(self, book):
        def number(what):
            return book.execute("SELECT " + what).fetchone()[0]
        sold = "FROM comprobantes WHERE clase = 'fiscal' AND cancelado = 0"
        self.assertEqual(number(f"coalesce(sum(total), 0) {sold}"), number("coalesce(sum(total), 0) FROM movimientos"))
        self.assertEqual(number(f"coalesce(sum(iva), 0) {sold}"), number("coalesce(sum(iva), 0) FROM tasas"))
        self.assertEqual(number("count(*) FROM comprobantes WHERE clase = 'informe'"), number("count(*) FROM cierres"))
        self.assertEqual(book.execute("PRAGMA integrity_check").fetchone()[0], "ok")

    def test_its_memory_is_consistent_and_has_all_that_was_answered(self):
        rng, heard, began = random.Random(20261122), {}, time.monotonic()
        for kill in range(KILLS):
            self.live_and_die(rng, heard)
            with self.subTest(kill=kill), contextlib.closing(sqlite3.connect(self.path("m.db"))) as book:
                for series in SERIES:
                    self.check_series(book, series, heard)
                self.check_sums(book)
        with contextlib.closing(sqlite3.connect(self.path("m.db"))) as book:
            count = book.execute("SELECT count(*) FROM comprobantes").fetchone()[0]
        print(f"{KILLS} kills, {count} documents, {time.monotonic() - began:.0f} s", flush=True)
        self.assertGreater(count, KILLS / 10)


if __name__ == "__main__":
    unittest.main()
