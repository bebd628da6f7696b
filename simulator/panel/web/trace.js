// The trace: a row for each exchange, which opens into the frame taken apart.

import { moment } from "./figures.js";

const KEPT = 200;

export function element(name, properties = {}, ...children) {
  const made = Object.assign(document.createElement(name), properties);
  made.append(...children.filter((child) => child !== null));
  return made;
}

export function fillPairs(list, pairs) {
  list.replaceChildren(...pairs.flatMap(([name, value, kind]) => [
    element("dt", { textContent: name }),
    element("dd", { textContent: value, className: kind ?? "" }),
  ]));
}

const CONTROL_NAMES = {
  "02": "STX", "03": "ETX", "06": "ACK", "12": "DC2", "15": "NAK", "1C": "FS", "7F": "DEL",
};

// Hexadecimal in rows of sixteen, with what can be read beside it.
function bytesText(hex) {
  const bytes = hex === "" ? [] : hex.split(" ");
  const rows = [];
  for (let i = 0; i < bytes.length; i += 16) {
    const row = bytes.slice(i, i + 16);
    const words = row.map((byte) => {
      const code = parseInt(byte, 16);
      if (CONTROL_NAMES[byte]) return `‹${CONTROL_NAMES[byte]}›`;
      return code >= 0x20 && code < 0x7f ? String.fromCharCode(code) : "·";
    });
    rows.push(row.join(" ").padEnd(50) + words.join(""));
  }
  return rows.join("\n") || "nada";
}

function seconds(micros) {
  return (micros / 1000).toLocaleString("es-AR", { maximumFractionDigits: micros < 10000 ? 2 : 0 });
}

function fieldsText(fields) {
  return fields.filter((field) => field.valor !== "")
    .map((field) => `${field.nombre}=${field.valor}`).join(", ");
}

function group(title, pairs) {
  if (pairs.length === 0) return null;
  const list = element("dl", { className: "pairs" });
  fillPairs(list, pairs);
  return element("section", {}, element("h3", { textContent: title }), list);
}

function bytesGroup(title, hex) {
  return element("section", { className: "bytes" }, element("h3", { textContent: title }),
    element("pre", { textContent: bytesText(hex) }));
}

function takeApart(exchange) {
  const { comando, respuesta } = exchange;
  const apart = element("div", { className: "apart" });
  apart.append(group("Cuándo", [
    ["fecha y hora", moment(exchange.hora)], ["tardó", `${seconds(exchange.demora_us)} ms`]]));
  if (comando) {
    const own = [["secuencia", exchange.secuencia], ["byte", comando.byte]];
    const fields = comando.campos.map((field) => [field.nombre, field.valor || "vacío"]);
    apart.append(group(`${comando.nombre}: campos`, [...own, ...fields]));
  }
  if (respuesta) {
    const { impresora, fiscal } = respuesta;
    const data = respuesta.datos.map((field) => [field.nombre, field.valor || "vacío"]);
    apart.append(group("Respuesta", [
      [`impresora ${impresora.palabra}`, wordsOf(impresora), impresora.error ? "wrong" : ""],
      [`fiscal ${fiscal.palabra}`, wordsOf(fiscal), fiscal.error ? "wrong" : ""],
      ...(respuesta.motivo ? [["motivo", respuesta.motivo, "wrong"]] : []),
      ...data,
    ]));
  }
  const faults = group("Fallas", exchange.fallas.map((words, i) => [`${i + 1}`, words]));
  if (faults) apart.append(faults);
  apart.append(bytesGroup("Bytes del comando", exchange.bytes.comando));
  apart.append(bytesGroup("Bytes de la respuesta", exchange.bytes.respuesta));
  return apart;
}

function cell(className, textContent, title = "") {
  return element("span", { className, textContent, title });
}

function wordsOf(part) {
  return part.condiciones.join(", ") || "en orden";
}

function word(part) {
  if (!part) return cell("", "");
  return cell(part.error ? "wrong" : "", part.palabra, wordsOf(part));
}

function commandWords(exchange) {
  if (!exchange.comando) return "Trama dañada";
  const again = exchange.resultado === "repetido" ? " (repetido)" : "";
  return `${exchange.comando.byte}  ${exchange.comando.nombre}${again}`;
}

function isBad(exchange) {
  const answer = exchange.respuesta;
  return !answer || answer.impresora.error || answer.fiscal.error;
}

function summaryOf(exchange) {
  const touched = exchange.fallas.length > 0;
  const fields = exchange.comando ? fieldsText(exchange.comando.campos) : "";
  return element("summary", { className: isBad(exchange) ? "failed" : "" },
    cell("", String(exchange.numero)),
    cell("time", exchange.hora.slice(-8)),
    cell(touched ? "touched" : "", commandWords(exchange)),
    cell(touched ? "touched" : "fields", touched ? `⚡ ${exchange.fallas.join("; ")}` : fields),
    word(exchange.respuesta?.impresora),
    word(exchange.respuesta?.fiscal),
    cell("ms", seconds(exchange.demora_us)));
}

export class Trace {
  constructor(list, follow, onlyErrors) {
    this.list = list;
    this.follow = follow;
    this.onlyErrors = onlyErrors;
    this.last = 0;
    onlyErrors.addEventListener("change", () => {
      for (const row of this.list.children) this.filter(row);
    });
  }

  clear() {
    this.list.replaceChildren();
  }

  // Rows that are there already, as after a broken connection, are not put twice.
  add(exchanges) {
    const fresh = exchanges.filter((exchange) => exchange.numero > this.last);
    if (fresh.length === 0) return;
    this.last = fresh.at(-1).numero;
    this.list.append(...fresh.slice(-KEPT).map((exchange) => this.row(exchange)));
    while (this.list.childElementCount > KEPT) this.list.firstElementChild.remove();
    if (this.follow.checked) this.list.scrollTop = this.list.scrollHeight;
  }

  restart(exchanges) {
    this.last = 0;
    this.clear();
    this.add(exchanges);
  }

  row(exchange) {
    const row = element("details", {}, summaryOf(exchange));
    row.dataset.bad = isBad(exchange) || exchange.fallas.length > 0 ? "1" : "";
    row.addEventListener("toggle", () => {
      if (row.open && row.childElementCount === 1) row.append(takeApart(exchange));
    });
    this.filter(row);
    return row;
  }

  filter(row) {
    row.hidden = this.onlyErrors.checked && !row.dataset.bad;
  }
}
