/*
 * A shop's fiscal day: an invoice, its credit note, a page without fiscal value, the X report and
 * the closing Z. Run it where a Fiscal.ini of a ticket-invoice printer (TipoComprobante=TF) lies.
 */
#include "shop.h"

static const Customer kCustomer = {"Libreria Mu\xF1oz S.R.L.", "CUIT", "30000000007", "I",
                                   "Belgrano 1234"};

static int heading(void) {
  const Text line = text("Gracias por su compra");
  return step("EP_SetEncabezado", EP_SetEncabezado(line.bytes, 1, 0));
}

static int invoice(void) {
  const Text perception = text("Percepcion IIBB");
  char number[9] = "";
  int failed = 0;
  failed |=
      step("EP_AbrirComprobanteFiscal         factura A", open_document("FC", "A", kCustomer));
  failed |= step("EP_ImprimirItem                   10 x 320,00 (21%)",
                 item("Resma A4 75 g", 10, 320.00, 21.0, "Caja cerrada"));
  failed |= step("EP_ImprimirItem                   2 x 4500,00 (10,5%)",
                 item("Diccionario", 2, 4500.00, 10.5, ""));
  failed |=
      step("EP_DescuentoGeneral               -200,00", discount("Descuento contado", 200.00));
  failed |= step("EP_EspecificarPercepcionGlobal    150,00",
                 EP_EspecificarPercepcionGlobal(perception.bytes, 150.00, 0.0, "O"));
  failed |= step("EP_ImprimirPago                   20000,00", payment("Transferencia", 20000.00));
  failed |= step("EP_CerrarComprobanteFiscal", EP_CerrarComprobanteFiscal("FC", "A", number));
  if (!failed) printf("Factura A emitida: %s\n", number);
  return failed;
}

static int credit_note(void) {
  char number[9] = "";
  int failed = 0;
  failed |= step("EP_AbrirComprobanteFiscal         nota de credito A",
                 open_document("NC", "A", kCustomer));
  failed |= step("EP_ImprimirItem                   1 x 4500,00 (10,5%)",
                 item("Diccionario", 1, 4500.00, 10.5, "Devolucion"));
  failed |= step("EP_CerrarComprobanteFiscal", EP_CerrarComprobanteFiscal("NC", "A", number));
  if (!failed) printf("Nota de credito A emitida: %s\n", number);
  return failed;
}

static int page(void) {
  const Text line = text("Retirar por deposito");
  int failed = 0;
  failed |= step("EP_AbrirComprobanteNoFiscal", EP_AbrirComprobanteNoFiscal());
  failed |= step("EP_ImprimirTextoNoFiscal", EP_ImprimirTextoNoFiscal(line.bytes));
  failed |= step("EP_CerrarComprobanteNoFiscal", EP_CerrarComprobanteNoFiscal());
  return failed;
}

int main(void) {
  int failed = 0;
  if (EP_Init() != 1) {
    fprintf(stderr, "EP_Init: no se pudo preparar el puerto; ver Fiscal.ini\n");
    return 1;
  }
  failed |= heading();
  failed |= invoice();
  failed |= credit_note();
  failed |= page();
  failed |= step("EP_ReporteX", EP_ReporteX());
  failed |= step("EP_ReporteZ", EP_ReporteZ());
  EP_Kill();
  return failed;
}
