"""The page of each export: made of the table, of what the till saw and of the declares."""
import collections
import re

from maker import languages, steady
from maker.markdown import code, fence, index, table

FAMILIES = {"TQ": "`TQ`, tiques", "TF": "`TF`, tique-facturas", "FC": "`FC`, formularios"}
KINDS = {
    "text": "texto, {} bytes", "terminated": "texto terminado en cero", "result": "recibe hasta {} bytes",
    "buffer": "búfer que recibe un texto", "length": "entero, 32 bits", "integer": "entero, 32 bits", "amount": "doble",
    "operator": "registro `KestraOperador`", "identifier": "puntero", "object": "puntero a un objeto",
}
NOTHING_PRINTED = "No imprime nada."


def size(argument):
    said = KINDS[argument.kind].format(argument.bytes)
    return said.replace(" 1 bytes", " 1 byte")


def shown(value):
    return f"`{value}`" if value != "" else "en blanco"


def arguments(function):
    if not function.arguments:
        return "No lleva argumentos.\n"
    rows = [("Argumento", "Qué es", "Tipo")]  # three columns fit a telephone
    for argument in function.arguments:
        example = f". Ejemplo: {shown(function.examples[argument.name])}" if argument.name in function.examples and argument.kind != "length" else ""
        rows.append((f"`{argument.name}`", argument.es + example, size(argument)))
    return table(rows)


def outcome(call):
    """What the example's call gave."""
    said = f"El ejemplo dio `{call.result}`"
    written = [f"`{name}` recibió {shown(text)}" for name, text in call.written.items()]
    return said + ("".join(f", y {each}" for each in written)) + ".\n"


def picture(call, slug, folder):
    """The rows that this call printed, cut out of the document's picture, which is left beside it whole."""
    drawing = steady.moments(call.picture.read_text(encoding="utf-8"))
    texts = re.findall(r'<text x="[\d.]+" y="([\d.]+)" font-size="([\d.]+)"', drawing)
    usual = collections.Counter(letters for _, letters in texts).most_common(1)[0][0]
    heights = sorted({float(y) for y, letters in texts if letters == usual})
    width, height = map(float, re.search(r'viewBox="0 0 ([\d.]+) ([\d.]+)"', drawing).groups())
    top = heights[0]
    pitch = min(b - a for a, b in zip(heights, heights[1:]) if b - a > 8)
    first, last = (top + pitch * (each - 1) + 5 for each in call.rows)
    whole = slug + "-papel.svg"
    (folder / whole).write_text(drawing, encoding="utf-8")
    above, below = max(0.0, first - 2 * pitch), min(height, last + 2 * pitch)
    mark = (f'<rect x="22" y="{first:.1f}" width="{width - 44:.1f}" height="{last - first:.1f}" fill="#e3a008" fill-opacity=".16"/>'
            f'<rect x="22" y="{first:.1f}" width="4" height="{last - first:.1f}" fill="#c27803"/>')
    if last - first > height - 8 * pitch:
        above, below, mark = 0.0, height, ""
    cut = re.sub(r'width="[\d.]+" height="[\d.]+" viewBox="[^"]*"',
                 f'width="{width:.0f}" height="{below - above:.0f}" viewBox="0 {above:.1f} {width:.0f} {below - above:.1f}"',
                 drawing, count=1)
    cut = cut.replace("</svg>", mark + "</svg>")
    (folder / (slug + ".svg")).write_text(cut, encoding="utf-8")
    return slug + ".svg", whole


def printed(function, call, slug, folder):
    if not call.rows:
        said = {"EP_AvanzaPapel": "Avanza el papel en blanco; no imprime nada.", "EP_CortaPapel": "Corta el papel; no imprime nada."}
        return said.get(function.name, NOTHING_PRINTED) + "\n"
    part, whole = picture(call, slug, folder)
    count = call.rows[1] - call.rows[0]
    is_marked = 'fill-opacity=".16"' in (folder / part).read_text(encoding="utf-8")
    rows = ("Un renglón" + ", el marcado" * is_marked + ", como lo" if count == 1 else
            f"{count} renglones" + ", los marcados" * is_marked + ", como los")
    return (f"{rows} imprime la impresora virtual "
            f"([el documento entero](papel/{whole})).\n\n```{{image}} papel/{part}\n:alt: Lo que imprime {function.name}\n"
            ":class: papel\n```\n")


def state(word):
    conditions = ", ".join(word["condiciones"])
    return f"`{word['palabra']}`" + (f" {conditions}" if conditions else "")


