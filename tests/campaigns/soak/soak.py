#!/usr/bin/env python3
"""Many documents through the built library, with killed hosts, pulled cables and a bad line in between.

    soak.py LIBRARY PRINTER SETTINGS FOLDER DOCUMENTS [SEED]

Ends with 1 when the books, the memory or what is left over are not as they have to be.
"""
import json
import os
import random
import re
import select
import shutil
import signal
import subprocess
import sys
import time

import plan
from judge import Judge
from ledger import Reader
from printer import Printer

HERE = os.path.dirname(os.path.abspath(__file__))
SHORT = 5000      # documents; a run of fewer is one of seconds
STUCK = 90.0      # seconds without a line in the ledger
ALLOWED = re.compile(r"(TQ|TF|fallas\.txt|impresora\.log|ledger\.txt|memoria\.db|papel-\d+\.txt)$")
MEMORY_ROOM = 512  # kB that a process may differ at the end from what it had after a tenth


class Host:
    """A till in a process of its own."""

    def __init__(self, soak):
        command = [sys.executable, os.path.join(HERE, "till.py"), soak.library, soak.folder,
                   soak.ledger_path, str(soak.seed)]
        with open(os.path.join(soak.folder, "impresora.log"), "ab") as said:
            self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                            stderr=said, start_new_session=True)
        self.answer()

    def order(self, **what):
        self.process.stdin.write(json.dumps(what).encode() + b"\n")
        self.process.stdin.flush()

    def answered(self, seconds):
        return bool(select.select([self.process.stdout], [], [], max(seconds, 0))[0])

    def answer(self):
        line = self.process.stdout.readline()
        if not line:
            raise SystemExit(f"a host ended with {self.process.wait()}: see impresora.log")
        return line

    def close(self, how=None):
        if how:
            self.process.send_signal(how)
        self.process.stdin.close()
        code = self.process.wait(30)
        self.process.stdout.close()
        return code


def resident(pid):
    with open(f"/proc/{pid}/status", encoding="ascii") as status:
        return int(re.search(r"VmRSS:\s+(\d+)", status.read())[1])


def descriptors(pid):
    return len(os.listdir(f"/proc/{pid}/fd"))


