#!/usr/bin/env python3
"""The languages whose shop a build server runs: those whose folder the commits of the last day have changed, of all of
them when it was what all stand on, but no more than it has time for; without such a commit one. Which ones, another
commit has otherwise. Prints their names.
"""
import os
import pathlib
import subprocess

from languages import LANGUAGES

ROOT = pathlib.Path(__file__).resolve().parents[2]
MOST = 3  # a minute each, where their tools have to be installed
MANUAL = "docs/manual/maker/"
OF_ALL = ("api/", "include/", "tests/hosts/", "scripts/hosts",
          *(MANUAL + name for name in ("days.py", "first_ticket.py", "languages.py", "programs.py", "till.py")))


def turn(changed, share, languages):
    """Of so many languages, by the paths that have changed; `share` is any number that another commit has otherwise."""
    folders = {path.split("/")[1] for path in changed if path.startswith("hosts/")}
    of_all = any(path.startswith(OF_ALL) for path in changed)
    touched = [name for name, row in languages.items() if of_all or (row.folder or name) in folders]
    if len(touched) <= MOST:
        return touched or [list(languages)[share % len(languages)]]
    first = share * MOST % len(touched)
    return (touched + touched)[first:first + MOST]


def said(*words):
    return subprocess.run(["git", "-C", str(ROOT), *words], stdout=subprocess.PIPE, text=True, check=True).stdout.split("\n")


if __name__ == "__main__":
    number = os.environ.get("KESTRA_SHARE") or str(int(said("rev-parse", "--short=7", "HEAD")[0], 16))
    print(*turn(said("log", "--since=1.day", "--name-only", "--format="), int(number), LANGUAGES))
