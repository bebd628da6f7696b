#!/usr/bin/env python3
"""Tills in the safe mode with a journal, as processes of their own on a pseudo-terminal, that are killed, and whose
printer is killed, switched off and unplugged. In the end the tills' book and the paper have the same lines.

    safe.py LIBRARY PRINTER SETTINGS FOLDER DOCUMENTS [SEED]
"""
import collections
import ctypes
import glob
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import time

from printer import Printer

KEYS = {"TipoComprobante": "TF", "ImpresoraDispositivo": "impresora", "LogComandos": "0"}
SAFE = "ModoSeguro=1\nDiario=diario.txt\nPacienciaSegura=30\n"
DONE, UNKNOWN, NOT_DONE = 1, 4, 6
OUTCOMES = {"1": DONE, "2": NOT_DONE, "3": NOT_DONE, "6": NOT_DONE}
SHEET = re.compile(r'^ *TIQUE FACTURA "B" *\nP\.V\. Nº \d+ +Nº (\d+)\n(.*?)^TM-U220AF +\d\d:\d\d:\d\d$', re.M | re.S)
STUCK = 100  # seconds


def steps(seed, number):
    """What document `number` is made of: every line has words of its own."""
    chance = random.Random(f"{seed}/{number}")
    items = [(f"Art {number}.{n}", chance.randint(1, 9), chance.randint(100, 4000))
             for n in range(chance.randint(1, 4))]
    return [("abrir",), *[("item", *item) for item in items], ("cerrar",)]


class Till:
    """Sells from where the book ends. Writes what it is about to do, and what it knows to be done."""

    def __init__(self, library, seed, last):
        self.lib, self.seed, self.last = ctypes.CDLL(library), seed, last
        # Nobody is there to say yes.
        self.book = open("libro.txt", "a+", encoding="ascii", buffering=1)

    def run(self):
        if self.lib.EP_Init() != 1:
            raise SystemExit("no start")
        document, step = self.take_over()
        while document <= self.last:
            for at in range(step, len(steps(self.seed, document))):
                self.make(document, at)
            document, step = document + 1, 0
        self.lib.EP_Kill()

    def take_over(self):
        self.book.seek(0)
        lines = self.book.read().splitlines()
        if not lines:
            return 1, 0
        mark, document, at, *rest = lines[-1].split(" ")
        document, at = int(document), int(at)
        if mark == ">":
            outcome, number = self.settled(int(rest[0]))
            if outcome == DONE:
                self.note("<", document, at, number or "-", "learnt")
            elif outcome == NOT_DONE:
                return document, at
            else:
                self.note("!", document, at, "unknown")
        return (document, at + 1) if at + 1 < len(steps(self.seed, document)) else (document + 1, 0)

    def settled(self, before):
        """What the guide says: three lines. Where nothing is pending the journal's last result tells."""
        buffer = ctypes.create_string_buffer(200)
        for _ in range(5):
            if self.lib.Kestra_Pendiente(buffer, 200) != 1:
                break
            outcome = self.lib.Kestra_Resolver()
            self.lib.Kestra_ResolverNumero(buffer, 200)
            if outcome != UNKNOWN:
                return outcome, buffer.raw[:8].decode("ascii").strip(" \0")
        number, record = self.journal()
        if number <= before:
            return NOT_DONE, ""
        answer = re.findall(r"\trespuesta=(\w+)", record)
        outcome = re.search(r"\tdesenlace=(\d)\t", record)
        return OUTCOMES.get(outcome[1] if outcome else "", UNKNOWN), answer[2] if len(answer) > 2 else ""

    def journal(self):
        with open("diario.txt", "rb") as file:
            lines = file.read().decode("cp1252").split("\n")[:-1]
        return int(lines[-1].split("\t")[1]), lines[-1]

    def note(self, *words):
        self.book.write(" ".join(str(word) for word in words) + "\n")

    def make(self, document, at):
        number = ctypes.create_string_buffer(9)
        self.note(">", document, at, self.journal()[0])
        for _ in range(5):
            if self.call(steps(self.seed, document)[at], number) == 0:
                return self.note("<", document, at, number.value.decode("ascii") or "-", "told")
        raise SystemExit(f"document {document}, step {at}: outcome {self.lib.Kestra_Desenlace()}, "
                         f"cause {self.lib.Kestra_Causa()}")

    def call(self, step, number):
        name, *values = step
        blank = b" " * 40
        if name == "abrir":
            return self.lib.EP_AbrirComprobanteFiscal(b"FC", b"B", blank, blank, b" " * 6, b" " * 11, b"F", blank,
                                                      blank, blank, blank, blank, 1)
        if name == "item":
            words, quantity, price = values
            real = ctypes.c_double
            return self.lib.EP_ImprimirItem(words.encode().ljust(50), real(quantity), real(price), real(21), real(0),
                                            blank, blank, blank)
        return self.lib.EP_CerrarComprobanteFiscal(b"FC", b"B", number)


