// Los ejemplos emiten comprobantes: solo en una impresora virtual, si no se les pide otra cosa.
import { readFileSync, realpathSync } from 'node:fs';

// ¿Es virtual la impresora de ese archivo? Una dirección de esta máquina, una tubería o una pseudoterminal.
export function impresoraVirtual(archivo = 'Fiscal.ini') {
  try {
    const ini = readFileSync(archivo, 'latin1');
    // La clave puede estar más de una vez, también en secciones ajenas: no se elige cuál vale.
    const claves = [...ini.matchAll(/^[ \t]*ImpresoraDispositivo[ \t]*=[ \t]*(.*?)[ \t]*$/gim)];
    return claves.length > 0 && claves.every(([, dispositivo]) => dispositivoVirtual(dispositivo));
  } catch {
    return false; // no hay archivo, o no hay tal dispositivo
  }
}

function dispositivoVirtual(dispositivo) {
  return /^tcp:(127\.\d+\.\d+\.\d+|localhost|\[::1\]):\d+$/i.test(dispositivo)
    || dispositivo.startsWith('\\\\.\\pipe\\')
    || /^\/dev\/pts\/\d+$/.test(realpathSync(dispositivo));
}

// Termina el programa con 2, salvo con una impresora virtual o con --impresora-real entre los argumentos.
export function exigirImpresoraVirtual(argumentos) {
  // La variable KESTRA_DISPOSITIVO se antepone a Fiscal.ini: con ella no.
  if (argumentos.includes('--impresora-real') || (!process.env.KESTRA_DISPOSITIVO && impresoraVirtual())) return;
  console.error('La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.');
  process.exit(2);
}
