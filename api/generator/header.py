"""include/kestra/kestra.h: the public header."""
import itertools

from generator.table import RETURNS, Enum, Function, KINDS, Note, Record, Section

WIDTH = 100  # .clang-format's

BEGINNING = """\
/* Made by api/generate from api/kestra.toml. */
#ifndef KESTRA_KESTRA_H
#define KESTRA_KESTRA_H

#include <stdint.h>

#include "causas.h"

#if defined(_WIN32) && !defined(_WIN64)
#define KESTRA_CALL __stdcall
#else
#define KESTRA_CALL
#endif

#if defined(_WIN32)
#define KESTRA_API
#elif defined(__GNUC__)
#define KESTRA_API __attribute__((visibility("default")))
#else
#define KESTRA_API
#endif

#ifdef __cplusplus
extern "C" {
#endif
"""
END = """
#ifdef __cplusplus
}
#endif

#endif
"""


def comment(text, indent=""):
    if not text:
        return ""
    if "\n" not in text:
        return f"{indent}/* {text} */\n"
    lines = "".join(f"{indent} * {line}".rstrip() + "\n" for line in text.split("\n"))
    return f"{indent}/*\n{lines}{indent} */\n"


def filled(words, first, indent):
    """Words with commas between them, as many on a line as it holds; the first line has `first` already."""
    lines = [first]
    for word in words:
        space = "" if lines[-1] in (first, indent) and lines[-1][-1:] in ("(", " ") else " "
        if len(lines[-1]) + len(space + word) > WIDTH:
            lines.append(indent)
            space = ""
        lines[-1] += space + word
    return lines


def declaration(before, arguments):
    """A function's, broken into lines as clang-format does it: under the bracket where that takes a line more at most."""
    words = [f"{argument}," for argument in arguments[:-1]] + [f"{arguments[-1]});"]
    under = filled(words, before + "(", " " * (len(before) + 1))
    behind = [before + "("] + filled(words, "    ", "    ")
    return "\n".join(under if len(under) <= len(behind) + 1 else behind) + "\n"


def function(row):
    arguments = [argument.c for argument in row.arguments] or ["void"]
    start = f"KESTRA_API {RETURNS[row.returns]} KESTRA_CALL {row.name}"
    return comment(row.en) + declaration(start, arguments)


def runs(values):
    """Values one after another that all have a remark, or none; a heading is alone."""
    for _, run in itertools.groupby(values, key=lambda value: value.heading or bool(value.en)):
        yield list(run)


def enum(row):
    last, lines = row.constants[-1], []
    for run in runs(row.values):
        codes = [f"  {value.name} = {value.value}{'' if value is last else ','}" for value in run]
        column = max(map(len, codes))
        for value, code in zip(run, codes):
            if value.heading:
                lines.append(f"  /* {value.heading} */")
            else:
                # Remarks one under another stand in one column.
                lines.append(f"{code.ljust(column)} /* {value.en} */" if value.en else code)
    return comment(row.en) + f"enum {row.name} {{\n" + "\n".join(lines) + "\n};\n"


def field(row, width):
    if row.kind != "callback":
        code = f"  {KINDS[row.kind].c} {row.name};"
        return f"{code.ljust(width)} /* {row.en} */\n"
    start = f"  {RETURNS[row.returns]}(KESTRA_CALL* {row.name})"
    return comment(row.en, "  ") + declaration(start, [argument.c for argument in row.arguments])


def record(row):
    plain = [f"  {KINDS[entry.kind].c} {entry.name};" for entry in row.fields if entry.kind != "callback"]
    width = max(map(len, plain))
    fields = "".join(field(entry, width) for entry in row.fields)
    return comment(row.en) + f"typedef struct {row.name} {{\n{fields}}} {row.name};\n"


def section(row):
    return f"/* ---- {row.en} ".ljust(WIDTH - 4, "-") + " */\n"


def paragraphs(table):
    """What stands between blank lines. A function without a word of its own stands under the one before."""
    guard = None
    for row in table.rows:
        if isinstance(row, Section):
            if guard:
                yield "#endif\n"
            guard = row.only_if
            yield section(row)
            if guard:
                yield f"#if {guard}\n"
        elif isinstance(row, Note):
            yield comment(row.en)
        elif isinstance(row, Enum):
            yield enum(row)
        elif isinstance(row, Record):
            yield record(row)
        elif isinstance(row, Function):
            yield function(row)


def joins(before, after):
    """Does a paragraph stand directly under the one before?"""
    if before.startswith("#if") or after.startswith("#endif"):
        return True
    return after.startswith("KESTRA_API")


def made(table):
    text, before = comment(table.header) + BEGINNING, ""
    for paragraph in paragraphs(table):
        text += paragraph if joins(before, paragraph) else "\n" + paragraph
        before = paragraph
    return {"include/kestra/kestra.h": text + END}
