"""A host of the soak: a till that works with the library as its guide advises, and that may be killed.

    till.py LIBRARY FOLDER LEDGER SEED

FOLDER has a folder for each family with its Fiscal.ini. Reads turns from the standard input, a JSON
object each, and answers "ready" once and then a JSON object for each turn.
"""
import ctypes
import json
import os
import random
import sys
import time

import plan
from ledger import Ledger

D = ctypes.c_double
BLANK = b" " * 40
PATIENCE = 400  # attempts at something that has to work sooner or later
PAUSE = 0.03


def text(words, length):
    return words.encode("cp1252").ljust(length)[:length]


MESSAGE = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, ctypes.c_char_p, ctypes.c_char_p,
                           ctypes.c_int32)
REPORT = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, ctypes.c_char_p, ctypes.c_char_p,
                          ctypes.c_void_p, ctypes.c_int32)


class Operator(ctypes.Structure):
    _fields_ = [("size", ctypes.c_uint32), ("context", ctypes.c_void_p), ("message", MESSAGE),
                ("report", REPORT), ("memory_full", ctypes.c_void_p)]


class Heap(ctypes.Structure):
    _fields_ = [(name, ctypes.c_size_t) for name in (
        "arena", "ordblks", "smblks", "hblks", "hblkhd", "usmblks", "fsmblks", "uordblks",
        "fordblks", "keepcost")]


class Library:
    """Calls with a verdict: what the operator was told makes a failure a refusal, a silence or a dead line."""

    def __init__(self, path):
        self.lib = ctypes.CDLL(path)
        self.noted = ""
        self.operator = Operator(ctypes.sizeof(Operator), None, MESSAGE(self.message),
                                 REPORT(self.report), None)
        self.lib.Kestra_DefinirOperador(ctypes.byref(self.operator))

    def message(self, _context, words, _title, style):
        question = style & 15 == 4
        self.noted = "silent" if question else "line"
        return 7 if question else 1  # never once more: that may print a line twice

    def report(self, *_):
        self.noted = self.noted or "refused"
        return 0

    def call(self, name, *arguments):
        self.noted = ""
        result = getattr(self.lib, name)(*arguments)
        return "ok" if result == 0 else self.noted or "refused"


