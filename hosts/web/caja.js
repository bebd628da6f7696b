// La caja: junta la venta, la cola, la puerta y lo que se ve.

import { ARTICULOS } from "./articulos.js";
import { Cola } from "./cola.js";
import { Envio } from "./envio.js";
import { leer, pesos } from "./importes.js";
import { Puerta } from "./puerta.js";
import * as ventas from "./venta.js";
import { $, crear, mostrarCarrito, mostrarImpresora, mostrarMensaje, mostrarPagos, mostrarPedidos, mostrarPuerta, mostrarTique }
  from "./vista.js";

const ajustes = { direccion: "", clave: "", emisor: "RI", impresora: "", ...JSON.parse(localStorage.getItem("kestra-ajustes") ?? "{}") };
const puerta = new Puerta({ direccion: ajustes.direccion || location.origin, clave: ajustes.clave });
const cola = await Cola.abrir();
const canal = new BroadcastChannel("kestra-caja"); // las otras pestañas
let venta = ventas.nueva();
let impresoras = [];
let avisos = [];
let elegido = null; // la clave del pedido que se muestra
let ultimoSuceso = 0;

const actual = () => impresoras.find((una) => una.id === ajustes.impresora) ?? impresoras[0];
const familia = () => actual()?.familia ?? "TF";
const guardarAjustes = () => localStorage.setItem("kestra-ajustes", JSON.stringify(ajustes));

// --- La venta ---

function dibujarVenta() {
  const letra = ventas.letra(venta, ajustes.emisor, familia());
  const total = ventas.total(venta, letra);
  const recibido = ventas.pagado(venta) + (ventas.importe($("monto").value) ?? 0n);
  mostrarCarrito(venta, (cual) => { venta.renglones.splice(cual, 1); dibujarVenta(); });
  mostrarPagos(venta, (cual) => { venta.pagos.splice(cual, 1); dibujarVenta(); });
  $("clase").textContent = `${familia() === "TQ" ? "tique" : venta.devolucion ? "nota de crédito" : "factura"} ${letra}`;
  $("total").textContent = pesos(total);
  $("vuelto").textContent = recibido > total ? pesos(recibido - total) : "";
  $("fila-vuelto").hidden = recibido <= total;
  $("cobrar").disabled = venta.renglones.length === 0;
  $("cliente-resumen").textContent = venta.cliente
    ? `${venta.cliente.nombre}, ${ventas.CONDICIONES[venta.cliente.condicion_iva].toLowerCase()}` : "consumidor final";
}

function agregar(escrito) {
  const renglon = ventas.renglon(escrito);
  $("error").textContent = renglon.mal ?? "";
  if (renglon.mal) return false;
  const igual = venta.renglones.find((otro) =>
    otro.descripcion === renglon.descripcion && otro.precio === renglon.precio && otro.iva === renglon.iva);
  if (igual) igual.cantidad += renglon.cantidad;
  else venta.renglones.push(renglon);
  dibujarVenta();
  return true;
}

function leerCliente() {
  const [nombre, condicion, numero, domicilio] = ["nombre", "condicion", "documento-numero", "domicilio"].map((id) => $(id).value.trim());
  venta.cliente = nombre ? {
    nombre, condicion_iva: condicion,
    ...(numero ? { documento: { tipo: $("documento-tipo").value, numero: numero.replace(/\D/g, "") } } : {}),
    ...(domicilio ? { domicilio: [domicilio] } : {}),
  } : null;
  dibujarVenta();
}

/** Qué impide cobrar, o nada. */
function loQueFalta(total) {
  if (total <= 0n) return "El total tiene que ser mayor que cero.";
  if (!venta.devolucion && ventas.pagado(venta) < total) return "Los pagos no alcanzan.";
  if (!actual()) return "Todavía no se sabe qué impresora hay: hace falta haber hablado una vez con la puerta.";
  return "";
}

async function cobrar() {
  const total = ventas.total(venta, ventas.letra(venta, ajustes.emisor, familia()));
  const monto = $("monto").value.trim() ? ventas.importe($("monto").value) : total - ventas.pagado(venta);
  if (monto === null) return void ($("error").textContent = "Lo recibido no es un importe.");
  const pagos = monto > 0n ? [...venta.pagos, { descripcion: $("medio").value, monto }] : venta.pagos;
  const anterior = venta;
  venta = { ...venta, pagos };
  $("error").textContent = loQueFalta(total);
  if ($("error").textContent) return void (venta = anterior);
  const cuerpo = ventas.pedido(venta, ajustes.emisor, familia());
  $("cobrar").disabled = true;
  await pedir({ nombre: `${$("clase").textContent} de ${pesos(total)}`.replace(/^./, (letra) => letra.toUpperCase()),
    ruta: "comprobantes", cuerpo, venta: anterior });
  empezarDeNuevo();
}

