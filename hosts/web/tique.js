// El comprobante en pantalla, como sale en el papel: cuarenta columnas.

import { CONDICIONES } from "./venta.js";
import { enTexto, impreso, leer, producto } from "./importes.js";

const ANCHO = 40;
const TITULOS = { factura: "TIQUE FACTURA", nota_credito: "TIQUE NOTA DE CRÉDITO", nota_debito: "NOTA DE DÉBITO", tique: "TIQUE" };
const FORMULARIOS = { factura: "FACTURA", nota_credito: "NOTA DE CRÉDITO" };

const raya = (letra) => letra.repeat(ANCHO);
const alMedio = (texto) => " ".repeat(Math.max(0, Math.floor((ANCHO - texto.length) / 2))) + texto;
const alosLados = (izquierda, derecha) =>
  izquierda.slice(0, ANCHO - derecha.length - 1).padEnd(ANCHO - derecha.length) + derecha;

const dos = (numero) => String(numero).padStart(2, "0");
function fecha(momento) {
  const cuando = new Date(momento);
  return alosLados(`Fecha ${dos(cuando.getDate())}/${dos(cuando.getMonth() + 1)}/${cuando.getFullYear()}`,
    `Hora ${dos(cuando.getHours())}:${dos(cuando.getMinutes())}:${dos(cuando.getSeconds())}`);
}

const dosDecimales = (texto) => impreso(enTexto(leer(texto) / 100n));
const cantidad = (texto) => impreso(texto);

function articulo(renglon, tique) {
  if (renglon.texto) return [renglon.texto];
  const importe = enTexto(producto(leer(renglon.cantidad ?? "1"), leer(renglon.precio)));
  const extra = renglon.extra ?? [];
  const lineas = [
    `${cantidad(renglon.cantidad ?? "1")} x ${dosDecimales(renglon.precio)} (${dosDecimales(renglon.iva)})`,
    alosLados(renglon.descripcion, impreso(importe)),
  ];
  return tique ? [...extra, ...lineas] : [...lineas, ...extra];
}

function cliente(de) {
  if (!de) return ["A Consumidor Final"];
  const lineas = [`Señor/es: ${de.nombre}`];
  if (de.documento) lineas.push(`${de.documento.tipo}: ${de.documento.numero}`);
  return [...lineas, ...(de.domicilio ?? []), CONDICIONES[de.condicion_iva] ?? de.condicion_iva];
}

function pagos(cuerpo, total) {
  if (!cuerpo.pagos?.length) return [];
  const pagado = cuerpo.pagos.reduce((suma, pago) => suma + leer(pago.monto), 0n) / 100n;
  const vuelto = total === null ? 0n : pagado - total;
  return ["RECIBI(MOS)", ...cuerpo.pagos.map((pago) => alosLados(pago.descripcion, dosDecimales(pago.monto))),
    ...(vuelto > 0n ? [alosLados("Su vuelto", impreso(enTexto(vuelto)))] : [])];
}

/** Las líneas de un comprobante. `respuesta` es lo que dijo la puerta, si ya dijo algo. */
export function lineas(cuerpo, respuesta, familia) {
  const hecho = respuesta?.comprobante ?? {};
  const tique = cuerpo.tipo === "tique";
  const titulo = (familia === "FC" && FORMULARIOS[cuerpo.tipo]) || TITULOS[cuerpo.tipo] || cuerpo.tipo.toUpperCase();
  const texto = hecho.total ?? cuerpo.total;
  const total = texto === undefined ? null : leer(texto) / 100n;
  return [
    alMedio(tique ? titulo : `${titulo} "${hecho.letra ?? cuerpo.letra}"`),
    hecho.numero ? alosLados("", `Nº ${hecho.numero}`) : alosLados("", "Nº --------"),
    ...(respuesta?.terminado ? [fecha(respuesta.terminado)] : []),
    raya("-"),
    ...(tique ? ["A CONSUMIDOR FINAL"] : cliente(cuerpo.cliente)),
    raya("-"),
    "CANT. x PRECIO UNIT. (% IVA)",
    alosLados("DESCRIPCIÓN", "IMPORTE"),
    raya("-"),
    ...cuerpo.renglones.flatMap((renglon) => articulo(renglon, tique)),
    ...(cuerpo.descuentos ?? []).map((uno) => alosLados(uno.descripcion, "-" + dosDecimales(uno.monto))),
    ...(cuerpo.recargos ?? []).map((uno) => alosLados(uno.descripcion, dosDecimales(uno.monto))),
    ...(cuerpo.percepciones ?? []).map((uno) => alosLados(uno.descripcion, dosDecimales(uno.monto))),
    raya("-"),
    ...(total === null ? [] : [alosLados("T O T A L", "$ " + impreso(enTexto(total))), ""]),
    ...pagos(cuerpo, total),
    raya("="),
  ];
}
