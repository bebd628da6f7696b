"""Makes the manual: python3 build.py ROOT WORK PRINTER LIBRARY TOOL BROWSER. scripts/manual calls it."""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time
import zipfile

sys.dont_write_bytecode = True
ROOT, WORK = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
sys.path[:0] = [str(ROOT / "api"), str(ROOT / "docs/manual")]

from generator import table as tables  # noqa: E402
from maker import check, pages, sources, till  # noqa: E402

FIXED = (2026, 1, 1, 0, 0, 0)  # the time of every file in the zip: the same manual is the same zip


def sphinx(builder, source, target, exports):
    surroundings = dict(os.environ, KESTRA_VERSION=exports.version, SOURCE_DATE_EPOCH="1767225600", PYTHONDONTWRITEBYTECODE="1")
    subprocess.run([sys.executable, "-m", "sphinx", "-b", builder, "-W", "--keep-going", "-n", "-q", "-d", WORK / "doctrees",
                    source, target], check=True, env=surroundings)


def without_index_page(page):
    """One page alone has none."""
    text = page.read_text(encoding="utf-8")
    page.write_text(text.replace("Índice alfabético <genindex>\n", ""), encoding="utf-8")


def without_links_outside(page):
    """A leaf of paper leads nowhere but to itself: the browser would write where this machine has the other files."""
    text = page.read_text(encoding="utf-8")
    text = re.sub(r'\s*\(<a class="reference download[^>]*>(?:(?!</a>).)*</a>\)', "", text, flags=re.DOTALL)
    text = re.sub(r'<a (?:(?!>)[^"]|"[^"]*")*?href="(?!#|index\.html|https?:)[^"]*"[^>]*>(.*?)</a>', r"\1", text, flags=re.DOTALL)
    page.write_text(text, encoding="utf-8")


def print_to_pdf(browser, page, target):
    subprocess.run([browser, "--headless", "--no-sandbox", "--disable-gpu", "--no-pdf-header-footer", "--generate-pdf-document-outline",
                    f"--user-data-dir={WORK / 'navegador'}", "--virtual-time-budget=20000", f"--print-to-pdf={target}",
                    page.as_uri()], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=1800)
    # The browser writes a place for each word, and when it did so: a third of it says the same.
    raw = target.with_suffix(".entero")
    raw.write_bytes(re.sub(rb"(/(?:Creation|Mod)Date \(D:)\d{14}", rb"\g<1>20260101000000", target.read_bytes()))
    subprocess.run(["qpdf", "--object-streams=generate", "--compress-streams=y", "--recompress-flate", "--deterministic-id",
                    raw, target], check=True)
    raw.unlink()


def put_together(name, version):
    files = sorted(path for path in (WORK / "html").rglob("*") if path.is_file()) + [WORK / name]
    with zipfile.ZipFile(WORK / f"kestra-manual-{version}.zip", "w", zipfile.ZIP_DEFLATED) as together:
        for path in files:
            entry = zipfile.ZipInfo(path.relative_to(WORK).as_posix(), FIXED)
            entry.external_attr = 0o644 << 16
            together.writestr(entry, path.read_bytes(), zipfile.ZIP_DEFLATED)


def main():
    tools = till.Tools(*(pathlib.Path(argument).resolve() for argument in sys.argv[3:6]))
    browser = sys.argv[6]
    exports = tables.read(ROOT)
    WORK.mkdir(parents=True, exist_ok=True)
    for old in WORK.glob("kestra-manual-*"):
        old.unlink()
    took, began = {}, time.monotonic()

    def step(name):
        nonlocal began
        took[name], began = time.monotonic() - began, time.monotonic()

    said = sources.prepare(ROOT, WORK, tools, exports)
    step("caja y fuentes")
    for folder in ("html", "uno"):
        shutil.rmtree(WORK / folder, ignore_errors=True)
    sphinx("html", WORK / "fuente", WORK / "html", exports)
    pages.finish(WORK / "html")
    step("html")
    wrong = check.everything(WORK / "html", exports, said)
    step("comprobar")
    pdf = f"kestra-manual-{exports.version}.pdf"
    if browser:
        without_index_page(WORK / "fuente/index.md")
        sphinx("singlehtml", WORK / "fuente", WORK / "uno", exports)
        pages.finish(WORK / "uno")
        without_links_outside(WORK / "uno/index.html")
        print_to_pdf(browser, WORK / "uno/index.html", WORK / pdf)
        step("pdf")
        put_together(pdf, exports.version)
        step("zip")
    print("Segundos: " + ", ".join(f"{name} {seconds:.1f}" for name, seconds in took.items()))
    print("\n".join(wrong) or f"build/manual/html/index.html: {len(list((WORK / 'html').rglob('*.html')))} páginas, sin reparos")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
