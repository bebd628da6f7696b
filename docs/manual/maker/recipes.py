"""The recipes' programs, run against the virtual printer; their code, words and paper go into the pages.

The first lines of a program say what it is run with:
    # impresora-virtual --familia TF
    # Fiscal.ini: TipoComprobante=TF AjusteRedondeo=1
    # fallas.txt: a rule of faults, where --fallas fallas.txt asks for it
PUERTO is a port that is free.
"""
import os
import re
import shutil
import socket
import subprocess
import sys

from maker import steady, till
from maker.markdown import fence

MARK = re.compile(r"<!-- receta (\w+) -->")


def settings_of(code):
    options = re.search(r"(?m)^# impresora-virtual ?(.*)$", code)[1].split()
    changes = dict(pair.split("=", 1) for pair in re.search(r"(?m)^# Fiscal\.ini: (.*)$", code)[1].split())
    return options, changes


def free_port():
    with socket.create_server(("127.0.0.1", 0)) as listening:
        return str(listening.getsockname()[1])


def run(root, program, folder, tools):
    code = program.read_text(encoding="utf-8")
    options, changes = settings_of(code.replace("PUERTO", free_port()))
    folder.mkdir(parents=True)
    if rule := re.search(r"(?m)^# fallas\.txt: (.*)$", code):
        (folder / "fallas.txt").write_text(rule[1] + "\n", encoding="utf-8")
    (folder / "Fiscal.ini").write_text(till.settings(root / "docs/manual", changes), encoding="cp1252")
    shutil.copy(program, folder)
    surroundings = dict(os.environ, PYTHONPATH=str(root / "hosts/python"), PYTHONDONTWRITEBYTECODE="1",
                        LD_LIBRARY_PATH=str(tools.library.parent))
    with till.printer(tools, folder, *options):
        ended = subprocess.run([sys.executable, program.name], cwd=folder, env=surroundings, capture_output=True, text=True,
                               timeout=600, check=False, start_new_session=True)
    if ended.returncode != 0:
        raise RuntimeError(f"recetas/{program.name}: {ended.stderr}{ended.stdout}")
    return code.replace("PUERTO", "4001"), steady.moments(ended.stdout)


def make(root, work, source, tools):
    programs = root / "docs/manual/recetas"
    shutil.rmtree(work / "recetas", ignore_errors=True)
    done = set()

    def piece(found, page):
        name = found[1]
        done.add(name)
        folder = work / "recetas" / name
        code, said = run(root, programs / f"{name}.py", folder, tools)
        text = fence("python", code.rstrip()) + "\nDice:\n\n" + fence("text", said.rstrip())
        drawn = sorted((folder / "papel").glob("*.svg"))
        if drawn:
            text += "\nY el papel:\n\n"
        for path in drawn:
            target = page.parent / "papel" / f"{name}-{path.name}"
            target.parent.mkdir(exist_ok=True)
            target.write_text(steady.moments(path.read_text(encoding="utf-8")), encoding="utf-8")
            title = re.sub(r"^\d+-|-\d+(?=\.)|\.svg$", "", path.name).replace("-", " ")
            text += f"```{{image}} papel/{target.name}\n:alt: {title}\n:class: papel\n```\n"
        return text

    for page in sorted((source / "recetas").glob("*.md")):
        text = page.read_text(encoding="utf-8")
        page.write_text(MARK.sub(lambda found, page=page: piece(found, page), text), encoding="utf-8")
    if unused := {path.stem for path in programs.glob("*.py")} - done:
        raise RuntimeError(f"no page shows these recipes: {', '.join(sorted(unused))}")
