#!/usr/bin/env python3
"""The bill of materials of a system's programs (CycloneDX), and the notices of what is linked into them.

    bill.py bill SYSTEM VERSION SECONDS PAGE NAME=FILE...
    bill.py notices SYSTEM PAGE NAME...                    behind what the page holds already

SYSTEM is a key of MATERIALS; of its rows those count whose program is among the names. Versions and notices are those
of the packages that the compiler has taken them from. Nothing in either is of the day or of the machine.
"""
import hashlib
import json
import pathlib
import re
import subprocess
import sys
import time
import uuid

# (part, package, what it is, pattern of the programs that hold it)
RUN_TIME_64 = r"x64/.*\.(dll|exe)$"
LIBRARY_64 = r"x64/.*\.dll$"
PROGRAMS_64 = r"x64/.*\.exe$"
RUN_TIME_32 = r"x86/.*\.(dll|exe)$"
PRINTER = r"impresora-virtual(\.exe)?$"
WITH_SQLITE = r"(impresora-virtual|kestra-puerta)\.exe$"
WITH_HTTP = r"(impresora-virtual|kestra-puerta)(\.exe)?$"
WITH_JSON = r"(impresora-virtual|kestra|kestra-puerta)(\.exe)?$"
WITH_CABLES = r"(impresora-virtual(\.exe)?|^kestra|x64/kestra\.exe)$"
PAGES = r"(^|/)index\.html$"
PDF = r"kestra-manual\.pdf$"
HEADERS = (
    ("asio", "libasio-dev", "network and serial lines", WITH_CABLES),
    ("nlohmann-json", "nlohmann-json3-dev", "JSON", WITH_JSON),
    ("boost", "libboost1.74-dev", "HTTP (Beast)", WITH_HTTP),
    ("stb", "libstb-dev", "pictures", PRINTER),
)
# What makes the manual leaves scripts, styles and letters in it.
MANUAL = (
    ("Sphinx", "sphinx-common", "the pages' search and look", PAGES),
    ("Furo", "furo", "the pages' look", PAGES),
    ("sphinx-copybutton", "python3-sphinx-copybutton", "the button that copies an example", PAGES),
    ("sphinx-inline-tabs", "python3-sphinx-inline-tabs", "an example in one language or another", PAGES),
    ("jQuery", "libjs-jquery", "the pages' scripts", PAGES),
    ("Underscore", "libjs-underscore", "the pages' scripts", PAGES),
    ("DejaVu", "fonts-dejavu-core", "letters", PDF),
)
MATERIALS = {
    "windows": (
        ("libstdc++, libgcc", "gcc-mingw-w64-i686-win32-runtime", "the compiler's run time", RUN_TIME_32),
        ("mingw-w64", "mingw-w64-i686-dev", "start-up and mathematics", RUN_TIME_32),
        ("libstdc++, libgcc", "gcc-mingw-w64-x86-64-win32-runtime", "the compiler's run time", LIBRARY_64),
        ("libstdc++, libgcc", "gcc-mingw-w64-x86-64-posix-runtime", "the compiler's run time", PROGRAMS_64),
        ("mingw-w64, winpthreads", "mingw-w64-x86-64-dev", "start-up, mathematics and threads", RUN_TIME_64),
        ("sqlite", "sqlite", "the fiscal memory's file, and the door's", WITH_SQLITE),
        *HEADERS,
        *MANUAL,
    ),
    "linux": (
        ("libstdc++ (headers)", "libstdc++-12-dev", "the compiler's templates", r"^(libkestra|impresora-virtual|kestra$|kestra-puerta$)"),
        *HEADERS,
        *MANUAL,
    ),
}
# What is no package of the machine's: the words that name its version and its notice, in the sources.
IN_THE_SOURCES = {
    "sqlite": ("sqlite3.h", r'#define SQLITE_VERSION\s+"([^"]+)"'),
}


