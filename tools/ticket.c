/*
 * A point of sale on one page: issues a ticket through Kestra. Run it where a Fiscal.ini of a
 * ticket printer (TipoComprobante=TQ) lies.
 */
#include <kestra/kestra.h>
#include <stdio.h>
#include <string.h>

/* A field as the library reads it: exactly `length` bytes, with blanks behind the words. */
static const char* padded(char* field, size_t length, const char* words) {
  const size_t used = strlen(words);
  memset(field, ' ', length);
  memcpy(field, words, used < length ? used : length);
  return field;
}

static int open_ticket(void) {
  char blank[40];
  padded(blank, sizeof blank, "");
  return EP_AbrirComprobanteFiscal("FC", "C", blank, blank, blank, blank, "F", blank, blank, blank,
                                   blank, blank, 1);
}

static int item(const char* words, double quantity, double price, const char* extra) {
  char description[50], first[22], blank[22];
  padded(blank, sizeof blank, "");
  return EP_ImprimirItem(padded(description, sizeof description, words), quantity, price, 21.0, 0.0,
                         padded(first, sizeof first, extra), blank, blank);
}

/* Says what was asked and what came of it; 1 when it failed. */
static int step(const char* what, int result) {
  printf("%-52s %s\n", what, result == 0 ? "ok" : "FALLO");
  return result != 0;
}

int main(void) {
  char words[80];
  char number[8 + 1] = ""; /* up to 8 bytes, and a zero of our own */
  int failed = 0;

  if (EP_Init() != 1) {
    fprintf(stderr, "EP_Init: no se pudo preparar el puerto; ver Fiscal.ini\n");
    return 1;
  }
  failed |= step("EP_AbrirComprobanteFiscal", open_ticket());
  failed |= step("EP_ImprimirItem  2 x 1500,00",
                 item("Cafe molido 500 g", 2, 1500.00, "Tostado natural"));
  failed |= step("EP_ImprimirItem  1 x  890,50", item("Yerba mate 1 kg", 1, 890.50, "Con palo"));
  failed |= step("EP_ImprimirItem  3 x  120,25",
                 item("Alfajor de maicena", 3, 120.25, "Promo de la semana"));
  failed |= step("EP_DescuentoGeneral  -100,00",
                 EP_DescuentoGeneral(padded(words, sizeof words, "Descuento socio"), 100.00));
  failed |= step("EP_ImprimirPago      5000,00",
                 EP_ImprimirPago(padded(words, sizeof words, "Efectivo"), 5000.00));
  failed |= step("EP_CerrarComprobanteFiscal", EP_CerrarComprobanteFiscal("FC", "C", number));
  if (!failed) printf("Ticket emitido: %s\n", number);
  EP_Kill();
  return failed;
}
