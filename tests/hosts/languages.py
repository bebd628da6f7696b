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
class Example:
    """How the examples of a language's page are run: what stands there is put into a file, in {host}."""
    file: str
    run: tuple
    build: tuple = ()


@dataclasses.dataclass(frozen=True)
class Language:
    """How a language's shop is made and run. {host} is a copy of its folder, with the other folders of hosts/ beside it."""
    name: str
    run: tuple  # the shop's command; --impresora-real goes behind it
    packages: tuple = ()  # Debian's; "program:package" where the program may also come from elsewhere
    build: tuple = ()  # commands, one after the other, in {host}
    environment: dict = dataclasses.field(default_factory=dict)  # beside what finds the library and its header
    example: Example = None  # where its page has examples
    folder: str = ""  # in hosts/, where it is not the name
    windows: int = 0  # its bits, where it is a Windows program


PASCAL = ("fp-compiler-3.2.2", "fp-units-rtl-3.2.2", "fpc-source-3.2.2")


def pascal_for_windows(bits, source):
    compiler = {32: "ppc386", 64: "ppcx64"}[bits]
    return ("bash", "-c", 'pascal=$KESTRA_SOURCE/build/pascal && . "$KESTRA_SOURCE/scripts/pascal.sh" && '
            f'pascal_for_windows "$pascal" && "$pascal/{compiler}" -Twin{bits} -n -v0we -Fu"$pascal/win{bits}" {source}')


def mingw(bits, ending, name):
    processor = {32: "i686", 64: "x86_64"}[bits]
    compiler = {"c": "gcc", "cpp": "g++ -std=c++17"}[ending]
    return ("sh", "-c", f'{processor}-w64-mingw32-{compiler} -static {name}.{ending} "$KESTRA_IMPORT_{bits}" -o {name}.exe')