class Soak:
    def __init__(self, library, program, settings, folder, documents, seed):
        self.library, self.folder = os.path.abspath(library), os.path.abspath(folder)
        self.documents, self.seed = documents, seed
        self.short = documents < SHORT
        self.chance = random.Random(seed)
        shutil.rmtree(self.folder, ignore_errors=True)
        for family in (plan.TICKETS, plan.INVOICES):
            self.make_till(settings, family)
        self.ledger_path = os.path.join(self.folder, "ledger.txt")
        open(self.ledger_path, "w", encoding="ascii").close()
        self.ledger = Reader(self.ledger_path)
        self.printer = Printer(os.path.abspath(program), self.folder, self.short)
        self.happened = {"hosts killed": 0, "printer killed": 0, "printer switched off": 0,
                         "device gone for a moment": 0}
        self.hosts, self.samples = [], []
        self.heap = 0
        self.began = time.monotonic()
        self.trouble_at = self.soon()

    def make_till(self, settings, family):
        here = os.path.join(self.folder, family)
        os.makedirs(here)
        with open(settings, encoding="cp1252") as file:
            text = file.read()
        for key, value in (("TipoComprobante", family), ("ImpresoraDispositivo", "../impresora")):
            text = re.sub(rf"(?m)^;?{key}=.*$", f"{key}={value}", text)
        with open(os.path.join(here, "Fiscal.ini"), "w", encoding="cp1252") as file:
            file.write(text)

    # -- Trouble --

    def soon(self):
        return time.monotonic() + self.chance.expovariate(1 / (0.7 if self.short else 1.2))

    def trouble(self):
        """The last part leaves the printer's program alone, so that its memory can be watched."""
        steady = self.ledger.total > 0.6 * self.documents
        kind = "link" if steady else self.chance.choice(("link", "link", "kill", "off"))
        if kind == "kill":
            self.printer.killed()
            self.happened["printer killed"] += 1
        elif kind == "off":
            self.printer.switched_off(self.chance)
            self.happened["printer switched off"] += 1
        else:
            self.printer.unplugged(self.chance)
            self.happened["device gone for a moment"] += 1
        self.trouble_at = self.soon()

    # -- Turns --

    def host(self):
        self.hosts = [host for host in self.hosts if host.process.poll() is None] + [Host(self)]
        return self.hosts[-1]

    def stop(self):
        """Nobody is left behind when the run ends before its time."""
        for process in [host.process for host in self.hosts] + [self.printer.process]:
            if process and process.poll() is None:
                process.kill()
                process.wait()

    def begin(self, host, count):
        family = self.chance.choice((plan.TICKETS, plan.INVOICES))
        self.ledger.read()
        host.order(first=self.ledger.last_id + 1, count=count, family=family,
                   open=self.ledger.open_record())

    def watch(self, host, until=float("inf")):
        """Until the host is done (True) or its time is up (False)."""
        seen, moved = self.ledger.read().total, time.monotonic()
        while True:
            now = time.monotonic()
            if now >= until:
                return False
            if host.answered(min(self.trouble_at, until, now + 1.0) - now):
                self.heap = json.loads(host.answer())["heap"]
                return True
            if time.monotonic() >= self.trouble_at:
                self.trouble()
            if self.ledger.read().total != seen:
                seen, moved = self.ledger.total, time.monotonic()
            if time.monotonic() - moved > STUCK:
                raise SystemExit("nothing has gone on for a while: see " + self.ledger_path)

    def long_turn(self, host):
        self.begin(host, self.chance.randint(10, 40 if self.short else 150))
        self.watch(host)

    def short_turn(self):
        host = self.host()
        self.begin(host, 1_000_000)  # until it is killed
        self.watch(host, time.monotonic() + self.chance.expovariate(1 / (0.15 if self.short else 0.4)))
        host.close(signal.SIGKILL)
        self.happened["hosts killed"] += 1
        self.ledger.read().killed()

    def sample(self, host):
        self.samples.append((self.ledger.total, resident(host.process.pid), self.heap // 1024,
                             descriptors(host.process.pid), resident(self.printer.process.pid),
                             descriptors(self.printer.process.pid), self.printer.starts))

    def run(self):
        self.printer.start()
        keeper = self.host()
        while self.ledger.read().total < self.documents:
            self.long_turn(keeper)
            self.sample(keeper)
            self.short_turn()
            self.progress()
        self.long_turn(keeper)  # what the last one left, and a little more
        self.sample(keeper)
        code = keeper.close()
        left = self.printer.end(signal.SIGTERM)
        self.ledger.read()
        return [f"the lasting host ended with {code}"] * (code != 0) + [
            f"the printer ended with {left}"] * (left != 0)

    def progress(self):
        if sys.stderr.isatty():
            print(f"\r{self.ledger.total} documents", end="", file=sys.stderr)

    # -- The end --

    def leftovers(self):
        strange = [name for name in os.listdir(self.folder) if not ALLOWED.match(name)]
        strange += [name for family in (plan.TICKETS, plan.INVOICES)
                    for name in os.listdir(os.path.join(self.folder, family))
                    if name not in ("Fiscal.ini", "fiscal.log")]
        problems = [f"left over: {name}" for name in strange]
        try:
            os.waitpid(-1, os.WNOHANG)
            problems.append("a process is left over")
        except ChildProcessError:
            pass
        return problems

    def growth(self):
        """Memory and descriptors after a tenth of the run and at its end; of the printer's last life."""
        host = [s for s in self.samples if s[0] >= self.documents / 10]
        life = [s for s in host if s[6] == self.printer.starts]
        life = [s for s in life if s[0] >= life[0][0] + self.documents / 50] or life
        pairs = (("the host's memory, kB", host, 1, MEMORY_ROOM), ("its heap, kB", host, 2, 64),
                 ("its descriptors", host, 3, 0), ("the printer's memory, kB", life, 4, 2048),
                 ("its descriptors (printer)", life, 5, 2))
        rows, problems = [], []
        for words, samples, column, room in pairs:
            first, last = samples[0][column], samples[-1][column]
            rows.append((words, first, last, max(s[column] for s in samples)))
            if last > first + room:
                problems.append(f"{words}: {first} has become {last}")
        return rows, problems


def table(rows):
    for words, *figures in rows:
        print(f"  {words:<50}" + "".join(f"{figure:>12}" for figure in figures))


def report(soak, judge, memory):
    minutes = (time.monotonic() - soak.began) / 60
    print(f"{soak.ledger.total} documents in {minutes:.1f} minutes, seed {soak.seed}")
    table(sorted(soak.ledger.finished.items()))
    print("What befell them")
    table(soak.happened.items())
    cut = sum(n for (_, verdict), n in soak.ledger.verdicts.items() if verdict in ("silent", "line", "misread"))
    table([("calls", sum(soak.ledger.verdicts.values())), ("calls that the line cut or spoilt", cut)])
    for verdict in ("silent", "line", "misread", "refused"):
        table([("    " + verdict, sum(n for (_, v), n in soak.ledger.verdicts.items() if v == verdict))])
    print("The books")
    table(judge.figures.items())
    print("Memory and descriptors: after a tenth (the printer: of its last life), at the end, at most")
    table(memory)


def main():
    library, program, settings, folder, documents, *seed = sys.argv[1:]
    soak = Soak(library, program, settings, folder, int(documents), int(seed[0]) if seed else 1)
    try:
        problems = soak.run()
    finally:
        soak.stop()
    memory, grown = soak.growth()
    problems += grown + soak.leftovers()
    judge = Judge(soak.folder, soak.ledger, soak.printer.kills)
    judge.judge(str(soak.seed))
    problems += judge.breaches
    report(soak, judge, memory)
    for problem in problems[:50]:
        print("WRONG:", problem)
    print("Everything is in order." if not problems else f"{len(problems)} things are wrong.")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
