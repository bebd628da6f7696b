/*
 * A point of sale in one page: issues a ticket through Kestra. Run it where a Fiscal.ini of a
 * ticket printer (TipoComprobante=TQ) lies.
 */
#include "shop.h"

int main(void) {
  static const Customer anybody = {"", "", "", "F", ""};
  char number[9] = "";
  int failed = 0;

  if (EP_Init() != 1) {
    fprintf(stderr, "EP_Init: no se pudo preparar el puerto; ver Fiscal.ini\n");
    return 1;
  }
  failed |= step("EP_AbrirComprobanteFiscal", open_document("FC", "C", anybody));
  failed |= step("EP_ImprimirItem  2 x 1500,00",
                 item("Cafe molido 500 g", 2, 1500.00, 21.0, "Tostado natural"));
  failed |=
      step("EP_ImprimirItem  1 x  890,50", item("Yerba mate 1 kg", 1, 890.50, 21.0, "Con palo"));
  failed |= step("EP_ImprimirItem  3 x  120,25",
                 item("Alfajor de maicena", 3, 120.25, 21.0, "Promo de la semana"));
  failed |= step("EP_DescuentoGeneral  -100,00", discount("Descuento socio", 100.00));
  failed |= step("EP_ImprimirPago      5000,00", payment("Efectivo", 5000.00));
  failed |= step("EP_CerrarComprobanteFiscal", EP_CerrarComprobanteFiscal("FC", "C", number));
  if (!failed) printf("Ticket emitido: %s\n", number);
  EP_Kill();
  return failed;
}
