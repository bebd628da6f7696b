#!/usr/bin/env python3
"""Promises of the house that a machine can check.

    check_rules.py RULE SOURCE_DIRECTORY

Prints each breach as file:line and ends with 1 when there is one. RULE is the name of a function
below whose docstring says what it checks.
"""
import pathlib
import re
import subprocess
import sys

SKIPPED = 77  # what ctest is told when a rule cannot be checked here

SOURCE = (".c", ".h", ".cpp", ".hpp")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')

root = pathlib.Path(".")


# ---- Files ----

def tracked():
    """Every file of the project: those that git knows and those about to be added."""
    if not (root / ".git").exists():
        print("not a git checkout")
        sys.exit(SKIPPED)
    listed = subprocess.run(
        ["git", "-C", str(root), "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        check=True, capture_output=True, text=True).stdout
    return [root / name for name in sorted(set(listed.split("\0"))) if name]


def sources(*folders, endings=SOURCE):
    found = [path for folder in folders for path in sorted((root / folder).rglob("*"))
             if path.suffix in endings and path.is_file()]
    return found


def lines_of(path):
    return path.read_text(encoding="utf-8", errors="replace").splitlines()


def at(path, number, text):
    return f"{path.relative_to(root)}:{number}: {text.strip()}"


def matches(paths, pattern):
    return [at(path, number, line) for path in paths if path.is_file()
            for number, line in enumerate(lines_of(path), 1) if pattern.search(line)]


def includes(path):
    for number, line in enumerate(lines_of(path), 1):
        found = INCLUDE.match(line)
        if found:
            yield number, found.group(1) == '"', found.group(2)


def foreign_includes(paths, allowed):
    """Quoted includes that no entry of `allowed` covers, and angled ones with a folder in them."""
    breaches = []
    for path in paths:
        for number, quoted, name in includes(path):
            covered = name.startswith(tuple(allowed))
            if not covered and (quoted or "/" in name):
                breaches.append(at(path, number, f"includes {name}"))
    return breaches


# ---- Words ----

def no_papers():
    """The project speaks for itself: no file refers to papers that it was written from."""
    words = "sp" + "ec"
    pattern = re.compile(rf"{words}(s|ification|ifications)?\b|\b{'pa' + 'rt'} [0-9]", re.IGNORECASE)
    names = [str(path.relative_to(root)) for path in tracked()
             if pattern.search(str(path.relative_to(root)))]
    return names + matches(tracked(), pattern)


def no_machine_paths():
    """No path of the machine that a file was written on."""
    return matches(tracked(), re.compile(r"(?<![\w.}/])/(root|home|work)/\w"))


# ---- Who knows whom ----

def platform_conditionals():
    """The world's differences live in platform folders, the public header and the build files."""
    system = re.compile(r"\b(_WIN32|_WIN64|_MSC_VER|__linux__|__unix__|__APPLE__|__MINGW32__)\b")
    conditional = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif)\b")
    own = [path for path in sources("src") if "platform" not in path.parts]
    rest = sources("simulator", "door", "tests", "bench", "tools")
    rest = [path for path in rest if not {"windows", "posix"} & set(path.parts)]
    return matches(own, conditional) + matches(own + rest, system)


def platform_twins():
    """Nothing outside src/platform reaches for one of its twins."""
    breaches = []
    for path in sources("src"):
        if path.relative_to(root).parts[:2] == ("src", "platform"):
            continue
        for number, _, name in includes(path):
            if name.startswith(("platform/posix", "platform/windows")):
                breaches.append(at(path, number, f"includes {name}"))
    return breaches


def simulator_stands_alone():
    """The virtual printer shares no source with the driver."""
    driver = {path.name for path in (root / "src").iterdir() if path.is_dir()} | {"src", "kestra"}
    breaches = []
    for path in sources("simulator"):
        for number, quoted, name in includes(path):
            folder = name.split("/")[0] if "/" in name else ""
            own = quoted and (root / "simulator" / name).is_file()
            if folder in driver or ".." in name or (quoted and not own):
                breaches.append(at(path, number, f"includes {name}"))
    return breaches


# From the bottom: each room knows itself and those before it.
ROOMS = {
    "simulator": ["text", "wire", "fiscal", "machine", "memory", "paper", "commands", "faults", "line",
                  "trace", "pictures", "panel", "program"],
    "door": ["base", "sale", "store", "worker", "service", "http", "pages", "outbox", "program"],
}


def looks_down(house, also=()):
    """Every quoted include names a room that is not below its own; or begins with a word of `also`."""
    rooms = ROOMS[house]
    breaches = [f"{house}/{path.name}: lies in no room"
                for path in sources(house) if path.parent == root / house]
    for path in sources(house):
        own = path.relative_to(root).parts[1]
        below = rooms[:rooms.index(own) + 1] if own in rooms else []
        breaches += [at(path, number, f"includes {name}") for number, quoted, name in includes(path)
                     if quoted and name.split("/")[0] not in [*below, *also]]
    return breaches


def simulator_looks_down():
    """The virtual printer's rooms include downwards only, and say which room."""
    return looks_down("simulator")


def door_looks_down():
    """The door's rooms include downwards only, and say which room; the library is its public headers."""
    return looks_down("door", ["kestra"])


# The driver's folders: each may include itself and what stands in its row.
BELOW = {
    "base": [],
    "platform": ["base"],
    "state": ["base", "platform"],
    "dialogs": ["base", "platform", "state"],
    "fields": ["base"],
    "protocol": ["base", "platform", "state", "dialogs", "fields"],
    "operation": ["base", "platform", "state", "dialogs", "fields", "protocol"],
    "device": ["base", "platform", "state", "dialogs", "fields", "protocol", "operation"],
    "documents": ["base", "platform", "state", "dialogs", "fields", "protocol", "operation"],
    "frame": ["base", "platform", "state", "dialogs", "fields", "protocol", "operation", "device",
              "documents"],
    "platform/seam": ["base"],
    "platform/shared": ["base", "platform/seam"],
    "platform/posix": ["base", "platform/seam", "platform/shared"],
    "platform/windows": ["base", "platform/seam", "platform/shared"],
}
PUBLIC = ["dialogs", "frame"]  # who knows what a host sees
# The methods that scripts call: the compiler holds them against the header. They are found by their names.
PUBLIC_FILES = ["platform/windows/components/till_methods.cpp"]


def driver_includes_downwards():
    """A folder of the driver includes what stands below it, never above."""
    breaches = []
    known = {path.relative_to(root / "src").parts[0] for path in sources("src")}
    breaches += [f"src/{folder}: has no row among the folders" for folder in sorted(known - set(BELOW))]
    for folder, below in BELOW.items():
        allowed = [f"{name}/" for name in [folder, *below]] + ["kestra/"] * (folder in PUBLIC)
        paths = [path for path in sources(f"src/{folder}")]
        if not paths:
            breaches.append(f"src/{folder}: is empty")
        for path in paths:
            beside = {other.name for other in path.parent.iterdir()} | {"kestra_h.h"}
            if path.relative_to(root / "src").as_posix() in PUBLIC_FILES:
                beside.add("kestra/kestra.h")
            breaches += [at(path, number, f"includes {name}") for number, quoted, name in includes(path)
                         if quoted and not name.startswith(tuple(allowed)) and name not in beside]
    return breaches


def packets_are_pure():
    """What is bytes in, value out knows no record and no world."""
    pure = ("packet", "answer", "conditions", "command")
    paths = [path for path in sources("src/protocol", "src/dialogs") if path.stem in pure]
    return foreign_includes(paths, ["base/", "fields/", "protocol/", "dialogs/conditions.hpp"])


def registers_have_one_owner():
    """What an exchange leaves in the state record is written by the protocol alone."""
    registers = (r"\b(ComandoActual|Respuestas?|Respuesta(Actual|Completa)|NroSecuencia(Anterior)?|Reintentar|"
                 r"Estado(Impresora|Fiscal)|Bit(Impresora|Fiscal))")
    written = re.compile(registers + r"(\[\w+\])?(\s*=[^=]|\.(clear|append|erase|fill)\b)")
    owner, record = root / "src/protocol", root / "src/state/library.hpp"
    paths = [path for path in sources("src") if owner not in path.parents and path != record]
    if not matches(sources("src/protocol"), written):
        return ["nothing is written by the protocol: the rule is blind"]
    return matches(paths, written)


def standard_output_is_the_hosts():
    """The library writes nothing to the host's standard output."""
    return matches(sources("src"), re.compile(
        r"std::cout|\bstdout\b|STDOUT_FILENO|(?<!\w)(printf|puts|putchar)\s*\("))


# ---- Shape ----

def files_are_small():
    """No file of the driver, the virtual printer or the door over 300 lines, none of the rest over 500."""
    paths = [path for path in tracked() if path.suffix in SOURCE + (".py", ".sh", ".cmake", ".txt")]
    strict = {root / "src", root / "simulator", root / "door"}
    return [at(path, count, "lines") for path in paths if path.is_file()
            for count in [len(lines_of(path))]
            if count > (300 if path.suffix in SOURCE and strict & set(path.parents) else 500)]


def exports_are_documented():
    """A comment stands directly before each group of functions of the public header."""
    header = root / "include/kestra/kestra.h"
    lines = lines_of(header)
    return [at(header, i + 1, line) for i, line in enumerate(lines)
              if line.startswith("KESTRA_API") and not lines[i - 1].rstrip().endswith(("*/", ";"))]


def cause_rows():
    """The driver's table of causes: (number, what happened, what to do)."""
    code = (root / "src/state/causes.hpp").read_text(encoding="utf-8")
    numbers = dict(re.findall(r"^  (k\w+) = (\d+),", code, re.MULTILINE))
    words = {name: text_of(value) for name, value in re.findall(
        r"constexpr auto (k\w+) =\s*((?:\"[^\"]*\"\s*)+)_ansi", code)}
    rows = re.findall(r"CauseRow\{Cause::(k\w+),\s*((?:\"[^\"]*\"\s*)+)_ansi,\s*"
                      r"(?:causes::(k\w+)|((?:\"[^\"]*\"\s*)+)_ansi)\}", code)
    return [(int(numbers[name]), text_of(what), words[shared] if shared else text_of(own))
            for name, what, shared, own in rows], len(numbers)


def text_of(literals):
    return "".join(re.findall(r"\"([^\"]*)\"", literals))


def causes_are_told():
    """The driver's causes, the public header's numbers and the manual's page are one list."""
    rows, count = cause_rows()
    header = re.findall(r"^  (KESTRA_CAUSA_\w+) = (\d+)",
                        (root / "include/kestra/causas.h").read_text(encoding="utf-8"), re.MULTILINE)
    if len(rows) < 50 or len(rows) != count or len(header) != count:
        return [f"{count} causes, {len(rows)} with sentences, {len(header)} in the header"]
    names = {int(number): name for name, number in header}
    wanted = [f"| {number} | `{names.get(number)}` | {what or '-'} | {advice or '-'} |"
              for number, what, advice in rows]
    page = [line for line in lines_of(root / "docs/manual/causas.md") if re.match(r"\| \d", line)]
    return ([f"docs/manual/causas.md: lacks {line}" for line in wanted if line not in page] +
            [f"docs/manual/causas.md: has {line}" for line in page if line not in wanted])


def without_text(code):
    """The code with directives, comments, strings and characters blanked out, line ends kept."""
    pattern = re.compile(
        r"""//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|(?<!\w)'(?:\\.|[^'\\\n])+'|"""
        r"""^[ ]*\#(?:\\\n|[^\n])*""", re.DOTALL | re.MULTILINE)

    def blank(found):
        return re.sub(r"[^\n]", " ", found.group())

    return pattern.sub(blank, code)


LABEL = re.compile(r"\s*((public|private|protected):\s*)*")
SCOPE = re.compile(LABEL.pattern + r"(inline\s+|typedef\s+|template\s*<[^{}]*>\s*)*"
                   r"(namespace|struct|class|extern)\b")


def opens_function(head):
    """Does the text before a brace, back to the statement before, begin a function?"""
    head = re.sub(LABEL.pattern + r"(template\s*<[^{}]*?>\s)*", "", head, count=1)
    if re.match(r"(namespace|struct|class|enum|union|extern)\b", head) or "(" not in head:
        return False
    return not re.search(r"(^|[^=!<>])=\s*$|\breturn\s*$", head)


def function_lengths(path):
    """(first line, count of lines) of each function; what lies inside belongs to it."""
    code = without_text(path.read_text(encoding="utf-8"))
    lengths, stack, start = [], [], 0
    for i, c in enumerate(code):
        if c == "{":
            outside = all(kind == "scope" for kind, _ in stack)
            head = code[start:i]
            if outside and opens_function(head):
                stack.append(("function", start + LABEL.match(head).end()))
            elif outside and SCOPE.match(head):
                stack.append(("scope", i))
            else:
                stack.append(("other", i))
            start = i + 1
        elif c == "}":
            kind, first = stack.pop()
            if kind == "function":
                line = code.count("\n", 0, first) + 1
                lengths.append((line, code.count("\n", first, i) + 1))
            start = i + 1
        elif c == ";":
            start = i + 1
    return lengths


def functions_are_short():
    """Half of the functions have 6 lines at most, nine in ten under 15, none over 40."""
    found = sorted((length, at(path, line, f"{length} lines"))
                   for path in sources("src", "simulator", "door", endings=(".cpp", ".hpp"))
                   for line, length in function_lengths(path))
    if len(found) < 100:
        return [f"only {len(found)} functions found: the counter is blind"]
    median = found[len(found) // 2][0]
    ninth = found[len(found) * 9 // 10][0]
    print(f"{len(found)} functions: median {median}, nine in ten up to {ninth}, "
          f"longest {found[-1][0]}")
    breaches = [text for length, text in found if length > 40]
    if median > 6:
        breaches.append(f"the median is {median} lines")
    if ninth >= 15:
        breaches.append(f"a tenth of the functions have {ninth} lines or more")
    return breaches


# ---- Names ----

SPANISH_ENDING = re.compile(r"(cion|ciones|miento|mientos|idad|idades|encia|encias|ancia|ancias)$")


def fixed_names():
    """What may be Spanish in the driver: the names of the glossary, and what the public header tells hosts."""
    glossary = (root / "docs/glossary.md").read_text(encoding="utf-8")
    names = set(re.findall(r"`(\w+)`", glossary))
    header = without_text((root / "include/kestra/kestra.h").read_text(encoding="utf-8"))
    told = set(re.findall(r"\w+", header))
    return names | {re.sub(r"^(EP|Kestra)_", "", name) for name in names}, told


def spanish_parts(name, words):
    parts = [part.lower() for part in re.findall(r"[A-Z]+(?![a-z])|[A-Z]?[a-z]+", name)]
    return [part for part in parts if part in words or SPANISH_ENDING.search(part)]


def inventions_are_english():
    """Spanish stands where a host sees it or the glossary fixes it; what the driver invents is English."""
    words = set((root / "tests/rules/spanish_words.txt").read_text(encoding="utf-8").split())
    fixed, told = fixed_names()
    if len(fixed) < 100 or len(words) < 300:
        return [f"only {len(fixed)} fixed names and {len(words)} words found: the rule is blind"]
    breaches = []
    for path in sources("src"):
        code = without_text(path.read_text(encoding="utf-8"))
        # Who hands over what a host gives, or gives a host what it is told, names it as the header does.
        faces_hosts = re.search(r"KESTRA_CALL|Kestra(Fila|Operador)", code)
        for number, line in enumerate(code.splitlines(), 1):
            breaches += [at(path, number, f"{name} is Spanish and no fixed name")
                         for name in sorted(set(re.findall(r"[A-Za-z_]\w*", line)))
                         if name not in fixed and not (faces_hosts and name in told)
                         and spanish_parts(name, words)]
    return breaches


RULES = [no_papers, no_machine_paths, platform_conditionals, platform_twins, simulator_stands_alone,
         simulator_looks_down, door_looks_down, driver_includes_downwards, packets_are_pure, registers_have_one_owner,
         standard_output_is_the_hosts, files_are_small, exports_are_documented, causes_are_told,
         functions_are_short, inventions_are_english]


def main():
    global root
    rule = {function.__name__: function for function in RULES}[sys.argv[1]]
    root = pathlib.Path(sys.argv[2]).resolve()
    print(rule.__doc__)
    breaches = rule()
    print("\n".join(breaches))
    return 1 if breaches else 0


if __name__ == "__main__":
    sys.exit(main())
