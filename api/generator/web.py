"""hosts/web/causas.js: the causes for the till in the browser, which calls no function of the library."""
import json

HEAD = """// Las causas, para la caja del navegador. Las hace api/generate a partir de docs/manual/causas.md.
// La puerta manda la frase entera; esto es para cuando falta.
export const CAUSAS = {
"""
END = """};

const SE_HIZO = {
  1: "", 2: "No se hizo.", 3: "No se hizo.", 4: "No se sabe si la operación se hizo: mire el papel antes de repetirla.",
  5: "Se hizo una parte.", 6: "No se hizo.",
};

/** La frase para el operador: qué pasó, si se hizo, qué hacer ahora. */
export function frase(causa, desenlace) {
  const [que, hacer] = CAUSAS[causa] ?? ["", ""];
  return [que, SE_HIZO[desenlace] ?? "", hacer].filter(Boolean).join(" ");
}
"""


def made(table):
    text = HEAD
    for cause in table.causes:
        words = json.dumps([cause.what, cause.advice], ensure_ascii=False)
        text += f"  // {cause.name}\n  {cause.number}: {words},\n"
    return {"hosts/web/causas.js": text + END}
