#!/usr/bin/env python3
"""Lays out the folder that the zip and the installer hold.

    windows_tree.py SOURCE VERSION FOLDER [MANUAL]

The programs are those of SOURCE/build, as `make` has built them; MANUAL is the folder in which the manual was made.
"""
import pathlib
import re
import shutil
import sys

SOURCE, VERSION, FOLDER = pathlib.Path(sys.argv[1]), sys.argv[2], pathlib.Path(sys.argv[3])
MANUAL = [pathlib.Path(word) for word in sys.argv[4:]]
FAMILIES = ("TQ", "TF", "FC")
# What becomes of which folder's programs. The tool is whole where the printer is built too, in 64 bits.
BUILT = {
    "x86": ("windows-x86/bin/Kestra.dll", "windows-x86/src/Kestra.lib", "windows-x86/bin/kestra.exe"),
    "x64": ("windows-x64/bin/Kestra.dll", "windows-x64/src/Kestra.lib", "windows-x64-impresora/bin/kestra.exe",
            "windows-x64-impresora/bin/impresora-virtual.exe", "windows-x64-impresora/bin/kestra-puerta.exe"),
}
# Not for users: what the tools of the languages leave, and how we write.
LEFT_OUT = shutil.ignore_patterns(".clang-format", "__pycache__", "node_modules", "build", "dist", "*.egg-info")


def copy(source, target):
    target = FOLDER / target
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(source, target)


def write(target, text, encoding):
    target = FOLDER / target
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(text.replace("\n", "\r\n").encode(encoding))


def programs():
    for width, files in BUILT.items():
        for name in files:
            path = SOURCE / "build" / name
            copy(path, f"{width}/{path.name}")


def texts():
    page = (SOURCE / "packages/windows/LEAME.txt").read_text(encoding="utf-8")
    write("LEAME.txt", page.replace("@VERSION@", VERSION), "utf-8-sig")
    settings = (SOURCE / "packages/Fiscal.ini").read_text(encoding="utf-8")
    for family in FAMILIES:
        write(f"Fiscal/{family}/Fiscal.ini", settings.replace("@FAMILIA@", family), "cp1252")
    # The door wants certainty and a journal of each printer.
    safe = re.sub(r"(?m)^;(ModoSeguro|Diario)=", r"\1=", settings.replace("@FAMILIA@", "TQ"))
    write("puerta/caja1/Fiscal.ini", safe, "cp1252")
    write("puerta/puerta.json", (SOURCE / "packages/windows/puerta.json").read_text(encoding="utf-8"), "utf-8")
    for name in ("CHANGELOG.md", "docs/compatibilidad.md"):
        write(f"documentos/{pathlib.Path(name).name}", (SOURCE / name).read_text(encoding="utf-8"), "utf-8")
    # The guide's till for languages of objects, as it stands there.
    guide = (SOURCE / "docs/manual/guia.md").read_text(encoding="utf-8")
    for text, name in re.findall(r"```vbscript\n(' (\w+\.vbs)\n.*?)```", guide, re.DOTALL):
        write(f"ejemplos/{name}", text, "cp1252")


def main():
    if FOLDER.exists():
        shutil.rmtree(FOLDER)
    programs()
    texts()
    for header in ("kestra.h", "causas.h"):
        copy(SOURCE / "include/kestra" / header, f"include/kestra/{header}")
    for example in ("ticket.c", "jornada.c", "caja.c"):
        copy(SOURCE / "tools" / example, f"ejemplos/{example}")
    copy(SOURCE / "api/kestra.json", "ejemplos/kestra.json")
    shutil.copytree(SOURCE / "hosts", FOLDER / "declaraciones", ignore=LEFT_OUT)
    for made in MANUAL:
        shutil.copytree(made / "html", FOLDER / "manual")
        copy(made / f"kestra-manual-{VERSION}.pdf", "manual/kestra-manual.pdf")


if __name__ == "__main__":
    main()
