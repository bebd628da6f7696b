#!/usr/bin/env python3
"""Plays the golden sessions against the built library.

    live_test.py [--lentos] [CASE...]

With --lentos also those that take their time; with names of cases (exchange/cut_paper) only those. The
environment tells where things are: KESTRA_LIVE_HOST, KESTRA_GOLDEN_CASES, and KESTRA_WINE for a host that
runs under Wine.
"""
import collections
import concurrent.futures
import os
import pathlib
import sys
import time

from case import Case
from player import World, play

LONGEST = 2.5  # seconds that a case may take by itself
FEWEST = 350  # cases that are to be played: more than that are left out by a mistake
AT_ONCE = 3  # a little more than processors, as most of them wait

# Why a case is not played here, and how it is known. Each is played with the fakes all the same.
LEFT_OUT = [
    ("sets the clock or shows what comes of it",
     lambda case: case.has("clock", "date", "showseq", "showdate")),
    ("makes a call to the system fail", lambda case: case.has("fail")),
    ("opens a port that it names itself",
     lambda case: case.needs_line and case.settings("impresorapuerto", "impresoradispositivo")),
    ("keeps a journal, which names its port", lambda case: case.settings("diario")),
    ("looks at nothing but the state record", lambda case: case.state_alone),
]
SLOW = (f"takes more than {LONGEST} s (played with --lentos)", lambda case: case.seconds > LONGEST)


def sort_out(cases, slow_too):
    """(cases to play, {reason: cases})"""
    rules = LEFT_OUT + ([] if slow_too else [SLOW])
    to_play, left_out = [], collections.defaultdict(list)
    for case in cases:
        reason = next((reason for reason, applies in rules if applies(case)), None)
        (to_play if reason is None else left_out[reason]).append(case)
    return to_play, left_out


def play_all(cases, world):
    """{case name: faults} of those that went wrong."""
    with concurrent.futures.ThreadPoolExecutor(AT_ONCE) as pool:
        # The long ones first, so that none is waited for alone at the end.
        cases = sorted(cases, key=lambda case: -case.seconds)
        found = pool.map(lambda case: (case.name, play(case, world)), cases)
        return {name: faults for name, faults in found if faults}


def read_cases(folder):
    return [Case(path) for path in sorted(pathlib.Path(folder).rglob("*.golden"))]


def report(cases, to_play, left_out, faults, seconds):
    for name, texts in sorted(faults.items()):
        print(f"{name}:")
        for text in texts:
            print(f"  {text}")
    print(f"{len(cases)} cases; {len(to_play)} played in {seconds:.1f} s, {len(faults)} went wrong")
    for reason, some in left_out.items():
        print(f"{len(some):4} left out: {reason}")


def main(arguments):
    world = World(os.environ["KESTRA_LIVE_HOST"], os.environ.get("KESTRA_WINE", ""))
    slow_too = "--lentos" in arguments
    names = [name for name in arguments if name != "--lentos"]
    cases = read_cases(os.environ["KESTRA_GOLDEN_CASES"])
    to_play, left_out = sort_out(cases, slow_too)
    if names:
        to_play = [case for case in to_play if case.name in names]
    start = time.monotonic()
    faults = play_all(to_play, world)
    if (ends := world.close()):
        faults["at the end"] = ends
    report(cases, to_play, left_out, faults, time.monotonic() - start)
    enough = len(to_play) == len(names) if names else len(to_play) >= FEWEST
    if not enough:
        print("fewer cases than there should be were played")
    return 0 if enough and not faults else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
