#!/usr/bin/env python3
"""The languages whose shop a build server runs: those whose folder the commits of the last day have changed; all of them
when it was what all stand on; without such a commit one, another one for each commit. Prints their names.
"""
import os
import pathlib
import subprocess

from languages import LANGUAGES

ROOT = pathlib.Path(__file__).resolve().parents[2]
OF_ALL = ("api/", "include/", "tests/hosts/", "scripts/hosts")


def turn(changed, share, languages):
    """Of so many languages, by the paths that have changed; `share` is any number that another commit has otherwise."""
    if any(path.startswith(OF_ALL) for path in changed):
        return list(languages)
    folders = {path.split("/")[1] for path in changed if path.startswith("hosts/")}
    touched = [name for name, row in languages.items() if (row.folder or name) in folders]
    return touched or [list(languages)[share % len(languages)]]


def said(*words):
    return subprocess.run(["git", "-C", str(ROOT), *words], stdout=subprocess.PIPE, text=True, check=True).stdout.split("\n")


if __name__ == "__main__":
    number = os.environ.get("KESTRA_SHARE") or str(int(said("rev-parse", "--short=7", "HEAD")[0], 16))
    print(*turn(said("log", "--since=1.day", "--name-only", "--format="), int(number), LANGUAGES))
