// La cola de esta caja: cada pedido con su clave, guardado antes del primer intento y hasta el desenlace definitivo.
// IndexedDB la conserva aunque se cierre la pestaña, se corte la luz o no haya red.

const BASE = "kestra-caja";
const GUARDADAS = 200; // terminadas que se conservan, para mirarlas

const listo = (pedido) => new Promise((bien, mal) => {
  pedido.onsuccess = () => bien(pedido.result);
  pedido.onerror = () => mal(pedido.error);
});

/** Una clave nueva: no depende del reloj ni de la puerta. */
export function clave() {
  const bytes = crypto.getRandomValues(new Uint8Array(16));
  return [...bytes].map((byte) => byte.toString(16).padStart(2, "0")).join("");
}

export class Cola {
  static async abrir(fabrica = indexedDB) {
    const pedido = fabrica.open(BASE, 1);
    pedido.onupgradeneeded = () => {
      const ventas = pedido.result.createObjectStore("pedidos", { keyPath: "orden", autoIncrement: true });
      ventas.createIndex("clave", "clave", { unique: true });
    };
    return new Cola(await listo(pedido));
  }

  constructor(base) {
    this.base = base;
  }

  // Una vez que se promete está en el disco, no solo en la memoria del navegador.
  async escribir(hacer) {
    const transaccion = this.base.transaction("pedidos", "readwrite", { durability: "strict" });
    const resultado = await listo(hacer(transaccion.objectStore("pedidos")));
    await new Promise((bien, mal) => {
      transaccion.oncomplete = bien;
      transaccion.onabort = transaccion.onerror = () => mal(transaccion.error);
    });
    return resultado;
  }

  async agregar(pedido) {
    const nuevo = { clave: clave(), creado: new Date().toISOString(), intentos: 0, estado: "pendiente", final: false, ...pedido };
    return { ...nuevo, orden: await this.escribir((pedidos) => pedidos.add(nuevo)) };
  }

  guardar(pedido) {
    return this.escribir((pedidos) => pedidos.put(pedido));
  }

  borrar(orden) {
    return this.escribir((pedidos) => pedidos.delete(orden));
  }

  todos() {
    return listo(this.base.transaction("pedidos").objectStore("pedidos").getAll());
  }

  /** Olvida las terminadas más viejas. */
  async podar() {
    const terminadas = (await this.todos()).filter((pedido) => pedido.final);
    for (const pedido of terminadas.slice(0, -GUARDADAS)) await this.borrar(pedido.orden);
  }
}
