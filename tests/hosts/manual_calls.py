"""The manual's calls in the languages that run here: each language's program makes those of the days of which the manual
is made, in the frame that the manual shows, and says what came of each.
"""
import dataclasses
import pathlib
import sys

from shop import ENV

SOURCE = pathlib.Path(ENV["KESTRA_SOURCE"])
sys.path[:0] = [str(SOURCE / "api"), str(SOURCE / "docs/manual")]

from generator import table  # noqa: E402
from maker import days, first_ticket, languages, programs, till  # noqa: E402

TABLE = table.read(SOURCE)
FUNCTIONS = {row.name: row for row in TABLE.hosts_functions}
MODES = {True: 2, False: 1}  # of Kestra_Textos, by whether the language's texts are UTF-8


@dataclasses.dataclass(frozen=True)
class Row:
    """How a language's program is made and run. {host} is a copy of its folder."""
    language: str  # as the manual calls it
    result: str  # prints what the call gives
    build: tuple = ()  # commands, in {host}: those that only read the program, where nothing is to be built
    run: tuple = ()
    mark: str = 'print("{}")'  # prints a word
    begins: str = ""  # and ends: what is around a call, so that its buffers are its own
    ends: str = ""
    routine: str = ""  # the call of what `begins` begins, where that is a routine


C_BUILD = ("gcc", "-std=c99", "-Wall", "-Wextra", "-Werror")
JNA = "/usr/share/java/jna.jar"
ROWS = {
    "c": Row("C", 'printf("%d\\n", (int){});', (C_BUILD + ("llamadas.c", "-lkestra", "-o", "llamadas"),), ("{host}/llamadas",),
             'puts("{}");', "{{", "}}"),
    "cpp": Row("C", 'printf("%d\\n", (int){});', (("g++", "-std=c++17", "-x", "c++", "-Wall", "-Wextra", "-Werror", "llamadas.c", "-lkestra",
                                              "-o", "llamadas"),), ("{host}/llamadas",), 'puts("{}");', "{{", "}}"),
    "python-sin-instalar": Row("Python", "print({})", (("python3", "-B", "-m", "py_compile", "llamadas.py"),),
                               ("python3", "-B", "{host}/llamadas.py")),
    "node": Row("Node.js", "console.log({});", (("node", "--check", "llamadas.mjs"),), ("node", "{host}/llamadas.mjs"),
                "console.log('{}');", "{{", "}}"),
    "php": Row("PHP", 'echo {}, "\\n";', (("php", "-l", "llamadas.php"),), ("php", "{host}/llamadas.php"), 'echo "{}\\n";'),
    "perl": Row("Perl", 'print {}, "\\n";', (("perl", "-c", "llamadas.pl"),), ("perl", "{host}/llamadas.pl"), 'print "{}\\n";', "{{", "}}"),
    "ruby": Row("Ruby", "puts {}", (("ruby", "-wc", "llamadas.rb"),), ("ruby", "-w", "{host}/llamadas.rb"), 'puts "{}"'),
    "luajit": Row("LuaJIT", "print({})", (("luajit", "-bl", "llamadas.lua"),), ("luajit", "{host}/llamadas.lua"), 'print("{}")', "do", "end"),
    "gambas": Row("Gambas", "Print {}", (("sed", "-i", "s/^Startup=.*/Startup=Llamadas/", ".project"), ("gbc3", "-a"),
                                        ("gba3", "-o", "llamadas.gambas")), ("gbr3", "{host}/llamadas.gambas"), 'Print "{}"',
                  "Private Sub Llamada{}()", "End", "Llamada{}"),
    "csharp": Row("C#", "Console.WriteLine({});", (("mcs", "-warn:4", "-out:llamadas.exe", "llamadas.cs", "Kestra.cs"),),
                  ("mono", "{host}/llamadas.exe"), 'Console.WriteLine("{}");', "{{", "}}"),
    "java": Row("Java", "System.out.println({});",
                (("javac", "-encoding", "UTF-8", "-cp", JNA, "-sourcepath", "src/main/java", "-d", "clases", "Llamadas.java"),),
                ("java", "-cp", "{host}/clases:" + JNA, "Llamadas"), 'System.out.println("{}");', "{{", "}}"),
    "delphi": Row("Delphi", "WriteLn({});", (("sh", "-c", 'fpc -v0we -l- -Fl"$LIBRARY_PATH" llamadas.pas'),), ("{host}/llamadas",),
                  "WriteLn('{}');", "procedure Llamada{};", "end;", "Llamada{};"),
    "go": Row("Go", "fmt.Println({})", (("go", "vet", "./llamadas"), ("go", "build", "-o", "llamadas_go", "./llamadas")), ("{host}/llamadas_go",),
              'fmt.Println("{}")', "{{", "}}"),
    "rust": Row("Rust", 'println!("{{}}", {});', (("rustc", "--edition", "2021", "--extern", "kestra=libkestra.rlib", "llamadas.rs"),),
                ("{host}/llamadas",), 'println!("{}");', "{{", "}}"),
}


