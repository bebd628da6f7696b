"""The manual finds all that it is made of: a call of each export, its declares, each message's meaning, each link's end."""
import pathlib
import re
import sys
import unittest

SOURCE = pathlib.Path(sys.argv.pop(1)).resolve()
MANUAL = SOURCE / "docs/manual"
sys.path[:0] = [str(SOURCE / "api"), str(MANUAL)]

from generator import table  # noqa: E402
from maker import days, languages, messages  # noqa: E402

EXPORTS = table.read(SOURCE)
MADE = {"mensajes.md", "causas_una_por_una.md"}


def anchors(path):
    """The places that a page's headings make, and those with a name of their own."""
    text = re.sub(r"(?ms)^```.*?^```", "", path.read_text(encoding="utf-8"))
    places = set(re.findall(r"(?m)^\(([\w-]+)\)=", text))
    for heading in re.findall(r"(?m)^#+ (.+)$", text):
        places.add(re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-"))
    return places


class TheManual(unittest.TestCase):
    def test_calls_every_export(self):
        called = {name for day in days.days(EXPORTS) for name, _ in day.calls}
        self.assertEqual({row.name for row in EXPORTS.functions} - called, set())

    def test_cuts_every_declare_out_of_every_language(self):
        declares = languages.Declares(SOURCE)
        for language in languages.LANGUAGES:
            for row in EXPORTS.hosts_functions:
                with self.subTest(language=language.name, function=row.name):
                    cut = declares.of(language, row.name)
                    self.assertIn(row.name, cut)
                    self.assertLess(cut.count("\n"), 24, cut)
                    self.assertIn(row.name, languages.call(language, row))

    def test_explains_every_message_and_no_other(self):
        meant, silent, stale = messages.explanations(messages.collected(SOURCE), EXPORTS, SOURCE, MANUAL)
        self.assertEqual((silent, stale), ([], []), "docs/manual/mensajes.toml")
        self.assertGreater(len(meant), 200)
        self.assertGreater(len(messages.of_the_port(SOURCE)), 15)

    def test_notices_a_message_that_is_new(self):
        found = dict(messages.collected(SOURCE), **{"Se cayó el techo": ["dialogs/roof.cpp"]})
        silent = messages.explanations(found, EXPORTS, SOURCE, MANUAL)[1]
        self.assertEqual(silent, ["'Se cayó el techo' (dialogs/roof.cpp)"])

    def test_names_every_key_of_the_settings(self):
        code = (SOURCE / "src/frame/keys.hpp").read_text(encoding="utf-8")
        keys = {key for key in re.findall(r'"([A-Z]\w+)"', code)}
        told = (MANUAL / "configuracion.md").read_text(encoding="utf-8")
        self.assertGreater(len(keys), 55)
        self.assertEqual({key for key in keys if f"`{key}`" not in told}, set())

    def test_leads_nowhere_that_is_not_there(self):
        for page in sorted(MANUAL.rglob("*.md")):
            text = re.sub(r"(?ms)^(`{3,}).*?^\1", "", page.read_text(encoding="utf-8"))
            for target, anchor in re.findall(r"\]\(([^)#\s]*)#?([^)\s]*)\)", text):
                if "://" in target or target.startswith("causa-") or target == "como-se-llaman-desde-cada-lenguaje":
                    continue
                path = (page.parent / target).resolve() if target else page
                if path.name in MADE or path.parent.name == "operaciones" and path.name != "index.md":
                    self.assertTrue(path.name in MADE or path.stem in {row.name for row in EXPORTS.functions}, target)
                    continue
                with self.subTest(page=page.name, target=target, anchor=anchor):
                    self.assertTrue(path.exists())
                    if anchor and path.suffix == ".md" and path.is_relative_to(MANUAL):
                        self.assertIn(anchor, anchors(path))

    def test_is_found_by_the_other_pages_that_lead_to_it(self):
        folders = [SOURCE / name for name in ("api", "docs", "hosts", "src", "simulator", "tests")]
        pages = [*SOURCE.glob("*.md"), *(page for folder in folders for page in folder.rglob("*.md"))]
        for page in pages:
            if page.is_relative_to(MANUAL) or "node_modules" in page.parts:
                continue
            text = re.sub(r"(?ms)^(`{3,}).*?^\1", "", page.read_text(encoding="utf-8"))
            for target, anchor in re.findall(r"\]\(([^)#\s]+)#?([^)\s]*)\)", text):
                if "://" not in target:
                    path = (page.parent / target).resolve()
                    with self.subTest(page=page.relative_to(SOURCE), target=target, anchor=anchor):
                        self.assertTrue(path.exists())
                        if anchor and path.suffix == ".md":
                            self.assertIn(anchor, anchors(path))


if __name__ == "__main__":
    unittest.main()
