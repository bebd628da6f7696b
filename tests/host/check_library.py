#!/usr/bin/env python3
"""What the built library shows to the world: its symbols and the libraries that it needs.

    check_library.py symbols HEADER LIBRARY     exactly the functions of the header, nothing else
    check_library.py needed LIBRARY             nothing beyond the language's own run time
    check_library.py called HEADER HOST...      the host in C calls every function of the header
"""
import pathlib
import re
import subprocess
import sys

RUN_TIME = ("libstdc++.so.", "libm.so.", "libgcc_s.so.", "libc.so.", "ld-linux")


def declared(header):
    text = pathlib.Path(header).read_text(encoding="utf-8")
    names = re.findall(r"^KESTRA_API\s+\w+\s+KESTRA_CALL\s+(\w+)\(", text, re.MULTILINE)
    if not names:
        sys.exit(f"{header} declares nothing")
    return set(names)


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def differences(wanted, found):
    return [f"missing: {name}" for name in sorted(wanted - found)] + [
        f"not declared: {name}" for name in sorted(found - wanted)]


def symbols(header, library):
    lines = run("nm", "--dynamic", "--defined-only", library).splitlines()
    return differences(declared(header), {line.split()[-1] for line in lines})


def needed(library):
    names = re.findall(r"^\s*NEEDED\s+(\S+)", run("objdump", "-p", library), re.MULTILINE)
    if not names:
        return ["the library needs nothing at all, which cannot be"]
    return [f"needs {name}" for name in names if not name.startswith(RUN_TIME)]


def called(header, *hosts):
    text = "".join(pathlib.Path(host).read_text(encoding="utf-8") for host in hosts)
    return [f"not called: {name}" for name in sorted(declared(header))
            if not re.search(rf"\b{name}\b", text)]


def main():
    checks = {"symbols": symbols, "needed": needed, "called": called}
    complaints = checks[sys.argv[1]](*sys.argv[2:])
    print("\n".join(complaints) or "as it should be")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
