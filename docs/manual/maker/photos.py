"""Pictures of pages as a telephone and a desk show them, light and dark, and of the PDF: python3 photos.py WORK."""
import pathlib
import re
import subprocess
import sys

WORK = pathlib.Path(sys.argv[1]).resolve()
PAGES = ("index", "empezar", "operaciones/EP_ImprimirItem", "recetas/factura_a", "mensajes", "configuracion")
WIDTHS = {360: 1400, 1280: 1400}
SCHEMES = {"claro": 1, "oscuro": 0}
MEASURE = "<script>addEventListener('load',()=>document.title='ancho '+document.documentElement.scrollWidth+' '+innerWidth)</script></body>"


def browser(width, height, scheme, *wanted):
    return subprocess.run(["chromium", "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
                           f"--user-data-dir={WORK / 'navegador'}", f"--window-size={width},{height}",
                           f"--blink-settings=preferredColorScheme={scheme}", "--virtual-time-budget=8000", *wanted],
                          check=True, capture_output=True, text=True, timeout=600).stdout


def overflow(page, width):
    """What the page is wider than its window by; text that must be pushed aside is no text for a telephone."""
    measured = page.with_name("medida-" + page.name)
    measured.write_text(page.read_text(encoding="utf-8").replace("</body>", MEASURE), encoding="utf-8")
    try:
        told = browser(width, 800, 1, "--dump-dom", measured.as_uri())
    finally:
        measured.unlink()
    needed, window = map(int, re.search(r"<title>ancho (\d+) (\d+)</title>", told).groups())
    return needed - window


def search_finds(word):
    """From a file, as whoever opens the manual has it."""
    told = browser(1280, 800, 1, "--dump-dom", (WORK / "html/search.html").as_uri() + f"?q={word}")
    return re.search(r"Se encontraron \d+ páginas", told) is not None and '<ul class="search"><li>' in told


def main():
    photos = WORK / "fotos"
    photos.mkdir(exist_ok=True)
    wide = []
    for name in PAGES:
        page = WORK / "html" / f"{name}.html"
        for width, height in WIDTHS.items():
            for scheme, value in SCHEMES.items():
                target = photos / f"{name.replace('/', '-')}-{width}-{scheme}.png"
                browser(width, height, value, f"--screenshot={target}", page.as_uri())
            if (more := overflow(page, width)) > 0:
                wide.append(f"{name}: {more} px wider than {width}")
    for pdf in WORK.glob("*.pdf"):
        for first, last in ((1, 6), (40, 43)):
            subprocess.run(["pdftoppm", "-r", "50", "-f", str(first), "-l", str(last), "-png", pdf, photos / "pdf"], check=True)
    if not search_finds("tique"):
        wide.append("the search finds nothing")
    print("\n".join(wide) or f"Fotos: {photos}")
    return 1 if wide else 0


if __name__ == "__main__":
    sys.exit(main())