def language_of(row):
    return next(language for language in languages.LANGUAGES if language.name == row.language)


def telling(row, program, function, values):
    """The lines of a call that says what it gives, and what each of its buffers has received."""
    made = languages.written(language_of(row), function, values)
    said = made.said if function.returns == "nothing" else row.result.format(made.said.removesuffix(";"))
    shown = [program.shown.format(n=name) for name in made.buffers]
    return made.variables, [row.mark.format(function.name), *made.before, said, *shown]


def block(row, number, variables, code):
    """What is around the call, so that its buffers are its own."""
    parted = [*variables, "begin", *code] if row.language == "Delphi" else [*variables, *code]
    inside = ["  " + line for lines in parted for line in lines.split("\n")] if row.begins else "\n".join(parted).split("\n")
    return "\n".join([row.begins.format(number), *inside, row.ends.format(number)]).strip("\n")


def program_of(row, calls):
    """The program that makes these calls: [(name, values or None for the table's example)]."""
    program = programs.PROGRAMS[row.language]
    blocks = [block(row, number, *telling(row, program, FUNCTIONS[name], values)) for number, (name, values) in enumerate(calls)]
    if not row.routine:
        return programs.filled(program, "\n".join(blocks))
    made = "\n".join(row.routine.format(number) for number in range(len(calls)))
    if row.language == "Delphi":
        return programs.filled(program, made, "\n".join(blocks))
    return programs.filled(program, made) + "\n" + "\n\n".join(blocks) + "\n"


def calls_of(row, day):
    """The day as the language lives it: what the system alone calls is left out, and texts go as they are."""
    mode = MODES[row.language in languages.UTF_8]
    return [("Kestra_Textos", (mode,)), *((name, values) for name, values in day.calls if name in FUNCTIONS)]


def result_of(call, mode):
    """What the call gives in that mode: the length of a text is in the bytes that it has there."""
    if call.name == "Kestra_Textos":
        return mode
    [text] = call.written.values() or [""] if len(call.written) < 2 else [""]
    return len(text.encode("utf-8")) if mode == 2 and text and call.result == len(text) else call.result


def told(calls, mode):
    """What such a program says of the calls, as the manual's till had made them."""
    lines = ["Kestra_Textos", "0"]
    for call in calls:
        if call.name in FUNCTIONS:
            lines += [call.name, *([str(result_of(call, mode))] if FUNCTIONS[call.name].returns != "nothing" else []),
                      *call.written.values()]
    return lines


DAYS = days.days(TABLE)
EXAMPLES = [(name, None) for name in FUNCTIONS]
FUNCTIONS_OF_ALL = {row.name: row for row in TABLE.functions}
TICKETS = {ticket.folder: ticket for ticket in first_ticket.TICKETS}
code_of = first_ticket.code_of
live, settings, printer, Tools = till.live, till.settings, till.printer, till.Tools
