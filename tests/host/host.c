/*
 * A host as integrators write it: C, the public header and the library, nothing else. It calls every
 * exported function with the declared arguments, first without settings, then with a printer that is
 * not there, and looks whether anything was written where nothing may be.
 *
 * It works in the current directory, where it writes and removes Fiscal.ini and fiscal.log.
 */
#include <kestra/kestra.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "components.h"
#include "invoke.h"

#define GUARD 16
#define UNTOUCHED 0x5A

static int failures = 0;
static int dialogs = 0;

void expect(const char* what, long got, long wanted) {
  if (got == wanted) return;
  fprintf(stderr, "%s: got %ld, wanted %ld\n", what, got, wanted);
  ++failures;
}

/* ---- The operator ---- */

static int32_t KESTRA_CALL answer(void* contexto, const char* texto, const char* titulo,
                                  int32_t estilo) {
  expect("context of a message", contexto == &dialogs, 1);
  expect("text of a message", texto != NULL && texto[0] != '\0', 1);
  expect("title of a message", titulo != NULL, 1);
  ++dialogs;
  return estilo == 0 ? 1 : 7;
}

static int32_t KESTRA_CALL report(void* contexto, const char* impresora, const char* fiscal,
                                  const KestraFila* filas, int32_t cantidad) {
  (void)contexto, (void)impresora, (void)fiscal, (void)filas, (void)cantidad;
  ++dialogs;
  return 0;
}

static void KESTRA_CALL memory_full(void* contexto) {
  (void)contexto;
  ++dialogs;
}

/* ---- Texts of exactly the stated bytes, and results with guards around them ---- */

enum { MOST_TEXTS = 256 };
static char* texts[MOST_TEXTS];
static size_t text_count = 0;

/* A text of its own on the heap, so that reading one byte too many shows under a sanitizer. */
static const char* text(const char* words, size_t bytes) {
  char* room = malloc(bytes);
  size_t length = strlen(words);
  if (room == NULL || text_count == MOST_TEXTS) abort();
  memset(room, ' ', bytes);
  memcpy(room, words, length < bytes ? length : bytes);
  texts[text_count++] = room;
  return room;
}

static void forget_texts(void) {
  while (text_count > 0) free(texts[--text_count]);
}

static unsigned char guarded[GUARD + 128 + GUARD];

static char* result(void) {
  memset(guarded, UNTOUCHED, sizeof guarded);
  return (char*)guarded + GUARD;
}

static void expect_guards(const char* what, size_t bytes) {
  for (size_t i = 0; i < sizeof guarded; ++i) {
    if (i >= GUARD && i < GUARD + bytes) continue;
    if (guarded[i] != UNTOUCHED) {
      fprintf(stderr, "%s: wrote %ld bytes behind the front of its buffer\n", what,
              (long)i - GUARD);
      ++failures;
      return;
    }
  }
}

