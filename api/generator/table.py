"""The table of the exports, read and checked."""
import dataclasses
import pathlib
import re
import tomllib

from generator import causes

ROOT = pathlib.Path(__file__).resolve().parents[2]


@dataclasses.dataclass(frozen=True)
class Kind:
    """What an argument is: how C declares it, its letter in the tests' table, its bytes on a 32-bit stack."""
    c: str
    letter: str
    stack: int = 4
    in_example: bool = True


KINDS = {
    "text": Kind("const char*", "t"),        # read for exactly `bytes` bytes
    "terminated": Kind("const char*", "z"),  # a zero ends it
    "result": Kind("char*", "o", in_example=False),  # receives up to `bytes` bytes, no zero behind them
    "buffer": Kind("char*", "o", in_example=False),  # receives as many as the `length` behind it says
    "length": Kind("int32_t", "n"),
    "integer": Kind("int32_t", "i"),
    "amount": Kind("double", "d", 8),
    "operator": Kind("const KestraOperador*", "k", in_example=False),
    "identifier": Kind("const void*", "g", in_example=False),
    "object": Kind("void**", "o", in_example=False),
    # in records and callbacks alone
    "unsigned": Kind("uint32_t", ""),
    "context": Kind("void*", ""),
    "rows": Kind("const KestraFila*", ""),
    "callback": Kind("", ""),
}
WITH_BYTES = ("text", "result")
NATURES = ("lifetime", "operation", "nothing", "report", "question", "components", "beside")
RETURNS = {"integer": "int32_t", "nothing": "void"}


class Wrong(Exception):
    """Something in the table that cannot be."""


@dataclasses.dataclass(frozen=True)
class Argument:
    name: str
    kind: str
    bytes: int = 0
    es: str = ""

    @property
    def c(self):
        return f"{KINDS[self.kind].c} {self.name}"

    @property
    def stack(self):
        return KINDS[self.kind].stack

    @property
    def is_pointer(self):
        return self.kind not in ("length", "integer", "amount", "unsigned")


@dataclasses.dataclass(frozen=True)
class Section:
    en: str
    es: str
    only_if: str = ""


@dataclasses.dataclass(frozen=True)
class Note:
    en: str


@dataclasses.dataclass(frozen=True)
class Value:
    name: str = ""
    value: int = 0
    en: str = ""
    es: str = ""
    heading: str = ""  # a line of its own in the header, instead of a value


@dataclasses.dataclass(frozen=True)
class Enum:
    name: str
    en: str
    title: str
    values: tuple

    @property
    def constants(self):
        return [value for value in self.values if not value.heading]


@dataclasses.dataclass(frozen=True)
class Field:
    name: str
    kind: str
    en: str
    es: str
    returns: str = "integer"
    arguments: tuple = ()


@dataclasses.dataclass(frozen=True)
class Record:
    name: str
    en: str
    title: str
    fields: tuple


@dataclasses.dataclass(frozen=True)
class Function:
    name: str
    nature: str
    number: int
    section: Section
    since: str
    done: int
    failed: int
    frames: str
    wait: str
    log: str
    causes: tuple
    title: str
    result: str
    en: str = ""
    purpose: str = ""
    writes: str = ""
    trouble: str = ""
    families: dict = dataclasses.field(default_factory=dict)
    returns: str = "integer"
    arguments: tuple = ()
    example: tuple = ()

    @property
    def stack(self):
        return sum(argument.stack for argument in self.arguments)

    @property
    def examples(self):
        """{argument's name: its value in the example}."""
        named = [argument for argument in self.arguments if KINDS[argument.kind].in_example]
        return {argument.name: value for argument, value in zip(named, self.example)}


@dataclasses.dataclass(frozen=True)
class Table:
    header: str
    version: str
    rows: tuple  # Section, Note, Enum, Record and Function, in the order of the header
    causes: tuple  # causes.Cause

    def of(self, kind):
        return [row for row in self.rows if isinstance(row, kind)]

    @property
    def functions(self):
        return self.of(Function)

    @property
    def hosts_functions(self):
        """Those that programs call: the system alone calls what a section declares under a condition."""
        return [row for row in self.functions if not row.section.only_if]

    @property
    def sections(self):
        """[(section, its functions)], of those that programs call."""
        sections = [row for row in self.of(Section) if not row.only_if]
        return [(section, [row for row in self.functions if row.section is section])
                for section in sections]

    @property
    def enums(self):
        """Those of the table and that of the causes, which has a file of its own."""
        values = tuple(Value(name=cause.name, value=cause.number, es=cause.what) for cause in self.causes)
        return [*self.of(Enum), Enum("KestraCausa", "", "Por qué terminó así una llamada", values)]


def only(row, known, what):
    unknown = set(row) - set(known)
    if unknown:
        raise Wrong(f"{what}: no such key: {', '.join(sorted(unknown))}")


def text(row, key):
    return row.get(key, "").strip("\n")


