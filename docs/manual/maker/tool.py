"""What the tool for the shop says: run while the manual is made, and the table of all that it may find."""
import re
import signal
import subprocess

from maker import till
from maker.markdown import fence

# What differs from day to day and from machine to machine, as it shows in the pages.
STEADY = (
    (re.compile(r"\d\d/\d\d/\d{4} \d\d:\d\d:\d\d"), "21/11/2026 10:30:00"),
    (re.compile(r"/dev/pts/\d+"), "/dev/pts/4"),
    (re.compile(r"\b0\.\d{3} s\b"), "0.010 s"),
    (re.compile(r"\b5\.\d{3} s\b"), "5.000 s"),
    (re.compile(r"(otros puertos +).*"), r"\1/dev/ttyS0"),
    (re.compile(r"\b\d+ MB\b"), "58304 MB"),
    (re.compile(r"(permiso +).*"), r"\1sí; es de caja, grupo dialout; este usuario es caja"),
    (re.compile(r"(, (?:adelanta|atrasa) \d+ s)\b"), ""),
)
WELL = {"ModeloNombre": "TM-U220AF", "ModoSeguro": "1", "Diario": "diario.txt", "ReconoceRepetidas": "1"}
LEVELS = {"Fault": "falla", "Warning": "aviso", "Note": "nota"}


def transcript(tool, folder, *arguments):
    ended = subprocess.run([tool, *arguments], cwd=folder, capture_output=True, text=True, check=False)
    text = ended.stdout.replace(str(folder), "/srv/ventas")
    for pattern, steady in STEADY:
        text = pattern.sub(steady, text)
    return f"$ kestra {' '.join(arguments)}\n{text.rstrip()}"


def said(tool, folder, *arguments):
    return fence("text", transcript(tool, folder, *arguments))


def transcripts(tools, manual, folder):
    folder.mkdir(parents=True)
    (folder / "Fiscal.ini").write_text(till.settings(manual, WELL), encoding="cp1252")
    command = [tools.printer, "--familia", "TQ", "--enlace", "impresora", "--papel", "papel.txt"]
    with (folder / "impresora.txt").open("w", encoding="utf-8") as output:
        printer = subprocess.Popen(command, cwd=folder, stdout=output, stderr=subprocess.STDOUT)
    try:
        till.wait_for(folder / "impresora")
        made = {"transcripción: bien": said(tools.tool, folder, "diagnostico"),
                "transcripción: ini": said(tools.tool, folder, "ini", "--escribir", "-")}
        printer.send_signal(signal.SIGSTOP)
        made["transcripción: muda"] = said(tools.tool, folder, "diagnostico")
        return made
    finally:
        printer.kill()
        printer.wait()


def rows(root):
    """Each trouble: (code, level, what, what to do), in the order of the source."""
    text = (root / "tools/kestra/troubles.hpp").read_text(encoding="utf-8")
    literal = r'((?:"[^"]*"\s*)+)'
    found = re.findall(rf'TroubleRow\{{\s*Trouble::\w+,\s*"([\w-]+)",\s*Level::k(\w+),\s*Exit::\w+,\s*{literal},\s*{literal}\}}', text)
    return [(code, LEVELS[level], *("".join(re.findall(r'"([^"]*)"', part)) for part in parts)) for code, level, *parts in found]


def table(root):
    lines = ["| Código | | Qué pasa | Qué hacer |", "|---|---|---|---|"]
    return "\n".join(lines + [f"| `{code}` | {level} | {what} | {todo} |" for code, level, what, todo in rows(root)])


def marks(root, work, tools):
    return {**transcripts(tools, root / "docs/manual", work / "herramienta"), "hallazgos": table(root)}
