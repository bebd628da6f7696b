"""Every message of the library, word by word: collected from its sources, explained by mensajes.toml."""
import re
import tomllib

from maker.markdown import index

LITERALS = re.compile(r'(?:(?:u8|L|u)?"(?:\\.|[^"\\\n])*"(?:_ansi)?\s*)+')
# One word alone is a message in these files only; elsewhere it is a name.
WORDS_TOO = ("base/failure.hpp", "operation/operation.cpp", "platform/seam/dialog_words.hpp", "platform/posix/dialog_text.cpp",
             "state/causes.hpp")
PORT_ROW = re.compile(r'Row\{PortFault::k\w+, (\d+), "([^"]*)"_ansi,\s*"([^"]*)"_ansi\}')
CONDITION = re.compile(r"Condition\{.*?\}(?=,\n)", re.DOTALL)


def without_comments(code):

    code = re.sub(r"//[^\n]*", "", code)
    return re.sub(r"(?m)^\s*#.*$", "", re.sub(r"/\*.*?\*/", "", code, flags=re.DOTALL))


def words(literal):
    return "".join(re.findall(r'"((?:\\.|[^"\\\n])*)"', literal)).replace('\\"', '"').replace("\\r", " ").replace("\\n", " ").strip()


def is_message(text, file):
    """Letters, and more than one word."""
    if not re.search(r"[a-zA-Záéíóúñ]{2}", text) or "\\x" in text:
        return False
    return " " in text or file in WORDS_TOO and len(text) > 3


def collected(root):
    """{message: the files that say it}, without the port's, which come in two halves."""
    found = {}
    for path in sorted((root / "src").rglob("*")):
        file = path.relative_to(root / "src").as_posix()
        if path.suffix not in (".cpp", ".hpp") or file == "platform/shared/port_fault.cpp":
            continue
        for literal in LITERALS.findall(without_comments(path.read_text(encoding="utf-8"))):
            text = words(literal)
            if is_message(text, file):
                found.setdefault(text, []).append(file)
    return found


def of_the_port(root):
    """[(message with the device's place, its number, its cause)]."""
    code = (root / "src/platform/shared/port_fault.cpp").read_text(encoding="utf-8")
    rows = PORT_ROW.findall(code)
    if len(rows) != code.count("Row{PortFault::"):
        raise RuntimeError("messages.py does not read every row of port_fault.cpp")
    return [(f"{before}…{after}".strip(), number, 201 + place) for place, (number, before, after) in enumerate(rows)]


def link(number):
    return f"[{number}](causa-{number})"


def explanations(found, exports, root, manual):
    """{message: what it means}, and those that nobody explains."""
    with (manual / "mensajes.toml").open("rb") as file:
        told = tomllib.load(file)
    causes = {}
    for cause in exports.causes:
        causes.setdefault(cause.what, []).append(f"Lo que pasó, en la causa {link(cause.number)}.")
    for cause in exports.causes:
        causes.setdefault(cause.advice, []).append(link(cause.number))
    names = {function.name for function in exports.functions}
    meant, silent = {}, []
    for text, files in found.items():
        name = re.search(r"(\w+)(?:\([A-Z/]*\))?$", text)
        if text in told["nada"]:
            continue
        if text in told["mensajes"]:
            meant[text] = told["mensajes"][text]
        elif text in causes and files[0].startswith("state/causes"):
            said = causes[text]
            meant[text] = said[0] if said[0].startswith("Lo") else "Qué hacer, en las causas " + ", ".join(said) + "."
        elif text.startswith("- Comando :") and name and name[1] in names:
            meant[text] = f"Línea de `fiscal.log`: se llamó a [{name[1]}](operaciones/{name[1]}.md)."
        else:
            silent.append(f"{text!r} ({files[0]})")
    stale = [text for text in [*told["mensajes"], *told["nada"]] if text not in found]
    return meant, silent, stale


GROUPS = (
    ("Lo que se le pregunta y se le avisa al operador", ("operation/", "documents/", "protocol/", "platform/seam", "platform/posix/dialog_text", "frame/")),
    ("El informe de estados", ("dialogs/",)),
    ("Las frases de Kestra_CausaTexto", ("state/causes",)),
    ("El registro y el diario", ("device/", "state/", "base/", "platform/")),
)


def group_of(text, files):
    if text.startswith("- "):
        return GROUPS[3][0]
    return next(title for title, starts in GROUPS if files[0].startswith(starts))


def entry(text, meaning):
    plain = text.replace("`", "'")
    return f"{index(plain.lstrip('- '))}\n\n`{plain}`\n: {meaning}\n"


def made(exports, root, manual):
    """(the page, its messages). Fails when a message has no explanation, or an explanation no message."""
    found = collected(root)
    meant, silent, stale = explanations(found, exports, root, manual)
    if silent or stale:
        raise RuntimeError("docs/manual/mensajes.toml does not explain: " + "; ".join(silent) * bool(silent) +
                           (" and explains what nobody says: " + "; ".join(stale)) * bool(stale))
    groups = {title: [] for title, _ in GROUPS}
    for text in meant:
        groups[group_of(text, found[text])].append((text, meant[text]))
    groups["El puerto y la red"] = [
        (text, f"En `fiscal.log`, `Error {number}`, con el puerto o la dirección en el lugar de los puntos. Causa {link(cause)}.")
        for text, number, cause in of_the_port(root)]
    page = ["# Mensajes", "",
            "Todo lo que la biblioteca dice, palabra por palabra: en una ventana o la terminal, en `fiscal.log`, o como frase de",
            "[Kestra_CausaTexto](operaciones/Kestra_CausaTexto.md). También están en el {ref}`índice alfabético <genindex>`.", ""]
    for title, rows in groups.items():
        page += [f"## {title}", ""] + [entry(*each) for each in sorted(rows, key=lambda each: each[0].lower())]
    return "\n".join(page), [text for rows in groups.values() for text, _ in rows]
