import { isoMoment, moment, money } from "./figures.js";
import { Scenes, examples, showConnections, showTill } from "./shop.js";
import { Trace, element, fillPairs } from "./trace.js";

const KEPT_LINES = 1500;
const AT_HAND = ["sin_papel", "tapa_abierta", "fuera_de_linea", "bateria_baja"];
const TILL_LOOK = 2000;

const at = (id) => document.getElementById(id);
const trace = new Trace(at("trace"), at("follow"), at("only-errors"));

// ---- Talking to the printer ----

let noticeTimer = 0;

function notice(words) {
  at("notice").textContent = words;
  clearTimeout(noticeTimer);
  noticeTimer = setTimeout(() => { at("notice").textContent = ""; }, 6000);
}

async function ask(path, method = "GET", body = undefined) {
  const options = { method };
  if (method === "POST") {
    options.headers = { "Content-Type": "application/json" };
    options.body = JSON.stringify(body ?? {});
  }
  const answer = await fetch(path, options);
  const json = await answer.json();
  if (!answer.ok) throw new Error(json.error ?? `error ${answer.status}`);
  return json;
}

// Does it and shows what came of it, or why not.
async function act(path, method, body) {
  try {
    return await ask(path, method, body);
  } catch (error) {
    notice(error.message);
    return null;
  }
}

async function change(key, value) {
  const state = await act("/api/controles", "POST", { [key]: value });
  showState(state ?? lastState);
}

// ---- Paper ----

const STYLES = {
  centrado: "centre", fuerte: "strong", fuerte_centrado: "strong centre", ancho: "wide",
  ancho_centrado: "wide centre", logo: "logo", corte: "cut",
};

let columns = 40;
let knownEvent = 0;
let waitingLines = [];

function paperLine({ texto, estilo }) {
  const line = element("p", { className: STYLES[estilo] ?? "" });
  if (estilo === "raya") line.textContent = texto.repeat(columns);
  else if (estilo.startsWith("ancho")) line.append(element("span", { textContent: texto }));
  else if (estilo !== "corte") line.textContent = texto;
  return line;
}

function showLines() {
  const paper = at("paper");
  const table = paper.parentElement;
  const atEnd = table.scrollHeight - table.scrollTop - table.clientHeight < 60;
  paper.append(...waitingLines.slice(-KEPT_LINES).map(paperLine));
  waitingLines = [];
  while (paper.childElementCount > KEPT_LINES) paper.firstElementChild.remove();
  if (atEnd) table.scrollTop = table.scrollHeight;
}

function addLine(line) {
  if (waitingLines.push(line) === 1) requestAnimationFrame(showLines);
}

function showRoll({ evento, columnas, lineas }) {
  columns = columnas;
  knownEvent = evento;
  waitingLines = [];
  const paper = at("paper");
  paper.classList.toggle("form", columnas > 40);
  paper.replaceChildren(...lineas.slice(-KEPT_LINES).map(paperLine));
  paper.parentElement.scrollTop = paper.parentElement.scrollHeight;
}

// ---- Documents ----

function nameOf(receipt) {
  const number = receipt.numero ? ` ${String(receipt.numero).padStart(8, "0")}` : "";
  const letter = receipt.letra ? ` ${receipt.letra}` : "";
  const total = receipt.clase === "fiscal" ? ` · $ ${money(receipt.total)}` : "";
  return `${receipt.titulo}${letter}${number}${receipt.anulado ? " · cancelado" : total}`;
}

function addDocument(receipt) {
  const list = at("shown");
  list.options[0].after(element("option", {
    value: String(receipt.ordinal), textContent: nameOf(receipt),
  }));
  while (list.options.length > 51) list.lastElementChild.remove();
}

function showDocuments(receipts) {
  const list = at("shown");
  while (list.options.length > 1) list.lastElementChild.remove();
  receipts.forEach(addDocument);
  showChosen();
}

function showChosen() {
  const chosen = at("shown").value;
  const picture = `/api/documentos/${chosen}/papel.svg`;
  at("paper").hidden = chosen !== "";
  at("sheet").hidden = at("picture").hidden = chosen === "";
  if (chosen === "") return;
  at("sheet").src = at("picture").href = picture;
  at("sheet").alt = at("shown").selectedOptions[0].textContent;
}

// ---- State ----

let lastState = null;

function lampRow(lamp) {
  const button = element("button", { type: "button", className: "lamp" },
    element("span", { className: "dot" }),
    element("span", { className: "name", textContent: lamp.nombre }),
    element("code", { textContent: lamp.bit }));
  button.dataset.key = lamp.clave;
  button.addEventListener("click", () => {
    const forced = button.classList.contains("forced");
    change(lamp.clave, forced ? null : !button.classList.contains("on"));
  });
  return element("li", {}, button);
}