# How the sources take a part: one that they have given up needs no notice.
TAKEN_BY = {"asio": "asio", "nlohmann-json": "nlohmann", "boost": "boost/", "stb": "stb", "sqlite": "sqlite3"}


def used(part):
    if part not in TAKEN_BY:
        return True
    form = re.compile(rf"#include <{TAKEN_BY[part]}")
    return any(form.search(path.read_text(encoding="utf-8")) for folder in ("simulator", "tools", "door")
               for path in (SOURCE / folder).rglob("*.[ch]pp"))


def package_version(package):
    said = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], capture_output=True, text=True, check=False)
    return said.stdout.strip() or None


def source_version(part):
    name, form = IN_THE_SOURCES[part]
    for path in sorted((SOURCE / "build").rglob(name)):
        found = re.search(form, path.read_text(encoding="utf-8", errors="replace"))
        if found:
            return found[1]
    return None


def notice(part, package):
    path = pathlib.Path("/usr/share/doc", package, "copyright")
    if path.is_file():
        return path.read_text(encoding="utf-8", errors="replace")
    return f"{part}: in the public domain, as its sources say.\n" if part == "sqlite" else None


def rows(system, files):
    """(part, package, version, what, programs) of what is inside."""
    for part, package, what, form in MATERIALS[system]:
        programs = [name for name in files if re.search(form, name)]
        if not programs or not used(part):
            continue
        version = source_version(part) if part in IN_THE_SOURCES else package_version(package)
        if version is None:
            raise SystemExit(f"{package} is inside, and nothing here says its version")
        yield part, package, version, what, programs


def kind(name):
    if re.search(r"\.(html|pdf)$", name):
        return "file"
    return "library" if re.search(r"\.(dll|so|a)", name) else "application"


def write_bill(system, version, seconds, target, files):
    moment = time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime(int(seconds)))
    found = list(rows(system, files))
    programs = [{"type": kind(name), "bom-ref": name, "name": name, "version": version,
                 "hashes": [{"alg": "SHA-256", "content": hashlib.sha256(path.read_bytes()).hexdigest()}]}
                for name, path in files.items()]
    parts = [{"type": "library", "bom-ref": package, "name": part, "version": number, "description": what}
             for part, package, number, what, _ in found]
    document = {
        "bomFormat": "CycloneDX", "specVersion": "1.5", "version": 1,
        "metadata": {"timestamp": moment,
                     "component": {"type": "application", "bom-ref": "kestra", "name": "kestra", "version": version}},
        "components": programs + parts,
        "dependencies": [{"ref": name, "dependsOn": [row[1] for row in found if name in row[4]]} for name in files],
    }
    told = json.dumps(document, ensure_ascii=False, sort_keys=True)
    document["serialNumber"] = "urn:uuid:" + str(uuid.uuid5(uuid.NAMESPACE_OID, told))
    target.write_text(json.dumps(document, ensure_ascii=False, indent=1) + "\n", encoding="utf-8")


def write_notices(system, target, names):
    pages = []
    for part, package, number, _, inside in rows(system, names):
        text = notice(part, package)
        if text is None:
            raise SystemExit(f"{package} has no notice here")
        pages.append(f"{'=' * 78}\n{part} {number}\nDentro de: {', '.join(inside)}\n{'=' * 78}\n\n{text}")
    target.parent.mkdir(parents=True, exist_ok=True)
    with open(target, "a", encoding="utf-8", newline="\n") as page:
        page.write("".join("\n" + text for text in pages))


def main():
    if sys.argv[1] == "bill":
        system, version, seconds, target = sys.argv[2:6]
        files = {name: pathlib.Path(path) for name, _, path in (word.partition("=") for word in sys.argv[6:])}
        write_bill(system, version, seconds, pathlib.Path(target), files)
    else:
        write_notices(sys.argv[2], pathlib.Path(sys.argv[3]), sys.argv[4:])


if __name__ == "__main__":
    SOURCE = pathlib.Path(__file__).resolve().parents[1]
    main()