def exchange(each):
    """A frame and its answer, in words."""
    command, answer = each["comando"], each["respuesta"]
    text = f"**`{command['byte']}` {command['nombre']}**\n\n"
    filled = [field for field in command["campos"] if field["valor"] != ""]
    rows = [("Campo", "Valor")] + [(field["nombre"], code(field["valor"])) for field in filled]
    empty = len(command["campos"]) - len(filled)
    if filled:
        text += table(rows)
    if empty:
        text += f"\ny {empty} {'campo vacío' if empty == 1 else 'campos vacíos'}.\n"
    rows = [("Respuesta", ""), ("impresora", state(answer["impresora"])), ("fiscal", state(answer["fiscal"]))]
    rows += [(field["nombre"], code(field["valor"])) for field in answer["datos"]]
    return text + "\n" + table(rows)


def line(function, call):
    text = ""
    if call.exchanges:
        text += "\n".join(map(exchange, call.exchanges))
    else:
        text += "No le manda nada a la impresora.\n"
    if call.log:
        shown_log = "\n".join(visible(each) for each in call.log)
        text += "\nEn `fiscal.log`, con sus bytes de control a la vista:\n\n" + fence("text", shown_log)
    return text


def visible(text):
    """The bytes of a line of the log; its time is the printer's, so that the same manual is made each time."""
    text = re.sub(r"^\[[^]]*\]", "[21/11/2026-10:30:00]", text)
    return "".join(f"^{chr(ord(each) ^ 64)}" if ord(each) < 32 or ord(each) == 127 else each for each in text)


def trouble(function, causes):
    text = f"{function.trouble}\n\n" if function.trouble else ""
    rows = [("Causa", "Qué pasó", "Qué hacer")]
    for name in function.causes:
        cause = causes[f"KESTRA_CAUSA_{name}"]
        rows.append((f"[{cause.number}](causa-{cause.number})", cause.what, cause.advice or "–"))
    if len(rows) > 1:
        text += table(rows)
    return text or "No puede fallar.\n"


def tabs(function, declares):
    text = ""
    for language in languages.LANGUAGES:
        declare = declares.of(language, function.name)
        if not declare:
            continue
        both = fence(language.highlighter, declare) + "\n" + fence(language.highlighter, languages.call(language, function))
        text += f"````{{tab}} {language.name}\n{both}````\n\n"
    return text


def facts(function):
    rows = (("Tramas", function.frames), ("Espera sin respuesta, a lo sumo", function.wait),
            ("En `fiscal.log`, detrás de `Comando`", function.log), ("Desde la versión", function.since))
    return "".join(f"- {name}: {said}\n" for name, said in rows)


def page(function, call, declares, causes, folder):
    slug = function.name
    parts = [f"(op-{slug})=", f"# {slug}", "", index(slug, function.title), "", f"**{function.title}.**", ""]
    if function.purpose:
        parts += [function.purpose, ""]
    parts += ["## Argumentos", "", arguments(function), "## Resultado", "", function.result, "", outcome(call)]
    if function.writes:
        parts += [f"Cuándo escribe: {function.writes[0].lower()}{function.writes[1:]}", ""]
    if function.families:
        rows = [("Familia", "Qué hace")] + [(FAMILIES[name], said) for name, said in function.families.items()]
        parts += ["## Según la impresora", "", table(rows)]
    parts += ["## Qué se imprime", "", printed(function, call, slug, folder), "## Qué va por la línea", "", line(function, call), "",
              facts(function), "## Qué puede andar mal", "", trouble(function, causes),
              "## Declaración y llamada", "",
              "Con `TextosTerminados` en `Fiscal.ini` o [Kestra_Textos](Kestra_Textos.md): "
              "[cómo se llaman](como-se-llaman-desde-cada-lenguaje).", "", tabs(function, declares)]
    return "\n".join(parts)


def made(table_of_exports, calls, root, folder):
    """{name of the page: its text}; the pictures go to folder."""
    declares = languages.Declares(root)
    causes = {cause.name: cause for cause in table_of_exports.causes}
    first = {}
    for call in calls:
        if call.name not in first or (call.rows and not first[call.name].rows):
            first[call.name] = call
    missing = [function.name for function in table_of_exports.functions if function.name not in first]
    if missing:
        raise RuntimeError(f"days.py makes no call of: {', '.join(missing)}")
    return {function.name: page(function, first[function.name], declares, causes, folder)
            for function in table_of_exports.functions}