function empezarDeNuevo() {
  venta = ventas.nueva();
  for (const id of ["descuento", "monto", "nombre", "documento-numero", "domicilio"]) $(id).value = "";
  $("condicion").value = "consumidor_final";
  $("devolucion").checked = false;
  $("cliente").open = false;
  dibujarVenta();
}

// --- Los pedidos ---

/** Guarda un pedido con su clave y recién entonces lo manda. */
async function pedir({ nombre, ruta, cuerpo, venta: origen = null }) {
  const pedido = await cola.agregar({ nombre, ruta: `/v1/impresoras/${actual().id}/${ruta}`, cuerpo, familia: familia(), venta: origen });
  elegido = pedido.clave;
  await dibujarPedidos();
  $("mensaje").scrollIntoView({ block: "nearest" });
  envio.procesar();
}

async function dibujarPedidos() {
  const todos = (await cola.todos()).reverse();
  mostrarPedidos(todos.slice(0, 30), { elegir, de: accionesDe });
  const visto = todos.find((pedido) => pedido.clave === elegido) ?? todos[0];
  mostrarTique(visto);
  if (visto) mostrarMensaje(visto);
}

async function elegir(pedido) {
  elegido = pedido.clave;
  await dibujarPedidos();
}

function accionesDe(pedido) {
  const acciones = [];
  if (pedido.clase === "persona") acciones.push(["Reintentar", () => reintentar(pedido)]);
  if (pedido.estado === "corregir" && pedido.venta) acciones.push(["Corregir", () => corregir(pedido)]);
  if (pedido.estado === "en_cola" && pedido.respuesta?.trabajo) acciones.push(["Cancelar", () => cancelar(pedido)]);
  return acciones;
}

async function reintentar(pedido) {
  await cola.guardar({ ...pedido, clase: "otra_vez" });
  envio.procesar();
}

async function corregir(pedido) {
  venta = { ...pedido.venta };
  await cola.borrar(pedido.orden); // no se imprimió, y su clave no se gastó
  const { cliente } = venta;
  if (cliente) {
    $("cliente").open = true;
    $("nombre").value = cliente.nombre;
    $("condicion").value = cliente.condicion_iva;
    $("documento-numero").value = cliente.documento?.numero ?? "";
    $("domicilio").value = cliente.domicilio?.[0] ?? "";
  }
  dibujarVenta();
  await dibujarPedidos();
}

async function cancelar(pedido) {
  await puerta.borrar(`/v1/trabajos/${pedido.respuesta.trabajo}`).catch(() => {});
  envio.procesar();
}

const envio = new Envio({
  cola, puerta,
  alCambiar: async () => { await dibujarPedidos(); canal.postMessage("cambio"); },
  alConectar: mostrarPuerta,
});

// --- La impresora, en vivo ---

async function preguntarImpresoras() {
  const { status, cuerpo } = await puerta.leer("/v1/impresoras");
  if (status !== 200) return void (avisos = [cuerpo?.detail ?? cuerpo?.title ?? `La puerta contestó ${status}.`]);
  ({ impresoras } = cuerpo);
  avisos = [];
  localStorage.setItem("kestra-impresoras", JSON.stringify(impresoras.map(({ id, familia: cual }) => ({ id, familia: cual }))));
}

function dibujarImpresoras() {
  $("impresora").hidden = impresoras.length < 2;
  $("impresora").replaceChildren(...impresoras.map(({ id }) => new Option(id, id, false, id === actual()?.id)));
  mostrarImpresora(actual(), avisos);
}

function alLlegar({ suceso, tipo, impresora, datos }) {
  ultimoSuceso = suceso || ultimoSuceso;
  const una = impresoras.find(({ id }) => id === impresora);
  if (tipo === "perdidos") return void actualizar();
  if (tipo === "impresora" && una) Object.assign(una, { causa: 0, texto: "" }, datos);
  if (tipo === "estado" && una) una.estado = datos;
  if (tipo === "alarma") avisos = [datos.texto].filter(Boolean);
  if (tipo === "documento" || tipo === "cierre") avisos = [];
  if (tipo === "trabajo") alTrabajo(una, datos);
  dibujarImpresoras();
}

const TERMINADOS = ["hecho", "no_hecho", "cancelado"];
async function alTrabajo(una, trabajo) {
  if (una && trabajo.estado === "imprimiendo") una.conexion = "imprimiendo";
  else if (una?.conexion === "imprimiendo" && trabajo.estado === "hecho") una.conexion = "lista";
  const propio = (await cola.todos()).find((pedido) => !pedido.final && pedido.respuesta?.trabajo === trabajo.trabajo);
  if (!propio) return;
  if (TERMINADOS.includes(trabajo.estado) || trabajo.definitivo) return void envio.procesar(); // la respuesta es la de su clave
  await envio.anotar({ ...propio, estado: trabajo.estado, texto: trabajo.texto, respuesta: { ...propio.respuesta, ...trabajo } });
}

