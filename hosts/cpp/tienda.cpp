// Una jornada: una factura A, su nota de crédito, una hoja sin valor fiscal, el informe X y el cierre Z.
// Se corre donde hay un Fiscal.ini de una impresora de tique factura (TipoComprobante=TF).
#include "kestra.hpp"

#include <iomanip>
#include <iostream>

static const kestra::Cliente cliente{"Libreria Muñoz S.R.L.", "CUIT", "30000000007", "I", "Belgrano 1234"};

// Se escribe después de cada llamada: si una falla, la excepción llega antes.
static void listo(const char* paso) { std::cout << std::left << std::setw(52) << paso << " ok\n"; }

static void factura(kestra::Impresora& impresora) {
    impresora.abrir_comprobante_fiscal("FC", "A", cliente);
    listo("EP_AbrirComprobanteFiscal         factura A");
    impresora.imprimir_item("Resma A4 75 g", 10, 320.00, 21.0, "Caja cerrada");
    listo("EP_ImprimirItem                   10 x 320,00 (21%)");
    impresora.imprimir_item("Diccionario", 2, 4500.00, 10.5);
    listo("EP_ImprimirItem                   2 x 4500,00 (10,5%)");
    impresora.descuento_general("Descuento contado", 200.00);
    listo("EP_DescuentoGeneral               -200,00");
    impresora.especificar_percepcion_global("Percepcion IIBB", 150.00, 0.0, "O");
    listo("EP_EspecificarPercepcionGlobal    150,00");
    impresora.imprimir_pago("Transferencia", 20000.00);
    listo("EP_ImprimirPago                   20000,00");
    const auto numero = impresora.cerrar_comprobante_fiscal("FC", "A");
    listo("EP_CerrarComprobanteFiscal");
    std::cout << "Factura A emitida: " << numero << '\n';
}

static void nota_de_credito(kestra::Impresora& impresora) {
    impresora.abrir_comprobante_fiscal("NC", "A", cliente);
    listo("EP_AbrirComprobanteFiscal         nota de credito A");
    impresora.imprimir_item("Diccionario", 1, 4500.00, 10.5, "Devolucion");
    listo("EP_ImprimirItem                   1 x 4500,00 (10,5%)");
    const auto numero = impresora.cerrar_comprobante_fiscal("NC", "A");
    listo("EP_CerrarComprobanteFiscal");
    std::cout << "Nota de credito A emitida: " << numero << '\n';
}

static void hoja_no_fiscal(kestra::Impresora& impresora) {
    impresora.abrir_comprobante_no_fiscal();
    listo("EP_AbrirComprobanteNoFiscal");
    impresora.imprimir_texto_no_fiscal("Retirar por deposito");
    listo("EP_ImprimirTextoNoFiscal");
    impresora.cerrar_comprobante_no_fiscal();
    listo("EP_CerrarComprobanteNoFiscal");
}

int main(int argc, char** argv) {
    kestra::exigir_impresora_virtual(argc, argv);
    try {
        kestra::Impresora impresora;
        impresora.set_encabezado("Gracias por su compra", 1);
        listo("EP_SetEncabezado");
        factura(impresora);
        nota_de_credito(impresora);
        hoja_no_fiscal(impresora);
        impresora.reporte_x();
        listo("EP_ReporteX");
        impresora.reporte_z();
        listo("EP_ReporteZ");
    } catch (const kestra::ErrorFiscal& error) {
        std::cerr << error.llamada() << ": " << error.what() << '\n';
        return 1;
    }
}
