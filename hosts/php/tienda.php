<?php
// La jornada de un comercio: una factura, su nota de crédito, una página no fiscal, el X y el Z.
require __DIR__ . '/kestra.php';

use Kestra\ErrorFiscal;
use Kestra\Impresora;

const CLIENTE = [
    'nombre1' => 'Libreria Muñoz S.R.L.', 'documento_tipo' => 'CUIT', 'documento_numero' => '30000000007',
    'responsabilidad_iva' => 'I', 'domicilio1' => 'Belgrano 1234', 'copias' => 1,
];

// Cuenta una llamada hecha; si falló, la excepción siguió hasta el final del programa.
function paso(string $texto, mixed $resultado): mixed
{
    printf("%-52s ok\n", $texto);
    return $resultado;
}

function factura(Impresora $impresora): void
{
    paso('EP_AbrirComprobanteFiscal         factura A', $impresora->abrirComprobanteFiscal('FC', 'A', ...CLIENTE));
    paso('EP_ImprimirItem                   10 x 320,00 (21%)',
        $impresora->imprimirItem('Resma A4 75 g', 10, 320.00, 21.0, extra1: 'Caja cerrada'));
    paso('EP_ImprimirItem                   2 x 4500,00 (10,5%)', $impresora->imprimirItem('Diccionario', 2, 4500.00, 10.5));
    paso('EP_DescuentoGeneral               -200,00', $impresora->descuentoGeneral('Descuento contado', 200.00));
    paso('EP_EspecificarPercepcionGlobal    150,00',
        $impresora->especificarPercepcionGlobal('Percepcion IIBB', 150.00, 0.0, 'O'));
    paso('EP_ImprimirPago                   20000,00', $impresora->imprimirPago('Transferencia', 20000.00));
    $numero = paso('EP_CerrarComprobanteFiscal', $impresora->cerrarComprobanteFiscal('FC', 'A'));
    echo "Factura A emitida: $numero\n";
}

function notaDeCredito(Impresora $impresora): void
{
    paso('EP_AbrirComprobanteFiscal         nota de credito A', $impresora->abrirComprobanteFiscal('NC', 'A', ...CLIENTE));
    paso('EP_ImprimirItem                   1 x 4500,00 (10,5%)',
        $impresora->imprimirItem('Diccionario', 1, 4500.00, 10.5, extra1: 'Devolucion'));
    $numero = paso('EP_CerrarComprobanteFiscal', $impresora->cerrarComprobanteFiscal('NC', 'A'));
    echo "Nota de credito A emitida: $numero\n";
}

function pagina(Impresora $impresora): void
{
    paso('EP_AbrirComprobanteNoFiscal', $impresora->abrirComprobanteNoFiscal());
    paso('EP_ImprimirTextoNoFiscal', $impresora->imprimirTextoNoFiscal('Retirar por deposito'));
    paso('EP_CerrarComprobanteNoFiscal', $impresora->cerrarComprobanteNoFiscal());
}

Kestra\exigirImpresoraVirtual($argv);
try {
    $impresora = new Impresora();
    paso('EP_SetEncabezado', $impresora->setEncabezado('Gracias por su compra', 1, 0));
    factura($impresora);
    notaDeCredito($impresora);
    pagina($impresora);
    paso('EP_ReporteX', $impresora->reporteX());
    paso('EP_ReporteZ', $impresora->reporteZ());
    $impresora->cerrar();
} catch (ErrorFiscal $error) {
    fwrite(STDERR, "{$error->llamada}: {$error->getMessage()}\n");
    exit(1);
}
