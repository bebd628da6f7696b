// Kestra desde Node.js: un método por función, con textos de JavaScript, y una excepción cuando algo falla.
//
//   const impresora = new Impresora();
//   impresora.abrirComprobanteFiscal('FC', 'B', { responsabilidad_iva: 'F' });
import koffi from 'koffi';
import { FUNCIONES, declarar } from './declaraciones.mjs';
import { funcionesDe } from './operador.mjs';

export * from './declaraciones.mjs';
export { exigirImpresoraVirtual, impresoraVirtual } from './virtual.mjs';

const UTF_8 = 2; // modo de Kestra_Textos: textos terminados en cero, en UTF-8
const LARGO = 1024; // de los textos que dicen su propio largo
const EXITO = { EP_Init: 1 }; // en las demás funciones EP_, 0
const NOMBRES = { EP_Init: 'iniciar', EP_Kill: 'cerrar', Kestra_Numeracion: 'ultimoNumero' };
const APARTE = ['Kestra_DefinirOperador', 'Kestra_Textos'];

// Una llamada que falló. El mensaje es el que se le muestra al operador.
export class ErrorFiscal extends Error {
  constructor(llamada, desenlace, causa, mensaje) {
    super(mensaje);
    this.name = 'ErrorFiscal';
    this.llamada = llamada;
    this.desenlace = desenlace; // KESTRA_DESENLACE_...: qué fue del pedido
    this.causa = causa; // KESTRA_CAUSA_...: por qué
  }
}

let llamadas = []; // las del operador, que viven mientras la biblioteca las use

const texto = (bufer) => bufer.toString('utf8', 0, bufer.indexOf(0));

// EP_AbrirComprobanteFiscal, abrirComprobanteFiscal.
function nombreDelMetodo(funcion) {
  const propio = funcion.slice(funcion.indexOf('_') + 1).replaceAll('_', '');
  return NOMBRES[funcion] ?? propio[0].toLowerCase() + propio.slice(1);
}

// Lee el Fiscal.ini del directorio de trabajo. Una por programa.
export class Impresora {
  #biblioteca;

  constructor(ruta = process.platform === 'win32' ? 'Kestra.dll' : 'libkestra.so') {
    this.#biblioteca = declarar(koffi, ruta);
    this.#biblioteca.Kestra_Textos(UTF_8);
    this.iniciar();
  }

  // Contesta en lugar de los cuadros, con las funciones que tenga de estas; null vuelve a los cuadros:
  //   mensaje(texto, titulo, estilo)              1 Aceptar, 6 Sí, 7 No; estilo: 0 Aceptar, 4 y 36 Sí/No
  //   informeEstados(impresora, fiscal, filas)    verdadero para mandar otra vez
  //   memoriaLlena()
  definirOperador(operador) {
    const { tipos, Kestra_DefinirOperador } = this.#biblioteca;
    const anteriores = llamadas;
    llamadas = [];
    const registro = operador && { tamano: koffi.sizeof(tipos.KestraOperador), contexto: null };
    if (operador) {
      for (const [nombre, funcion] of Object.entries(funcionesDe(operador, koffi, tipos.KestraFila))) {
        registro[nombre] = funcion && koffi.register(funcion, koffi.pointer(tipos[nombre]));
        if (funcion) llamadas.push(registro[nombre]);
      }
    }
    Kestra_DefinirOperador(registro);
    anteriores.forEach((llamada) => koffi.unregister(llamada));
  }

  // Los argumentos van en orden, o por nombre en un objeto al final; los que faltan, en blanco o en cero. Lo que la
  // función escribe en un búfer es lo que se devuelve.
  llamar(funcion, ...valores) {
    const nombrados = typeof valores.at(-1) === 'object' ? { ...valores.pop() } : {};
    let bufer;
    const argumentos = FUNCIONES[funcion].argumentos.map(([nombre, tipo, bytes]) => {
      if (tipo === 'bufer') return (bufer = Buffer.alloc((bytes || LARGO) + 1));
      if (nombre === 'longitud') return LARGO;
      const valor = valores.length > 0 ? valores.shift() : nombrados[nombre];
      delete nombrados[nombre];
      return tipo === 'texto' ? Buffer.from(`${valor ?? ''}\0`) : valor ?? 0;
    });
    const sobran = [...valores, ...Object.keys(nombrados)];
    if (sobran.length > 0) throw new TypeError(`${nombreDelMetodo(funcion)}: sobran argumentos: ${sobran}`);
    const resultado = this.#biblioteca[funcion](...argumentos);
    const operacion = funcion.startsWith('EP_');
    if (operacion ? resultado !== (EXITO[funcion] ?? 0) : resultado === -1) throw this.#error(funcion);
    return bufer ? texto(bufer) : operacion ? undefined : resultado;
  }

  #error(funcion) {
    const frase = Buffer.alloc(LARGO + 1);
    this.#biblioteca.Kestra_CausaTexto(frase, LARGO);
    return new ErrorFiscal(funcion, this.#biblioteca.Kestra_Desenlace(), this.#biblioteca.Kestra_Causa(),
      texto(frase) || `${funcion}: no se pudo hacer.`);
  }
}

for (const funcion of Object.keys(FUNCIONES).filter((nombre) => !APARTE.includes(nombre))) {
  Impresora.prototype[nombreDelMetodo(funcion)] = function (...valores) { return this.llamar(funcion, ...valores); };
}
