"""What each host language writes: its declare, cut out of the made file, and a call with the table's example."""
import dataclasses
import re


@dataclasses.dataclass(frozen=True)
class Language:
    name: str
    highlighter: str
    file: str      # where its declares are
    begins: str    # the first line of a declare; {} is the export's name
    ends: str      # its last line
    call: str      # {f} function, {a} arguments
    text: str = '"{}"'
    buffer: str = "{}"      # how a buffer is handed over
    before: str = ""        # a line for each buffer
    nothing: str = ""       # instead of a null pointer
    letters: str = ""       # instead of `text`, for one that is not all ASCII
    call_nothing: str = ""  # the call of what gives no result, where it is another
    ended: str = ""         # a buffer that the library ends with a zero, or a text that has one, where those are another type
    assigned: str = ""      # where a text has to be in a variable: how it comes into it
    begins_code: str = ""   # what parts variables from what is done with them
    ends_code: str = ""


C_LIKE_BUFFER = "char {n}[{s}] = \"\";"
LANGUAGES = (
    Language("C", "c", "include/kestra/kestra.h", r"^\S.* KESTRA_CALL {}\(|^\S.* {}\(", r";\s*$", "{f}({a});", before=C_LIKE_BUFFER, nothing="NULL"),
    Language("Python", "python", "hosts/python/kestra/_declaraciones.py", r'^\s*"{}":', r"\]\),?\s*$", "kestra.{f}({a})", 'b"{}"',
             before="{n} = ctypes.create_string_buffer({s})", nothing="None", letters='"{}".encode()'),
    Language("Visual Basic 6", "vb.net", "hosts/vb6/Kestra.bas", r"Declare \w+ {} ", r"", "Dim r As Long\nr = {f}({a})",
             before="Dim {n} As String\n{n} = Space$({s})", nothing="ByVal 0&",
             call_nothing="Call {f}({a})"),
    Language("VBA", "vb.net", "hosts/vba/KestraVBA.bas", r"Declare PtrSafe \w+ {} ", r"", "Dim r As Long\nr = {f}({a})",
             before="Dim {n} As String\n{n} = Space$({s})", nothing="ByVal 0&",
             call_nothing="Call {f}({a})"),
    Language("Delphi", "delphi", "hosts/delphi/Kestra.pas", r"^(function|procedure) {}\b", r"external ", "{f}({a});", "'{}'",
             before="var {n}: array[0..{t}] of AnsiChar;", nothing="nil", begins_code="begin", ends_code="end;"),
    Language("C#", "csharp", "hosts/csharp/Kestra.cs", r"static extern \w+ {}\(", r";\s*$", "Kestra.{f}({a});", 'T("{}")',
             before="var {n} = new byte[{s}];", nothing="IntPtr.Zero"),
    Language("VB.NET", "vb.net", "hosts/vbnet/Kestra.vb", r"Public (Function|Sub|Declare.*) {}\b", r"End |\)\s*As Integer\s*$", "Kestra.{f}({a})",
             'T("{}")', before="Dim {n}({t}) As Byte", nothing="IntPtr.Zero"),
    Language("FoxPro", "foxpro", "hosts/foxpro/kestra.prg", r"^DECLARE .*\b{} IN", r"[^;]\s*$", "? {f}({a})", before="{n} = SPACE({s})",
             buffer="@{}", nothing="0", call_nothing="{f}({a})"),
    Language("Java", "java", "hosts/java/kestra/Kestra.java", r"^\s+\w+ {}\(", r";\s*$", "kestra.{f}({a});", 't("{}")',
             before="byte[] {n} = new byte[{s}];", nothing="null"),
    Language("Go", "go", "hosts/go/declaraciones_linux.go", r"^func {}\(", r"^\}", "kestra.{f}({a})", 't("{}")',
             before="{n} := make([]byte, {s})", buffer="&{}[0]", nothing="nil"),
    Language("Node.js", "javascript", "hosts/node/declaraciones.mjs", r"^\s+{}: \{", r"\},?\s*$", "kestra.{f}({a});", "t('{}')",
             before="const {n} = Buffer.alloc({s});", nothing="null"),
    Language("PHP", "php", "hosts/php/declaraciones.h", r"^\S.* {}\(", r";\s*$", "$kestra->{f}({a});", '"{}"',
             before='${n} = FFI::new("char[{s}]");', buffer="${}", nothing="null"),
    Language("Ruby", "ruby", "hosts/ruby/lib/kestra/declaraciones.rb", r"^\s+'{}' =>", r"\],?\s*$", "kestra['{f}'].call({a})", "'{}'",
             before="{n} = \"\\0\" * {s}", nothing="nil"),
    Language("Perl", "perl", "hosts/perl/lib/Kestra/Declaraciones.pm", r"^\s+\['{}',", r"\],?\s*$", "$kestra{{{f}}}->({a});", "'{}'",
             before='my ${n} = "\\0" x {s};\nmy (${n}_en) = scalar_to_buffer(${n});', buffer="${}_en", nothing="undef"),
    Language("Rust", "rust", "hosts/rust/src/declaraciones.rs", r"^\s+pub fn {}\(", r";\s*$", "unsafe {{ {f}({a}) }};", '"{}\\0".as_ptr()',
             before="let mut {n} = [0u8; {s}];", buffer="{}.as_mut_ptr()", nothing="std::ptr::null()"),
    Language("LuaJIT", "lua", "hosts/luajit/declaraciones.lua", r"^\S.* {}\(", r";\s*$", "kestra.{f}({a})", '"{}"',
             before='local {n} = ffi.new("char[?]", {s})', nothing="nil"),
    Language("C++Builder", "c++", "hosts/cppbuilder/KestraBuilder.h", r"^\S.* {}\(", r";\s*$", "{f}({a});", before=C_LIKE_BUFFER, nothing="NULL"),
    Language("Harbour", "foxpro", "hosts/harbour/kestra.prg", r"^(FUNCTION|PROCEDURE) {}\(", r"^\s+RETURN ", "{f}( {a} )", before="{n} := Space( {s} )",
             buffer="@{}", nothing="NIL"),
    Language("Clarion", "text", "hosts/clarion/kestra.clw", r"^\s+{}\(", r"[^|]\s*$", "  r# = {f}({a})",
             before="{n}  STRING({s})", nothing="0", call_nothing="  {f}({a})", ended="{n}  CSTRING({s})", assigned="{n} = '{v}'",
             begins_code="  CODE"),
    Language("PowerBuilder", "text", "hosts/powerbuilder/kestra_externas.txt", r"^(FUNCTION|SUBROUTINE) .*\b{}\(", r"", "{f}({a})",
             before="string {n}\n{n} = Space({s})", nothing="0"),
    Language("Xojo", "vb.net", "hosts/xojo/Kestra.xojo_code", r"Soft Declare \w+ {} ", r"", "Kestra.{f}({a})", 'T("{}")',
             before="Var {n} As New MemoryBlock({s})", nothing="Nil"),
    Language("WinDev", "text", "hosts/windev/kestra_procedimientos.txt", r"^PROCEDURE {}\(", r"API\(", "{f}({a})", before='{n} is ANSI string = RepeatString(" ", {s})',
             nothing="0"),
    Language("Gambas", "qbasic", "hosts/gambas/Kestra.module", r"Extern {}\(", r"", "Kestra.{f}({a})", before="Dim {n} As Byte[] = New Byte[{s}]",
             buffer="{}.Data", nothing="Null"),
)
# Those whose texts are UTF-8; the others' are windows-1252.
UTF_8 = ("Python", "C#", "VB.NET", "Java", "Go", "Node.js", "PHP", "Ruby", "Perl", "Rust", "LuaJIT", "Xojo", "Gambas")
BEFORE_LINE = {"C#": r"\[DllImport", "VB.NET": r"<DllImport"}


