"""The built pages: the theme's last English words become Spanish, and nothing asks the network."""
import re

# As they stand between tags, in titles and labels. check.py looks for what is left.
WORDS = {
    "Next": "Siguiente", "Previous": "Anterior", "Home": "Inicio", "Contents": "Contenido", "Menu": "Menú",
    "Expand": "Desplegar", "Light mode": "Claro", "Dark mode": "Oscuro", "Auto light/dark mode": "Según el sistema",
    "Hide navigation sidebar": "Ocultar la navegación", "Hide table of contents sidebar": "Ocultar el contenido",
    "Toggle site navigation sidebar": "Mostrar la navegación", "Toggle Light / Dark / Auto color theme": "Claro, oscuro o según el sistema",
    "Toggle table of contents sidebar": "Mostrar el contenido", "Toggle child pages in navigation": "Mostrar sus páginas",
    "Back to top": "Arriba", "On this page": "En esta página", "Search": "Buscar", "Skip to content": "Ir al contenido",
    "Permalink to this heading": "Enlace a este título", "Index": "Índice", "Search Page": "Búsqueda",
    "Please activate JavaScript to enable the search functionality.": "La búsqueda necesita JavaScript.",
    "Error: Cannot load search results": "No se pudo buscar", "Copy": "Copiar", "Copied!": "Copiado",
}
MADE_WITH = re.compile(r"\s*Made with .*?</a>\s*(?:and.*?</a>\s*)?(?:using.*?</a>\s*)?", re.DOTALL)


def spanish(text):
    for english, ours in WORDS.items():
        text = text.replace(f">{english}<", f">{ours}<")
        text = re.sub(rf'(title|aria-label|alt|placeholder|content)="{re.escape(english)}"', rf'\1="{ours}"', text)
        text = re.sub(rf">(\s*){re.escape(english)}(\s*)<", rf">\1{ours}\2<", text)
    return MADE_WITH.sub("", text)


def script_for_files(folder):
    """The theme's script is two modules, which a browser takes from no file: one script of both."""
    scripts = folder / "_static/scripts"
    text = (scripts / "furo.js").read_text(encoding="utf-8")
    if text.startswith("import Gumshoe"):
        first = (scripts / "gumshoe-patched.js").read_text(encoding="utf-8")
        (scripts / "furo.js").write_text(first + "\n" + text.partition("\n")[2], encoding="utf-8")


def dark_by_itself(folder):
    """The dark colours for whoever's system is dark: the theme's own rule for it is lost on its way to Debian."""
    style = folder / "_static/styles/furo.css"
    text = style.read_text(encoding="utf-8")
    dark = re.search(r'body\[data-theme="dark"\] \{([^}]*)\}', text)
    if not dark:
        raise RuntimeError("furo.css has no dark colours where they were")
    if "prefers-color-scheme" not in text:
        text += ('\n@media not print { @media (prefers-color-scheme: dark) { body:not([data-theme="light"]) {' + dark[1] + "} } }\n")
        style.write_text(text, encoding="utf-8")


def search_words(folder):
    """This sentence is put together before its translation is looked up."""
    script = folder / "_static/searchtools.js"
    text, count = re.subn(r"_\(\s*`Search finished, found[^`]*`\s*\)",
                          '`Se encontr${resultCount === 1 ? "ó" : "aron"} ${resultCount} página${resultCount === 1 ? "" : "s"}.`',
                          script.read_text(encoding="utf-8"))
    if count != 1:
        raise RuntimeError("searchtools.js does not tell what was found where it did")
    script.write_text(text, encoding="utf-8")


def finish(folder):
    script_for_files(folder)
    search_words(folder)
    dark_by_itself(folder)
    for path in folder.rglob("*.html"):
        text = path.read_text(encoding="utf-8")
        path.write_text(spanish(text), encoding="utf-8")
    for name in ("objects.inv", ".buildinfo"):
        (folder / name).unlink(missing_ok=True)
