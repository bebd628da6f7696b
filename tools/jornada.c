/*
 * A shop's fiscal day: an invoice, its credit note, a page without fiscal value, the X report and
 * the closing Z. Run it where a Fiscal.ini of a ticket-invoice printer (TipoComprobante=TF) lies.
 */
#include <kestra/kestra.h>
#include <stdio.h>
#include <string.h>

enum { MAX_TEXT = 120 };

/* Words as the library reads them: at the length that kestra.h gives, with blanks behind. */
typedef struct Text {
  char bytes[MAX_TEXT];
} Text;

static Text text(const char* words) {
  Text field;
  size_t used = strlen(words);
  memset(field.bytes, ' ', sizeof field.bytes);
  memcpy(field.bytes, words, used < sizeof field.bytes ? used : sizeof field.bytes);
  return field;
}

/* Says what was asked and what came of it; 1 when it failed. */
static int step(const char* what, int result) {
  printf("%-52s %s\n", what, result == 0 ? "ok" : "FALLO");
  return result != 0;
}

typedef struct Customer {
  const char *name, *document_kind, *document_number, *iva, *address;
} Customer;

static int open_document(const char* kind, const char* letter, Customer customer) {
  const Text name = text(customer.name), document_kind = text(customer.document_kind),
             number = text(customer.document_number), address = text(customer.address),
             blank = text("");
  return EP_AbrirComprobanteFiscal(kind, letter, name.bytes, blank.bytes, document_kind.bytes,
                                   number.bytes, customer.iva, address.bytes, blank.bytes,
                                   blank.bytes, blank.bytes, blank.bytes, 1);
}

static int item(const char* description, double quantity, double price, double iva,
                const char* extra) {
  const Text words = text(description), more = text(extra), blank = text("");
  return EP_ImprimirItem(words.bytes, quantity, price, iva, 0.0, more.bytes, blank.bytes,
                         blank.bytes);
}

static int discount(const char* description, double amount) {
  const Text words = text(description);
  return EP_DescuentoGeneral(words.bytes, amount);
}

static int payment(const char* description, double amount) {
  const Text words = text(description);
  return EP_ImprimirPago(words.bytes, amount);
}

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