def read(path):
    """hosts/ has files for old Windows tools among them."""
    data = path.read_bytes()
    try:
        text = data.decode("utf-8")
    except UnicodeDecodeError:
        text = data.decode("cp1252")
    return text.replace("\r\n", "\n").split("\n")


def found(root, file):
    """The file of that name in the language's folder: where in it is the language's own business."""
    folder, name = "/".join(file.split("/")[:2]), file.rpartition("/")[2]
    paths = sorted((root / folder).rglob(name))
    if len(paths) != 1:
        raise RuntimeError(f"{folder} has {len(paths)} files {name}")
    return paths[0]


class Declares:
    def __init__(self, root):
        self.lines = {language.name: read(found(root, language.file)) for language in LANGUAGES}

    def of(self, language, name):
        """The declare's lines, without the indent that they share; nothing where the language has none."""
        lines = self.lines[language.name]
        begins = re.compile(language.begins.replace("{}", name))
        for first, line in enumerate(lines):
            if begins.search(line):
                last = first
                while language.ends and not re.search(language.ends, lines[last]):
                    last += 1
                if before := BEFORE_LINE.get(language.name):
                    while first and re.search(before, lines[first - 1]):
                        first -= 1
                return without_indent(lines[first:last + 1])
        return ""


def without_indent(lines):
    indent = min(len(line) - len(line.lstrip()) for line in lines if line.strip())
    return "\n".join(line[indent:].rstrip() for line in lines)


