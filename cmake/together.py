"""Sorts sources into units that are compiled as one each: what they include costs more than what they are.

    together.py <LISTS >GROUPS

A line of LISTS is a target and its sources, split by semicolons; GROUPS has a line for each source, with the target, the
name of its unit and tabs before it. Two sources stand in one unit only when nothing that one of them keeps to itself (in a
namespace without a name, as a macro) is a word of the other's or of the other's headers: each then means in company what
it means alone.
"""
import functools
import pathlib
import re
import sys

MOST = 16  # A unit's sources: so that there is work for every core, and little to do again after a change.
NOISE = re.compile(r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'', re.S)
SYSTEM = re.compile(r"^\s*#\s*include\s*<((?:win|ws2|ole|oa|obj|unk|comm|tlhelp)\w*\.h)>", re.M)
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.M)
WORD = re.compile(r"(?<![\w.])(?<!->)[A-Za-z_]\w*")
KEYWORDS = {"operator", "const", "constexpr", "static", "inline", "static_assert"}
MACRO = re.compile(r"^[ \t]*#[ \t]*define[ \t]+(\w+)", re.M)
TYPE = re.compile(r"\b(?:class|struct|union|enum(?:\s+class)?)\s+(\w+)")
ALIAS = re.compile(r"^\s*using\s+(\w+)\s*=[^;]+", re.M)

root = pathlib.Path(__file__).resolve().parents[1]
ROOTS = [root / folder for folder in ("src", "include", "tests", "simulator", "simulator/program", "door", "bench")]
TWINS = [root / "tests/contract" / system for system in ("posix", "windows")]  # One is looked into, by the build's system.


@functools.cache
def code(path):
    """The text without comments and literals."""
    return NOISE.sub(" ", path.read_text(encoding="utf-8"))


@functools.cache
def headers(path):
    """The project's headers that the source includes, directly or by way of others."""
    found, todo = set(), [path]
    while todo:
        current = todo.pop()
        for name in INCLUDE.findall(current.read_text(encoding="utf-8")):
            twins = TWINS if current.is_relative_to(TWINS[0].parent) else ()
            places = [folder / name for folder in (current.parent, *twins, *ROOTS, *current.parents)
                      if folder.is_relative_to(root) and (folder / name).is_file()]
            fresh = {place for place in places if place == places[0] or place.parent in twins} - found
            found |= fresh
            todo.extend(fresh)
    return found


@functools.cache
def words(path):
    return frozenset(WORD.findall(code(path)))


def closing(text, start):
    """Where the brace ends that opens before `start`."""
    depth = 1
    while depth and start < len(text):
        depth += {"{": 1, "}": -1}.get(text[start], 0)
        start += 1
    return start


def declared(block):
    """The names that a namespace declares."""
    flat, start = "", 0
    while start < len(block):
        if block[start] == "{":
            end = closing(block, start + 1)
            if re.search(r"\benum\s+\w*[^;{}]*$", flat):  # its values are names as well
                yield from re.findall(r"(\w+)\s*[,=}]", block[start:end])
            if re.search(r"\bnamespace\b[^;{}]*$", flat):
                yield from declared(block[start + 1:end - 1])
            flat, start = flat + "{}" + (";" if re.match(r"\s*[^\s;,)=}.(\[]", block[end:]) else ""), end
        else:
            flat, start = flat + block[start], start + 1
    for statement in flat.split(";"):
        yield from TYPE.findall(statement)
        yield from ALIAS.findall(statement)
        rest = re.sub(r"\b(class|struct|union|enum)\b[^{]*\{\}", "", statement)
        names = re.findall(r"(?<!::)\b\w+(?=\s*$)", re.split(r"[({=\[]", rest, maxsplit=1)[0])
        yield from (name for name in names if name not in KEYWORDS and not name.isupper())


@functools.cache
def private(path):
    """What the source keeps to itself."""
    text = code(path)
    found = set(MACRO.findall(text))
    for begin in re.finditer(r"\bnamespace\s*\{", text):
        found |= set(declared(text[begin.end():closing(text, begin.end()) - 1]))
    found |= set(re.findall(r"^static\b[^;({=]*?(\w+)\s*[({=\[;]", text, re.M))
    return frozenset(found)


@functools.cache
def aliases(path):
    return {found.group().strip(): found.group(1) for found in ALIAS.finditer(code(path))}


def meets(one, other):
    """Whether a private name of one is a word that the other knows. The same second name for the same is none."""
    mine = private(one) - {name for words, name in aliases(one).items() if words in aliases(other)}
    return mine & words(other) or any(mine & words(header) for header in headers(other) - headers(one))


def alone(path):
    """Whether what the source includes depends on what it defines before."""
    text = code(path)
    return bool(re.search(r"^\s*#\s*define\b.*^\s*#\s*include\b", text, re.M | re.S))


@functools.cache
def system(path):
    """The headers of Windows that the source has: some must come before others, and some declare what ours does."""
    files = {path} | headers(path)
    found = {name for file in files for name in SYSTEM.findall(file.read_text(encoding="utf-8"))}
    return frozenset(found | {file.name for file in files if found and file.name == "kestra.h"})


def units(sources, most=MOST):
    found = []
    for source in sources:
        fits = (unit for unit in found if len(unit) < most and not alone(unit[0])
                and system(source) == system(unit[0])
                and not any(meets(source, other) or meets(other, source) for other in unit))
        unit = None if alone(source) else next(fits, None)
        if unit is None:
            unit = []
            found.append(unit)
        unit.append(source)
    return found


def main():
    for line in sys.stdin.read().splitlines():
        target, *names = line.split(";")
        for number, unit in enumerate(units(sorted({pathlib.Path(name) for name in names if name}))):
            for member in unit:
                print(f"{target}\t{target}_{number}\t{member}")


if __name__ == "__main__":
    main()
