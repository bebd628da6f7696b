// Quien contesta en lugar de los cuadros de la biblioteca.

// Una función del programa, como la llama la biblioteca. Lo que lance se muestra, y vale como No o Cerrar.
function sinCaer(funcion) {
  return (...argumentos) => {
    try {
      return funcion(...argumentos);
    } catch (error) {
      console.error(error);
      return 0;
    }
  };
}

// Las funciones de la biblioteca que hacen lo que dicen las del operador; las que no tiene, nulas.
export function funcionesDe(operador, koffi, KestraFila) {
  const filas = (puntero, cantidad) => koffi.decode(puntero, KestraFila, cantidad)
    .map((fila) => ({ ...fila, encendida: fila.encendida !== 0 }));
  const propias = {
    mensaje: (_, texto, titulo, estilo) => operador.mensaje(texto, titulo, estilo) ?? 0,
    informe_estados: (_, impresora, fiscal, puntero, cantidad) =>
      (operador.informeEstados(impresora, fiscal, filas(puntero, cantidad)) ? 1 : 0),
    memoria_llena: () => { operador.memoriaLlena(); },
  };
  const suyas = { mensaje: 'mensaje', informe_estados: 'informeEstados', memoria_llena: 'memoriaLlena' };
  return Object.fromEntries(Object.entries(propias)
    .map(([nombre, funcion]) => [nombre, operador[suyas[nombre]] ? sinCaer(funcion) : null]));
}
