/*
 * The library's calls as a shop would like them: words instead of padded fields. Each text goes out
 * at the length that kestra.h gives, with blanks behind the words.
 */
#ifndef SHOP_H
#define SHOP_H

#include <kestra/kestra.h>
#include <stdio.h>
#include <string.h>

enum { MAX_TEXT = 120 };

typedef struct Text {
  char bytes[MAX_TEXT];
} Text;

static inline Text text(const char* words) {
  Text field;
  size_t used = strlen(words);
  memset(field.bytes, ' ', sizeof field.bytes);
  memcpy(field.bytes, words, used < sizeof field.bytes ? used : sizeof field.bytes);
  return field;
}

/* Says what was asked and what came of it; 1 when it failed. */
static inline int step(const char* what, int result) {
  printf("%-52s %s\n", what, result == 0 ? "ok" : "FALLO");
  return result != 0;
}

typedef struct Customer {
  const char *name, *document_kind, *document_number, *iva, *address;
} Customer;

static inline int open_document(const char* kind, const char* letter, Customer customer) {
  const Text name = text(customer.name), document_kind = text(customer.document_kind),
             number = text(customer.document_number), address = text(customer.address),
             blank = text("");
  return EP_AbrirComprobanteFiscal(kind, letter, name.bytes, blank.bytes, document_kind.bytes,
                                   number.bytes, customer.iva, address.bytes, blank.bytes,
                                   blank.bytes, blank.bytes, blank.bytes, 1);
}

static inline int item(const char* description, double quantity, double price, double iva,
                       const char* extra) {
  const Text words = text(description), more = text(extra), blank = text("");
  return EP_ImprimirItem(words.bytes, quantity, price, iva, 0.0, more.bytes, blank.bytes,
                         blank.bytes);
}

static inline int discount(const char* description, double amount) {
  const Text words = text(description);
  return EP_DescuentoGeneral(words.bytes, amount);
}

static inline int payment(const char* description, double amount) {
  const Text words = text(description);
  return EP_ImprimirPago(words.bytes, amount);
}

#endif
