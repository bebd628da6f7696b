// Importes exactos: enteros de centésimos (BigInt). Un number de JavaScript no sabe lo que es 0,10.

const ESCALA = 4; // decimales que se guardan de cantidades y precios

/** "12,5" o "12.5" en enteros de diezmilésimos; null si no es un número. */
export function leer(texto) {
  const partes = /^(-?)(\d{1,10})(?:[.,](\d{1,4}))?$/.exec(String(texto).trim());
  if (!partes) return null;
  const unidades = BigInt(partes[2] + (partes[3] ?? "").padEnd(ESCALA, "0"));
  return partes[1] ? -unidades : unidades;
}

function dividir(valor, divisor) { // al más cercano; el medio se aleja del cero
  const signo = valor < 0n ? -1n : 1n;
  return signo * ((2n * signo * valor + divisor) / (2n * divisor));
}

/** Diezmilésimos en centésimos. */
export const centesimos = (valor) => dividir(valor, 100n);

/** Cantidad por precio, en centésimos. */
export const producto = (cantidad, precio) => dividir(cantidad * precio, 1000000n);

/** La parte de `importe` que le toca a `parte` de `todo`. */
export const proporcion = (importe, parte, todo) => dividir(importe * parte, todo);

/** Centésimos por una tasa en diezmilésimos de por ciento. */
export const porciento = (importe, tasa) => dividir(importe * tasa, 1000000n);

/** Centésimos como los lleva un pedido: "1234.50". */
export function enTexto(valor) {
  const digitos = String(valor < 0n ? -valor : valor).padStart(3, "0");
  return (valor < 0n ? "-" : "") + digitos.slice(0, -2) + "." + digitos.slice(-2);
}

/** Diezmilésimos como los lleva un pedido, sin ceros de más: "0.25", "2". */
export function enCorto(valor, decimales = 0) {
  const digitos = String(valor < 0n ? -valor : valor).padStart(ESCALA + 1, "0");
  const fraccion = digitos.slice(-ESCALA).replace(/0+$/, "").padEnd(decimales, "0");
  return (valor < 0n ? "-" : "") + digitos.slice(0, -ESCALA) + (fraccion ? "." + fraccion : "");
}

/** Un texto decimal como se lo lee acá: "1.234,50". */
export function impreso(texto) {
  const [entero, fraccion] = texto.split(".");
  return entero.replace(/\B(?=(\d{3})+$)/g, ".") + (fraccion === undefined ? "" : "," + fraccion);
}

export const pesos = (valor) => "$ " + impreso(enTexto(valor));
