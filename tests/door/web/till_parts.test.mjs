// The till's parts without a page: amounts, a sale and its request, the ticket, what an answer means.
import assert from "node:assert/strict";
import test from "node:test";

const till = new URL("../../../hosts/web/", import.meta.url);
const { enCorto, enTexto, impreso, leer, producto } = await import(new URL("importes.js", till));
const ventas = await import(new URL("venta.js", till));
const { lineas } = await import(new URL("tique.js", till));
const { juzgar } = await import(new URL("puerta.js", till));
const { frase } = await import(new URL("causas.js", till));

const row = (descripcion, cantidad, precio, iva) => ventas.renglon({ descripcion, cantidad, precio, iva });

test("amounts are exact", () => {
  for (const [text, units] of [["0.1", 1000n], ["0,10", 1000n], ["1234.5678", 12345678n], ["-2", -20000n], ["9999999999", 99999999990000n]])
    assert.equal(leer(text), units, text);
  for (const text of ["", "1.", ".5", "1e3", "1.2.3", "1,234.50", "12345678901", "0.12345", "diez", "--1"]) assert.equal(leer(text), null, text);
  for (const [quantity, price, cents] of [["3", "0.1", 30n], ["0.5", "0.01", 1n], ["0.25", "0.10", 3n], ["0.333", "0.10", 3n], ["-0.5", "0.01", -1n],
    ["2", "1500.00", 300000n]])
    assert.equal(producto(leer(quantity), leer(price)), cents, `${quantity} x ${price}`);
  assert.equal(enTexto(5n), "0.05");
  assert.equal(enTexto(-123456n), "-1234.56");
  assert.equal(enCorto(2500n), "0.25");
  assert.equal(enCorto(20000n), "2");
  assert.equal(enCorto(20000n, 2), "2.00");
  for (const [text, printed] of [["1234567.80", "1.234.567,80"], ["999", "999"], ["1000.5", "1.000,5"], ["-1234.00", "-1.234,00"]])
    assert.equal(impreso(text), printed);
});

test("a row says what is wrong with it", () => {
  assert.match(row("", "1", "1", "21").mal, /descripción/);
  for (const quantity of ["", "0", "-1", "una"]) assert.match(row("Pan", quantity, "1", "21").mal, /cantidad/);
  for (const price of ["", "-1", "caro"]) assert.match(row("Pan", "1", price, "21").mal, /precio/);
  assert.equal(row("Pan", "1", "0", "21").mal, undefined);
});

test("letters go by the customer, the shop and the printer", () => {
  const to = (condicion_iva) => ({ ...ventas.nueva(), cliente: { condicion_iva } });
  for (const [sale, shop, family, letter] of [
    [ventas.nueva(), "RI", "TF", "B"], [to("responsable_inscripto"), "RI", "TF", "A"], [to("monotributo"), "RI", "TF", "B"],
    [to("responsable_inscripto"), "C", "TF", "C"], [ventas.nueva(), "C", "TQ", "C"], [to("responsable_inscripto"), "RI", "TQ", "B"]])
    assert.equal(ventas.letra(sale, shop, family), letter);
});

test("sums are those of the printer", () => {
  const sale = { ...ventas.nueva(), renglones: [row("Resma", "10", "320", "21"), row("Diccionario", "2", "4500", "10.5")], descuento: 20000n };
  assert.equal(enTexto(ventas.total(sale, "B")), "12000.00");
  assert.equal(enTexto(ventas.total(sale, "A")), "13590.49"); // 3147.54 + 660.98 + 8852.46 + 929.51
});

test("a request is what the contract wants", () => {
  const sale = { ...ventas.nueva(), renglones: [row("Pan", "0.25", "100.5", "10.5")], pagos: [{ descripcion: "Efectivo", monto: 5000n }] };
  assert.deepEqual(ventas.pedido(sale, "RI", "TQ"), {
    tipo: "tique", letra: "B", renglones: [{ descripcion: "Pan", cantidad: "0.25", precio: "100.50", iva: "10.50" }],
    pagos: [{ descripcion: "Efectivo", monto: "50.00" }], total: "25.13" });
  const cliente = { nombre: "Librería", condicion_iva: "responsable_inscripto" };
  const invoice = ventas.pedido({ ...sale, cliente }, "RI", "TF");
  assert.equal(invoice.tipo, "factura");
  assert.equal(invoice.letra, "A");
  assert.equal(invoice.total, undefined); // net prices: the printer's rounding decides
  assert.deepEqual(invoice.cliente, cliente);
  const back = ventas.pedido({ ...sale, devolucion: true }, "RI", "TF");
  assert.equal(back.tipo, "nota_credito");
  assert.equal(back.pagos, undefined);
});

test("a ticket has forty columns", () => {
  const body = { tipo: "tique", letra: "B", total: "1000.00", pagos: [{ descripcion: "Efectivo", monto: "1500.00" }],
    renglones: [{ texto: "Oferta" }, { descripcion: "Un nombre larguísimo que no entra en el renglón", precio: "500", cantidad: "2", iva: "21", extra: ["con sal"] }] };
  const ticket = lineas(body, { comprobante: { numero: "00000012" }, terminado: "2026-11-22T18:30:02Z" }, "TQ");
  for (const line of ticket) assert.ok(line.length <= 40, line);
  assert.ok(ticket.some((line) => line.endsWith("Nº 00000012")));
  assert.ok(ticket.indexOf("con sal") < ticket.indexOf("2 x 500,00 (21,00)"));
  assert.ok(ticket.includes("Su vuelto".padEnd(34) + "500,00"));
});

test("an answer ends a request, or does not", () => {
  const errors = { errores: [{ puntero: "/letra", mensaje: "no" }] };
  for (const [status, body, kind] of [
    [201, { estado: "hecho", trabajo: 1 }, "final"], [200, { estado: "hecho", trabajo: 1 }, "final"],
    [202, { estado: "en_cola", trabajo: 1 }, "espera"], [202, { estado: "no_se_sabe", trabajo: 1, definitivo: false }, "espera"],
    [202, { estado: "no_se_sabe", trabajo: 1, definitivo: true }, "final"], [409, { estado: "no_hecho", trabajo: 1 }, "final"],
    [409, { estado: "cancelado", trabajo: 1 }, "final"], [503, { estado: "no_hecho", trabajo: 1 }, "final"], [503, {}, "otra_vez"],
    [500, null, "otra_vez"], [502, null, "otra_vez"], [429, {}, "otra_vez"], [422, errors, "final"], [422, {}, "persona"],
    [400, {}, "persona"], [401, {}, "persona"], [403, {}, "persona"], [404, {}, "persona"], [413, {}, "persona"]])
    assert.equal(juzgar(status, body).clase, kind, `${status} ${JSON.stringify(body)}`);
  assert.equal(juzgar(422, errors).estado, "corregir");
});

test("a cause is a sentence", () => {
  assert.equal(frase(203, 3), "No existe el puerto de la impresora. La operación no se mandó a la impresora. "
    + "Revise que la impresora esté encendida y el cable bien puesto.");
  assert.equal(frase(0, 0), "");
  assert.equal(frase(999, 4), "No se sabe si la operación se hizo: mire el papel antes de repetirla.");
});
