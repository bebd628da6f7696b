/*
 * Una jornada: una factura A, su nota de crédito, una hoja sin valor fiscal, el informe X y el cierre Z.
 * Se corre donde hay un Fiscal.ini de una impresora de tique factura (TipoComprobante=TF).
 */
#define _XOPEN_SOURCE 700
#include "impresora.h"

/* Dice qué se hizo; si falló, termina el programa con la oración para el operador. */
static void paso(const char *que, int resultado) {
  char oracion[512];
  if (resultado == 0) {
    printf("%-52s ok\n", que);
    return;
  }
  fprintf(stderr, "%.*s: %s\n", (int)strcspn(que, " "), que, kestra_oracion(oracion, sizeof oracion));
  EP_Kill();
  exit(1);
}

static int abrir(const char *tipo, const char *letra) {
  return EP_AbrirComprobanteFiscal(tipo, letra, "Libreria Muñoz S.R.L.", "", "CUIT", "30000000007", "I", "Belgrano 1234", "",
                                   "", "", "", 1);
}

static void factura(void) {
  char numero[8 + 1] = "";
  paso("EP_AbrirComprobanteFiscal         factura A", abrir("FC", "A"));
  paso("EP_ImprimirItem                   10 x 320,00 (21%)",
       EP_ImprimirItem("Resma A4 75 g", 10, 320.00, 21.0, 0.0, "Caja cerrada", "", ""));
  paso("EP_ImprimirItem                   2 x 4500,00 (10,5%)",
       EP_ImprimirItem("Diccionario", 2, 4500.00, 10.5, 0.0, "", "", ""));
  paso("EP_DescuentoGeneral               -200,00", EP_DescuentoGeneral("Descuento contado", 200.00));
  paso("EP_EspecificarPercepcionGlobal    150,00", EP_EspecificarPercepcionGlobal("Percepcion IIBB", 150.00, 0.0, "O"));
  paso("EP_ImprimirPago                   20000,00", EP_ImprimirPago("Transferencia", 20000.00));
  paso("EP_CerrarComprobanteFiscal", EP_CerrarComprobanteFiscal("FC", "A", numero));
  printf("Factura A emitida: %s\n", numero);
}

static void nota_de_credito(void) {
  char numero[8 + 1] = "";
  paso("EP_AbrirComprobanteFiscal         nota de credito A", abrir("NC", "A"));
  paso("EP_ImprimirItem                   1 x 4500,00 (10,5%)",
       EP_ImprimirItem("Diccionario", 1, 4500.00, 10.5, 0.0, "Devolucion", "", ""));
  paso("EP_CerrarComprobanteFiscal", EP_CerrarComprobanteFiscal("NC", "A", numero));
  printf("Nota de credito A emitida: %s\n", numero);
}

int main(int argc, char **argv) {
  kestra_exigir_impresora_virtual(argc, argv);
  if (kestra_abrir() != 0) paso("EP_Init", 1);
  paso("EP_SetEncabezado", EP_SetEncabezado("Gracias por su compra", 1, 0));
  factura();
  nota_de_credito();
  paso("EP_AbrirComprobanteNoFiscal", EP_AbrirComprobanteNoFiscal());
  paso("EP_ImprimirTextoNoFiscal", EP_ImprimirTextoNoFiscal("Retirar por deposito"));
  paso("EP_CerrarComprobanteNoFiscal", EP_CerrarComprobanteNoFiscal());
  paso("EP_ReporteX", EP_ReporteX());
  paso("EP_ReporteZ", EP_ReporteZ());
  EP_Kill();
  return 0;
}
