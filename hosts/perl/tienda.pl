#!/usr/bin/perl
# La jornada de un comercio: una factura, su nota de crédito, una página no fiscal, el X y el Z.
use strict;
use warnings;
use utf8;
use open ':std', ':encoding(UTF-8)';
use FindBin;
use lib "$FindBin::Bin/lib";
use Kestra::Impresora;
use Kestra::Virtual 'exigir_impresora_virtual';

my %cliente = (
    nombre1 => 'Libreria Muñoz S.R.L.', documento_tipo => 'CUIT', documento_numero => '30000000007',
    responsabilidad_iva => 'I', domicilio1 => 'Belgrano 1234', copias => 1,
);

# Cuenta una llamada hecha; si falló, la excepción siguió hasta el final del programa.
sub paso {
    my ($texto, $resultado) = @_;
    printf "%-52s ok\n", $texto;
    return $resultado;
}

sub factura {
    my ($impresora) = @_;
    paso('EP_AbrirComprobanteFiscal         factura A', $impresora->abrir_comprobante_fiscal('FC', 'A', \%cliente));
    paso('EP_ImprimirItem                   10 x 320,00 (21%)',
        $impresora->imprimir_item('Resma A4 75 g', 10, 320.00, 21.0, { extra1 => 'Caja cerrada' }));
    paso('EP_ImprimirItem                   2 x 4500,00 (10,5%)',
        $impresora->imprimir_item('Diccionario', 2, 4500.00, 10.5));
    paso('EP_DescuentoGeneral               -200,00', $impresora->descuento_general('Descuento contado', 200.00));
    paso('EP_EspecificarPercepcionGlobal    150,00',
        $impresora->especificar_percepcion_global('Percepcion IIBB', 150.00, 0.0, 'O'));
    paso('EP_ImprimirPago                   20000,00', $impresora->imprimir_pago('Transferencia', 20000.00));
    my $numero = paso('EP_CerrarComprobanteFiscal', $impresora->cerrar_comprobante_fiscal('FC', 'A'));
    print "Factura A emitida: $numero\n";
}

sub nota_de_credito {
    my ($impresora) = @_;
    paso('EP_AbrirComprobanteFiscal         nota de credito A',
        $impresora->abrir_comprobante_fiscal('NC', 'A', \%cliente));
    paso('EP_ImprimirItem                   1 x 4500,00 (10,5%)',
        $impresora->imprimir_item('Diccionario', 1, 4500.00, 10.5, { extra1 => 'Devolucion' }));
    my $numero = paso('EP_CerrarComprobanteFiscal', $impresora->cerrar_comprobante_fiscal('NC', 'A'));
    print "Nota de credito A emitida: $numero\n";
}

exigir_impresora_virtual(@ARGV);
eval {
    my $impresora = Kestra::Impresora->new;
    paso('EP_SetEncabezado', $impresora->set_encabezado('Gracias por su compra', 1, 0));
    factura($impresora);
    nota_de_credito($impresora);
    paso('EP_AbrirComprobanteNoFiscal', $impresora->abrir_comprobante_no_fiscal);
    paso('EP_ImprimirTextoNoFiscal', $impresora->imprimir_texto_no_fiscal('Retirar por deposito'));
    paso('EP_CerrarComprobanteNoFiscal', $impresora->cerrar_comprobante_no_fiscal);
    paso('EP_ReporteX', $impresora->reporte_x);
    paso('EP_ReporteZ', $impresora->reporte_z);
    $impresora->cerrar;
    1;
} or do {
    my $error = $@;
    die $error unless ref $error && $error->isa('Kestra::ErrorFiscal');
    print STDERR $error->llamada, ": $error\n";
    exit 1;
};