function showWord(word, code, list) {
  code.textContent = word.palabra;
  if (list.childElementCount === 0) list.append(...word.lamparas.map(lampRow));
  word.lamparas.forEach((lamp, i) => {
    const button = list.children[i].firstElementChild;
    button.classList.toggle("on", lamp.encendida);
    button.classList.toggle("fault", lamp.error);
    button.classList.toggle("forced", lamp.forzada !== null);
    button.setAttribute("aria-pressed", String(lamp.encendida));
    button.title = `${lamp.nombre} (${lamp.bit})${lamp.forzada === null ? "" : ": forzada"}`;
  });
}

function switchRow(control) {
  const box = element("input", { type: "checkbox", id: `control-${control.clave}` });
  box.setAttribute("role", "switch");
  box.addEventListener("change", () => change(control.clave, box.checked));
  return element("li", {}, element("label", {}, box, control.nombre));
}

function numberRow(control) {
  const number = control.clase === "numero";
  const box = element("input", { id: `control-${control.clave}`, type: number ? "number" : "text" });
  if (number) Object.assign(box, { min: control.minimo, max: control.maximo });
  const set = () => change(control.clave, number ? box.valueAsNumber : isoMoment(box.value));
  box.addEventListener("keydown", (event) => { if (event.key === "Enter") set(); });
  const button = element("button", { type: "button", textContent: "Fijar" });
  button.addEventListener("click", set);
  return element("div", {},
    element("label", { htmlFor: box.id, textContent: control.nombre }),
    element("div", { className: "bar" }, box, button));
}

function makeControls(controls) {
  const switches = controls.filter((control) => control.clase === "llave");
  const near = AT_HAND.flatMap((key) => switches.filter((control) => control.clave === key));
  at("switches").append(...near.map(switchRow));
  at("more-switches").append(
    ...switches.filter((control) => !near.includes(control)).map(switchRow));
  at("numbers").append(
    ...controls.filter((control) => control.clase !== "llave").map(numberRow));
}

function showControls(controls) {
  if (!at("switches").firstElementChild) makeControls(controls);
  for (const control of controls) {
    const box = at(`control-${control.clave}`);
    if (control.clase === "llave") box.checked = control.valor;
    else if (document.activeElement !== box) {
      box.value = control.clase === "momento" ? moment(control.valor) : control.valor;
    }
  }
}

function faultRow(rule) {
  const remove = element("button", { type: "button", textContent: "×", title: "Quitar esta regla" });
  remove.setAttribute("aria-label", `Quitar la regla ${rule.regla}`);
  remove.addEventListener("click", () => act(`/api/fallas/${rule.numero}`, "DELETE"));
  const title = `Le tocó ${rule.veces} veces, actuó ${rule.actuo}`;
  return element("li", {}, element("span", { className: "rule", textContent: rule.regla }),
    element("span", { className: "count", textContent: `${rule.actuo} de ${rule.veces}`, title }), remove);
}

function showDocument(state) {
  const open = state.documento;
  const shown = open ?? state.ultimo_documento;
  at("document-title").textContent = open ? "Comprobante abierto"
    : shown ? "Último documento" : "Sin comprobante abierto";
  if (!shown) return fillPairs(at("document"), []);
  const pairs = [
    [nameOf({ ...shown, clase: "" }), `$ ${money(shown.total)}`, "sum"], ["IVA", money(shown.iva)]];
  if (open) pairs.push(["falta pagar", money(open.falta_pagar)]);
  else pairs.push(["fecha", moment(shown.momento)]);
  return fillPairs(at("document"), pairs);
}

function words(key) {
  return key.replaceAll("_", " ").replace("cajon", "cajón");
}

function showState(state) {
  if (!state) return;
  lastState = state;
  at("machine").textContent =
    `${state.modelo} · familia ${state.familia} · punto de venta ${state.punto_de_venta}`;
  at("stage").textContent = state.etapa;
  at("stage").classList.toggle("busy", state.abierto);
  at("paper-left").textContent =
    state.papel_restante === null ? "" : `quedan ${state.papel_restante} renglones`;
  showWord(state.impresora, at("printer-word"), at("printer-lamps"));
  showWord(state.fiscal, at("fiscal-word"), at("fiscal-lamps"));
  showControls(state.controles);
  showDocument(state);
  at("faults").replaceChildren(...state.fallas.map(faultRow));
  const { jornada } = state;
  fillPairs(at("day"), [
    ["jornada", jornada.abierta ? `desde ${moment(jornada.desde)}` : "cerrada"],
    ["comprobantes", jornada.comprobantes], ["ventas", money(jornada.ventas)],
    ["IVA", money(jornada.iva)], ["notas de crédito", money(jornada.notas_de_credito)],
    ["último Z", jornada.ultimo_z], ["cierres restantes", state.cierres_restantes],
    ...state.numeracion.map((row) => [`${row.serie} ${row.letra}`, row.ultimo]),
  ]);
  fillPairs(at("counters"),
    Object.entries(state.contadores).map(([key, value]) => [words(key), value]));
  showRecording(state.grabacion);
  scenes?.show(state, till);
}