class Till:
    def __init__(self, library, folder, ledger, seed):
        self.library, self.folder, self.ledger = library, folder, ledger
        self.seed = seed
        self.chance = random.Random()
        self.family = None
        self.known = None

    def use(self, family):
        if family == self.family:
            return
        os.chdir(os.path.join(self.folder, family))
        if self.library.lib.EP_Init() != 1:
            self.ledger.write("!", "EP_Init", "failed")
        self.family = family

    # -- Counters --

    def counters(self):
        """Read until two readings agree: the library passes on what a bad line made of an answer."""
        last = None
        for _ in range(PATIENCE):
            buffer = ctypes.create_string_buffer(81)
            verdict = self.library.call("EP_Numeracion", buffer)
            now = buffer.value.decode("ascii", "replace") if verdict == "ok" else None
            if now and len(now) == 79 and now == last:
                self.known = now
                return now
            if now is None:
                self.ledger.write("~", "contadores", verdict)
                time.sleep(PAUSE)
            last = now
        raise SystemExit("the printer does not tell its counters")

    def counter(self, where):
        return int((self.known or self.counters())[where])

    def fresh(self, where):
        return int(self.counters()[where])

    # -- Steps --

    def step(self, document, name, call, *arguments):
        self.ledger.write(">", document.id, name)
        verdict = self.library.call(call, *arguments)
        self.ledger.write("<", document.id, name, verdict)
        return verdict

    def do(self, document, words):
        name, *values = words
        return getattr(self, "do_" + name)(document, *values)

    def do_abrir(self, document):
        if not document.fiscal:
            return self.step(document, "abrir", "EP_AbrirComprobanteNoFiscal")
        kind, letter, *_ = document.series
        customer = [text("Bazar Belgrano S.R.L.", 40), BLANK, text("CUIT", 6), b"30123456789", b"I",
                    text("Belgrano 123", 40)] if letter == "A" else [
                        BLANK, BLANK, b" " * 6, b" " * 11, b"F", BLANK]
        return self.step(document, "abrir", "EP_AbrirComprobanteFiscal", kind.encode(),
                         letter.encode(), *customer, BLANK, BLANK, BLANK, BLANK, 1)

    def line(self, document, name, call, words, quantity, price, rate):
        extra = b" " * 22
        return self.step(document, name, call, text(words, 50), D(quantity), D(price), D(rate),
                         D(0.0), extra, extra, extra)

    def do_item(self, document, *line):
        return self.line(document, "item", "EP_ImprimirItem", *line)

    def do_anular(self, document, *line):
        return self.line(document, "anular", "EP_AnularItem", *line)

    def do_texto(self, document, words):
        return self.step(document, "texto", "EP_ImprimirTextoFiscal", text(words, 26))

    def do_descuento(self, document, words, amount):
        return self.step(document, "descuento", "EP_DescuentoGeneral", text(words, 80), D(amount))

    def do_percepcion(self, document, words, amount):
        return self.step(document, "percepcion", "EP_EspecificarPercepcionGlobal",
                         text(words, 20), D(amount), D(0.0), b"O")

    def do_pago(self, document, words, amount):
        return self.step(document, "pago", "EP_ImprimirPago", text(words, 80), D(amount))

    def do_linea(self, document, words):
        return self.step(document, "linea", "EP_ImprimirTextoNoFiscal", text(words, 120))

    # -- Documents --

    def where(self, document):
        if document.fiscal:
            return document.series[4]
        return plan.CLOSINGS if document.kind == "Z" else plan.NON_FISCAL

    def issue(self, document):
        for _ in range(PATIENCE):
            before = self.counter(self.where(document))
            self.ledger.write("D", document.id, document.kind, before)
            if self.attempt(document, 0, before):
                return
            self.settle(document)
        raise SystemExit(f"document {document.id} cannot be issued")

    def attempt(self, document, first, before):
        for words in document.steps[first:]:
            if words[0] == "cerrar" or words[0] == "informe":
                return self.finish(document, before)
            if self.do(document, words) != "ok":
                return False
        return False

    def finish(self, document, before):
        """The last step. When the host is not told that it worked, the counter says so."""
        if document.kind == "X":
            return self.report_x(document)
        for _ in range(PATIENCE):
            verdict, number = self.last_step(document)
            if verdict == "ok" and number == before + 1:
                return self.ended(document, number, "told")
            now = self.fresh(self.where(document))
            if now == before + 1:
                return self.ended(document, now, "counter")
            if now != before:
                self.ledger.write("!", "document", document.id, "counter", before, "->", now)
            if verdict == "refused":
                return False  # nothing is open: the document was never opened, or is another's
        raise SystemExit(f"document {document.id} cannot be closed")

    def last_step(self, document):
        if document.fiscal:
            return self.close_fiscal(document)
        if document.kind == "Z":
            verdict = self.step(document, "informe", "EP_ReporteZ")
        else:
            verdict = self.step(document, "cerrar", "EP_CerrarComprobanteNoFiscal")
        # Neither gives its number to the host.
        return verdict, self.counter(self.where(document)) + 1

    def close_fiscal(self, document):
        kind, letter, *_ = document.series
        number = ctypes.create_string_buffer(9)
        verdict = self.step(document, "cerrar", "EP_CerrarComprobanteFiscal", kind.encode(),
                            letter.encode(), number)
        told = number.value.decode("cp1252")
        if verdict == "ok" and told != f"{self.counter(self.where(document)) + 1:08}":
            self.ledger.write("<", document.id, "cerrar", "misread")
            return verdict, 0
        return verdict, int(told) if verdict == "ok" else 0

    def report_x(self, document):
        verdict = self.step(document, "informe", "EP_ReporteX")
        if verdict == "ok":
            return self.ended(document, 0, "told")
        if verdict == "refused":
            return False
        self.ledger.write("=", document.id, "doubt", 0, verdict)
        return True

    def ended(self, document, number, how):
        self.ledger.write("=", document.id, "closed" if document.fiscal else "done", number, how)
        if document.kind == "Z" or how == "counter":
            self.known = None
        if self.known and document.kind != "X":
            where = self.where(document)
            width = where.stop - where.start
            self.known = self.known[:where.start] + f"{number:0{width}}" + self.known[where.stop:]
        return True

    def settle(self, document):
        """Leaves nothing open, whatever it is; the counters have to be read again."""
        self.known = None
        for _ in range(PATIENCE):
            verdicts = {self.cancel(document, family) for family in (plan.TICKETS, plan.INVOICES)}
            self.use(document.family)
            verdicts.add(self.step(document, "cerrar_no_fiscal", "EP_CerrarComprobanteNoFiscal"))
            if verdicts == {"refused"}:
                return
            if verdicts & {"silent", "line"}:
                time.sleep(PAUSE)
        raise SystemExit("something stays open")

    def cancel(self, document, family):
        self.use(family)
        return self.step(document, "cancelar", "EP_Cancelar")

    # -- Turns --

    def take_over(self, left):
        """What the last host left under way."""
        document = plan.document(self.seed, left["id"], left["family"])
        self.use(document.family)
        now = self.fresh(self.where(document))
        if now == left["before"] + 1 and left["closing"] and not left["settling"]:
            self.ended(document, now, "counter")
        elif document.kind == "X":
            self.ledger.write("=", document.id, "doubt", 0, "killed")
        elif self.chance.random() < 0.5 and self.go_on(document, left):
            pass
        else:
            self.settle(document)
            self.ledger.write("=", document.id, "given_up", 0, left["pending"] or "between")

    def go_on(self, document, left):
        """Only from a step that is known to be done, or from a close that was not; not once it was to go."""
        if left["settling"]:
            return False
        last = document.steps[left["done"]][0] if left["done"] < len(document.steps) else ""
        if left["pending"] not in ("", "cerrar") or (left["pending"] and left["pending"] != last):
            return False
        return self.attempt(document, left["done"], left["before"])

    def turn(self, order):
        self.chance.seed(f"{self.seed}/{order['first']}")
        self.known = None
        if order["open"]:
            self.take_over(order["open"])
        self.ledger.write("H", os.getpid(), order["family"])
        self.use(order["family"])
        for number in range(order["first"], order["first"] + order["count"]):
            self.issue(plan.document(self.seed, number, order["family"]))

    def heap(self):
        libc = ctypes.CDLL(None)
        libc.mallinfo2.restype = Heap
        now = libc.mallinfo2()
        return now.uordblks + now.hblkhd


def main():
    path, folder, ledger, seed = sys.argv[1:]
    till = Till(Library(path), folder, Ledger(ledger), seed)
    print("ready", flush=True)
    for line in sys.stdin:
        till.turn(json.loads(line))
        print(json.dumps({"heap": till.heap()}), flush=True)
    till.library.lib.EP_Kill()


if __name__ == "__main__":
    main()