class Soak:
    def __init__(self, library, program, settings, folder, documents, seed):
        self.library, self.folder = os.path.abspath(library), os.path.abspath(folder)
        self.documents, self.seed, self.chance = documents, seed, random.Random(seed)
        self.met = collections.Counter()
        shutil.rmtree(self.folder, ignore_errors=True)
        os.makedirs(self.folder)
        with open(settings, encoding="cp1252") as file:
            text = file.read()
        for key, value in KEYS.items():
            text = re.sub(rf"(?m)^;?{key}=.*$", f"{key}={value}", text)
        with open(os.path.join(self.folder, "Fiscal.ini"), "w", encoding="cp1252") as file:
            file.write(text.rstrip("\n") + "\n" + SAFE)
        self.printer = Printer(os.path.abspath(program), self.folder, True)

    def host(self):
        said = open(os.path.join(self.folder, "till.log"), "ab")
        with said:
            return subprocess.Popen([sys.executable, __file__, "--till", self.library, str(self.seed),
                                     str(self.documents)], cwd=self.folder, stdin=subprocess.DEVNULL,
                                    stdout=said, stderr=said)

    def trouble(self):
        kind = self.chance.choice(("host killed",) * 6 + ("unplugged",) * 4 + ("printer killed", "switched off"))
        self.met[kind] += 1
        if kind == "unplugged":
            self.printer.unplugged(self.chance)
        elif kind == "printer killed":
            self.printer.killed()
        elif kind == "switched off":
            self.printer.switched_off(self.chance)
        return kind == "host killed"

    def run(self):
        self.printer.start()
        host, moved, size = self.host(), time.monotonic(), -1
        try:
            while host.poll() is None:
                time.sleep(self.chance.uniform(0.02, 0.5))
                if host.poll() is None and self.trouble():
                    host.send_signal(signal.SIGKILL)
                    host.wait()
                    host = self.host()
                book = os.path.join(self.folder, "libro.txt")
                now = os.path.getsize(book) if os.path.exists(book) else 0
                if now != size:
                    size, moved = now, time.monotonic()
                if time.monotonic() - moved > STUCK:
                    raise SystemExit("nothing goes on: see till.log")
        finally:
            host.kill()
            host.wait()
            self.printer.end(signal.SIGTERM)
        return [] if host.returncode == 0 else [f"a till ended with {host.returncode}: see till.log"]

    def judge(self):
        """Paper and book, line by line. A killed printer may lose its last sheet of paper."""
        with open(os.path.join(self.folder, "libro.txt"), encoding="ascii") as file:
            lines = [line.split() for line in file.read().splitlines()]
        wrong = [" ".join(line) for line in lines if line[0] == "!"]
        booked, self.learnt = {}, sum(line[-1] == "learnt" for line in lines)
        for line in lines:
            made = steps(self.seed, int(line[1]))
            if line[0] == "<" and int(line[2]) == len(made) - 1:
                booked[int(line[3])] = [words for name, *words in made if name == "item"]
        printed = collections.defaultdict(list)
        for path in sorted(glob.glob(os.path.join(self.folder, "papel-*.txt"))):
            with open(path, encoding="utf-8", errors="replace") as file:
                for number, body in SHEET.findall(file.read()):
                    printed[int(number)].append(re.findall(r"^(\d+) x ([\d.]+),00 \(21,00\)\n(Art \S+)", body, re.M))
        for number, items in booked.items():
            asked = [(str(quantity), f"{price:,}".replace(",", "."), words) for words, quantity, price in items]
            if number in printed and printed[number] != [asked]:
                wrong.append(f"{number}: booked {asked}, printed {printed[number]}")
        missing = set(booked) - set(printed)
        if len(missing) > self.printer.kills:
            wrong.append(f"sheets missing: {sorted(missing)}")
        if set(printed) - set(booked) or sorted(booked) != list(range(1, self.documents + 1)):
            wrong.append(f"printed and not booked: {sorted(set(printed) - set(booked))}; booked {len(booked)}")
        return wrong


def main():
    if sys.argv[1] == "--till":
        Till(sys.argv[2], sys.argv[3], int(sys.argv[4])).run()
        return 0
    library, program, settings, folder, documents, *seed = sys.argv[1:]
    soak = Soak(library, program, settings, folder, int(documents), seed[0] if seed else "1")
    began = time.monotonic()
    wrong = soak.run() + soak.judge()
    print(f"{documents} documents in {time.monotonic() - began:.0f} s: {dict(soak.met)}, calls learnt of by the next "
          f"till: {soak.learnt}")
    print("\n".join(["WRONG: " + what for what in wrong[:20]] or ["Everything is in order."]))
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