def number(value):
    return f"{value:.2f}" if isinstance(value, float) and not value.is_integer() else str(int(value))


@dataclasses.dataclass
class Call:
    """What a program writes."""
    variables: list = dataclasses.field(default_factory=list)  # a line or two for each buffer, and for each text that has to be one
    before: list = dataclasses.field(default_factory=list)  # what those texts are
    said: str = ""
    buffers: list = dataclasses.field(default_factory=list)  # names of those that come back written


def handed_over(language, argument, example, made):
    """The argument as it stands in the call; what it needs before goes into `made`."""
    name = argument.name
    before = language.ended if argument.kind in ("buffer", "terminated") and language.ended else language.before
    if argument.kind in ("result", "buffer"):
        size = (argument.bytes or 400) + 1
        made.variables.append(before.format(n=name, s=size, t=size - 1))
        made.buffers.append(name)
        return language.buffer.format(name)
    if argument.kind == "length":
        return "400"
    if argument.kind in ("text", "terminated"):
        if not language.assigned:
            return (language.text if example.isascii() else language.letters or language.text).format(example)
        made.variables.append(before.format(n=name, s=argument.bytes or len(example) + 1))
        made.before.append(language.assigned.format(n=name, v=example))
        return name
    if argument.kind in ("amount", "integer"):
        value = number(example)
        return value + ".0" if language.name == "Rust" and argument.kind == "amount" and "." not in value else value
    return language.nothing


def written(language, function, values=None):
    """The call, with a buffer for each text that comes back; the table's example where no values are given."""
    taking = [argument.name for argument in function.arguments if argument.name in function.examples]
    examples = function.examples if values is None else dict(zip(taking, values))
    made = Call()
    handed = [handed_over(language, argument, examples.get(argument.name), made) for argument in function.arguments]
    template = language.call_nothing if function.returns == "nothing" and language.call_nothing else language.call
    made.said = template.format(f=function.name, a=", ".join(handed))
    return made


def call(language, function):
    """The table's example as lines."""
    made = written(language, function)
    code = [*made.before, made.said]
    if not (made.variables and language.begins_code):
        return "\n".join([*made.variables, *code])
    return "\n".join([*made.variables, language.begins_code, *("  " + line.strip() for line in code), language.ends_code]).rstrip()