def read_arguments(row, what):
    arguments = []
    for given in row.get("arguments", []):
        only(given, ("name", "kind", "bytes", "es"), what)
        argument = Argument(**given)
        if argument.kind not in KINDS:
            raise Wrong(f"{what}: {argument.name}: no such kind: {argument.kind}")
        if (argument.kind in WITH_BYTES) != (argument.bytes > 0):
            raise Wrong(f"{what}: {argument.name}: bytes are for {' and '.join(WITH_BYTES)}, and needed there")
        if (argument.kind == "length") != bool(arguments and arguments[-1].kind == "buffer"):
            raise Wrong(f"{what}: {argument.name}: a length stands behind its buffer, a buffer before its length")
        arguments.append(argument)
    return tuple(arguments)


def check_example(function):
    wanted = [argument for argument in function.arguments if KINDS[argument.kind].in_example]
    if function.nature != "components" and len(function.example) != len(wanted):
        raise Wrong(f"{function.name}: {len(wanted)} values make an example, not {len(function.example)}")
    for argument, value in zip(wanted, function.example):
        if isinstance(value, str) != (argument.kind in ("text", "terminated")):
            raise Wrong(f"{function.name}: {argument.name}: {value!r} is no {argument.kind}")
        if argument.kind == "text" and len(value) > argument.bytes:
            raise Wrong(f"{function.name}: {argument.name}: {value!r} is longer than {argument.bytes}")


def read_function(row, section, natures, first_version, known_causes):
    name = row["function"]
    only(row, ("function", "nature", "number", "since", "en", "returns", "arguments", "example", "done", "failed",
               "frames", "wait", "log", "families", "causes", "es"), name)
    only(row["es"], ("title", "purpose", "result", "writes", "trouble"), name)
    if row["nature"] not in NATURES:
        raise Wrong(f"{name}: no such nature: {row['nature']}")
    common = natures[row["nature"]]
    of = {key: row.get(key, common.get(key)) for key in ("done", "failed", "frames", "wait", "log")}
    if None in of.values():
        raise Wrong(f"{name}: neither the row nor its nature says: {[key for key in of if of[key] is None]}")
    if row.get("returns", "integer") not in RETURNS:
        raise Wrong(f"{name}: returns {row['returns']}")
    unknown = [cause for cause in row.get("causes", []) if f"KESTRA_CAUSA_{cause}" not in known_causes]
    if unknown:
        raise Wrong(f"{name}: no such cause: {', '.join(unknown)}")
    es = row["es"]
    function = Function(
        name=name, nature=row["nature"], number=row["number"], section=section, since=row.get("since", first_version),
        causes=tuple(dict.fromkeys([*row.get("causes", []), *common["causes"]])), title=es["title"],
        result=es.get("result", common["es"]["result"]), en=text(row, "en"), purpose=es.get("purpose", ""),
        writes=es.get("writes", ""), trouble=es.get("trouble", ""), families=row.get("families", {}),
        returns=row.get("returns", "integer"), arguments=read_arguments(row, name),
        example=tuple(row.get("example", [])), **of)
    check_example(function)
    return function


def read_enum(row):
    only(row, ("enum", "en", "es", "values"), row["enum"])
    return Enum(row["enum"], text(row, "en"), row["es"]["title"], tuple(Value(**value) for value in row["values"]))


def read_record(row):
    what = row["record"]
    only(row, ("record", "en", "es", "fields"), what)
    fields = [Field(field["name"], field["kind"], text(field, "en"), field["es"], field.get("returns", "integer"),
                    read_arguments(field, what)) for field in row["fields"]]
    return Record(what, text(row, "en"), row["es"]["title"], tuple(fields))


def read_rows(document, known_causes):
    section = None
    for row in document["row"]:
        if "section" in row:
            only(row, ("section", "es", "only_if"), row["section"])
            section = Section(row["section"], row["es"]["title"], row.get("only_if", ""))
            yield section
        elif "note" in row:
            only(row, ("note",), "a note")
            yield Note(text(row, "note"))
        elif "enum" in row:
            yield read_enum(row)
        elif "record" in row:
            yield read_record(row)
        elif "function" in row:
            yield read_function(row, section, document["nature"], document["first_version"], known_causes)
        else:
            raise Wrong(f"a row is a section, note, enum, record or function; this one has {sorted(row)}")


def project_version(root):
    return re.search(r"project\(kestra VERSION (\S+)", (root / "CMakeLists.txt").read_text(encoding="utf-8"))[1]


def read(root=ROOT):
    with (root / "api/kestra.toml").open("rb") as file:
        document = tomllib.load(file)
    known = causes.read(root)
    rows = tuple(read_rows(document, {cause.name for cause in known}))
    table = Table(text(document["header"], "en"), project_version(root), rows, known)
    names = [row.name for row in table.functions]
    numbers = sorted(row.number for row in table.functions)
    if len(set(names)) != len(names):
        raise Wrong("a function has two rows")
    if numbers != list(range(len(numbers))):
        raise Wrong(f"the rows' numbers are 0 to {len(numbers) - 1}, each once: {numbers}")
    return table