LANGUAGES = {row.name: row for row in [
    # From its wheel, with the library inside and none elsewhere; -P: the folder beside the shop is not it.
    Language("python", packages=("python3", "python3-build", "python3-setuptools", "python3-venv", "python3-wheel"),
             build=(("/usr/bin/python3", "-m", "build", "--wheel", "--no-isolation"), ("/usr/bin/python3", "-m", "venv", "venv"),
                    ("sh", "-c", "venv/bin/pip install --no-index dist/*.whl")),
             run=("{host}/venv/bin/python", "-P", "{host}/tienda.py"),
             example=Example("ejemplo.py", run=("{host}/venv/bin/python", "-P", "{host}/ejemplo.py")),
             environment={"KESTRA_BIBLIOTECA": ENV.get("KESTRA_LIBRARY", ""), "LD_LIBRARY_PATH": ""}),
    Language("python-sin-instalar", folder="python", packages=("python3",), run=("python3", "-B", "{host}/tienda.py")),
    Language("node", packages=("node:nodejs", "npm:npm"), run=("node", "{host}/tienda.mjs"),
             example=Example("ejemplo.mjs", run=("node", "{host}/ejemplo.mjs")),
             build=(("npm", "install", "--prefer-offline", "--no-audit", "--no-fund", "--no-package-lock"),)),
    Language("php", packages=("php8.2-cli",), run=("php", "{host}/tienda.php"),
             example=Example("ejemplo.php", run=("php", "{host}/ejemplo.php"))),
    Language("perl", packages=("perl", "libffi-platypus-perl"), run=("perl", "{host}/tienda.pl"),
             example=Example("ejemplo.pl", run=("perl", "-I{host}/lib", "{host}/ejemplo.pl"))),
    Language("ruby", packages=("ruby",), run=("ruby", "-w", "{host}/tienda.rb"),
             example=Example("ejemplo.rb", run=("ruby", "-w", "-I{host}/lib", "{host}/ejemplo.rb"))),
    Language("luajit", packages=("luajit",), run=("luajit", "{host}/tienda.lua"),
             example=Example("ejemplo.lua", run=("luajit", "{host}/ejemplo.lua")), environment={"LUA_PATH": "{host}/?.lua;;"}),
    Language("gambas", packages=("gambas3-devel", "gambas3-runtime"), run=("gbr3", "{host}/tienda.gambas"),
             build=(("gbc3", "-a"), ("gba3", "-o", "tienda.gambas")),
             example=Example(".src/Ejemplo.module", run=("gbr3", "{host}/ejemplo.gambas"),
                             build=(("sed", "-i", "s/^Startup=.*/Startup=Ejemplo/", ".project"), ("gbc3", "-a"),
                                    ("gba3", "-o", "ejemplo.gambas")))),
    Language("cpp", run=("{host}/tienda",), packages=("g++",),
             example=Example("ejemplo.cpp", run=("{host}/ejemplo",),
                             build=(("g++", "-std=c++17", "ejemplo.cpp", "-lkestra", "-o", "ejemplo"),)),
             build=(("g++", "-std=c++17", "tienda.cpp", "-lkestra", "-o", "tienda"),)),
    Language("csharp", run=("mono", "{host}/tienda.exe"), packages=("mono-mcs", "mono-runtime"),
             example=Example("ejemplo.cs", run=("mono", "{host}/ejemplo.exe"),
                             build=(("mcs", "-out:ejemplo.exe", "ejemplo.cs", "Impresora.cs", "Kestra.cs"),)),
             build=(("mcs", "-out:tienda.exe", "tienda.cs", "Impresora.cs", "Kestra.cs"),)),
    Language("java", run=("java", "-cp", "{host}/clases:/usr/share/java/jna.jar", "Tienda"),
             packages=("openjdk-17-jdk-headless", "libjna-java"),
             example=Example("Ejemplo.java", run=("java", "-cp", "{host}/clases:/usr/share/java/jna.jar", "{host}/Ejemplo.java")),
             build=(("javac", "-encoding", "UTF-8", "-cp", "/usr/share/java/jna.jar", "-sourcepath", "src/main/java",
                     "-d", "clases", "src/main/java/Tienda.java"),)),
    Language("delphi", run=("{host}/tienda",), packages=("fp-compiler", "fp-units-rtl"),
             example=Example("ejemplo.pas", run=("{host}/ejemplo",),
                             build=(("sh", "-c", 'fpc -v0we -Fl"$LIBRARY_PATH" ejemplo.pas'),)),
             build=(("sh", "-c", 'fpc -v0we -Fl"$LIBRARY_PATH" tienda.pas'),)),
    Language("go", run=("{host}/tienda_go",), packages=("go:golang-go", "gcc"),
             example=Example("tienda/ejemplo.go", run=("{host}/ejemplo",), build=(("go", "build", "-o", "ejemplo", "tienda/ejemplo.go"),)),
             build=(("go", "build", "-o", "tienda_go", "./tienda"),)),
    Language("rust", run=("{host}/tienda",), packages=("rustc:rustc", "gcc"),
             example=Example("ejemplo.rs", run=("{host}/ejemplo",),
                             build=(("rustc", "--edition", "2021", "--extern", "kestra=libkestra.rlib", "ejemplo.rs"),)),
             build=(("rustc", "--edition", "2021", "--crate-type", "rlib", "--crate-name", "kestra", "src/lib.rs"),
                    ("rustc", "--edition", "2021", "--extern", "kestra=libkestra.rlib", "examples/tienda.rs"))),
    Language("rust-cargo", folder="rust", run=("{host}/target/debug/examples/tienda",), packages=("cargo:cargo", "gcc"),
             build=(("cargo", "package", "--offline", "--no-verify", "--allow-dirty"),
                    ("cargo", "build", "--offline", "--example", "tienda")),
             example=Example("examples/ejemplo.rs", run=("{host}/target/debug/examples/ejemplo",),
                             build=(("cargo", "build", "--offline", "--example", "ejemplo"),))),
    Language("c", run=("{host}/tienda",), packages=("gcc",),
             example=Example("ejemplo.c", run=("{host}/ejemplo",), build=(("gcc", "ejemplo.c", "-lkestra", "-o", "ejemplo"),)),
             build=(("gcc", "-std=c99", "-Wall", "-Wextra", "-Wpedantic", "-Werror", "tienda.c", "-lkestra", "-o", "tienda"),)),
    # Programs for Windows. What they are made with is no Windows program.
    *(Language(f"delphi-win{bits}", folder="delphi", windows=bits, packages=PASCAL, run=("{host}/tienda.exe",),
               build=(pascal_for_windows(bits, "tienda.pas"),),
               example=Example("ejemplo.pas", run=("{host}/ejemplo.exe",), build=(pascal_for_windows(bits, "ejemplo.pas"),)))
      for bits in (32, 64)),
    *(Language(f"go-win{bits}", folder="go", windows=bits, packages=("go:golang-go",), run=("{host}/tienda.exe",),
               build=(("go", "build", "-o", "tienda.exe", "./tienda"),), environment={"GOOS": "windows", "GOARCH": processor},
               example=Example("tienda/ejemplo.go", run=("{host}/ejemplo.exe",),
                               build=(("go", "build", "-o", "ejemplo.exe", "tienda/ejemplo.go"),)))
      for bits, processor in ((32, "386"), (64, "amd64"))),
    *(Language(f"{name}-win{bits}", folder=name, windows=bits, run=("{host}/tienda.exe",),
               build=(mingw(bits, name, "tienda"),),
               example=Example(f"ejemplo.{name}", run=("{host}/ejemplo.exe",), build=(mingw(bits, name, "ejemplo"),)))
      for name in ("cpp", "c") for bits in (32, 64)),
    Language("node-win32", folder="node", windows=32, packages=("npm:npm",),
             build=(("npm", "install", "--force", "--prefer-offline", "--no-audit", "--no-fund", "--no-package-lock",
                     "node-win-x86@22"),),
             run=("{host}/node_modules/node-win-x86/bin/node.exe", "{host}/tienda.mjs"),
             example=Example("ejemplo.mjs", run=("{host}/node_modules/node-win-x86/bin/node.exe", "{host}/ejemplo.mjs")),
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
