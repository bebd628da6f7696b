"""Compares the printer's books and paper with what the hosts were about to do and were told."""
import collections
import glob
import os
import re
import sqlite3

import plan
from repeats import Repeats

KIND_OF = {(code, letter): kind for kind, (_, letter, code, _, _) in plan.SERIES.items()}
SHEET = re.compile(
    r'^ *(TIQUE[^\n"]*?)(?: "([ABC])")? *\n'
    r'P\.V\. Nº \d+ +Nº (\d+)\n'
    r'(.*?)^TM-U220AF +\d\d:\d\d:\d\d$', re.M | re.S)
TOTAL = re.compile(r"^T O T A L +\$ ([\d.]+),(\d\d)$", re.M)


class Judge:
    def __init__(self, folder, ledger, printer_kills):
        self.folder, self.ledger, self.printer_kills = folder, ledger, printer_kills
        self.seed = None
        self.breaches = []
        self.figures = {}
        self.repeats = Repeats(folder)
        self.twice = 0
        memory = os.path.join(folder, "memoria.db")
        self.books = sqlite3.connect(f"file:{memory}?mode=ro", uri=True)

    def breach(self, words):
        self.breaches.append(words)

    def must(self, holds, words):
        if not holds:
            self.breach(words)

    def judge(self, seed):
        self.seed = seed
        for line in self.ledger.faults:
            self.breach(line)
        rows = self.books.execute(
            "SELECT codigo, letra, numero, total, iva, cancelado FROM comprobantes "
            "WHERE clase = 'fiscal' ORDER BY ordinal").fetchall()
        self.figures["fiscal documents in the books"] = len(rows)
        self.figures["of them cancelled"] = sum(row[5] for row in rows)
        self.numbers(rows)
        self.documents(rows)
        self.others()
        self.days()
        self.paper(rows)
        self.must(not self.books.execute("SELECT 1 FROM documento").fetchall(),
                  "a document is still open")
        self.must(self.books.execute("PRAGMA integrity_check").fetchone() == ("ok",),
                  "the memory is damaged")

    def numbers(self, rows):
        series = collections.defaultdict(list)
        for code, letter, number, *_ in rows:
            series[code, letter].append(number)
        for key, numbers in series.items():
            self.must(numbers == list(range(1, len(numbers) + 1)),
                      f"series {KIND_OF[key]}: a gap, a repeat or out of order")
        self.figures["series without gap or repeat"] = len(series)

    def documents(self, rows):
        """Every row is a document of a host, with its total; every document told is a row, once."""
        found = {}
        for code, letter, number, total, iva, cancelled in rows:
            kind = KIND_OF[code, letter]
            if cancelled:
                self.cancelled(kind, number)
            else:
                self.closed(found, kind, number, (total, iva))
        for record in self.ledger.records.values():
            if record.outcome == "closed":
                self.must(record.id in found, f"document {record.id} ({record.kind}) is not in the books")
        told = [r for r in self.ledger.records.values() if r.outcome == "closed"]
        self.figures["closed, and the host was told"] = sum(r.how == "told" for r in told)
        learnt = [r for r in told if r.how == "counter"]
        self.figures["closed, and a host learnt it by the counter"] = len(learnt)
        for cause, count in sorted(collections.Counter(r.doubts[-1] if r.doubts else "none"
                                                       for r in learnt).items()):
            self.figures["    its close was cut: " + cause] = count
        self.must(all(r.doubts for r in learnt), "a document was learnt of without a cut close")
        self.figures["commands that the library sent twice by itself"] = sum(self.repeats.others.values())
        self.figures["    documents with a line printed twice by that"] = self.twice

    def closed(self, found, kind, number, amounts):
        owners = [self.ledger.records[i] for i in self.ledger.claims[kind, number]]
        owners = [r for r in owners if r.outcome == "closed" and r.number == number]
        if not owners:
            return self.breach(f"{kind} {number} is closed, and no host knows of it")
        record = owners[-1]
        self.must(record.id not in found, f"document {record.id} is in the books twice")
        found[record.id] = number
        made = plan.document(self.seed, record.id, record.family)
        expected = plan.possible_totals(made, self.repeats.steps_of(made))
        self.must(amounts in expected, f"{kind} {number}: {amounts}, not {expected[0]}")
        self.twice += amounts != expected[0] and amounts in expected

    def cancelled(self, kind, number):
        claims = [self.ledger.records[i] for i in self.ledger.claims[kind, number]]
        self.must(any(c.outcome != "closed" or c.number != number for c in claims),
                  f"{kind} {number} is cancelled, and no host had given it up")

    def others(self):
        verdicts = self.ledger.verdicts
        count = dict(self.books.execute(
            "SELECT tipo, COUNT(*) FROM comprobantes WHERE clase != 'fiscal' GROUP BY tipo"))
        closings = self.books.execute("SELECT COUNT(*) FROM cierres").fetchone()[0]
        done = self.ledger.finished
        twice = self.repeats.others["9"]  # a report has no text that would say whose it is
        self.must(closings == count.get("CIERRE Z", 0), "closings and their receipts differ")
        self.within("closings Z", closings, done["Z"], done["Z"] + twice)
        # What has no counter, or is closed while tidying up, may have been done without the host knowing.
        tidied, doubtful = verdicts["cerrar_no_fiscal", "ok"], sum(
            n for (step, verdict), n in verdicts.items()
            if step == "cerrar_no_fiscal" and verdict in ("silent", "line"))
        low = done["no fiscal"] + tidied
        self.within("non-fiscal documents", count.get("DOCUMENTO NO FISCAL", 0), low,
                    low + doubtful + self.left("no fiscal"))
        doubts = sum(len(r.doubts) for r in self.ledger.records.values() if r.kind == "X")
        self.within("reports X", count.get("INFORME X", 0), done["X"], done["X"] + doubts + twice)

    def left(self, kind):
        return sum(r.kind == kind and r.outcome == "given_up" for r in self.ledger.records.values())

    def within(self, words, count, low, high):
        self.figures[words] = count
        self.must(low <= count <= high, f"{words}: {count}, not {low} to {high}")

    def days(self):
        """The sums of each day are those of its documents, the open day's too."""
        rows = self.books.execute(
            "SELECT clase, tipo, codigo, total, iva, cancelado, numero FROM comprobantes ORDER BY ordinal")
        day, number = collections.Counter(), 1
        for kind, title, code, total, iva, cancelled, report in rows:
            if title == "CIERRE Z":
                self.must(report == number, f"closing {report} comes as the {number}th")
                self.one_day(number, day)
                day, number = collections.Counter(), number + 1
            elif title == "INFORME X":
                self.must((total, iva) == (day["ventas"], day["ventas iva"]), "an X tells other sums")
            elif kind == "no fiscal":
                day["no fiscales"] += 1
            elif cancelled:
                day["cancelados"] += 1
            else:
                operation = "créditos" if code == "M" else "ventas"
                day.update({operation + " n": 1, operation: total, operation + " iva": iva})
        self.one_day(0, day)
        self.figures["days whose sums are their documents'"] = number

    def one_day(self, number, day):
        table = "cierres WHERE numero = ?" if number else "estado WHERE id = 1 + ?"
        other = self.books.execute(
            f"SELECT cancelados, no_fiscales, sin_importe FROM {table}", (number,)).fetchone() or (0, 0, 0)
        told = collections.Counter()
        for operation, count, total in self.books.execute(
                "SELECT operacion, comprobantes, total FROM movimientos WHERE cierre = ?", (number,)):
            told.update({operation + " n": count, operation: total})
        for operation, iva in self.books.execute(
                "SELECT operacion, SUM(iva) FROM tasas WHERE cierre = ? GROUP BY operacion", (number,)):
            told[operation + " iva"] = iva
        told.update({"cancelados": other[0], "no fiscales": other[1]})
        self.must(+told == +day and other[2] == 0, f"day {number}: the books say {+told}, not {+day}")

    def paper(self, rows):
        """A sheet for each row, with its number and total; a killed printer may lose its last sheet."""
        sheets = collections.Counter()
        for path in sorted(glob.glob(os.path.join(self.folder, "papel-*.txt"))):
            with open(path, encoding="utf-8", errors="replace") as file:
                for found in SHEET.finditer(file.read()):
                    sheets[self.sheet(*found.groups())] += 1
        wanted = collections.Counter(
            (KIND_OF[code, letter], number, None if cancelled else total)
            for code, letter, number, total, _, cancelled in rows)
        missing, extra = wanted - sheets, sheets - wanted
        self.figures["sheets of paper"] = sum(sheets.values())
        self.figures["sheets lost with a killed printer"] = sum(missing.values())
        self.must(sum(missing.values()) <= self.printer_kills, f"sheets missing: {list(missing)[:5]}")
        self.must(not extra, f"sheets that are not in the books: {list(extra)[:5]}")

    def sheet(self, title, letter, number, body):
        titles = {(title, letter if title != "TIQUE" else None): kind
                  for kind, (_, letter, _, title, _) in plan.SERIES.items()}
        total = TOTAL.search(body)
        cents = int(total[1].replace(".", "") + total[2]) if total else None
        if "COMPROBANTE CANCELADO" in body:
            cents = None
        return titles.get((title, letter), title), int(number), cents