#define CALL(function, arguments, wanted) \
  do {                                    \
    long outcome = 0;                     \
    INVOKE(outcome, function, arguments); \
    expect(#function, outcome, wanted);   \
  } while (0)
#define READ(function, arguments, bytes, wanted) \
  do {                                           \
    CALL(function, arguments, wanted);           \
    expect_guards(#function, bytes);             \
  } while (0)

/* ---- Every export ---- */

static void call_documents(void) {
  CALL(EP_AbrirComprobanteFiscal,
       (text("FC", 2), text("B", 1), text("Nombre", 40), text("", 40), text("CUIT", 6),
        text("20123456789", 11), text("F", 1), text("Calle 1", 40), text("", 40), text("", 40),
        text("", 40), text("", 40), 1),
       1);
  CALL(EP_ImprimirItem,
       (text("Yerba", 50), 2.0, 10.5, 21.0, 0.0, text("uno", 22), text("dos", 22), text("", 22)),
       1);
  CALL(EP_AnularItem,
       (text("Yerba", 50), 2.0, 10.5, 21.0, 0.0, text("", 22), text("", 22), text("", 22)), 1);
  CALL(EP_ImprimirTextoFiscal, (text("Gracias", 26)), 1);
  CALL(EP_ImprimirTextoFiscalInterna, ("Gracias por su compra"), 1);
  CALL(EP_DescuentoGeneral, (text("Descuento", 80), 1.0), 1);
  CALL(EP_RecargoGeneral, (text("Recargo", 80), 1.0), 1);
  CALL(EP_EspecificarPercepcionGlobal, (text("Percepcion", 20), 1.0, 21.0, text("O", 1)), 1);
  CALL(EP_ImprimirPago, (text("Efectivo", 80), 21.0), 1);
  CALL(EP_AjusteRedondeo, (21.0), 0);
  READ(EP_CerrarComprobanteFiscal, (text("FC", 2), text("B", 1), result()), 8, 1);
  CALL(EP_Cancelar, (), 1);
  CALL(EP_AbrirComprobanteNoFiscalHomologado,
       (text("NC", 2), text("A", 1), text("Nombre", 40), text("", 40), text("CUIT", 6),
        text("20123456789", 11), text("I", 1), text("", 40), text("", 40), text("", 40),
        text("", 40), text("", 40), 0),
       1);
  CALL(EP_CerrarComprobanteNoFiscalHomologado, (text("NC", 2), text("A", 1)), 1);
  CALL(EP_AbrirComprobanteNoFiscal, (), 1);
  CALL(EP_ImprimirTextoNoFiscal, (text("Una linea", 120)), 1);
  CALL(EP_CerrarComprobanteNoFiscal, (), 1);
}

static void call_device(void) {
  CALL(EP_ReporteX, (), 1);
  CALL(EP_ReporteZ, (), 1);
  CALL(EP_ReporteZporNumeros, (1, 2, 3), 1);
  CALL(EP_ReporteZporFechas, (text("261101", 6), text("261121", 6), 3), 1);
  CALL(EP_AbrirCajonDeDinero, (1), 1);
  CALL(EP_CambiarFechaHora, (text("261121", 6), text("103000", 6)), 1);
  READ(EP_ObtenerFechaHora, (result()), 12, 1);
  CALL(EP_SetEncabezado, (text("Almacen", 120), 1, 0), 1);
  READ(EP_GetEncabezado, (result(), 1), 120, 1);
  CALL(EP_CortaPapel, (), 1);
  CALL(EP_AvanzaPapel, (INT32_MAX), 1);
  READ(EP_ValoresModelo, (result()), 64, 1);
  READ(EP_Numeracion, (result()), 80, 1);
  READ(EP_AutodetectarModelo, (result()), 14, 1);
}

/* No printer ever answers in this shop. */
static void call_report(void) {
  long length = 0;
  CALL(Kestra_Estado, (), 1);
  CALL(Kestra_Desenlace, (), KESTRA_DESENLACE_NO_ENVIADO);
  INVOKE(length, Kestra_Causa, ());
  expect("a cause of the missing printer", length > 0, 1);
  INVOKE(length, Kestra_CausaTexto, (result(), 20));
  expect("a sentence about the missing printer", length > 20, 1);
  expect_guards("Kestra_CausaTexto", 20);
  READ(Kestra_Respuesta, (1, result(), 20), 1, 0);
  CALL(Kestra_Intentos, (), 0);
  CALL(Kestra_DocumentoAbierto, (), KESTRA_DOCUMENTO_DESCONOCIDO);
  READ(Kestra_Subtotal, (result(), 20), 1, 0);
  READ(Kestra_Numeracion, (KESTRA_DOCUMENTO_FACTURA, 'B', result(), 20), 1, 0);
  READ(Kestra_Pendiente, (result(), 20), 1, 0);
  CALL(Kestra_Resolver, (), KESTRA_DESENLACE_NADA);
  READ(Kestra_ResolverNumero, (result(), 20), 1, 0);
  CALL(Kestra_Olvidar, (), 0);
  CALL(Kestra_Textos, (1), 0);
  CALL(Kestra_Textos, (0), 1);
  CALL(Kestra_Textos, (-1), 0);
}

static void call_fixed(void) {
  CALL(EP_Chequear_Error, (), 0);
  CALL(EP_ReimprimirComprobante, (), 0);
  CALL(EP_Configuracion, (1), 0);
  CALL(EP_ConsultaMemoria, (1), 0);
  CALL(EP_Copias, (1), 0);
  CALL(EP_ImpuestoInternoFijo, (1), 0);
  CALL(EP_ImpuestoInternoPorMonto, (1), 0);
  CALL(EP_InformacionRemito, (1), 0);
  CALL(EP_Inicializacion, (1), 0);
  CALL(EP_Memoria, (1), 0);
  CALL(EP_DescuentoUltimoItem, (1, 2, 3), 0);
  CALL(EP_ImprimirItemEnRemito, (1, 2, 3), 0);
  CALL(EP_DatosCliente, (1, 2, 3, 4, 5), 0);
}

static void call_everything(int32_t in_use) {
  call_documents();
  call_device();
  call_report();
  call_fixed();
  call_components();
  CALL(DllCanUnloadNow, (), in_use);
  forget_texts();
}

/* ---- The shop ---- */

static void write_settings(void) {
  char numbers[] =
      "CanDecimales CanMaxima LonObsFac LonLinFac LonPagFac LonLinNoF LonLinPag "
      "ErrorMostrar MostrarComandos EmiteTIC EmiteTIF EmiteFAC EmiteRTO EmitePAG EmiteCRE "
      "EmiteDEB EntCantidad DecCantidad EntPrecio DecPrecio IncluirPuntoPrecio EntDesc "
      "DecDesc EntIVA DecIVA EntImpInt DecImpInt EntPercepcion DecPercepcion "
      "LonDescripcionT LonTextoFiscalT LonEncabezadoT LonTextoNoFiscalT LonDatosClienteT "
      "LonDescripcionF LonTextoFiscalF LonEncabezadoF LonTextoNoFiscalF LonDatosClienteF "
      "Transporte AjusteRedondeo MostrarRespuestas QuitarCaracNoValidos";
  FILE* file = fopen("Fiscal.ini", "w");
  if (file == NULL) abort();
  fprintf(file, "[Epson_Fiscal]\nImpresoraPuerto=1\nImpresoraConfig=9600\n");
  fprintf(file, "TipoComprobante=TF\nModeloNombre=TM-U220\nTipoIVA=I\nLogComandos=1\n");
  fprintf(file, "ImpresoraDispositivo=/nonexistent/printer\n");
  for (const char* key = strtok(numbers, " "); key != NULL; key = strtok(NULL, " ")) {
    int wide = strncmp(key, "Ent", 3) == 0 || strncmp(key, "Lon", 3) == 0;
    fprintf(file, "%s=%d\n", key, wide ? 9 : 0);
  }
  fclose(file);
}

static int log_exists(void) {
  FILE* file = fopen("fiscal.log", "r");
  if (file == NULL) return 0;
  fclose(file);
  return 1;
}

int main(void) {
  const KestraOperador operador = {sizeof operador, &dialogs, answer, report, memory_full};
  remove("Fiscal.ini");
  remove("fiscal.log");
  INVOKE_VOID(Kestra_DefinirOperador, (&operador));

  call_everything(0);
  CALL(EP_Init, (), 0);
  call_everything(0);
  expect("log without settings", log_exists(), 0);

  write_settings();
  CALL(EP_Init, (), 1);
  dialogs = 0;
  call_everything(1);
  expect("dialogs about the missing printer", dialogs > 20, 1);
  expect("log with settings", log_exists(), 1);

  CALL(EP_Kill, (), 0);
  call_everything(0);
  INVOKE_VOID(Kestra_DefinirOperador, (NULL));
  remove("Fiscal.ini");
  remove("fiscal.log");
  if (failures == 0) puts("every call came back as it should");
  return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
