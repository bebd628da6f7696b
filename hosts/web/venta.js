// Una venta: lo que se agregó, lo que suma y el pedido que se le hace a la puerta. Sin página y sin red.

import { centesimos, enCorto, enTexto, leer, porciento, producto, proporcion } from "./importes.js";

export const CONDICIONES = {
  consumidor_final: "A consumidor final",
  responsable_inscripto: "Responsable inscripto",
  monotributo: "Monotributo",
  exento: "Exento",
  no_responsable: "No responsable",
  no_categorizado: "No categorizado",
};

export const nueva = () => ({ renglones: [], descuento: 0n, cliente: null, pagos: [], devolucion: false });

/** Un renglón de lo que se escribió, o qué está mal. */
export function renglon({ descripcion, cantidad, precio, iva }) {
  const leidos = { cantidad: leer(cantidad), precio: leer(precio), iva: leer(iva) };
  if (!descripcion.trim()) return { mal: "Falta la descripción." };
  if (!leidos.cantidad || leidos.cantidad < 0n) return { mal: "La cantidad no es un número." };
  if (leidos.precio === null || leidos.precio < 0n) return { mal: "El precio no es un número." };
  return { descripcion: descripcion.trim(), ...leidos };
}

/** Factura y nota A llevan precios netos; las demás, finales. */
export function letra(venta, emisor, familia) {
  if (emisor === "C") return "C";
  if (familia === "TQ") return "B";
  return venta.cliente?.condicion_iva === "responsable_inscripto" ? "A" : "B";
}

export function total(venta, conLetra) {
  const porTasa = new Map();
  for (const { cantidad, precio, iva } of venta.renglones) {
    porTasa.set(iva, (porTasa.get(iva) ?? 0n) + producto(cantidad, precio));
  }
  const todo = [...porTasa.values()].reduce((suma, importe) => suma + importe, 0n);
  if (conLetra !== "A") return todo - venta.descuento;
  repartir(porTasa, venta.descuento, todo);
  let suma = 0n;
  for (const [tasa, neto] of porTasa) suma += neto + porciento(neto, tasa);
  return suma;
}

// El descuento va a cada tasa en proporción; la mayor se lleva lo que sobra del redondeo.
function repartir(porTasa, descuento, todo) {
  if (todo === 0n) return;
  const mayor = [...porTasa].reduce((a, b) => (b[1] > a[1] ? b : a))[0];
  let resto = descuento;
  for (const [tasa, importe] of porTasa) {
    if (tasa === mayor) continue;
    const parte = proporcion(descuento, importe, todo);
    porTasa.set(tasa, importe - parte);
    resto -= parte;
  }
  porTasa.set(mayor, porTasa.get(mayor) - resto);
}

export const pagado = (venta) => venta.pagos.reduce((suma, pago) => suma + pago.monto, 0n);

/** El pedido, como lo dice el contrato de la puerta. */
export function pedido(venta, emisor, familia) {
  const conLetra = letra(venta, emisor, familia);
  const cuerpo = {
    tipo: familia === "TQ" ? "tique" : venta.devolucion ? "nota_credito" : "factura",
    letra: conLetra,
    renglones: venta.renglones.map(({ descripcion, cantidad, precio, iva }) => ({
      descripcion, cantidad: enCorto(cantidad), precio: enCorto(precio, 2), iva: enCorto(iva, 2),
    })),
  };
  if (familia !== "TQ" && venta.cliente) cuerpo.cliente = venta.cliente;
  if (venta.descuento) cuerpo.descuentos = [{ descripcion: "Descuento", monto: enTexto(venta.descuento) }];
  if (!venta.devolucion) cuerpo.pagos = venta.pagos.map(({ descripcion, monto }) => ({ descripcion, monto: enTexto(monto) }));
  if (conLetra !== "A") cuerpo.total = enTexto(total(venta, conLetra));
  return cuerpo;
}

export const importe = (texto) => {
  const leido = leer(texto);
  return leido === null ? null : centesimos(leido);
};