async function actualizar() {
  try {
    await preguntarImpresoras();
    mostrarPuerta(true);
  } catch {
    mostrarPuerta(false);
  }
  dibujarImpresoras();
  dibujarVenta();
}

const pausa = (segundos) => new Promise((bien) => setTimeout(bien, segundos * 1000));
async function escuchar() {
  for (let seguidas = 0; ; seguidas += 1) {
    await puerta.sucesos(ultimoSuceso, alLlegar, () => {
      seguidas = 0;
      actualizar();
      envio.procesar();
    });
    mostrarPuerta(false);
    await pausa(Math.min(1 + seguidas, 5));
  }
}

// --- Los botones ---

function preguntar(texto) {
  $("pregunta").textContent = texto;
  $("dialogo-seguro").returnValue = "";
  $("dialogo-seguro").showModal();
  return new Promise((bien) => $("dialogo-seguro").addEventListener("close", () => bien($("dialogo-seguro").returnValue === "si"), { once: true }));
}

async function informar(tipo) {
  if (!actual()) return;
  if (tipo === "z" && !(await preguntar("El cierre Z termina la jornada. ¿Hacerlo?"))) return;
  await pedir({ nombre: tipo === "x" ? "Informe X" : "Cierre Z", ruta: "informes", cuerpo: { tipo } });
}

function alEnviarRenglon(hecho) {
  hecho.preventDefault();
  const campos = ["descripcion", "cantidad", "precio", "iva"];
  if (!agregar(Object.fromEntries(campos.map((id) => [id, $(id).value])))) return;
  $("descripcion").value = $("precio").value = "";
  $("cantidad").value = "1";
  $("descripcion").focus();
}

function alAgregarPago() {
  const monto = ventas.importe($("monto").value);
  if (!monto || monto < 0n) return void ($("error").textContent = "Escriba cuánto se recibe.");
  venta.pagos.push({ descripcion: $("medio").value, monto });
  $("monto").value = "";
  dibujarVenta();
}

function abrirAjustes() {
  for (const nombre of ["direccion", "clave", "emisor"]) $(`ajuste-${nombre}`).value = ajustes[nombre];
  $("dialogo-ajustes").returnValue = "";
  $("dialogo-ajustes").showModal();
}

function cerrarAjustes() {
  if ($("dialogo-ajustes").returnValue !== "guardar") return;
  for (const nombre of ["direccion", "clave", "emisor"]) ajustes[nombre] = $(`ajuste-${nombre}`).value.trim();
  guardarAjustes();
  location.reload();
}

function atender() {
  $("articulos").replaceChildren(...ARTICULOS.map((articulo) => crear("button", {
    texto: articulo.descripcion, hijos: [crear("small", { texto: pesos(leer(articulo.precio) / 100n) })],
    alTocar: () => agregar({ cantidad: "1", ...articulo }) })));
  $("condicion").replaceChildren(...Object.entries(ventas.CONDICIONES).map(([valor, texto]) => new Option(texto, valor)));
  $("renglon").addEventListener("submit", alEnviarRenglon);
  $("cliente").addEventListener("input", leerCliente);
  $("descuento").addEventListener("input", () => { venta.descuento = ventas.importe($("descuento").value) ?? 0n; dibujarVenta(); });
  $("devolucion").addEventListener("change", () => { venta.devolucion = $("devolucion").checked; dibujarVenta(); });
  $("monto").addEventListener("input", dibujarVenta);
  $("otro-pago").addEventListener("click", alAgregarPago);
  $("cobrar").addEventListener("click", cobrar);
  $("cajon").addEventListener("click", () => actual() && pedir({ nombre: "Cajón", ruta: "cajon", cuerpo: { cajon: 1 } }));
  for (const boton of document.querySelectorAll("[data-informe]")) boton.addEventListener("click", () => informar(boton.dataset.informe));
  $("impresora").addEventListener("change", () => { ajustes.impresora = $("impresora").value; guardarAjustes(); dibujarImpresoras(); dibujarVenta(); });
  $("ajustes").addEventListener("click", abrirAjustes);
  $("dialogo-ajustes").addEventListener("close", cerrarAjustes);
  canal.addEventListener("message", dibujarPedidos);
  addEventListener("online", () => envio.procesar());
}

// Sin red se vende igual: qué impresoras hay se recuerda de la última vez.
impresoras = JSON.parse(localStorage.getItem("kestra-impresoras") ?? "[]");
atender();
dibujarVenta();
await cola.podar();
await dibujarPedidos();
escuchar();
envio.procesar();
