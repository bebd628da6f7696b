/*
 * A till that may be killed at any moment: one sale, step by step, and a book of what is done, caja.txt. Started
 * again, it asks what became of the step that was under way, and goes on behind it. Run it where a Fiscal.ini of
 * a ticket printer lies that has ModoSeguro=1 and Diario=diario.txt.
 */
#include <kestra/kestra.h>
#include <stdio.h>
#include <string.h>

enum { DONE = 1, NUMBER = 9, WORDS = 400 };

typedef struct Sale {
  const char* words;
  double quantity, price;
} Sale;

static const Sale kSales[] = {
    {"Cafe molido", 2, 1500.00}, {"Yerba mate", 1, 890.50}, {"Alfajor", 3, 120.25}};
enum { ITEMS = sizeof kSales / sizeof *kSales, PAYMENT = ITEMS + 1, CLOSING, STEPS };

/* A field as the library reads it: exactly `length` bytes, with blanks behind the words. */
static const char* padded(char* field, size_t length, const char* words) {
  const size_t used = strlen(words);
  memset(field, ' ', length);
  memcpy(field, words, used < length ? used : length);
  return field;
}

static void name_step(int step, char* name, size_t length) {
  if (step == 0) {
    snprintf(name, length, "apertura");
  } else if (step <= ITEMS) {
    const Sale* sale = &kSales[step - 1];
    snprintf(name, length, "item %s %g x %.2f", sale->words, sale->quantity, sale->price);
  } else {
    snprintf(name, length, step == PAYMENT ? "pago 5000.00" : "cierre");
  }
}

static int carry_out(int step, char* number) {
  char field[50], blank[40];
  padded(blank, sizeof blank, "");
  if (step == 0)
    return EP_AbrirComprobanteFiscal("FC", "B", blank, blank, blank, blank, "F", blank, blank,
                                     blank, blank, blank, 1);
  if (step == PAYMENT) return EP_ImprimirPago(padded(field, sizeof field, "Efectivo"), 5000.00);
  if (step == CLOSING) return EP_CerrarComprobanteFiscal("FC", "B", number);
  return EP_ImprimirItem(padded(field, sizeof field, kSales[step - 1].words),
                         kSales[step - 1].quantity, kSales[step - 1].price, 21.0, 0.0, blank, blank,
                         blank);
}

/* The steps that the book has: a line each. */
static int steps_done(void) {
  FILE* book = fopen("caja.txt", "r");
  int lines = 0;
  if (book == NULL) return 0;
  for (int byte = fgetc(book); byte != EOF; byte = fgetc(book)) lines += byte == '\n';
  fclose(book);
  return lines;
}

/* 1 when the book cannot be written. */
static int write_down(int step, const char* number) {
  char name[WORDS];
  FILE* book = fopen("caja.txt", "a");
  if (book == NULL) return 1;
  name_step(step, name, sizeof name);
  fprintf(book, "%s%s%s\n", name, *number ? " " : "", number);
  return fclose(book) != 0;
}

/* What was under way when this program died: 1 when it is done, with the number that a closing has given. */
static int was_done(char* number) {
  char call[WORDS];
  int outcome;
  if (Kestra_Pendiente(call, sizeof call) != 1) return 0;
  outcome = Kestra_Resolver();
  Kestra_ResolverNumero(number, NUMBER);
  printf("Quedo pendiente: %.40s...  %s\n", call, outcome == DONE ? "se hizo" : "no se hizo");
  return outcome == DONE;
}

static int failed(const char* what) {
  char words[WORDS] = "";
  Kestra_CausaTexto(words, sizeof words);
  fprintf(stderr, "%s: %s\n", what, words);
  EP_Kill();
  return 1;
}

int main(void) {
  char number[NUMBER] = "", name[WORDS];
  int step;
  setvbuf(stdout, NULL, _IONBF, 0);
  if (EP_Init() != 1 || Kestra_Causa() != 0) return failed("EP_Init");
  step = steps_done();
  if (was_done(number) && write_down(step++, number)) return failed("caja.txt");
  for (; step < STEPS; ++step) {
    name_step(step, name, sizeof name);
    printf("%-40s ", name);
    if (carry_out(step, number) != 0) return failed("FALLO");
    printf("ok %s\n", number);
    if (write_down(step, number)) return failed("caja.txt");
  }
  EP_Kill();
  return 0;
}
