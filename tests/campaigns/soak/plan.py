"""What the tills of the soak sell: a document's number in the run decides everything about it.

The total tells the documents of a series apart: the first line costs as many pesos as the document's number
says, and the others multiples of more than that. Every text carries the number. Prices are such that every tax
is a whole number of cents, so that the books can be checked to the cent.
"""
import collections
import dataclasses
import itertools
import random

STRIDE = 400_000  # pesos; half of it is more than there are documents in a run
TICKETS, INVOICES = "TQ", "TF"

# What is issued, how often, and by a till of which family; None for either.
MIXTURE = (
    ("tique", 60, TICKETS), ("factura A", 25, INVOICES), ("factura B", 20, INVOICES),
    ("credito A", 8, INVOICES), ("credito B", 7, INVOICES),
    ("no fiscal", 8, None), ("X", 1.5, None), ("Z", 0.5, None),
)

# Type and letter for the library, the books' code and title, and where EP_Numeracion counts the series.
SERIES = {
    "tique": ("FC", "B", "", "TIQUE", slice(5, 13)),
    "factura A": ("FC", "A", "T", "TIQUE FACTURA", slice(13, 21)),
    "factura B": ("FC", "B", "T", "TIQUE FACTURA", slice(21, 29)),
    "credito A": ("NC", "A", "M", "TIQUE NOTA DE CRÉDITO", slice(47, 55)),
    "credito B": ("NC", "B", "M", "TIQUE NOTA DE CRÉDITO", slice(55, 63)),
}
CLOSINGS, NON_FISCAL = slice(0, 5), slice(42, 47)

# Lines that come to one stride each: quantity, price, rate.
BULK = ((4, 100_000.00, 21.0), (0.125, 3_200_000.00, 21.0), (2.5, 160_000.00, 10.5))


@dataclasses.dataclass
class Document:
    id: int
    kind: str
    family: str
    steps: list

    @property
    def fiscal(self):
        return self.kind in SERIES

    @property
    def series(self):
        return SERIES[self.kind]


def document(seed, number, family):
    chance = random.Random(f"{seed}/{number}/{family}")
    rows = [row for row in MIXTURE if row[2] in (None, family)]
    kind = chance.choices([row[0] for row in rows], [row[1] for row in rows])[0]
    made = Document(number, kind, family, [])
    if made.fiscal:
        fill(made, chance)
    elif kind == "no fiscal":
        lines = [("linea", f"Renglon {n} #{number}") for n in range(chance.randint(1, 4))]
        made.steps = [("abrir",), *lines, ("cerrar",)]
    else:
        made.steps = [("informe",)]
    return made


def fill(made, chance):
    mark = f" #{made.id}"
    items = [(1, float(made.id), 21.0)] + chance.choices(BULK, k=chance.choice((0, 0, 1, 1, 2)))
    steps = [("item", f"Articulo {n}{mark}", *row) for n, row in enumerate(items)]
    if chance.random() < 0.2:
        steps.append(("texto", "Promo" + mark))
    if chance.random() < 0.15:
        wrong = ("Se arrepiente" + mark, 1, 700.00, 21.0)
        steps += [("item", *wrong), ("anular", *wrong)]
    if len(items) > 1 and {row[2] for row in items} == {21.0} and chance.random() < 0.3:
        steps.append(("descuento", "Descuento" + mark, STRIDE / 2))
    if made.series[1] == "A" and chance.random() < 0.3:
        steps.append(("percepcion", "Percep." + mark, 0.50))
    if chance.random() < 0.7:
        total = totals(made, steps)[0]
        steps.append(("pago", "Efectivo" + mark, total / 100 + chance.choice((0, 0, 500))))
    made.steps = [("abrir",), *steps, ("cerrar",)]


def totals(made, steps):
    """Total and tax in cents. Letter A has net prices; in the others the tax is inside."""
    sums, total, tax = collections.Counter(), 0, 0
    for step in steps:
        add(sums, step)
    for rate, cents in sums.items():
        tenths = round((rate or 0) * 10)
        if rate is None or made.series[1] != "A":
            total += cents
            tax += cents - halves_up(cents * 1000, 1000 + tenths)
        else:
            total += cents + cents * tenths // 1000
            tax += cents * tenths // 1000
    return total, tax


def add(sums, step):
    """What a step moves, by rate; a perception has none."""
    name, *values = step
    if name in ("item", "anular"):
        _, quantity, price, rate = values
        sums[rate] += round(quantity * price * 100) * (1 if name == "item" else -1)
    elif name == "descuento":
        sums[21.0] -= round(values[1] * 100)
    elif name == "percepcion":
        sums[None] += round(values[1] * 100)


def possible_totals(made, repeated):
    """What the document comes to when the printer was given some of these steps twice."""
    choices = itertools.chain.from_iterable(
        itertools.combinations(repeated, count) for count in range(len(repeated) + 1))
    return [totals(made, [*made.steps, *choice]) for choice in choices]


def halves_up(dividend, divisor):
    return (2 * dividend + divisor) // (2 * divisor)
