"""hosts/web/causas.js: the causes for the till in the browser, which calls no function of the library."""
import json

HEAD = """// Las causas, para la caja del navegador. Las hace api/generate a partir de docs/manual/causas.md.
// La puerta manda la frase entera; esto es para cuando falta.
export const CAUSAS = {
"""
END = """};

// Por el desenlace, como lo dice la biblioteca.
const DESENLACES = [
  "",
  "La operación se hizo.",
  "La impresora no hizo la operación.",
  "La operación no se mandó a la impresora.",
  "No se sabe si la operación se hizo: mire el papel antes de repetirla.",
  "La operación se hizo solo en parte: mire el papel antes de seguir.",
  "La operación no se hizo.",
];

/** La frase para el operador: qué pasó, si se hizo, qué hacer ahora. */
export function frase(causa, desenlace) {
  const [que, hacer] = CAUSAS[causa] ?? ["", ""];
  return [que, DESENLACES[desenlace] ?? "", hacer].filter(Boolean).join(" ");
}
"""


def made(table):
    text = HEAD
    for cause in table.causes:
        words = json.dumps([cause.what, cause.advice], ensure_ascii=False)
        text += f"  // {cause.name}\n  {cause.number}: {words},\n"
    return {"hosts/web/causas.js": text + END}
