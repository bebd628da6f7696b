"""The declares of every language that is written without a compiler of its own here, and what is wrong with one.

Nothing here comes from what makes the declares: it reads them as the language would, and holds them against the
public header and the frozen list of exports.
"""
import dataclasses
import pathlib
import re
import typing

from languages import c_family, clarion, dotnet, foxpro, harbour, pascal, powerbuilder, visual_basic, windev, xharbour, xojo
from shapes import stack, width


@dataclasses.dataclass(frozen=True)
class Language:
    path: str
    read: typing.Callable
    encoding: str = "cp1252"
    pointer: int = 4
    tells_buffers: bool = True  # whether a declare says that what the library writes comes back
    record: str = "record"  # what stands for the operator's record


LANGUAGES = {
    "Visual Basic 6": Language("vb6/Kestra.bas", visual_basic.reader(), tells_buffers=False),
    "VBA before 7": Language("vba/KestraVBA.bas", visual_basic.reader(), tells_buffers=False),
    "VBA of 32 bits": Language("vba/KestraVBA.bas", visual_basic.reader({"vba7"}, safe=True), tells_buffers=False),
    "VBA of 64 bits": Language("vba/KestraVBA.bas", visual_basic.reader({"vba7", "win64"}, safe=True), pointer=8,
                               tells_buffers=False),
    "Visual FoxPro": Language("foxpro/kestra.prg", foxpro.read, record="int"),
    "Clarion": Language("clarion/kestra.clw", clarion.read, tells_buffers=False, record="int"),
    "PowerBuilder": Language("powerbuilder/kestra_externas.txt", powerbuilder.read, record="address"),
    "Xojo": Language("xojo/Kestra.xojo_code", xojo.read, encoding="utf-8", tells_buffers=False, record="buffer"),
    "WinDev": Language("windev/kestra_procedimientos.txt", windev.read, record="address"),
    "Harbour": Language("harbour/kestra.prg", harbour.read, record="address"),
    "xHarbour": Language("harbour/kestra_xharbour.prg", xharbour.read, record="address"),
    "Delphi": Language("delphi/Kestra.pas", pascal.read, tells_buffers=False),
    "C++Builder": Language("cppbuilder/KestraBuilder.h", c_family.read),
    "Visual Basic .NET": Language("vbnet/Kestra.vb", dotnet.reader("vb"), encoding="utf-8", tells_buffers=False),
    "C#": Language("csharp/Kestra.cs", dotnet.reader("cs"), encoding="utf-8", tells_buffers=False),
}

# What no language has, and why.
NOT_FOR_PROGRAMS = {
    "DllRegisterServer": "the system's installer calls it (regsvr32)",
    "DllUnregisterServer": "the system's installer calls it (regsvr32 /u)",
    "DllInstall": "the system's installer calls it (regsvr32 /i)",
    "DllGetClassObject": "the system's components call it, with types that these languages do not have",
    "DllCanUnloadNow": "the system's components call it",
}


def fitting_kinds(kind, language):
    """What a declare may have where the header has this. A language that does not tell a text that is read from one
    that is written always has a buffer; .NET has a second declare, whose IntPtr takes the operator back."""
    if kind == "text" and not language.tells_buffers:
        return {"buffer"}
    if kind == "record":
        return {language.record} | ({"address"} if language.path.endswith((".vb", ".cs")) else set())
    return {kind}


def text_of(source, language):
    """The file as the language reads it, line ends apart."""
    raw = pathlib.Path(source, "hosts", language.path).read_bytes()
    return raw.decode(language.encoding).replace("\r\n", "\n")


def header(source):
    """{export: its prototype} of the public header."""
    text = pathlib.Path(source, "include/kestra/kestra.h").read_text(encoding="utf-8")
    text = re.sub(r"^ *#.*$", "", text, flags=re.MULTILINE)
    return {declare.name: declare for declare in c_family.read(text)}


def frozen(source):
    """{export: bytes} of the frozen list."""
    text = pathlib.Path(source, "tests/api/frozen_exports.txt").read_text(encoding="ascii")
    return {name: int(count) for name, count in re.findall(r"^(\w+)@(\d+)$", text, re.MULTILINE)}


def complaints_of(declare, wanted, count, language):
    """What is wrong with one declare, in words that begin with its name."""
    if declare.export not in count:
        yield f"the library has no {declare.export}"
        return
    prototype, found = wanted[declare.export], list(declare.arguments)
    if declare.convention != "stdcall":
        yield f"{declare.convention}, not stdcall"
    if stack(found) != count[declare.export]:
        yield f"{stack(found)} bytes, not {count[declare.export]}"
    if len(found) != len(prototype.arguments):
        yield f"{len(found)} arguments, not {len(prototype.arguments)}"
        return
    for mine, its in zip(found, prototype.arguments):
        if mine.kind not in fitting_kinds(its.kind, language):
            yield f"{mine.name} is a {mine.kind}, not a {its.kind}"
        if width(mine.kind, language.pointer) != width(its.kind, language.pointer):
            yield f"{mine.name} is not as wide"
    if declare.result != prototype.result:
        yield f"gives {declare.result}, not {prototype.result}"


def complaints(declares, language, source):
    """What is wrong with the declares of a language: nothing, or a line for each thing."""
    wanted, count = header(source), frozen(source)
    lines = [f"{declare.name}: {line}" for declare in declares for line in complaints_of(declare, wanted, count, language)]
    exports = {declare.export for declare in declares}
    lines += [f"{name}: missing" for name in count if name not in exports and name not in NOT_FOR_PROGRAMS]
    lines += [f"{name}: not for programs" for name in exports if name in NOT_FOR_PROGRAMS]
    return lines
