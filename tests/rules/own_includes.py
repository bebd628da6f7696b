#!/usr/bin/env python3
"""Each source includes what it uses: without the headers that are compiled once for all, and without the sources that
it may be compiled together with, it still builds.

    own_includes.py SOURCE_DIRECTORY

A header counts as included when the source or a header of the project that it includes, directly or by way of
others, includes it. Of the project's own headers those are wanted that alone declare a type, a constant or a function
which the source has no other word for. Prints each breach as file:line and ends with 1 when there is one.
"""
import collections
import functools
import pathlib
import re
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "cmake"))
import together  # noqa: E402

# What a header of the standard library is included for, and which other headers bring it for certain.
USES = {
    "algorithm": r"std::(ranges::)?(sort|find_if|find|any_of|all_of|none_of|copy|transform|count_if|count|fill|"
                 r"equal|max|min|clamp|reverse|search|replace|generate)\(",
    "array": r"std::(array<|array [a-z]|to_array)",
    "charconv": r"std::(from_chars|to_chars)\b",
    "chrono": r"std::chrono::",
    "cstdint": r"std::u?int(8|16|32|64)_t\b",
    "cstdio": r"std::(printf|fprintf|snprintf|fopen|fclose|fputs|puts|FILE)\b",
    "cstdlib": r"std::(getenv|abort|exit|strto[a-z]+|EXIT_SUCCESS)\b",
    "cstring": r"std::(mem(cpy|cmp|set|move|chr)|str(len|cmp|ncmp|chr|cpy|error))\b",
    "filesystem": r"std::filesystem::",
    "fstream": r"std::(i|o)?fstream\b",
    "functional": r"std::function<",
    "gtest/gtest.h": r"\b(TEST|TEST_F|TEST_P|EXPECT_[A-Z]+|ASSERT_[A-Z]+|INSTANTIATE_TEST_SUITE_P)\(",
    "limits": r"std::numeric_limits<",
    "map": r"std::(multi)?map<",
    "memory": r"std::(unique_ptr|shared_ptr|make_unique|make_shared)\b",
    "optional": r"std::(optional<|nullopt)",
    "span": r"std::span\b",
    "sstream": r"std::(i|o)?stringstream\b",
    "stdexcept": r"std::(runtime_error|logic_error|invalid_argument|out_of_range)\b",
    "string": r"std::(string\b(?!_)|to_string\()",
    "string_view": r"std::string_view\b",
    "utility": r"std::(move|exchange|pair|swap|forward)\b",
    "vector": r"std::vector\b",
}
BROUGHT = {"string": {"string_view"}, "map": {"utility"}, "array": {"utility"}, "vector": {"utility"},
           "filesystem": {"string", "string_view", "chrono"}, "fstream": {"string"}, "sstream": {"string"},
           "stdexcept": {"string"}, "iostream": {"string"}, "algorithm": {"utility"}, "memory": {"utility"},
           "functional": {"utility"}, "optional": {"utility"}, "thread": {"chrono"}, "string_view": set(),
           "condition_variable": {"chrono"}}
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.M)
NOISE = re.compile(r'//[^\n]*|/\*.*?\*/|R"\((?:.*?)\)"|"(?:\\.|[^"\\\n])*"', re.S)

root = pathlib.Path(sys.argv[1]).resolve()


def resolved(path, name):
    """Where a quoted name lies: beside the one who includes it, or under one of the roots."""
    folders = [path.parent, *(root / folder for folder in ("src", "include", "tests", "simulator",
                                                           "simulator/program", "door", "bench")), *path.parents]
    return next((folder / name for folder in folders
                 if folder.is_relative_to(root) and (folder / name).is_file()), None)


@functools.cache
def included(path):
    """The headers in angle brackets that the file has, its own headers' too."""
    found, todo, seen = set(), [path], set()
    while todo:
        current = todo.pop()
        if current in seen:
            continue
        seen.add(current)
        for kind, name in INCLUDE.findall(current.read_text(encoding="utf-8", errors="replace")):
            own = resolved(current, name)
            if own:
                todo.append(own)
            elif kind == "<":
                found |= {name} | BROUGHT.get(name, set())
    return found


def breaches(path):
    text = path.read_text(encoding="utf-8", errors="replace")
    code = NOISE.sub(lambda found: "\n" * found.group().count("\n"), text)
    for header, use in USES.items():
        met = re.search(use, code)
        if met and header not in included(path):
            line = code.count("\n", 0, met.start()) + 1
            yield f"{path.relative_to(root)}:{line}: {met.group()} without <{header}>"


# What a header offers: names as we write them. A class that is only announced is not offered.
OFFERED = re.compile(r"(k?[A-Z][a-z]|Kestra_)\w+$")
ANNOUNCED = re.compile(r"^\s*#.*$|\b(?:class|struct|enum(?:\s+class)?)\s+\w+(?:\s*:\s*[\w:]+)?\s*;", re.M)
# What a file itself declares, members, parameters and values among it.
DECLARED = re.compile(r"(?:[\w>&*\]}]\s+|[&*>])(?:\w+::)?(k?[A-Z][a-z]\w*)\s*(?=[({;=\[,)>])|"
                      r"\b(?:class|struct|union|enum\s+class|enum|typename|using)\s+(\w+)|\.\.\.\s+(\w+)|\bTEST\w*\((\w+)")
VALUES = re.compile(r"\benum\b[^;{}]*\{([^}]*)\}")


@functools.cache
def own_words(path):
    code = together.code(path)
    found = {name for names in DECLARED.findall(code) for name in names}
    return found.union(*(re.findall(r"\w+", values) for values in VALUES.findall(code)))


def offers(paths):
    """{name: the one header that declares it}."""
    found = collections.defaultdict(set)
    for path in paths:
        if path.suffix != ".cpp":
            for name in together.declared(ANNOUNCED.sub("", together.code(path))):
                if OFFERED.match(name):
                    found[name].add(path)
    return {name: next(iter(places)) for name, places in found.items() if len(places) == 1}


def kin(path):
    """The trees whose headers a file may mean: its own, and for tests the one that it reaches into."""
    return {place.relative_to(root).parts[0] for place in {path, *together.headers(path)}}


def strangers(path, offered):
    """What of the project's a file uses without having the header."""
    reached = together.headers(path)
    own = own_words(path).union(*map(own_words, reached))
    unqualified = set(re.findall(r"(?<!::)\b[A-Za-z]\w*", together.code(path)))
    for name in sorted(together.words(path) & unqualified & offered.keys() - own):
        header = offered[name]
        if header != path and header not in reached and header.relative_to(root).parts[0] in kin(path):
            yield f"{path.relative_to(root)}: {name} without \"{header.relative_to(root)}\""


def main():
    listed = subprocess.run(["git", "-C", str(root), "ls-files", "-z", "*.cpp", "*.hpp"], check=True,
                            capture_output=True, text=True).stdout.split("\0")
    paths = [root / name for name in listed if name and (root / name).is_file()]
    offered = offers(paths)
    found = [breach for path in paths for breach in [*breaches(path), *strangers(path, offered)]]
    print("\n".join(found))
    print(f"{len(paths)} files")
    return 1 if found or len(paths) < 100 else 0


if __name__ == "__main__":
    sys.exit(main())
