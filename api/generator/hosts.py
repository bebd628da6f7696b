"""What the declares of all languages share: their Spanish remarks, and how a file for old Windows tools is written."""
import textwrap

from generator.table import Record


def ansi(text):
    """As tools of Windows' own code page read it."""
    return text.replace("\n", "\r\n").encode("cp1252")


def beginning(table, language):
    return [
        f"Kestra {table.version}: declaraciones para {language}.",
        "Las hace api/generate a partir de api/kestra.toml: un cambio a mano se pierde.",
        "",
        "Resultado de una operación: 0 éxito, 1 fracaso; en EP_Init es al revés, 1 éxito y 0 fracaso.",
        "Textos: windows-1252. De cada uno se leen exactamente los bytes que se dicen, sin buscar un cero: hay que",
        "completarlos con blancos. Uno más corto hace leer memoria ajena. Un puntero nulo se lee como blancos.",
        "Búferes de resultado: reciben a lo sumo los bytes que se dicen, sin un cero detrás.",
    ]


# For the languages whose compilers nobody has here.
UNTRIED = ["", "Escritas según las reglas del lenguaje y comparadas, nombre por nombre y byte por byte, con la biblioteca;",
           "no se compilaron con la herramienta del lenguaje."]


def counted(row, kind):
    """[(names, bytes)] of the arguments of a kind, those of the same size one after another together."""
    groups = []
    for argument in row.arguments:
        if argument.kind != kind:
            continue
        if groups and groups[-1][1] == argument.bytes:
            groups[-1][0].append(argument.name)
        else:
            groups.append(([argument.name], argument.bytes))
    return groups


def plural(count):
    return f"{count} byte" if count == 1 else f"{count} bytes"


def about(row, width=110):
    """Lines for people: what it does, the bytes of its texts, what comes back."""
    lines = [f"{row.title}."]
    texts = [f"{', '.join(names)} {plural(size)}{' cada uno' if len(names) > 1 else ''}"
             for names, size in counted(row, "text")]
    if texts:
        lines += textwrap.wrap("Textos: " + "; ".join(texts) + ".", width)
    lines += [f"Recibe: {', '.join(names)}, hasta {plural(size)}." for names, size in counted(row, "result")]
    if row.nature not in ("operation", "nothing"):
        lines += textwrap.wrap(f"Devuelve: {row.result}", width)
    return lines


def remarks(lines, mark):
    return "".join(f"{mark}{line}".rstrip() + "\n" for line in lines)


def records(table):
    return {record.name: record for record in table.of(Record)}


def callbacks(table):
    return [field for field in records(table)["KestraOperador"].fields if field.kind == "callback"]


def camel(name):
    """memoria_llena, MemoriaLlena."""
    return "".join(word.capitalize() for word in name.split("_"))


# What a layer over the declares has to know of an argument.
KINDS = {"text": "texto", "terminated": "texto", "result": "bufer", "buffer": "bufer", "length": "largo",
         "integer": "entero", "amount": "doble", "operator": "operador"}


def layer_rows(table, row, argument):
    """A row for each function, for languages whose declares are C: its name and its arguments' name, kind and bytes."""
    return "".join(row.format(function.name, ", ".join(argument.format(each.name, KINDS[each.kind], each.bytes)
                                                       for each in function.arguments))
                   for _, functions in table.sections for function in functions)
