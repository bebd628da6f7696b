#!/usr/bin/env python3
"""Says which lines and branches of the driver the tests reach, and whether that is all of them.

    judge.py [--mcdc] ROOT EXPORT FOLDER...

EXPORT is what `llvm-cov export` wrote about the sources under ROOT. With --mcdc the conditions of decisions are
judged instead of lines and branches. Ends with 1 when something is not reached, and when EXPORT lacks a source of
a FOLDER or has no counters.
"""
import json
import pathlib
import sys

import measure

NAMES = {"line": "lines", "branch": "branches", "condition": "conditions"}


class Verdict:
    """What was found about one folder or about all of them."""

    def __init__(self):
        self.reached = {}
        self.counted = {}

    def count(self, kind, reached):
        self.counted[kind] = self.counted.get(kind, 0) + 1
        self.reached[kind] = self.reached.get(kind, 0) + reached

    def figure(self, kind):
        reached, counted = self.reached.get(kind, 0), self.counted.get(kind, 0)
        # Cut, not rounded: 100 means all of them.
        percent = 100.0 if reached == counted else int(1000 * reached / counted) / 10
        return f"{reached:5} / {counted:5} {percent:6.1f} %"


def folder_of(path, folders):
    return next((folder for folder in folders if path.startswith(folder + "/")), None)


def judge(points, folders):
    """One Verdict per folder, and what is wrong, as texts."""
    verdicts = {folder: Verdict() for folder in folders}
    for point in points:
        verdicts[folder_of(point.path, folders)].count(point.kind, point.reached)
    return verdicts, [f"{point.place()}: {point.complaint()}" for point in points if not point.reached]


def unmeasured(root, folders, measured):
    """A source that is not in the export was not looked at: that is not the same as being reached."""
    there = [path.relative_to(root).as_posix()
             for folder in folders for path in sorted((root / folder).rglob("*.cpp"))]
    if not there:
        return [f"no source in {', '.join(folders)}"]
    return [f"{path}: no test program has it" for path in there if path not in measured]


def uncounted(everything, kinds):
    """An export without counters of a kind (another compiler's, another flag's) is no success."""
    return [f"no {NAMES[kind]} were counted" for kind in kinds if not everything.counted.get(kind)]


def print_table(verdicts, kinds):
    print(f"{'folder':16}" + "".join(f"{NAMES[kind]:>24}" for kind in kinds))
    for folder, verdict in verdicts.items():
        print(f"{folder:16}" + "".join(f"{verdict.figure(kind):>24}" for kind in kinds))


def total(verdicts):
    everything = Verdict()
    for verdict in verdicts.values():
        for mine, its in ((everything.reached, verdict.reached), (everything.counted, verdict.counted)):
            for kind, number in its.items():
                mine[kind] = mine.get(kind, 0) + number
    return everything


def main():
    arguments = [argument for argument in sys.argv[1:] if argument != "--mcdc"]
    kinds = ["condition"] if "--mcdc" in sys.argv else ["line", "branch"]
    root, export, *folders = arguments
    root = pathlib.Path(root).resolve()
    report = json.loads(pathlib.Path(export).read_text(encoding="utf-8"))
    points = [point for point in measure.points(report, root, kinds)
              if folder_of(point.path, folders)]
    verdicts, wrong = judge(points, folders)
    wrong += unmeasured(root, folders, measure.files(report, root)) + uncounted(total(verdicts), kinds)
    print_table({**verdicts, "all": total(verdicts)}, kinds)
    for text in wrong:
        print(f"\n{text}", end="")
    print(f"\n{len(wrong)} to mend" if wrong else "\nAll of it is reached.")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
