"""hosts/perl/lib/Kestra/Declaraciones.pm, for FFI::Platypus."""
from generator import hosts

TYPES = {"text": "string", "terminated": "string", "result": "opaque", "buffer": "opaque", "length": "sint32",
         "integer": "sint32", "amount": "double", "operator": "opaque"}
HEAD = [
    "",
    "my %kestra = Kestra::Declaraciones::declarar($ffi);  $kestra{EP_Init}->();",
    "Un texto es una cadena de bytes con los suyos exactos: sprintf('%-50.50s', $texto). Un búfer es la dirección de una",
    "cadena de ese largo: my ($donde) = FFI::Platypus::Buffer::scalar_to_buffer($numero).",
    "@FUNCIONES da de cada una el nombre, lo que devuelve y sus argumentos: [nombre, tipo, bytes].",
]
END = """
sub declarar {
    my ($ffi) = @_;
    # stdcall es de Windows de 32 bits.
    $ffi->abi('stdcall') if $^O eq 'MSWin32' && $ffi->sizeof('opaque') == 4;
    return map { my ($nombre, $devuelve, @argumentos) = @$_;
                 ($nombre => $ffi->function($nombre => [map { $_->[1] } @argumentos] => $devuelve)) } @FUNCIONES;
}

1;
"""


def declare(row):
    arguments = "".join(f", ['{each.name}', '{TYPES[each.kind]}', {each.bytes}]" for each in row.arguments)
    returned = "void" if row.returns == "nothing" else "sint32"
    return hosts.remarks(hosts.about(row), "    # ") + f"    ['{row.name}', '{returned}'{arguments}],\n"


def made(table):
    text = hosts.remarks(hosts.beginning(table, "Perl (FFI::Platypus)") + HEAD, "# ")
    text += "package Kestra::Declaraciones;\n\nuse strict;\nuse warnings;\nuse utf8;\n"
    for enum in table.enums:
        text += f"\n# {enum.title}.\nuse constant {{\n"
        for value in enum.constants:
            text += f"    {value.name} => {value.value}," + (f" # {value.es}" if value.es else "") + "\n"
        text += "};\n"
    text += "\nour @FUNCIONES = (\n"
    for section, rows in table.sections:
        text += f"    # ---- {section.es} ----\n" + "".join(map(declare, rows))
    return {"hosts/perl/lib/Kestra/Declaraciones.pm": text + ");\n" + END}
