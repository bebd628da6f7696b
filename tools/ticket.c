/*
 * A point of sale in one page: issues a ticket through Kestra. It knows nothing but kestra.h.
 * Run it where a Fiscal.ini lies.
 */
#include <kestra/kestra.h>
#include <stdio.h>
#include <string.h>

/* The driver reads each text for its full length: blanks behind the words, no terminating zero. */
static const char* text(char* field, size_t length, const char* words) {
  size_t used = strlen(words);
  memset(field, ' ', length);
  memcpy(field, words, used < length ? used : length);
  return field;
}

static int item(const char* description, double quantity, double price, const char* extra) {
  char field[50], extra1[22], extra2[22], extra3[22];
  return EP_ImprimirItem(text(field, sizeof field, description), quantity, price, 21.0, 0.0,
                         text(extra1, sizeof extra1, extra), text(extra2, sizeof extra2, ""),
                         text(extra3, sizeof extra3, ""));
}

static int discount(const char* description, double amount) {
  char field[80];
  return EP_DescuentoGeneral(text(field, sizeof field, description), amount);
}

static int payment(const char* description, double amount) {
  char field[80];
  return EP_ImprimirPago(text(field, sizeof field, description), amount);
}

static int open_ticket(void) {
  char blank[40], kind[6], number[11];
  text(blank, sizeof blank, "");
  return EP_AbrirComprobanteFiscal("FC", "C", blank, blank, text(kind, sizeof kind, ""),
                                   text(number, sizeof number, ""), "F", blank, blank, blank, blank,
                                   blank, 1);
}

/* Says what was asked and what came of it; 1 when it failed. */
static int step(const char* what, int result) {
  printf("%-52s %s\n", what, result == 0 ? "ok" : "FALLO");
  return result != 0;
}

int main(void) {
  char number[9] = "";
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
  failed |= step("EP_DescuentoGeneral  -100,00", discount("Descuento socio", 100.00));
  failed |= step("EP_ImprimirPago      5000,00", payment("Efectivo", 5000.00));
  failed |= step("EP_CerrarComprobanteFiscal", EP_CerrarComprobanteFiscal("FC", "C", number));
  if (!failed) printf("Ticket emitido: %s\n", number);
  EP_Kill();
  return failed;
}
