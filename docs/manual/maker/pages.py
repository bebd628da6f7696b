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


def finish(folder):
    for path in folder.rglob("*.html"):
        text = path.read_text(encoding="utf-8")
        path.write_text(spanish(text), encoding="utf-8")
    for name in ("objects.inv", ".buildinfo"):
        (folder / name).unlink(missing_ok=True)
