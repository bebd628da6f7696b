#!/usr/bin/env python3
"""Changes src/protocol and src/fields in one place at a time and sees whether the quick tests notice.

    mutate.py [--muestra N] [--semilla N] [--archivo FILE] [--obreros N] [--listar] [--de-nuevo]

Ends with 0 when at least 95 of 100 changes are noticed and survivors.txt explains the others.
"""
import argparse
import fcntl
import pathlib
import queue
import random
import sys
import threading
import time

from mutants import mutants_of
from results import Results, explained_in, judge
from tree import Broken, Tree, codes_in, contents_of

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[2]
FOLDERS = ("src/protocol/", "src/fields/", "src/base/ansi.hpp", "src/base/boolean.hpp", "src/dialogs/conditions.",
           "src/device/queries.")


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("--muestra", type=int, metavar="N", help="only N mutants, drawn at random")
    parser.add_argument("--semilla", type=int, default=1, metavar="N", help="another draw")
    parser.add_argument("--archivo", action="append", metavar="FILE", help="only this file's mutants")
    parser.add_argument("--obreros", type=int, default=2, metavar="N", help="trees at work (2)")
    parser.add_argument("--listar", action="store_true", help="only tell the mutants")
    parser.add_argument("--de-nuevo", action="store_true", help="forget the results of other runs")
    return parser.parse_args()


def all_mutants(codes):
    headers = [code for path, code in sorted(codes.items())
               if path.startswith("src/") and path.endswith(".hpp") and "/platform/windows/" not in path]
    return [mutant for path, code in sorted(codes.items()) if path.startswith(FOLDERS)
            for mutant in mutants_of(path, code, headers)]


def chosen(mutants, options):
    if options.archivo:
        mutants = [mutant for mutant in mutants if mutant.path.endswith(tuple(options.archivo))]
    if options.muestra is not None and options.muestra < len(mutants):
        mutants = random.Random(options.semilla).sample(mutants, options.muestra)
    return mutants


class Run:
    """Several trees, each of them taking the next mutant when it is done with one."""

    def __init__(self, trees, results, mutants):
        self.trees, self.results = trees, results
        self.waiting = queue.SimpleQueue()
        self.open = [mutant for mutant in mutants if results.of(mutant) is None]
        self.open.sort(key=lambda mutant: mutant.path.endswith(".hpp"))  # the slow ones last
        for mutant in self.open:
            self.waiting.put(mutant)
        self.lock, self.done, self.faults = threading.Lock(), 0, []

    def go(self):
        crew = [threading.Thread(target=self.work, args=[tree]) for tree in self.trees]
        for one in crew:
            one.start()
        for one in crew:
            one.join()
        if self.faults:
            raise self.faults[0]

    def work(self, tree):
        try:
            if self.open:
                tree.prepare()
            while not self.faults:
                self.try_out(tree, self.waiting.get_nowait())
        except queue.Empty:
            pass
        except Exception as fault:  # told by the thread that waits
            self.faults.append(fault)

    def try_out(self, tree, mutant):
        began = time.monotonic()
        fate, by = tree.fate(mutant)
        with self.lock:
            self.results.keep(mutant, fate, by, time.monotonic() - began)
            self.done += 1
            if fate == "survived":
                print(f"survived  {told(mutant)}", flush=True)
            if self.done % 50 == 0:
                print(f"{self.done} of {len(self.open)}", flush=True)


def told(mutant):
    return f"{mutant.path}:{mutant.line}: {mutant.source}\n          {mutant.change}"


def table(verdict):
    yield f"{'':34}{'mutants':>8}{'no compile':>12}{'killed':>8}{'survived':>10}{'killed %':>10}"
    for path in [*sorted(verdict.counts), None]:
        killed, survived = verdict.total("killed", path), verdict.total("survived", path)
        broken = verdict.total("does not compile", path)
        yield (f"{path or 'all':34}{killed + survived + broken:>8}{broken:>12}{killed:>8}"
               f"{survived:>10}{verdict.killed_percent(path):>10.1f}")


def report(verdict):
    for mutant in verdict.unexplained:
        print(f"unexplained  {told(mutant)}")
    for row, change in verdict.stale:
        print(f"stale        {row.path}: {row.source}\n          {change}")
    print("\n".join(table(verdict)))
    print("passed" if verdict.passes() else "NOT passed")


def place_of_its_own():
    """Where the trees and the results are. Two runs would spoil each other's."""
    place = ROOT / "build" / "mutation"
    place.mkdir(parents=True, exist_ok=True)
    lock = (place / "lock").open("w", encoding="utf-8")
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        sys.exit("another run is at work in build/mutation")
    return place, lock


def attempt(options):
    place, _lock = place_of_its_own()
    if options.de_nuevo:
        (place / "results.jsonl").unlink(missing_ok=True)
    trees = [Tree(ROOT, place / str(k)) for k in range(1, options.obreros + 1)]
    mutants = chosen(all_mutants(trees[0].codes), options)
    if not mutants:
        sys.exit("no such mutants")
    results = Results(place / "results.jsonl", contents_of(trees[0].copy))
    run = Run(trees, results, mutants)
    print(f"{len(mutants)} mutants, {len(run.open)} of them to be tried", flush=True)
    began = time.monotonic()
    run.go()
    print(f"{(time.monotonic() - began) / 60:.1f} minutes")
    return [(mutant, results.of(mutant)["fate"]) for mutant in mutants]


def main():
    options = arguments()
    if options.listar:
        mutants = chosen(all_mutants(codes_in(ROOT)), options)
        print("\n".join([*map(told, mutants), f"{len(mutants)} mutants"]))
        return 0
    try:
        fates = attempt(options)
    except Broken as fault:
        sys.exit(str(fault))
    rows = explained_in((HERE / "survivors.txt").read_text(encoding="utf-8"))
    verdict = judge(fates, rows, whole=options.muestra is None)
    report(verdict)
    return 0 if verdict.passes() else 1


if __name__ == "__main__":
    sys.exit(main())
