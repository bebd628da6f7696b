#!/usr/bin/env python3
"""The languages whose shop is tested, a row each.

    languages.py            name and packages of each, on a line
    languages.py NAME...    of these alone; ends with 1 when there is no such row
    languages.py --windows [NAME...]    how many bits those of them have that are Windows programs, each once
"""
import dataclasses
import os
import sys

ENV = os.environ


@dataclasses.dataclass(frozen=True)
class Language:
    """How a language's shop is made and run. {host} is a copy of its folder, with the other folders of hosts/ beside it."""
    name: str
    run: tuple  # the shop's command; --impresora-real goes behind it
    packages: tuple = ()  # Debian's; "program:package" where the program may also come from elsewhere
    build: tuple = ()  # commands, one after the other, in {host}
    environment: dict = dataclasses.field(default_factory=dict)  # beside what finds the library and its header
    example: tuple = ()  # its page's example: the file that it is put into, in {host}, and the command that runs it
    folder: str = ""  # in hosts/, where it is not the name
    windows: int = 0  # its bits, where it is a Windows program


PASCAL = ("fp-compiler-3.2.2", "fp-units-rtl-3.2.2", "fpc-source-3.2.2")
PASCAL_FOR_WINDOWS = ('pascal=$KESTRA_SOURCE/build/pascal && . "$KESTRA_SOURCE/scripts/pascal.sh" && '
                      'pascal_for_windows "$pascal" &&')

