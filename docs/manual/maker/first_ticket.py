"""The first ticket in each language: the example of its page in hosts/, and how it is run."""
import dataclasses
import re

from maker.markdown import fence

COPIED = "/usr/local/share/kestra/hosts"  # where the library's installation leaves each language's folder
JNA = "/usr/share/java/jna.jar"


@dataclasses.dataclass(frozen=True)
class Ticket:
    """All from the folder of Fiscal.ini, with a copy of the language's folder in it."""
    name: str
    folder: str
    highlighter: str
    file: str  # where the example is saved, in the copy
    packages: str  # Debian's
    run: str  # commands, in the shell


TICKETS = (
    Ticket("Python", "python", "python", "tique.py", "python3", "python3 python/tique.py"),
    Ticket("C", "c", "c", "tique.c", "gcc libc6-dev", "gcc c/tique.c -lkestra -o tique\n./tique"),
    Ticket("C++", "cpp", "c++", "tique.cpp", "g++", "g++ -std=c++17 cpp/tique.cpp -lkestra -o tique\n./tique"),
    Ticket("C#", "csharp", "csharp", "tique.cs", "mono-mcs mono-runtime",
           "mcs -out:tique.exe csharp/tique.cs csharp/Impresora.cs csharp/Kestra.cs\nmono tique.exe"),
    Ticket("Delphi y Free Pascal", "delphi", "delphi", "ejemplo.pas", "fp-compiler fp-units-rtl",
           "fpc -Fudelphi -Fl/usr/local/lib delphi/ejemplo.pas\ndelphi/ejemplo"),
    Ticket("Java", "java", "java", "Ejemplo.java", "openjdk-17-jdk-headless libjna-java",
           f"javac -encoding UTF-8 -cp {JNA} -sourcepath java/src/main/java -d clases java/Ejemplo.java\n"
           f"java -cp clases:{JNA} Ejemplo"),
    Ticket("Go", "go", "go", "tique/main.go", "golang-go gcc", "(cd go && go build -o ../tique ./tique)\n./tique"),
    Ticket("Node.js", "node", "javascript", "tique.mjs", "nodejs npm", "(cd node && npm install)\nnode node/tique.mjs"),
    Ticket("PHP", "php", "php", "tique.php", "php8.2-cli", "php php/tique.php"),
    Ticket("Ruby", "ruby", "ruby", "tique.rb", "ruby", "ruby -Iruby/lib ruby/tique.rb"),
    Ticket("Perl", "perl", "perl", "tique.pl", "libffi-platypus-perl", "perl -Iperl/lib perl/tique.pl"),
    Ticket("LuaJIT", "luajit", "lua", "tique.lua", "luajit", "LUA_PATH='luajit/?.lua;;' luajit luajit/tique.lua"),
    Ticket("Rust", "rust", "rust", "tique.rs", "rustc libstd-rust-dev",
           "rustc --edition 2021 --crate-type rlib --crate-name kestra --out-dir rust rust/src/lib.rs\n"
           "rustc --edition 2021 --extern kestra=rust/libkestra.rlib -L /usr/local/lib rust/tique.rs\n./tique"),
    Ticket("Gambas", "gambas", "vb.net", ".src/Tienda.module", "gambas3-devel gambas3-runtime",
           "(cd gambas && gbc3 -a && gba3 -o ../tique.gambas)\ngbr3 tique.gambas"),
)
# Of Windows: their page tells what to do in the language's own tool.
ON_WINDOWS = (("Visual Basic 6", "vb6", "vb.net"), ("VBA", "vba", "vb.net"), ("VB.NET", "vbnet", "vb.net"), ("FoxPro", "foxpro", "foxpro"),
              ("Clarion", "clarion", "text"), ("C++Builder", "cppbuilder", "c++"), ("Harbour", "harbour", "foxpro"),
              ("PowerBuilder", "powerbuilder", "text"), ("WinDev", "windev", "text"), ("Xojo", "xojo", "vb.net"))


def section(root, folder, heading):
    """What a page of hosts/ says below the heading that begins so."""
    text = (root / "hosts" / folder / "README.md").read_text(encoding="utf-8")
    return re.search(rf"(?ms)^## {heading}[^\n]*\n(.*?)(?=^## |\Z)", text)[1].strip()


def example(root, folder, heading):
    return re.search(r"(?ms)^```\w+\n(.*?)^```$", section(root, folder, heading))[1].rstrip()


def code_of(root, ticket):
    first = "' Gambas module file\n\n" if ticket.folder == "gambas" else ""
    return first + example(root, ticket.folder, "Usar")


def tab(name, text):
    return f"`````{{tab}} {name}\n{text.rstrip()}\n`````\n\n"


def made(root, mended):
    """A tab for each language; `mended` makes links of a page of hosts/ those of the manual."""
    text = ""
    for ticket in TICKETS:
        first = f"sudo apt-get install {ticket.packages}\ncp -r {COPIED}/{ticket.folder} ."
        if "/" in ticket.file and not (root / "hosts" / ticket.folder / ticket.file).parent.exists():
            first += f"\nmkdir {ticket.folder}/{ticket.file.rpartition('/')[0]}"
        text += tab(ticket.name, f"{fence('sh', first)}\n`{ticket.folder}/{ticket.file}`:\n\n{fence(ticket.highlighter, code_of(root, ticket))}\n"
                                 f"{fence('sh', ticket.run)}")
    for name, folder, highlighter in ON_WINDOWS:
        text += tab(name, f"De `hosts/{folder}`. {mended(section(root, folder, 'Instalar'))}\n\n"
                          f"{fence(highlighter, example(root, folder, 'Primer tique'))}\n"
                          "No se compiló con la herramienta del lenguaje: se leyó con sus reglas, y sus llamadas se hicieron en `Kestra.dll`.")
    return text
