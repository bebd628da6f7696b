"""The manual's lists of codes are those that the library and the virtual printer have."""
import pathlib
import re
import sys
import unittest

SOURCE = pathlib.Path(sys.argv.pop(1)).resolve()
PAGE = (SOURCE / "docs/manual/codigos.md").read_text(encoding="utf-8")


def code(file):
    return (SOURCE / file).read_text(encoding="utf-8")


def listed(heading):
    """The rows of the table below a heading, without their marks of code."""
    text = re.search(rf"(?ms)^## {heading}$(.*?)(?=^## |\Z)", PAGE)[1]
    rows = [[cell.strip().replace("`", "") for cell in line.strip("|").split("|")] for line in text.splitlines() if line.startswith("|")]
    return rows[2:]


def rows(file, begins):
    """What each row of a source's table begins with, in quotes."""
    return [re.findall(r'"([^"]*)"', row) for row in re.findall(rf"\b{begins}\{{(.*?)\}}", code(file), re.DOTALL)]


def opened_by_fiscal():
    table = re.findall(r'FiscalKind\{\.family = "(\w+)",\s*\.kind = "(\w+)",.*?\.at_opening = (\S+?),', code("src/documents/document_kinds.hpp"), re.DOTALL)
    return {(kind, family) for family, kind, letter in table if letter != "kNoLetter"}


def opened_by_homologated():
    return {(kind, family) for family, kind, *_ in rows("src/documents/non_fiscal_document.cpp", "HomologatedKind")}


def pairs(column):
    return {(row[0], family) for row in listed("Tipos de comprobante") for family in re.findall(r"\w+", row[column])}


class TheCodes(unittest.TestCase):
    def test_of_families_are_those_of_the_library(self):
        known = re.findall(r'constexpr std::string_view k\w*Family = "(\w+)"', code("src/documents/document_kinds.hpp"))
        self.assertEqual(len(known), 3)
        self.assertEqual({row[0] for row in listed("Familias de impresoras")}, set(known))

    def test_of_documents_are_what_each_family_opens(self):
        self.assertEqual((len(opened_by_fiscal()), len(opened_by_homologated())), (5, 4))
        self.assertEqual(pairs(2), opened_by_fiscal())
        self.assertEqual(pairs(3), opened_by_homologated())

    def test_of_conditions_are_what_the_virtual_printer_prints(self):
        layout = code("simulator/paper/layout.cpp")
        names = re.search(r"kIvaNames\{\{(.*?)\}\};", layout, re.DOTALL)[1]
        self.assertEqual([tuple(row) for row in listed("Condición frente al IVA")], re.findall(r"\{'(\w)', \"([^\"]*)\"\}", names))
        owners = re.search(r"kOwnerIvaNames\{\{(.*?)\}\};", layout, re.DOTALL)[1]
        said = re.search(r"(?m)^Del emisor[^\n]*: (.*)\.$", PAGE)[1]
        self.assertEqual(re.findall(r"`(\w)`", said), re.findall(r"\{'(\w)',", owners))

    def test_of_perceptions_are_those_that_the_library_sends_and_the_printer_takes(self):
        sent = re.findall(r'letter == "(\w)"', code("src/documents/totals.cpp"))
        taken = re.search(r'Choice\("calificador", "(\w+)"\), Field\("importe", FieldKind::kPerception\)', code("simulator/commands/totals.cpp"))[1]
        self.assertEqual([row[0] for row in listed("Calificadores")], sent)
        self.assertEqual("".join(sent), taken)

    def test_of_customers_papers_name_those_that_are_checked(self):
        checked = set(re.findall(r'kind != "(\w+)"', code("simulator/fiscal/cuit.cpp")))
        text = re.search(r"(?ms)^## Clases de documento del cliente$(.*?)^## ", PAGE)[1]
        self.assertEqual(checked, set(re.findall(r"un\s+`(\w+)`", text)))
        bytes_of_it = re.search(r'name = "documento_tipo", kind = "text", bytes = (\d+)', code("api/kestra.toml"))[1]
        longest = max(re.findall(r"`([A-Z]+)`", text), key=len)
        self.assertEqual(len(longest), int(bytes_of_it))


if __name__ == "__main__":
    unittest.main()