LANGUAGES = {row.name: row for row in [
    # From its wheel, with the library inside and none elsewhere; -P: the folder beside the shop is not it.
    Language("python", packages=("python3", "python3-build", "python3-setuptools", "python3-venv", "python3-wheel"),
             build=(("/usr/bin/python3", "-m", "build", "--wheel", "--no-isolation"), ("/usr/bin/python3", "-m", "venv", "venv"),
                    ("sh", "-c", "venv/bin/pip install --no-index dist/*.whl")),
             run=("{host}/venv/bin/python", "-P", "{host}/tienda.py"),
             example=("ejemplo.py", "{host}/venv/bin/python", "-P", "{host}/ejemplo.py"),
             environment={"KESTRA_BIBLIOTECA": ENV.get("KESTRA_LIBRARY", ""), "LD_LIBRARY_PATH": ""}),
    Language("python-sin-instalar", folder="python", packages=("python3",), run=("python3", "-B", "{host}/tienda.py")),
    Language("node", packages=("node:nodejs", "npm:npm"), run=("node", "{host}/tienda.mjs"),
             example=("ejemplo.mjs", "node", "{host}/ejemplo.mjs"),
             build=(("npm", "install", "--prefer-offline", "--no-audit", "--no-fund", "--no-package-lock"),)),
    Language("php", packages=("php8.2-cli",), run=("php", "{host}/tienda.php"),
             example=("ejemplo.php", "php", "{host}/ejemplo.php")),
    Language("perl", packages=("perl", "libffi-platypus-perl"), run=("perl", "{host}/tienda.pl"),
             example=("ejemplo.pl", "perl", "-I{host}/lib", "{host}/ejemplo.pl")),
    Language("ruby", packages=("ruby",), run=("ruby", "-w", "{host}/tienda.rb"),
             example=("ejemplo.rb", "ruby", "-w", "-I{host}/lib", "{host}/ejemplo.rb")),
    Language("luajit", packages=("luajit",), run=("luajit", "{host}/tienda.lua"),
             example=("ejemplo.lua", "luajit", "{host}/ejemplo.lua"), environment={"LUA_PATH": "{host}/?.lua;;"}),
    Language("gambas", packages=("gambas3-devel", "gambas3-runtime"), run=("gbr3", "{host}/tienda.gambas"),
             build=(("gbc3", "-a"), ("gba3", "-o", "tienda.gambas"))),
    Language("cpp", run=("{host}/tienda",), packages=("g++",),
             example=("ejemplo.cpp", "sh", "-c", "g++ -std=c++17 {host}/ejemplo.cpp -lkestra -o {host}/ejemplo && {host}/ejemplo"),
             build=(("g++", "-std=c++17", "tienda.cpp", "-lkestra", "-o", "tienda"),)),
    Language("csharp", run=("mono", "{host}/tienda.exe"), packages=("mono-mcs", "mono-runtime"),
             example=("ejemplo.cs", "sh", "-c", "(cd {host} && mcs -out:ejemplo.exe ejemplo.cs Impresora.cs Kestra.cs) && "
                      "mono {host}/ejemplo.exe"),
             build=(("mcs", "-out:tienda.exe", "tienda.cs", "Impresora.cs", "Kestra.cs"),)),
    Language("java", run=("java", "-cp", "{host}/clases:/usr/share/java/jna.jar", "Tienda"),
             packages=("openjdk-17-jdk-headless", "libjna-java"),
             example=("Ejemplo.java", "java", "-cp", "{host}/clases:/usr/share/java/jna.jar", "{host}/Ejemplo.java"),
             build=(("javac", "-encoding", "UTF-8", "-cp", "/usr/share/java/jna.jar", "-sourcepath", "src/main/java",
                     "-d", "clases", "src/main/java/Tienda.java"),)),
    Language("delphi", run=("{host}/tienda",), packages=("fp-compiler", "fp-units-rtl"),
             example=("ejemplo.pas", "sh", "-c", 'fpc -v0we -l- -Fl"$LIBRARY_PATH" {host}/ejemplo.pas >{host}/said && {host}/ejemplo'),
             build=(("sh", "-c", 'fpc -v0we -Fl"$LIBRARY_PATH" tienda.pas'),)),
    Language("go", run=("{host}/tienda_go",), packages=("go:golang-go", "gcc"),
             example=("tienda/ejemplo.go", "sh", "-c", "(cd {host} && go build -o ejemplo tienda/ejemplo.go) && {host}/ejemplo"),
             build=(("go", "build", "-o", "tienda_go", "./tienda"),)),
    Language("rust", run=("{host}/tienda",), packages=("rustc:rustc", "gcc"),
             example=("ejemplo.rs", "sh", "-c", "(cd {host} && rustc --edition 2021 --extern kestra=libkestra.rlib ejemplo.rs) && "
                      "{host}/ejemplo"),
             build=(("rustc", "--edition", "2021", "--crate-type", "rlib", "--crate-name", "kestra", "src/lib.rs"),
                    ("rustc", "--edition", "2021", "--extern", "kestra=libkestra.rlib", "examples/tienda.rs"))),
    Language("c", run=("{host}/tienda",), packages=("gcc",),
             example=("ejemplo.c", "sh", "-c", "gcc {host}/ejemplo.c -lkestra -o {host}/ejemplo && {host}/ejemplo"),
             build=(("gcc", "-std=c99", "-Wall", "-Wextra", "-Wpedantic", "-Werror", "tienda.c", "-lkestra", "-o", "tienda"),)),
    # Programs for Windows. What they are made with is no Windows program.
    *(Language(f"delphi-win{bits}", folder="delphi", windows=bits, packages=PASCAL, run=("{host}/tienda.exe",),
               build=(("bash", "-c", f'{PASCAL_FOR_WINDOWS} "$pascal/{compiler}" -Twin{bits} -n -v0we -Fu"$pascal/win{bits}" tienda.pas'),))
      for bits, compiler in ((32, "ppc386"), (64, "ppcx64"))),
    *(Language(f"go-win{bits}", folder="go", windows=bits, packages=("go:golang-go",), run=("{host}/tienda.exe",),
               build=(("go", "build", "-o", "tienda.exe", "./tienda"),), environment={"GOOS": "windows", "GOARCH": processor})
      for bits, processor in ((32, "386"), (64, "amd64"))),
    *(Language(f"{name}-win{bits}", folder=name, windows=bits, run=("{host}/tienda.exe",),
               build=(("sh", "-c", f'{processor}-w64-mingw32-{compiler} -static {source} "$KESTRA_IMPORT_{bits}" -o tienda.exe'),))
      for name, compiler, source in (("cpp", "g++ -std=c++17", "tienda.cpp"), ("c", "gcc", "tienda.c"))
      for bits, processor in ((32, "i686"), (64, "x86_64"))),
    Language("node-win32", folder="node", windows=32, packages=("npm:npm",),
             build=(("npm", "install", "--force", "--prefer-offline", "--no-audit", "--no-fund", "--no-package-lock",
                     "node-win-x86@22"),),
             run=("{host}/node_modules/node-win-x86/bin/node.exe", "{host}/tienda.mjs"),
             environment={"NODE_SKIP_PLATFORM_CHECK": "1"}),
]}


def main(names):
    bits = names[:1] == ["--windows"]
    names = names[bits:]
    unknown = [name for name in names if name not in LANGUAGES]
    for name in unknown:
        print(f"No test of hosts/{name}. There are: {' '.join(LANGUAGES)}", file=sys.stderr)
    chosen = [] if unknown else [LANGUAGES[name] for name in names or LANGUAGES]
    if bits:
        print(*sorted({row.windows for row in chosen} - {0}))
    else:
        for row in chosen:
            print(row.name, *row.packages)
    return bool(unknown)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
