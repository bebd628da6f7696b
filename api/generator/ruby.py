"""hosts/ruby/lib/kestra/declaraciones.rb, for Fiddle."""
from generator import hosts

TYPES = {"text": "TEXTO", "terminated": "TEXTO", "result": "BUFER", "buffer": "BUFER", "length": "ENTERO",
         "integer": "ENTERO", "amount": "DOBLE", "operator": "BUFER"}
HEAD = [
    "",
    "kestra = Kestra::Declaraciones.cargar; kestra['EP_Init'].call",
    "Un texto es una cadena con sus bytes exactos: texto.encode('Windows-1252').ljust(50)[0, 50]. Un búfer es una cadena",
    "de ese largo, que vuelve escrita. FUNCIONES da de cada una lo que devuelve y sus argumentos: [nombre, tipo, bytes].",
]
BEGINNING = """
require 'fiddle'

module Kestra
  module Declaraciones
    TEXTO = Fiddle::TYPE_CONST_STRING
    BUFER = Fiddle::TYPE_VOIDP
    ENTERO = Fiddle::TYPE_INT
    DOBLE = Fiddle::TYPE_DOUBLE
    NADA = Fiddle::TYPE_VOID
"""
END = """
    # stdcall es de Windows de 32 bits.
    def self.convencion
      Fiddle::Function.const_defined?(:STDCALL) && Fiddle::SIZEOF_VOIDP == 4 ? Fiddle::Function::STDCALL : Fiddle::Function::DEFAULT
    end

    def self.cargar(ruta = Gem.win_platform? ? 'Kestra.dll' : 'libkestra.so')
      biblioteca = Fiddle.dlopen(ruta)
      FUNCIONES.to_h do |nombre, (devuelve, argumentos)|
        [nombre, Fiddle::Function.new(biblioteca[nombre], argumentos.map { |a| a[1] }, devuelve, convencion)]
      end
    end
  end
end
"""


def declare(row):
    arguments = ", ".join(f"['{each.name}', {TYPES[each.kind]}, {each.bytes}]" for each in row.arguments)
    returned = "NADA" if row.returns == "nothing" else "ENTERO"
    return hosts.remarks(hosts.about(row), "      # ") + f"      '{row.name}' => [{returned}, [{arguments}]],\n"


def made(table):
    text = "# frozen_string_literal: true\n\n"
    text += hosts.remarks(hosts.beginning(table, "Ruby (Fiddle)") + HEAD, "# ") + BEGINNING
    for enum in table.enums:
        text += f"\n    # {enum.title}.\n"
        for value in enum.constants:
            text += f"    {value.name} = {value.value}" + (f" # {value.es}" if value.es else "") + "\n"
    text += "\n    FUNCIONES = {\n"
    for section, rows in table.sections:
        text += f"      # ---- {section.es} ----\n" + "".join(map(declare, rows))
    return {"hosts/ruby/lib/kestra/declaraciones.rb": text + "    }.freeze\n" + END}
