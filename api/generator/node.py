"""hosts/node/declaraciones.mjs, for koffi 2."""
from generator import hosts

# A Buffer goes as it is, and what the library writes is in it.
TYPES = {"text": "texto", "terminated": "texto", "result": "bufer", "buffer": "bufer", "length": "int32_t",
         "integer": "int32_t", "amount": "double", "operator": "KestraOperador *", "unsigned": "uint32_t",
         "context": "void *", "rows": "void *"}
HEAD = [
    "",
    "import koffi from 'koffi'; const kestra = declarar(koffi, 'libkestra.so'); kestra.EP_Init();",
    "Un texto es un Buffer con sus bytes exactos, y un búfer, un Buffer en cero.",
    "FUNCIONES da de cada una sus argumentos: [nombre, tipo, bytes]. Los bytes de un texto son los que se leen; los de",
    "un búfer, los que se escriben a lo sumo. En Windows de 32 bits la convención es stdcall; en los demás no cambia nada.",
]
END = """
export function declarar(koffi, ruta) {
  const biblioteca = koffi.load(ruta);
  const tipos = declararTipos(koffi);
  const funciones = { tipos };
  for (const [nombre, { devuelve, argumentos }] of Object.entries(FUNCIONES)) {
    const lista = argumentos.map(([, tipo]) => tipos[tipo] ?? tipo);
    funciones[nombre] = biblioteca.func('__stdcall', nombre, devuelve, lista);
  }
  return funciones;
}
"""


def returned(row):
    return "void" if row.returns == "nothing" else "int32_t"


def callback(field):
    kinds = {"terminated": "const char *", "context": "void *", "rows": "void *", "integer": "int32_t"}
    arguments = ", ".join(f"{kinds[each.kind]} {each.name}" for each in field.arguments)
    return f"{returned(field)} __stdcall Kestra{hosts.camel(field.name)}({arguments})"


def types(table):
    text = "\nfunction declararTipos(koffi) {\n"
    for field in hosts.callbacks(table):
        text += f"  // {field.es}\n  const {field.name} = koffi.proto('{callback(field)}');\n"
    rows, operator = (hosts.records(table)[name] for name in ("KestraFila", "KestraOperador"))
    kinds = {"integer": "'int32_t'", "unsigned": "'uint32_t'", "context": "'void *'", "terminated": "'const char *'"}
    for record in (rows, operator):
        text += f"  // {record.title}.\n  const {record.name} = koffi.struct('{record.name}', {{\n"
        for field in record.fields:
            kind = f"koffi.pointer({field.name})" if field.kind == "callback" else kinds[field.kind]
            text += f"    {field.name}: {kind}, // {field.es}\n"
        text += "  });\n"
    names = ", ".join(field.name for field in hosts.callbacks(table))
    return text + f"""  return {{
    texto: koffi.pointer('uint8_t'),
    bufer: koffi.pointer('uint8_t'),
    'KestraOperador *': koffi.pointer(KestraOperador),
    KestraFila, KestraOperador, {names},
  }};
}}
"""


def declare(row):
    arguments = [f"['{each.name}', '{TYPES[each.kind]}', {each.bytes}]" for each in row.arguments]
    text = hosts.remarks(hosts.about(row, 100), "  // ") + f"  {row.name}: {{ devuelve: '{returned(row)}', argumentos: ["
    if len(arguments) < 3:
        return text + ", ".join(arguments) + "] },\n"
    lines = [", ".join(arguments[at:at + 3]) + ",\n" for at in range(0, len(arguments), 3)]
    return text + "\n" + "".join(f"    {line}" for line in lines) + "  ] },\n"


def made(table):
    text = hosts.remarks(hosts.beginning(table, "Node.js (koffi 2)") + HEAD, "// ")
    for enum in table.enums:
        text += f"\n// {enum.title}.\n"
        for value in enum.constants:
            text += f"export const {value.name} = {value.value};" + (f" // {value.es}" if value.es else "") + "\n"
    text += "\nexport const FUNCIONES = {\n"
    for section, rows in table.sections:
        text += f"  // ---- {section.es} ----\n" + "".join(map(declare, rows))
    return {"hosts/node/declaraciones.mjs": text + "};\n" + types(table) + END}
