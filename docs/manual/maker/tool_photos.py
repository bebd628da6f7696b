"""The pictures of the tool for the shop that README and the manual show: python3 tool_photos.py ROOT WORK BIN."""
import contextlib
import html
import pathlib
import re
import shutil
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from maker import till, tool  # noqa: E402

# A terminal as people have it: dark, with its command on the first line.
TERMINAL = """<!doctype html><meta charset="utf-8"><style>
body { margin: 0; background: #1b1f27 }
pre { margin: 0; padding: 18px 22px; font: 14px/1.35 'DejaVu Sans Mono', monospace; color: #d6dae3 }
b { color: #7fd1a0; font-weight: normal } i { color: #f2b56b; font-style: normal }
</style><pre>%s</pre>"""


def picture(page, width, height, target):
    subprocess.run(["chromium", "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
                    f"--user-data-dir={page.parent / 'navegador'}", f"--window-size={width},{height}",
                    "--blink-settings=preferredColorScheme=1", f"--screenshot={target}", page.as_uri()],
                   check=True, capture_output=True, timeout=600)


def terminal(text, folder, target):
    lines = html.escape(text, quote=False)
    lines = re.sub(r"(?m)^(\$ .*)$", r"<b>\1</b>", lines)
    lines = re.sub(r"(?ms)^(FALLA .*)$", r"<i>\1</i>", lines)
    page = folder / "terminal.html"
    page.write_text(TERMINAL % lines, encoding="utf-8")
    picture(page, 940, 19 * (text.count("\n") + 1) + 40, target)


@contextlib.contextmanager
def shop(bin_folder, root, folder, *options, **keys):
    """A virtual printer in a folder of its own, with a Fiscal.ini that leads to it."""
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    changes = {"TipoComprobante": "TF", "ImpresoraDispositivo": "impresora", **tool.WELL, **keys}
    (folder / "Fiscal.ini").write_text(till.settings(root / "docs/manual", changes), encoding="cp1252")
    command = [bin_folder / "impresora-virtual", "--familia", "TF", "--enlace", "impresora", "--papel", "papel.txt", *options]
    printer = subprocess.Popen(command, cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        till.wait_for(folder / "impresora")
        yield folder
    finally:
        printer.kill()
        printer.wait()


def diagnosis(bin_folder, root, work, target):
    """Of a till that speaks too fast for its printer."""
    with shop(bin_folder, root, work / "diagnostico", "--estricta", "--baudios", "9600", ImpresoraConfig="19200") as folder:
        text = tool.transcript(bin_folder / "kestra", folder, "diagnostico")
    terminal(text, work, target)


def log(bin_folder, root, work, target):
    """Of a day, as the page that goes to support has it."""
    with shop(bin_folder, root, work / "registro") as folder:
        subprocess.run([bin_folder / "jornada"], cwd=folder, check=True, capture_output=True)
        file = folder / "fiscal.log"
        text = re.sub(r"\d\d/\d\d/\d{4}", "21/11/2026", file.read_text(encoding="cp1252"))
        file.write_text(text, encoding="cp1252")
        subprocess.run([bin_folder / "kestra", "registro", "--html", "registro.html"], cwd=folder, check=True)
        picture(folder / "registro.html", 1240, 900, target)


def main():
    root, work, bin_folder = (pathlib.Path(word).resolve() for word in sys.argv[1:4])
    for name, made in (("diagnostico", diagnosis), ("registro", log)):
        target = root / "docs/manual" / f"{name}.png"
        made(bin_folder, root, work, target)
        print(target)


if __name__ == "__main__":
    main()
