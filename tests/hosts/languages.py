#!/usr/bin/env python3
"""The languages whose shop is tested, a row each.

    languages.py            name and packages of each, on a line
    languages.py NAME...    of these alone; ends with 1 when there is no such row
"""
import dataclasses
import sys


@dataclasses.dataclass(frozen=True)
class Language:
    """How a language's shop is made and run. {host} is a copy of its folder, with the other folders of hosts/ beside it."""
    name: str
    run: tuple  # the shop's command; --impresora-real goes behind it
    packages: tuple = ()  # Debian's; "program:package" where the program may also come from elsewhere
    build: tuple = ()  # commands, one after the other, in {host}
    environment: dict = dataclasses.field(default_factory=dict)  # beside what finds the library and its header
    folder: str = ""  # in hosts/, where it is not the name
    network: bool = False  # the printer is at a tcp: address, for those that know no pseudo-terminal


LANGUAGES = {row.name: row for row in [
    Language("python", run=("python3", "-B", "{host}/tienda.py"), packages=("python3",)),
]}


def main(names):
    unknown = [name for name in names if name not in LANGUAGES]
    for name in unknown:
        print(f"No test of hosts/{name}. There are: {' '.join(LANGUAGES)}", file=sys.stderr)
    for name in [] if unknown else names or LANGUAGES:
        print(name, *LANGUAGES[name].packages)
    return bool(unknown)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
