"""Pieces of pages."""


def row(cells):
    return "| " + " | ".join(str(cell).replace("|", "\\|").replace("\n", " ") for cell in cells) + " |"


def table(rows):
    """The first row is the heading."""
    return "\n".join([row(rows[0]), "|" + "---|" * len(rows[0]), *map(row, rows[1:])]) + "\n"


def fence(language, text):
    return f"```{language}\n{text}\n```\n"


def code(text):
    """A value of the line as it is, its blanks too."""
    mark = "``" if "`" in text else "`"
    blank = text.replace(" ", "\u00a0") if text.strip() != text or not text.strip() else text
    return f"{mark}{' ' if mark == '``' else ''}{blank}{' ' if mark == '``' else ''}{mark}"


def index(*entries):
    """Entries of the index. A semicolon parts entry and place there, so it is none of theirs."""
    said = (entry.replace(";", ",") for entry in entries)
    return "\n\n".join(f"```{{index}} single: {entry}\n```" for entry in said)
