"""The pages as the maker of the manual reads them: those of docs/manual with their links mended, and those that are made."""
import posixpath
import re
import shutil

from maker import causes_pages, days, first_ticket, languages, messages, operations, programs, recipes, steady, till, tool
from maker.flowchart import without_charts
from maker.markdown import fence, index

LINK = re.compile(r"(!?)\[([^\]]*)\]\(([^)#\s]*)(#[^)\s]*)?\)")
FENCED = re.compile(r"(?ms)^(```+|~~~+).*?^\1\s*$")
SHOPS = (
    ("C", "c", "c/tienda.c"), ("C++", "c++", "cpp/tienda.cpp"), ("C#", "csharp", "csharp/tienda.cs"),
    ("Delphi", "delphi", "delphi/tienda.pas"), ("Go", "go", "go/tienda.go"), ("Java", "java", "java/Tienda.java"),
    ("LuaJIT", "lua", "luajit/tienda.lua"), ("Node.js", "javascript", "node/tienda.mjs"), ("Perl", "perl", "perl/tienda.pl"),
    ("PHP", "php", "php/tienda.php"), ("Python", "python", "python/tienda.py"), ("Ruby", "ruby", "ruby/tienda.rb"),
    ("Visual Basic 6", "vb.net", "vb6/tienda.bas"), ("FoxPro", "foxpro", "foxpro/tienda.prg"),
    ("Rust", "rust", "rust/tienda.rs"), ("VB.NET", "vb.net", "vbnet/tienda.vb"),
)


def outside_code(text, change):
    """The text with what is no code changed."""
    parts, last = [], 0
    for fenced in FENCED.finditer(text):
        parts += [change(text[last:fenced.start()]), fenced[0]]
        last = fenced.end()
    return "".join([*parts, change(text[last:])])


def mended(text, place):
    """A link that leaves the manual is told as a file of the project."""
    def mend(found):
        picture, words, target, anchor = found.groups()
        target = target or ""
        if picture or not target or "://" in target:
            return found[0]
        path = posixpath.normpath(posixpath.join("docs/manual", place, target))
        if path.startswith("docs/manual/"):
            return found[0]
        file = f"`{path}`"
        return file if words.strip("`") in (path, posixpath.basename(path)) else f"{words} ({file})"

    return outside_code(text, lambda part: LINK.sub(mend, part))


def copy_pages(manual, source):
    for path in sorted(manual.rglob("*")):
        place = path.relative_to(manual)
        if path.is_dir() or place.parts[0] in ("maker", "recetas") and path.suffix == ".py" or path.suffix in (".toml", ".pyc"):
            continue
        target = source / place
        target.parent.mkdir(parents=True, exist_ok=True)
        if path.suffix == ".md":
            text = path.read_text(encoding="utf-8")
            target.write_text(mended(without_charts(text), place.parent.as_posix()), encoding="utf-8")
        else:
            shutil.copy(path, target)


def ini_keys(source):
    """Each key of Fiscal.ini comes into the index, above the table that tells of it."""
    page = source / "configuracion.md"
    text = page.read_text(encoding="utf-8")

    def with_entries(found):
        keys = re.findall(r"(?m)^\| (?:[\d–]+ \| )?`(\w+)` \|", found[0])
        return index(*(f"{key} (Fiscal.ini)" for key in keys)) + "\n\n" + found[0] if keys else found[0]

    page.write_text(re.sub(r"(?m)(^\|.*\n)+", with_entries, text), encoding="utf-8")


def of_hosts(text):
    """A page of hosts/ as part of one of the manual: its links are those of the manual, or a file's name."""
    text = re.sub(r"\]\(\.\./\.\./docs/manual/", "](", text)
    return outside_code(text, lambda part: re.sub(r"\[([^\]]*)\]\((?!\w+\.md)([^)]*)\)", r"\1", part))


def shops(root):
    text = ""
    for name, highlighter, file in SHOPS:
        folder, _, program = file.partition("/")
        for path in sorted((root / "hosts" / folder).rglob(program)):
            code = "\n".join(languages.read(path)).rstrip()
            text += f"````{{tab}} {name}\n`{path.relative_to(root)}`\n\n{fence(highlighter, code)}````\n\n"
    return text


def frames(exports):
    """What stands around the calls, in the languages that the manual's calls are run in."""
    functions = {function.name: function for function in exports.functions}
    text = ""
    for language in languages.LANGUAGES:
        if program := programs.whole(language, functions):
            text += f"````{{tab}} {language.name}\n{fence(language.highlighter, program)}````\n\n"
    return text


def fill(page, marks):
    text = page.read_text(encoding="utf-8")
    for mark, content in marks.items():
        if f"<!-- {mark} -->" not in text:
            raise RuntimeError(f"{page.name} has no place for {mark}")
        text = text.replace(f"<!-- {mark} -->", content)
    page.write_text(text, encoding="utf-8")


def operations_index(exports, source):
    text = ""
    sections = exports.sections + [(section, rows) for section in exports.of(type(exports.sections[0][0])) if section.only_if
                                   for rows in [[row for row in exports.functions if row.section is section]]]
    for section, rows in sections:
        text += f"## {section.es}\n\n```{{toctree}}\n:hidden:\n\n" + "\n".join(row.name for row in rows) + "\n```\n\n"
        text += "".join(f"- [{row.name}]({row.name}.md): {row.title}.\n" for row in rows) + "\n"
    fill(source / "operaciones/index.md", {"programas": frames(exports), "secciones": text})


def code_lists(exports, source):
    text = ""
    for enum in exports.enums[:-1]:  # the last are the causes, which have a page
        text += f"## {enum.title}\n\n| Número | Constante | Qué es |\n|---|---|---|\n"
        text += "".join(f"| {value.value} | `{value.name}` | {value.es} |\n" for value in enum.constants) + "\n"
    fill(source / "codigos.md", {"constantes": text})


def prepare(root, work, tools, exports):
    """Writes the sources into work/fuente; gives the messages of the library."""
    manual, source = root / "docs/manual", work / "fuente"
    shutil.rmtree(source, ignore_errors=True)
    copy_pages(manual, source)
    ini_keys(source)
    functions = {function.name: function for function in exports.functions}
    shutil.rmtree(work / "caja", ignore_errors=True)
    calls = [call for day in days.days(exports)
             for call in steady.steadied(till.live(tools, manual, work / "caja" / day.name, day, functions))]
    pictures = source / "operaciones/papel"
    pictures.mkdir(parents=True)
    for name, text in operations.made(exports, calls, root, pictures).items():
        (source / "operaciones" / f"{name}.md").write_text(text, encoding="utf-8")
    operations_index(exports, source)
    code_lists(exports, source)
    page, said = messages.made(exports, root, manual)
    (source / "mensajes.md").write_text(page, encoding="utf-8")
    (source / "causas_una_por_una.md").write_text(causes_pages.made(exports), encoding="utf-8")
    fill(source / "empezar.md", {"primer tique": first_ticket.made(root, of_hosts), "tiendas": shops(root)})
    shutil.rmtree(work / "herramienta", ignore_errors=True)
    fill(source / "herramienta.md", tool.marks(root, work, tools))
    recipes.make(root, work, source, tools)
    [paper] = (source / "recetas/papel").glob("factura_a-*.svg")
    fill(source / "index.md", {"papel": f"```{{image}} recetas/papel/{paper.name}\n:alt: Una factura A de la impresora virtual\n:class: papel\n```"})
    return said
