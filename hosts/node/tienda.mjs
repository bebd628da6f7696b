// La jornada de un comercio: una factura, su nota de crédito, una página no fiscal, el X y el Z.
import { ErrorFiscal, Impresora, exigirImpresoraVirtual } from './kestra.mjs';

const CLIENTE = {
  nombre1: 'Libreria Muñoz S.R.L.', documento_tipo: 'CUIT', documento_numero: '30000000007', responsabilidad_iva: 'I',
  domicilio1: 'Belgrano 1234', copias: 1,
};

// Cuenta una llamada hecha; si falló, la excepción siguió hasta el final del programa.
function paso(texto, resultado) {
  console.log(`${texto.padEnd(52)} ok`);
  return resultado;
}

function factura(impresora) {
  paso('EP_AbrirComprobanteFiscal         factura A', impresora.abrirComprobanteFiscal('FC', 'A', CLIENTE));
  paso('EP_ImprimirItem                   10 x 320,00 (21%)',
    impresora.imprimirItem('Resma A4 75 g', 10, 320.00, 21.0, { extra1: 'Caja cerrada' }));
  paso('EP_ImprimirItem                   2 x 4500,00 (10,5%)', impresora.imprimirItem('Diccionario', 2, 4500.00, 10.5));
  paso('EP_DescuentoGeneral               -200,00', impresora.descuentoGeneral('Descuento contado', 200.00));
  paso('EP_EspecificarPercepcionGlobal    150,00',
    impresora.especificarPercepcionGlobal('Percepcion IIBB', 150.00, 0.0, 'O'));
  paso('EP_ImprimirPago                   20000,00', impresora.imprimirPago('Transferencia', 20000.00));
  const numero = paso('EP_CerrarComprobanteFiscal', impresora.cerrarComprobanteFiscal('FC', 'A'));
  console.log(`Factura A emitida: ${numero}`);
}

function notaDeCredito(impresora) {
  paso('EP_AbrirComprobanteFiscal         nota de credito A', impresora.abrirComprobanteFiscal('NC', 'A', CLIENTE));
  paso('EP_ImprimirItem                   1 x 4500,00 (10,5%)',
    impresora.imprimirItem('Diccionario', 1, 4500.00, 10.5, { extra1: 'Devolucion' }));
  const numero = paso('EP_CerrarComprobanteFiscal', impresora.cerrarComprobanteFiscal('NC', 'A'));
  console.log(`Nota de credito A emitida: ${numero}`);
}

function pagina(impresora) {
  paso('EP_AbrirComprobanteNoFiscal', impresora.abrirComprobanteNoFiscal());
  paso('EP_ImprimirTextoNoFiscal', impresora.imprimirTextoNoFiscal('Retirar por deposito'));
  paso('EP_CerrarComprobanteNoFiscal', impresora.cerrarComprobanteNoFiscal());
}

exigirImpresoraVirtual(process.argv);
try {
  const impresora = new Impresora();
  paso('EP_SetEncabezado', impresora.setEncabezado('Gracias por su compra', 1, 0));
  factura(impresora);
  notaDeCredito(impresora);
  pagina(impresora);
  paso('EP_ReporteX', impresora.reporteX());
  paso('EP_ReporteZ', impresora.reporteZ());
  impresora.cerrar();
} catch (error) {
  if (!(error instanceof ErrorFiscal)) throw error;
  console.error(`${error.llamada}: ${error.message}`);
  process.exitCode = 1;
}
