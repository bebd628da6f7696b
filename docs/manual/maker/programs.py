"""What stands around the calls in each language that runs here: where its declares come from, and what makes bytes of a
text. The manual shows it, and tests/hosts builds and runs every call of the manual in it.
"""
import dataclasses
import re
import textwrap

from maker import languages

CALLS = "LLAMADAS"  # the line that the calls take, indented as it is
VARIABLES = "VARIABLES"  # and the buffers, where they do not stand among the calls


@dataclasses.dataclass(frozen=True)
class Program:
    file: str  # in the language's folder of hosts/
    frame: str
    shown: str  # prints what a buffer has received


PROGRAMS = {
    "C": Program("llamadas.c", """\
#include <kestra/kestra.h>
#include <stdio.h>

int main(void)
{
    LLAMADAS
    return 0;
}
""", "puts({n});"),
    "Python": Program("llamadas.py", """\
import ctypes

from kestra._declaraciones import cargar

kestra = cargar()
LLAMADAS
""", "print({n}.value.decode())"),
    "Delphi": Program("llamadas.pas", """\
program Llamadas;
{$IFDEF FPC}{$MODE DELPHI}{$ENDIF}
{$APPTYPE CONSOLE}
uses
  Kestra;
VARIABLES
begin
  LLAMADAS
end.
""", "WriteLn(PAnsiChar(@{n}));"),
    "C#": Program("llamadas.cs", """\
using System;
using System.Text;
using KestraFiscal;

static class Llamadas
{
    static byte[] T(string texto) => Encoding.UTF8.GetBytes(texto + "\\0");

    static void Main()
    {
        LLAMADAS
    }
}
""", "Console.WriteLine(Encoding.UTF8.GetString({n}).Split('\\0')[0]);"),
    "Java": Program("Llamadas.java", """\
import java.nio.charset.StandardCharsets;
import kestra.Kestra;

public final class Llamadas {
    static byte[] t(String texto) {
        return (texto + "\\0").getBytes(StandardCharsets.UTF_8);
    }

    public static void main(String[] argumentos) {
        Kestra kestra = Kestra.cargar();
        LLAMADAS
    }
}
""", "System.out.println(new String({n}, StandardCharsets.UTF_8).split(\"\\0\", 2)[0]);"),
    "Go": Program("llamadas/main.go", """\
package main

import (
	"bytes"
	"fmt"
	"runtime"

	"kestra"
)

func t(texto string) *byte {
	terminado := append([]byte(texto), 0)
	return &terminado[0]
}

func leido(bufer []byte) string {
	return string(bufer[:bytes.IndexByte(bufer, 0)])
}

func main() {
	runtime.LockOSThread() // todas las llamadas, en un mismo hilo
	LLAMADAS
}
""", "fmt.Println(leido({n}))"),
    "Node.js": Program("llamadas.mjs", """\
import koffi from 'koffi';
import { declarar } from './declaraciones.mjs';

const kestra = declarar(koffi, 'libkestra.so');
const t = (texto) => Buffer.from(texto + '\\0');
LLAMADAS
""", "console.log({n}.toString('utf8', 0, {n}.indexOf(0)));"),
    "PHP": Program("llamadas.php", """\
<?php
$kestra = FFI::cdef(file_get_contents(__DIR__ . '/declaraciones.h'), 'libkestra.so');
LLAMADAS
""", 'echo FFI::string(${n}), "\\n";'),
    "Ruby": Program("llamadas.rb", """\
require_relative 'lib/kestra/declaraciones'

kestra = Kestra::Declaraciones.cargar
LLAMADAS
""", "puts {n}.unpack1('Z*')"),
    "Perl": Program("llamadas.pl", """\
use strict;
use warnings;
use FindBin;
use lib "$FindBin::Bin/lib";
use FFI::Platypus 2.00;
use FFI::Platypus::Buffer 'scalar_to_buffer';
use Kestra::Declaraciones;

my %kestra = Kestra::Declaraciones::declarar(FFI::Platypus->new(api => 2, lib => 'libkestra.so'));
LLAMADAS
""", "print unpack('Z*', ${n}), \"\\n\";"),
    "Rust": Program("llamadas.rs", """\
use kestra::declaraciones::*;

fn main() {
    LLAMADAS
}
""", "println!(\"{{}}\", String::from_utf8_lossy({n}.split(|&byte| byte == 0).next().unwrap()));"),
    "LuaJIT": Program("llamadas.lua", """\
local ffi = require("ffi")

local kestra = require("declaraciones").cargar()
LLAMADAS
""", "print(ffi.string({n}))"),
    "Gambas": Program(".src/Llamadas.module", """\
' Gambas module file

Private Extern chdir(camino As String) As Integer In "libc:6"

Public Sub Main()

  chdir(Application.Dir) ' Gambas se mudó al directorio de su proyecto
  LLAMADAS

End
""", "Print String@({n}.Data)"),
}


def whole(language, functions):
    """A program that reads a line of the heading; nothing for a language that has none here."""
    program = PROGRAMS.get(language.name)
    if not program:
        return ""
    mode = 2 if language.name in languages.UTF_8 else 1
    reading = languages.written(language, functions["EP_GetEncabezado"], (1,))
    lines = [languages.written(language, functions[name], values).said for name, values in (("Kestra_Textos", (mode,)), ("EP_Init", ()))]
    shown = [program.shown.format(n=name) for name in reading.buffers]
    last = languages.written(language, functions["EP_Kill"]).said
    apart = VARIABLES in program.frame
    lines += [*([] if apart else reading.variables), reading.said, *shown, last]
    return filled(program, "\n".join(lines), "\n".join(reading.variables) if apart else "").rstrip()


def filled(program, calls, variables=""):
    """The program with these lines in it."""
    text = program.frame
    for mark, lines in ((CALLS, calls), (VARIABLES, variables)):
        text = re.sub(rf"(?m)^([ \t]*){mark}\n", lambda found, lines=lines: indented(lines, found[1]), text)
    return text


def indented(lines, indent):
    return textwrap.indent(lines, indent).rstrip("\n") + "\n" if lines else ""