function showRecording({ activa, intercambios, llena }) {
  const button = at("record");
  button.setAttribute("aria-pressed", String(activa));
  button.lastElementChild.textContent = activa ? `Detener (${intercambios})` : "Grabar";
  at("recording").hidden = activa || intercambios === 0;
  at("recording").title = llena ? "Llegó al tamaño mayor y se detuvo" : `${intercambios} intercambios`;
}

// ---- The shop ----

let till = null;
let scenes = null;

async function lookAtTill() {
  try {
    till = await ask("/api/caja");
    showTill(at("till"), till);
    showConnections(at("connections"), till);
    if (lastState) scenes?.show(lastState, till);
  } catch {
    at("till").className = "chip";  // the other lamp says why
  }
}

async function makeShop() {
  const [rows, commands] = await Promise.all([ask("/api/escenas"), ask("/api/comandos")]);
  at("example").append(
    ...examples(commands).map((value) => element("option", { value, textContent: value })));
  scenes = new Scenes(at("scenes"), at("scene-words"), rows, async (escena, activa) => {
    showState(await act("/api/escenas", "POST", { escena, activa }));
    await lookAtTill();
  });
  if (lastState) scenes.show(lastState, till);
}

// ---- Events ----

async function readAll() {
  const [roll, exchanges, receipts, state] = await Promise.all(
    ["/api/papel.json", "/api/traza", "/api/documentos", "/api/estado"].map((path) => ask(path)));
  showRoll(roll);
  trace.restart(exchanges);
  showDocuments(receipts);
  showState(state);
}

function showConnection(good) {
  at("connection").className = `chip ${good ? "good" : "bad"}`;
  at("connection").lastElementChild.textContent = good ? "panel conectado" : "panel sin conexión";
}

// What came before the roll was read is on it already.
function listen() {
  const events = new EventSource("/api/eventos");
  const on = (name, show) => events.addEventListener(name, (event) => {
    if (name !== "estado" && Number(event.lastEventId) <= knownEvent) return;
    show(JSON.parse(event.data));
  });
  let waiting = [];
  let frame = 0;
  events.addEventListener("open", () => showConnection(true));
  events.addEventListener("error", () => showConnection(false));
  on("papel", addLine);
  on("documento", addDocument);
  on("estado", showState);
  on("intercambio", (exchange) => {
    waiting.push(exchange);
    frame ||= requestAnimationFrame(() => {
      trace.add(waiting);
      if (till?.estado !== "activa") lookAtTill();
      waiting = [];
      frame = 0;
    });
  });
  events.addEventListener("salto", () => readAll().catch((error) => notice(error.message)));
}

at("shown").addEventListener("change", showChosen);
at("tear").addEventListener("click", async () => {
  if (await act("/api/papel", "DELETE")) showRoll(await ask("/api/papel.json"));
});
at("clear-trace").addEventListener("click", () => trace.clear());
at("power").addEventListener("click", async () => showState(await act("/api/reiniciar", "POST")));
at("clear-faults").addEventListener("click", () => act("/api/fallas", "DELETE"));
at("record").addEventListener("click", () =>
  act("/api/grabacion", "POST", { grabar: at("record").getAttribute("aria-pressed") !== "true" }));
at("example").addEventListener("change", () => {
  const before = at("rules").value.trim();
  at("rules").value = (before ? `${before}\n` : "") + at("example").value;
  at("example").selectedIndex = 0;
  at("rules").focus();
});
at("fault-form").addEventListener("submit", async (event) => {
  event.preventDefault();
  const problem = at("rules-error");
  try {
    await ask("/api/fallas", "POST", { reglas: at("rules").value });
    at("rules").value = problem.textContent = "";
    problem.hidden = true;
  } catch (error) {
    problem.textContent = error.message;
    problem.hidden = false;
  }
});

readAll().then(makeShop).catch((error) => notice(error.message)).finally(listen);
lookAtTill();
setInterval(lookAtTill, TILL_LOOK);
