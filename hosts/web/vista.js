// Lo que se ve. Los textos van siempre como texto, nunca como HTML.

import { CAUSAS, frase } from "./causas.js";
import { enCorto, impreso, pesos, producto } from "./importes.js";
import { lineas } from "./tique.js";

export const $ = (id) => document.getElementById(id);

/** Un elemento con sus clases, su texto y lo que lleva adentro. */
export function crear(etiqueta, { clase = "", texto, hijos = [], alTocar, titulo } = {}) {
  const nodo = document.createElement(etiqueta);
  if (clase) nodo.className = clase;
  if (texto !== undefined) nodo.textContent = texto;
  if (etiqueta === "button") nodo.type = "button";
  if (titulo) nodo.setAttribute("aria-label", titulo);
  if (alTocar) nodo.addEventListener("click", alTocar);
  nodo.append(...hijos);
  return nodo;
}

function luz(id, texto, clase) {
  const nodo = $(id);
  nodo.hidden = !texto;
  nodo.textContent = texto;
  nodo.className = `luz ${clase}`;
}

export function mostrarPuerta(conectada) {
  luz("puerta", conectada ? "en línea" : "sin conexión", conectada ? "bien" : "mal");
}

const CONEXIONES = {
  arrancando: ["impresora: arrancando", "ojo"], lista: ["impresora: lista", "bien"], imprimiendo: ["imprimiendo", "ojo"],
  sin_respuesta: ["impresora: no contesta", "mal"], detenida: ["impresora: detenida", "mal"],
};
const PAPELES = { hay: ["", ""], poco: ["queda poco papel", "ojo"], falta: ["sin papel", "mal"] };

// Lo que la puerta dice, y qué hacer si no lo dijo.
function avisoDe({ causa, texto }) {
  const hacer = CAUSAS[causa]?.[1] ?? "";
  return !texto ? frase(causa) : texto.includes(hacer) ? texto : `${texto.replace(/\.?$/, ".")} ${hacer}`;
}

export function mostrarImpresora(impresora, avisos) {
  luz("maquina", ...(CONEXIONES[impresora?.conexion] ?? ["impresora: no se sabe", ""]));
  luz("papel", ...(PAPELES[impresora?.estado?.papel] ?? ["", ""]));
  const dichos = [
    ...(impresora?.texto || impresora?.causa ? [avisoDe(impresora)] : []),
    ...(impresora?.estado?.condiciones ?? []).map(avisoDe),
    ...avisos,
  ];
  $("avisos").replaceChildren(...[...new Set(dichos)].map((texto) => crear("p", { texto })));
}

export function mostrarCarrito(venta, quitar) {
  $("vacio").hidden = venta.renglones.length > 0;
  $("carrito").replaceChildren(...venta.renglones.map((renglon, cual) => crear("li", { hijos: [
    crear("span", { texto: renglon.descripcion, hijos: [crear("small", {
      texto: `${impreso(enCorto(renglon.cantidad))} x ${impreso(enCorto(renglon.precio, 2))} · IVA ${impreso(enCorto(renglon.iva))} %` })] }),
    crear("b", { texto: pesos(producto(renglon.cantidad, renglon.precio)) }),
    crear("button", { texto: "×", titulo: `Quitar ${renglon.descripcion}`, alTocar: () => quitar(cual) }),
  ] })));
}

export function mostrarPagos(venta, quitar) {
  $("pagos").replaceChildren(...venta.pagos.map((pago, cual) => crear("li", { hijos: [
    crear("span", { texto: pago.descripcion }), crear("b", { texto: pesos(pago.monto) }),
    crear("button", { texto: "×", titulo: `Quitar ${pago.descripcion}`, alTocar: () => quitar(cual) }),
  ] })));
}

const ESTADOS = {
  pendiente: "guardado, sin mandar", mandando: "mandando", en_cola: "en la cola", imprimiendo: "imprimiendo", hecho: "hecho",
  no_hecho: "no se hizo", no_se_sabe: "no se sabe", cancelado: "cancelado", corregir: "para corregir",
};
const SELLOS = {
  pendiente: "TODAVÍA NO SE IMPRIMIÓ", mandando: "TODAVÍA NO SE IMPRIMIÓ", en_cola: "EN LA COLA", imprimiendo: "IMPRIMIENDO",
  no_hecho: "*** NO SE HIZO ***", no_se_sabe: "*** NO SE SABE: MIRE EL PAPEL ***", cancelado: "*** CANCELADO ***",
  corregir: "*** NO SE IMPRIMIÓ ***",
};
const TONOS = { hecho: "bien", no_hecho: "mal", corregir: "mal", cancelado: "mal" };

/** Qué fue de un pedido, en una frase. */
export function decir(pedido) {
  const errores = (pedido.respuesta?.errores ?? []).map(({ puntero, mensaje }) => `${puntero}: ${mensaje}`);
  if (pedido.estado === "hecho") {
    const { comprobante, informe, texto } = pedido.respuesta;
    const numero = (comprobante ?? informe)?.numero;
    return [`${pedido.nombre}: hecho${numero ? `, número ${numero}` : ""}.`, texto].filter(Boolean).join(" ");
  }
  return [pedido.texto || `${pedido.nombre}: ${ESTADOS[pedido.estado] ?? pedido.estado}.`, ...errores].join(" ");
}

export function mostrarMensaje(pedido) {
  $("mensaje").className = TONOS[pedido.estado] ?? "ojo";
  $("mensaje").textContent = decir(pedido);
}

export function mostrarTique(pedido) {
  const visible = Boolean(pedido?.cuerpo.renglones && pedido.cuerpo.tipo);
  $("tique").hidden = !visible;
  if (!visible) return;
  const sello = SELLOS[pedido.estado];
  $("tique").textContent = [...(sello ? [sello, ""] : []),
    ...lineas(pedido.cuerpo, pedido.estado === "hecho" ? pedido.respuesta : null, pedido.familia)].join("\n");
}

export function mostrarPedidos(pedidos, acciones) {
  $("pedidos").replaceChildren(...pedidos.map((pedido) => {
    const numero = (pedido.respuesta?.comprobante ?? pedido.respuesta?.informe)?.numero ?? "";
    const botones = acciones.de(pedido).map(([texto, alTocar]) => crear("button", { clase: "suave", texto, alTocar }));
    return Object.assign(crear("li", { clase: pedido.estado, hijos: [
      crear("button", { clase: "que", alTocar: () => acciones.elegir(pedido), hijos: [
        crear("span", { texto: `${pedido.nombre} ${numero}` }),
        crear("span", { clase: "estado", texto: ESTADOS[pedido.estado] ?? pedido.estado })] }),
      ...(pedido.estado === "hecho" ? [] : [crear("p", { texto: decir(pedido) })]),
      ...(botones.length ? [crear("div", { clase: "botones", hijos: botones })] : []),
    ] }), { id: `pedido-${pedido.clave}` });
  }));
}
