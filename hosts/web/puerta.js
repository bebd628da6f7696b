// Hablar con la puerta: pedidos con su clave, y los sucesos mientras pasan.

import { frase } from "./causas.js";

const ESPERA = 30; // segundos que la puerta tiene para contestar con el desenlace
const SIN_RED = 20; // más, y se da la conexión por cortada

export class SinRed extends Error {}

/**
 * Qué quiere decir una respuesta a un pedido con clave.
 *   final      no va a cambiar: no se repite más
 *   espera     la puerta lo tiene; se pregunta de nuevo con la misma clave
 *   otra_vez   no lo tomó; se repite con la misma clave
 *   persona    no lo tomó y repetir no alcanza: hay que corregir algo
 */
export function juzgar(status, cuerpo) {
  const estado = cuerpo?.estado;
  const base = { status, estado, causa: cuerpo?.causa ?? 0, desenlace: cuerpo?.desenlace, texto: textoDe(cuerpo), cuerpo };
  if (status === 200 || status === 201) return { ...base, clase: "final" };
  if (status === 202) return { ...base, clase: cuerpo?.definitivo ? "final" : "espera" };
  if (cuerpo?.trabajo !== undefined) return { ...base, clase: "final" };
  if (status === 422 && cuerpo?.errores) return { ...base, estado: "corregir", clase: "final" }; // la clave no se gastó
  if (status === 429 || status >= 500) return { ...base, clase: "otra_vez" };
  return { ...base, clase: "persona" };
}

function textoDe(cuerpo) {
  return cuerpo?.texto || cuerpo?.detail || frase(cuerpo?.causa ?? 0, cuerpo?.desenlace) || cuerpo?.title || "";
}

export class Puerta {
  constructor({ direccion, clave }) {
    this.direccion = direccion.replace(/\/$/, "");
    this.clave = clave;
  }

  encabezados(mas) {
    return { ...(this.clave ? { Authorization: `Bearer ${this.clave}` } : {}), ...mas };
  }

  async pedir(ruta, opciones = {}) {
    try {
      const respuesta = await fetch(this.direccion + ruta, {
        cache: "no-store", credentials: "omit", ...opciones, headers: this.encabezados(opciones.headers),
        signal: opciones.signal ?? AbortSignal.timeout((ESPERA + SIN_RED) * 1000),
      });
      const texto = await respuesta.text();
      return { status: respuesta.status, cuerpo: texto ? JSON.parse(texto) : null };
    } catch (error) {
      throw new SinRed(error.message);
    }
  }

  leer(ruta) {
    return this.pedir(ruta);
  }

  borrar(ruta) {
    return this.pedir(ruta, { method: "DELETE" });
  }

  async mandar({ metodo = "POST", ruta, cuerpo, clave }) {
    const { status, cuerpo: respuesta } = await this.pedir(ruta, {
      method: metodo, body: JSON.stringify(cuerpo),
      headers: { "Content-Type": "application/json", "Idempotency-Key": clave, Prefer: `wait=${ESPERA}` },
    });
    return juzgar(status, respuesta);
  }

  /** Los sucesos, hasta que se corte: llama a `alLlegar(suceso)`; `desde` es el último que se vio. */
  async sucesos(desde, alLlegar, alAbrir) {
    const corte = new AbortController();
    let plazo;
    const vivo = () => {
      clearTimeout(plazo);
      plazo = setTimeout(() => corte.abort(), 2 * SIN_RED * 1000);
    };
    try {
      vivo();
      const respuesta = await fetch(this.direccion + "/v1/eventos", {
        cache: "no-store", credentials: "omit", signal: corte.signal,
        headers: this.encabezados({ Accept: "text/event-stream", ...(desde ? { "Last-Event-ID": String(desde) } : {}) }),
      });
      if (!respuesta.ok) return respuesta.status;
      alAbrir();
      const lector = respuesta.body.pipeThrough(new TextDecoderStream()).getReader();
      let resto = "";
      for (;;) {
        const { value, done } = await lector.read();
        if (done) return 0;
        vivo();
        const partes = (resto + value).split(/\r?\n\r?\n/);
        resto = partes.pop();
        for (const parte of partes) {
          const datos = parte.split(/\r?\n/).filter((linea) => linea.startsWith("data:")).map((linea) => linea.slice(5).trim());
          if (datos.length) alLlegar(JSON.parse(datos.join("\n")));
        }
      }
    } catch {
      return 0;
    } finally {
      clearTimeout(plazo);
      corte.abort();
    }
  }
}
