"""hosts/php/declaraciones.h, for FFI::cdef, and the constants."""
from generator import c_like, hosts

HEAD = [
    "",
    'Se usa con FFI::cdef(file_get_contents("declaraciones.h"), "libkestra.so"), o "Kestra.dll" en un PHP de 64 bits.',
    "Un texto es una cadena de PHP completada con blancos: str_pad(substr($texto, 0, 50), 50).",
    'Un búfer es FFI::new("char[9]").',
]


def made(table):
    head = "/*\n" + hosts.remarks(hosts.beginning(table, "PHP (FFI)") + HEAD, " * ") + " */\n"
    constants = "<?php\n" + hosts.remarks(hosts.beginning(table, "PHP: constantes")[:2], "// ")
    for enum in table.enums:
        constants += f"\n// {enum.title}.\n"
        for value in enum.constants:
            constants += f"const {value.name} = {value.value};" + (f" // {value.es}" if value.es else "") + "\n"
    constants += "\n// De cada función, sus argumentos: nombre, tipo, bytes (los que se leen, o se escriben a lo sumo).\n"
    constants += "const KESTRA_FUNCIONES = [\n"
    constants += hosts.layer_rows(table, "    '{}' => [{}],\n", "['{}', '{}', {}]") + "];\n"
    return {"hosts/php/declaraciones.h": head + c_like.records(table) + c_like.prototypes(table),
            "hosts/php/constantes.php": constants}
