"""hosts/luajit/declaraciones.lua."""
from generator import c_like, hosts

HEAD = [
    "",
    'local k = require("declaraciones"); local kestra = k.cargar(); kestra.EP_Init()',
    'Un texto es una cadena de Lua completada con blancos; un búfer, ffi.new("char[?]", 9). Las constantes: k.KESTRA_...',
    "En un registro se nombran los campos: un nil entre los valores hace perder los que le siguen.",
]


def made(table):
    text = hosts.remarks(hosts.beginning(table, "LuaJIT") + HEAD, "-- ") + 'local ffi = require("ffi")\n\nffi.cdef[[\n'
    text += c_like.records(table, "__stdcall ") + c_like.prototypes(table, "__stdcall ") + "]]\n\nlocal k = {}\n"
    for enum in table.enums:
        text += f"\n-- {enum.title}.\n"
        for value in enum.constants:
            text += f"k.{value.name} = {value.value}" + (f" -- {value.es}" if value.es else "") + "\n"
    text += '\nfunction k.cargar(ruta)\n  return ffi.load(ruta or (ffi.os == "Windows" and "Kestra.dll" or "kestra"))\nend\n'
    text += "\n-- De cada función, sus argumentos: nombre, tipo, bytes (los que se leen, o se escriben a lo sumo).\nk.FUNCIONES = {\n"
    text += hosts.layer_rows(table, "  {{\"{}\", {{{}}}}},\n", '{{"{}", "{}", {}}}') + "}\n"
    return {"hosts/luajit/declaraciones.lua": text + "\nreturn k\n"}
