// The shop around the printer: its till, and what happens there.

import { moment } from "./figures.js";
import { element } from "./trace.js";

// ---- The till ----

const TILL_WORDS = {
  nadie: ["", "caja: nadie todavía", "Ninguna caja mandó nada desde que arrancó la impresora"],
  activa: ["good", "caja: activa", "La caja mandó algo en los últimos 15 segundos"],
  callada: ["still", "caja: en silencio", "La caja no manda nada desde hace más de 15 segundos"],
  ilegible: ["bad", "caja: no se entiende", "Llegan bytes que no forman tramas: ¿velocidad, otro programa?"],
  ocupada: ["bad", "otra caja en el puerto", "El puerto lo tiene otro programa"],
};

function tillTitle(till, words) {
  const lines = [words];
  if (till.momento) lines.push(`Última vez: ${moment(till.momento)}`);
  if (till.baudios) lines.push(`Impresora a ${till.baudios} baudios`);
  if (till.baudios && till.baudios_de_la_caja) lines.push(`Caja a ${till.baudios_de_la_caja} baudios`);
  return lines.join("\n");
}

export function showTill(chip, till) {
  const [look, label, words] = TILL_WORDS[till.estado];
  const since = till.estado === "callada" ? ` desde ${till.momento.slice(-8)}` : "";
  chip.className = `chip ${look}`;
  chip.lastElementChild.textContent = label + since;
  chip.title = tillTitle(till, words);
}

// How a till gets here, for each system; made anew only when it changes.
export function showConnections(list, till) {
  const text = JSON.stringify(till.conexion);
  if (list.dataset.shown === text) return;
  list.dataset.shown = text;
  list.replaceChildren(...till.conexion.map((row) => {
    const lines = element("pre", { textContent: `[Epson_Fiscal]\n${row.lineas}` });
    const copy = element("button", { type: "button", textContent: "Copiar" });
    copy.setAttribute("aria-label", `Copiar los renglones: ${row.sistema}`);
    copy.addEventListener("click", () => copyText(lines, copy));
    return element("section", {},
      element("div", { className: "bar" }, element("h3", { textContent: row.sistema }),
        element("span", { className: "space" }), copy),
      lines, row.nota ? element("p", { className: "quiet", textContent: row.nota }) : null);
  }));
}

// Where the browser lets nobody write to its clipboard, the lines are at least chosen.
async function copyText(lines, button) {
  getSelection().selectAllChildren(lines);
  try {
    await navigator.clipboard.writeText(lines.textContent);
    button.textContent = "Copiado";
  } catch {
    button.textContent = "Elegido";
  }
  setTimeout(() => { button.textContent = "Copiar"; }, 2000);
}

// ---- Scenes ----

// Whether what the scene began still goes on; one that is over at once never does.
function goesOn(scene, state, till) {
  if (scene.ocupa) return till?.estado === "ocupada";
  if (scene.reglas) return state.fallas.some((rule) => rule.regla === scene.reglas && !rule.terminada);
  return state.controles.some((control) => control.clave === scene.control && control.valor === true);
}

export class Scenes {
  // `play` is told the scene's key and whether it begins or ends.
  constructor(list, words, scenes, play) {
    this.scenes = scenes;
    this.words = words;
    list.replaceChildren(...scenes.map((scene) => {
      scene.button = element("button", { type: "button", textContent: scene.titulo, title: scene.que_pasa });
      scene.button.dataset.scene = scene.clave;
      scene.button.addEventListener("click", () => {
        const ends = scene.button.getAttribute("aria-pressed") === "true";
        play(scene.clave, !ends);
        words.textContent = ends ? "" : scene.que_pasa;
      });
      return element("li", {}, scene.button);
    }));
  }

  show(state, till) {
    for (const scene of this.scenes) {
      scene.button.setAttribute("aria-pressed", String(goesOn(scene, state, till)));
    }
  }
}

// ---- Examples of rules, in the family's own commands ----

const EXAMPLES = [
  "siempre: demorar 300 ms",
  "en la 2da respuesta de {ítem}: perder byte 5",
  "cada 3 respuestas: suma mala",
  "respuesta 1 de {cierre}: callar",
  "comando 1 de {apertura}: nak",
  "siempre con probabilidad 20%: ruido 8 bytes",
  "siempre: partir en 4 partes con 50 ms",
  "respuesta 1 de {subtotal}: ocupar 4 s",
  "respuesta 1 de {pago}: cambiar campo fiscal por \"06G0\"",
  "desde el renglón 40: sin_papel",
  "respuesta 2 de {ítem}: apagar 2 s",
  "desde la respuesta 5: velocidad 4800",
];

// A family that has both prints invoices: theirs come last.
export function examples(commands) {
  const own = (word) => commands.findLast((command) => command.palabra === word)?.byte ?? word;
  return EXAMPLES.map((example) => example.replace(/\{(.+?)\}/g, (_, word) => own(word)));
}
