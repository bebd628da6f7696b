// Manda lo que hay en la cola, en orden, hasta que cada pedido tenga su desenlace definitivo.

import { SinRed } from "./puerta.js";

const PAUSAS = [1, 2, 4, 8, 15]; // segundos entre intentos
const SIN_PUERTA = "No hay conexión con la puerta. El pedido queda guardado con su clave y se repite solo: no sale dos veces.";

export class Envio {
  constructor({ cola, puerta, alCambiar, alConectar }) {
    Object.assign(this, { cola, puerta, alCambiar, alConectar, fallas: 0, andando: false, pedida: false });
  }

  /** Se puede llamar siempre que algo pudo cambiar. */
  async procesar() {
    this.pedida = true;
    if (this.andando) return;
    this.andando = true;
    clearTimeout(this.plazo);
    try {
      while (this.pedida) {
        this.pedida = false;
        await this.aSolas(() => this.vuelta());
      }
    } finally {
      this.andando = false;
    }
    if ((await this.abiertos()).length) this.plazo = setTimeout(() => this.procesar(), this.pausa() * 1000);
  }

  pausa() {
    return PAUSAS[Math.min(this.fallas, PAUSAS.length - 1)];
  }

  // De dos pestañas manda una. Donde el navegador no sabe de turnos no importa: la clave es la misma.
  aSolas(hacer) {
    return navigator.locks ? navigator.locks.request("kestra-envio", hacer) : hacer();
  }

  async abiertos() {
    return (await this.cola.todos()).filter((pedido) => !pedido.final && pedido.clase !== "persona");
  }

  async vuelta() {
    for (const pedido of await this.abiertos()) {
      if (!(await this.intentar(pedido))) return;
    }
  }

  /** Un intento; false si no hay puerta que conteste. */
  async intentar(pedido) {
    pedido.intentos += 1;
    pedido.estado = pedido.estado === "pendiente" ? "mandando" : pedido.estado;
    await this.anotar(pedido);
    try {
      const juicio = await this.puerta.mandar(pedido);
      Object.assign(pedido, { clase: juicio.clase, final: juicio.clase === "final", texto: juicio.texto, causa: juicio.causa,
        respuesta: juicio.cuerpo, status: juicio.status, estado: juicio.estado ?? "pendiente" });
      this.fallas = juicio.clase === "otra_vez" || juicio.clase === "espera" ? this.fallas + 1 : 0;
      await this.anotar(pedido);
      this.alConectar(true);
      return juicio.clase !== "otra_vez";
    } catch (error) {
      if (!(error instanceof SinRed)) throw error;
      this.fallas += 1;
      pedido.texto = SIN_PUERTA;
      if (pedido.estado === "mandando") pedido.estado = "pendiente";
      await this.anotar(pedido);
      this.alConectar(false);
      return false;
    }
  }

  async anotar(pedido) {
    await this.cola.guardar(pedido);
    await this.alCambiar(pedido);
  }
}
