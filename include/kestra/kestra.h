/*
 * Kestra: driver for the Epson fiscal printers used in Argentina.
 *
 * Call EP_Init once, then the operations, then EP_Kill, all on one thread. The settings come from
 * the file Fiscal.ini and the log goes to fiscal.log, both in the current working directory.
 *
 * Rules that hold for every function below:
 *
 * - Result of an operation: 0 when the printer accepted the command, 1 when the operator declined
 *   it, the arguments chose no command, the exchange failed or the printer refused it. EP_Init is
 *   the exception: 1 started, 0 failed.
 * - Texts are bytes of windows-1252. A text argument of N bytes is read for exactly N bytes: the
 *   buffer must hold that many, padded with blanks. No terminating zero is looked for. A null
 *   pointer reads as blanks. Kestra_Textos, or TextosTerminados in Fiscal.ini, has it otherwise.
 * - A result buffer receives at most the stated count of bytes, without a terminating zero; what
 *   lies behind them is left as it was. A null pointer receives nothing. There too
 *   Kestra_Textos has it otherwise.
 * - Amounts are doubles in pesos (or units, or percent), formatted with the digit counts of
 *   Fiscal.ini. An amount that does not fit its field shows "Error al convertir" and goes out as an
 *   empty field.
 * - A printer that says nothing is waited for 5.5 seconds at most for each frame; but a frame of the
 *   last five seconds before midnight is waited for until the printer answers.
 * - No call lets an exception out. A call made while another one is still running (from a callback,
 *   another thread, or another stack of the same thread: a fiber, a context, a signal's) is refused
 *   with the failure result and touches nothing.
 * - A host that leaves a callback by a jump or an exception of its own leaves the call behind: the
 *   next one on the same stack puts things in order and is served. Where that stack is one that the
 *   system knows nothing of (a context, a signal's), or a fiber that never goes on, every later call
 *   is refused. A host that swaps the contents of one stack must not do so in the middle of a call.
 */
/* Made by api/generate from api/kestra.toml. */
#ifndef KESTRA_KESTRA_H
#define KESTRA_KESTRA_H

#include <stdint.h>

#include "causas.h"

#if defined(_WIN32) && !defined(_WIN64)
#define KESTRA_CALL __stdcall
#else
#define KESTRA_CALL
#endif

#if defined(_WIN32)
#define KESTRA_API
#elif defined(__GNUC__)
#define KESTRA_API __attribute__((visibility("default")))
#else
#define KESTRA_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Start-up and shut-down ----------------------------------------------------------------- */

/*
 * Reads Fiscal.ini and sets up the serial port; opens nothing yet. Result: 1 ready, 0 failed (for
 * example a port number outside 1..256 and no ImpresoraDispositivo). KESTRA_DISPOSITIVO in the
 * environment names the device before the file does. A bad key in Fiscal.ini is shown to the
 * operator, keeps the keys behind it from being read, and does not by itself make the call fail.
 * Calling it again reads the file anew.
 */
KESTRA_API int32_t KESTRA_CALL EP_Init(void);

/* Releases the serial port. Sends nothing to the printer. The result carries no meaning. */
KESTRA_API int32_t KESTRA_CALL EP_Kill(void);

/* ---- Fiscal documents ----------------------------------------------------------------------- */

/*
 * Opens an invoice, debit note, credit note or ticket.
 *   tipo                 2 bytes: "FC" invoice (or ticket on a ticket printer), "ND", "NC"
 *   letra                1 byte: "A", "B" or "C"
 *   nombre1              40 bytes: customer's name
 *   nombre2              40 bytes: read and dropped, the printer gets a blank
 *   documento_tipo       6 bytes: kind of customer's document, sent trimmed
 *   documento_numero     11 bytes: trimmed, then filled with zeros on the left
 *   responsabilidad_iva  1 byte
 *   domicilio1           40 bytes: empty becomes "SIN DOMICILIO"
 *   domicilio2, domicilio3, linea4, linea5   40 bytes each
 *   copias               0 counts as 1; only invoices of the "FC" family use it
 * Result 1, with nothing sent, for a family and kind that cannot be opened (a debit note of "TF"
 * among them) and for a ticket whose letter is not "B" or "C", which is also shown to the operator.
 */
KESTRA_API int32_t KESTRA_CALL EP_AbrirComprobanteFiscal(
    const char* tipo, const char* letra, const char* nombre1, const char* nombre2,
    const char* documento_tipo, const char* documento_numero, const char* responsabilidad_iva,
    const char* domicilio1, const char* domicilio2, const char* domicilio3, const char* linea4,
    const char* linea5, int32_t copias);

/*
 * Prints one sale line. With UtilizaTransporte=1 the family "FC" asks first whether the sheet has
 * room. When it has none, the sheet is to be closed and the next one opened: as soon as the printer
 * has done one of the two, the call ends with result 1 and without the item. The document is still
 * open then, and the same call is made again until it gives 0.
 *   descripcion                     50 bytes
 *   cantidad                        units; a negative quantity is sent as a return
 *   precio                          unit price
 *   iva                             rate in percent
 *   impuestos_internos              amount
 *   extra1, extra2, extra3          22 bytes each: extra lines, blank when unused
 */
KESTRA_API int32_t KESTRA_CALL EP_ImprimirItem(const char* descripcion, double cantidad,
                                               double precio, double iva, double impuestos_internos,
                                               const char* extra1, const char* extra2,
                                               const char* extra3);

/* Prints the voiding of a line. Arguments as EP_ImprimirItem; the quantity keeps its sign. */
KESTRA_API int32_t KESTRA_CALL EP_AnularItem(const char* descripcion, double cantidad,
                                             double precio, double iva, double impuestos_internos,
                                             const char* extra1, const char* extra2,
                                             const char* extra3);

/*
 * Prints a line of text inside the document. texto: 26 bytes, blanks included; with
 * QuitarCaracNoValidos=1 the characters that the printer refuses go out as "-".
 */
KESTRA_API int32_t KESTRA_CALL EP_ImprimirTextoFiscal(const char* texto);

/* The same with a zero-terminated text of any length, sent as it is; null is the empty text. */
KESTRA_API int32_t KESTRA_CALL EP_ImprimirTextoFiscalInterna(const char* texto);

/*
 * Closes the open document.
 *   tipo    2 bytes, letra 1 byte: as given to EP_AbrirComprobanteFiscal
 *   numero  receives up to 8 bytes: the number of the document. It is written on failure too, also
 *           when the operator declined, with the first data field of whatever answer came last:
 *           test the result first.
 */
KESTRA_API int32_t KESTRA_CALL EP_CerrarComprobanteFiscal(const char* tipo, const char* letra,
                                                          char* numero);

/* Cancels the open document. With an unknown TipoComprobante the previous command goes out. */
KESTRA_API int32_t KESTRA_CALL EP_Cancelar(void);

/* ---- Totals and payments -------------------------------------------------------------------- */

/*
 * Discounts, surcharges and payments: with an unknown TipoComprobante the previous command goes out
 * again.
 */

/* Discounts an amount from the document. descripcion: 80 bytes. */
KESTRA_API int32_t KESTRA_CALL EP_DescuentoGeneral(const char* descripcion, double monto);

/* Adds a surcharge to the document. descripcion: 80 bytes. */
KESTRA_API int32_t KESTRA_CALL EP_RecargoGeneral(const char* descripcion, double monto);

/*
 * Adds a perception to the document.
 *   descripcion   20 bytes, sent as they are
 *   monto         amount
 *   iva           rate in percent
 *   calificador   1 byte: "I" or "O"; with any other the previous command goes out again
 */
KESTRA_API int32_t KESTRA_CALL EP_EspecificarPercepcionGlobal(const char* descripcion, double monto,
                                                              double iva, const char* calificador);

/* Prints a payment line. descripcion: 80 bytes, of which 20 are printed. */
KESTRA_API int32_t KESTRA_CALL EP_ImprimirPago(const char* descripcion, double monto);

/*
 * With AjusteRedondeo=1, adds lines to a ticket or ticket-invoice ("TQ", "TF") until the printer's
 * total equals `total` exactly; the family "FC" has nothing of the kind, and nothing is sent. It
 * does not end while the printer reports another total, but gives up, with a line in the log, when
 * the answer's totals are no numbers. Result: always 0, so it does not tell whether the totals agree.
 */
KESTRA_API int32_t KESTRA_CALL EP_AjusteRedondeo(double total);

/* ---- Other documents ------------------------------------------------------------------------ */

/*
 * Opens a homologated non-fiscal document.
 *   tipo                       2 bytes: "NC", "RT" or "CT"
 *   marca1                     1 byte
 *   linea1, linea2             40 bytes each: customer
 *   documento_tipo             6 bytes, sent trimmed
 *   documento_numero           11 bytes: trimmed, then filled with zeros on the left
 *   marca2                     1 byte
 *   domicilio                  40 bytes: empty becomes "SIN DOMICILIO"
 *   linea4 .. linea7           40 bytes each
 *   cantidad                   0 counts as 1
 * Result 1, with nothing sent, for a family and kind that cannot be opened.
 */
KESTRA_API int32_t KESTRA_CALL EP_AbrirComprobanteNoFiscalHomologado(
    const char* tipo, const char* marca1, const char* linea1, const char* linea2,
    const char* documento_tipo, const char* documento_numero, const char* marca2,
    const char* domicilio, const char* linea4, const char* linea5, const char* linea6,
    const char* linea7, int32_t cantidad);

/* Closes it. tipo: 2 bytes, "NC", "RT", "CT", "FC" or "ND"; marca: 1 byte. */
KESTRA_API int32_t KESTRA_CALL EP_CerrarComprobanteNoFiscalHomologado(const char* tipo,
                                                                      const char* marca);

/* Opens a free non-fiscal document. */
KESTRA_API int32_t KESTRA_CALL EP_AbrirComprobanteNoFiscal(void);

/* Prints a line in it. texto: 120 bytes, fitted to the line length of Fiscal.ini. */
KESTRA_API int32_t KESTRA_CALL EP_ImprimirTextoNoFiscal(const char* texto);

/* Closes it. */
KESTRA_API int32_t KESTRA_CALL EP_CerrarComprobanteNoFiscal(void);

/* ---- Reports -------------------------------------------------------------------------------- */

/* Prints the X report: the day's totals, without closing. */
KESTRA_API int32_t KESTRA_CALL EP_ReporteX(void);

/* Prints the Z report: closes the day. Warns the operator when the fiscal memory is nearly full. */
KESTRA_API int32_t KESTRA_CALL EP_ReporteZ(void);

/* Reports the closings of a range of numbers. `tercero` is shown in the question, not sent. */
KESTRA_API int32_t KESTRA_CALL EP_ReporteZporNumeros(int32_t primero, int32_t ultimo,
                                                     int32_t tercero);

/*
 * Reports the closings of a range of dates. desde, hasta: 6 bytes each, YYMMDD, sent unchecked.
 * The result is the verdict on the last answer, whether or not this command was sent.
 */
KESTRA_API int32_t KESTRA_CALL EP_ReporteZporFechas(const char* desde, const char* hasta,
                                                    int32_t tercero);

/* ---- Device --------------------------------------------------------------------------------- */

/* Opens the cash drawer. cajon: 1 or 2 (the same command); any other sends nothing and gives 1. */
KESTRA_API int32_t KESTRA_CALL EP_AbrirCajonDeDinero(int32_t cajon);

/* Sets the printer's clock. fecha: 6 bytes YYMMDD; hora: 6 bytes HHMMSS; both sent unchecked. */
KESTRA_API int32_t KESTRA_CALL EP_CambiarFechaHora(const char* fecha, const char* hora);

/*
 * Reads the printer's clock. resultado receives 12 bytes, YYMMDDHHMMSS. It is written when the
 * exchange fails too, with what came last; not when the operator declined.
 */
KESTRA_API int32_t KESTRA_CALL EP_ObtenerFechaHora(char* resultado);

/*
 * Sets a header line.
 *   texto     120 bytes, fitted to the header length of Fiscal.ini
 *   linea     line number as the printer counts them
 *   atributo  1 prints it in double width; any other leaves it plain
 */
KESTRA_API int32_t KESTRA_CALL EP_SetEncabezado(const char* texto, int32_t linea, int32_t atributo);

/* Reads a header line. resultado receives up to 120 bytes; on failure as EP_ObtenerFechaHora. */
KESTRA_API int32_t KESTRA_CALL EP_GetEncabezado(char* resultado, int32_t linea);

/* Cuts the paper. */
KESTRA_API int32_t KESTRA_CALL EP_CortaPapel(void);

/* Feeds lines. Only the low 16 bits of the argument count, as a signed number, sent unchecked. */
KESTRA_API int32_t KESTRA_CALL EP_AvanzaPapel(int32_t lineas);

/*
 * Reads the model data. resultado receives up to 64 bytes: the data fields one after another. It is
 * written too when the status was in order but the model's answer failed.
 */
KESTRA_API int32_t KESTRA_CALL EP_ValoresModelo(char* resultado);

/* Reads the document counters. resultado receives up to 80 bytes; on failure it is left alone. */
KESTRA_API int32_t KESTRA_CALL EP_Numeracion(char* resultado);

/* Reads the model's name. resultado receives up to 14 bytes; on failure as EP_ObtenerFechaHora. */
KESTRA_API int32_t KESTRA_CALL EP_AutodetectarModelo(char* resultado);

/* ---- Kept for old hosts --------------------------------------------------------------------- */

/* The last error code that an operation has set: 0. May be called at any time, on any thread. */
KESTRA_API int32_t KESTRA_CALL EP_Chequear_Error(void);

/* These do nothing and return 0. */
KESTRA_API int32_t KESTRA_CALL EP_ReimprimirComprobante(void);
KESTRA_API int32_t KESTRA_CALL EP_Configuracion(int32_t a);
KESTRA_API int32_t KESTRA_CALL EP_ConsultaMemoria(int32_t a);
KESTRA_API int32_t KESTRA_CALL EP_Copias(int32_t a);
KESTRA_API int32_t KESTRA_CALL EP_ImpuestoInternoFijo(int32_t a);
KESTRA_API int32_t KESTRA_CALL EP_ImpuestoInternoPorMonto(int32_t a);
KESTRA_API int32_t KESTRA_CALL EP_InformacionRemito(int32_t a);
KESTRA_API int32_t KESTRA_CALL EP_Inicializacion(int32_t a);
KESTRA_API int32_t KESTRA_CALL EP_Memoria(int32_t a);
KESTRA_API int32_t KESTRA_CALL EP_DescuentoUltimoItem(int32_t a, int32_t b, int32_t c);
KESTRA_API int32_t KESTRA_CALL EP_ImprimirItemEnRemito(int32_t a, int32_t b, int32_t c);
KESTRA_API int32_t KESTRA_CALL EP_DatosCliente(int32_t a, int32_t b, int32_t c, int32_t d,
                                               int32_t e);

/* ---- Component entry points ----------------------------------------------------------------- */

#if !defined(_WIN32) || defined(KESTRA_COMPONENTES)
/*
 * The component registration. Where there is no component system (Linux) the first four do nothing
 * and answer 0x80004001 (not implemented; DllGetClassObject also sets *objeto to null), and
 * DllCanUnloadNow answers 0 when the library holds no port, else 1; it may be called at any time, on
 * any thread. On Windows the system's headers declare some of them; there
 * they are declared here for those alone who define KESTRA_COMPONENTES.
 */
KESTRA_API int32_t KESTRA_CALL DllRegisterServer(void);
KESTRA_API int32_t KESTRA_CALL DllUnregisterServer(void);
KESTRA_API int32_t KESTRA_CALL DllGetClassObject(const void* clase, const void* interfaz,
                                                 void** objeto);

/*
 * What is registered only where somebody asks for it by name: "caja" is the class Kestra.Caja, by which
 * script languages reach the functions of this library (regsvr32 /n /i:caja Kestra.dll, and /u with them).
 */
KESTRA_API int32_t KESTRA_CALL DllInstall(int32_t instalar, const void* parte);
KESTRA_API int32_t KESTRA_CALL DllCanUnloadNow(void);
#endif

/* ---- What became of the last call ----------------------------------------------------------- */

/* The outcomes of a call. */
enum KestraDesenlace {
  KESTRA_DESENLACE_NADA = 0,        /* nothing was asked of the printer */
  KESTRA_DESENLACE_HECHO = 1,       /* the printer did it */
  KESTRA_DESENLACE_RECHAZADO = 2,   /* the printer refused it */
  KESTRA_DESENLACE_NO_ENVIADO = 3,  /* it was not sent */
  KESTRA_DESENLACE_DESCONOCIDO = 4, /* it was sent, and nobody knows whether it was done */
  KESTRA_DESENLACE_EN_PARTE = 5,    /* some of its frames were done, others were not */
  KESTRA_DESENLACE_NO_HECHO = 6     /* it may have been sent, and was for certain not done */
};

/*
 * Rules that hold for all functions of this group: they show nothing to the operator, may be called at any
 * time, also before EP_Init and after one that failed, and give -1, touching nothing, while another call
 * is under way. A text is written to a buffer of `longitud` bytes: as many bytes as fit, in
 * windows-1252, and a zero behind them when there is room for one. The length of the whole text comes
 * back, so that a text that did not fit can be told; 0 for none. A null pointer receives nothing.
 * Kestra_Textos(2) makes it UTF-8.
 *
 * The first five tell of the last call that works for a till: an operation, EP_Init, EP_Kill, or one
 * of Kestra_Estado, Kestra_Subtotal and Kestra_Numeracion. They ask nobody and change nothing. The
 * exports that do nothing (EP_DatosCliente and its like) leave what they tell as it is.
 */

/* What became of it: a number of KestraDesenlace. */
KESTRA_API int32_t KESTRA_CALL Kestra_Desenlace(void);

/* Why: a number of KestraCausa, in causas.h; 0 when there is nothing to say. */
KESTRA_API int32_t KESTRA_CALL Kestra_Causa(void);

/* The same for the operator, in Spanish: what happened, whether it was done, what to do now. */
KESTRA_API int32_t KESTRA_CALL Kestra_CausaTexto(char* texto, int32_t longitud);

/*
 * Field `numero` of the last answer that came whole to a frame of that call: 1 and 2 are the status words
 * of printer and fiscal memory, 3 to 15 its data. Empty for any other number, and when no answer came.
 */
KESTRA_API int32_t KESTRA_CALL Kestra_Respuesta(int32_t numero, char* texto, int32_t longitud);

/* How many frames that call sent, repetitions and questions included. */
KESTRA_API int32_t KESTRA_CALL Kestra_Intentos(void);

/*
 * Asks the printer how it is and prints nothing; it may be asked under every condition: battery low, daily
 * closing due, no paper. Result: 0 it answered (Kestra_Respuesta has the status words, Kestra_Causa
 * its first condition), 1 it did not. A printer that says nothing is waited for five seconds.
 */
KESTRA_API int32_t KESTRA_CALL Kestra_Estado(void);

/* Documents, and what else the printer numbers. */
enum KestraDocumento {
  KESTRA_DOCUMENTO_NINGUNO = 0,
  KESTRA_DOCUMENTO_FACTURA = 1,
  KESTRA_DOCUMENTO_TIQUE = 2,
  KESTRA_DOCUMENTO_NOTA_DEBITO = 3,
  KESTRA_DOCUMENTO_NOTA_CREDITO = 4,
  KESTRA_DOCUMENTO_REMITO = 5,
  KESTRA_DOCUMENTO_VALE = 6,
  KESTRA_DOCUMENTO_NO_FISCAL = 7,
  KESTRA_DOCUMENTO_OTRO = 15,         /* open, and not opened by this program */
  KESTRA_NUMERO_CIERRE_Z = 16,        /* for Kestra_Numeracion alone, as the next two */
  KESTRA_NUMERO_CANCELADOS = 17,      /* today */
  KESTRA_NUMERO_NO_FISCALES = 18,     /* today */
  KESTRA_DOCUMENTO_DESCONOCIDO = 255, /* nobody knows whether one is open: ask Kestra_Estado */
  /* How far a document is, added to its kind. */
  KESTRA_ETAPA_ABIERTO = 256,   /* nothing is in it */
  KESTRA_ETAPA_CON_ITEMS = 512, /* it has lines */
  KESTRA_ETAPA_EN_PAGO = 768    /* it has payments */
};

/*
 * The document in hand, as the last answer told: its kind in the low eight bits, its stage (or 0, when that
 * is not known) above. Ask Kestra_Estado first where something may have happened since.
 */
KESTRA_API int32_t KESTRA_CALL Kestra_DocumentoAbierto(void);

/*
 * Asks for the total of the open document, such as "1234.50". Nothing (0) when the printer does not tell:
 * no document of that sort is open, or no answer came.
 */
KESTRA_API int32_t KESTRA_CALL Kestra_Subtotal(char* texto, int32_t longitud);

/*
 * Asks for the number of the last document of a kind, in eight digits; also where EP_Numeracion gives 1 and
 * writes nothing although the printer answers (battery low, daily closing due).
 *   clase   a number of KestraDocumento
 *   letra   the code of 'A', 'B' or 'C'; what is no invoice and no note has none
 * Nothing (0) for a kind that the printer does not number, for a model whose numbers stand in another order
 * (TM300AF), and when no answer came.
 */
KESTRA_API int32_t KESTRA_CALL Kestra_Numeracion(int32_t clase, int32_t letra, char* texto,
                                                 int32_t longitud);

/*
 * Whether an earlier call is still open: 1 when the printer may have done it and has not told yet, 0 when
 * there is none, -1 also while the journal that Diario names cannot be read: then nobody knows. It is tried
 * again each time. The text is that call with its arguments.
 */
KESTRA_API int32_t KESTRA_CALL Kestra_Pendiente(char* texto, int32_t longitud);

/*
 * Asks the printer's books what became of that call, for as long as PacienciaSegura says; it prints nothing and
 * sends nothing again. Result: a number of KestraDesenlace. 0: nothing was pending; 1 done; 6 not done; 5: the
 * sheet was turned, and the item for which that was is still to be printed: make the call again; 4: the
 * books cannot tell, or, where Kestra_Pendiente still gives 1, the printer does not answer, or, where it gives
 * -1, the journal cannot be read (Kestra_Causa says why).
 */
KESTRA_API int32_t KESTRA_CALL Kestra_Resolver(void);

/* The number of the document that the call which Kestra_Resolver found to be done had closed. */
KESTRA_API int32_t KESTRA_CALL Kestra_ResolverNumero(char* texto, int32_t longitud);

/*
 * Drops what is pending without asking, with a line in the log and in the journal, and the sum by which
 * ControlarTotal has refused a closing: for the hands of a technician. Result: 1 dropped, 0 there was nothing.
 */
KESTRA_API int32_t KESTRA_CALL Kestra_Olvidar(void);

/* ---- The operator --------------------------------------------------------------------------- */

/* One row of the status report. */
typedef struct KestraFila {
  int32_t grupo;     /* 0 printer row, 1 fiscal row */
  int32_t numero;    /* row number, as in the control's name */
  int32_t clase;     /* 0 information, 1 error */
  int32_t encendida; /* 1 lit, 0 greyed */
  const char* texto; /* caption */
  const char* ayuda; /* hint */
} KestraFila;

/*
 * What the library asks and tells the operator. All texts are windows-1252 (UTF-8 where
 * Kestra_Textos says so), zero-terminated, and valid only during the callback (a zero byte inside a
 * text comes as a blank). A null member keeps the library's own way for that kind. The callbacks run
 * on the thread that made the call.
 */
typedef struct KestraOperador {
  uint32_t tamano; /* sizeof(KestraOperador) */
  void* contexto;  /* handed back in each callback */
  /*
   * A message box. estilo: 0 OK, 4 Yes/No, 36 Yes/No with the question icon. titulo: "" is the
   * default title. Returns 1 OK, 6 Yes, 7 No; for a question all but 6 counts as No.
   */
  int32_t(KESTRA_CALL* mensaje)(void* contexto, const char* texto, const char* titulo,
                                int32_t estilo);
  /*
   * The status report: both status words (four hexadecimal digits each) and `cantidad` rows.
   * Returns non-zero to send the command again (Reintentar), zero to close.
   */
  int32_t(KESTRA_CALL* informe_estados)(void* contexto, const char* impresora, const char* fiscal,
                                        const KestraFila* filas, int32_t cantidad);
  /* The warning that the fiscal memory is nearly full. */
  void(KESTRA_CALL* memoria_llena)(void* contexto);
} KestraOperador;

/*
 * Lets the host answer instead of the library's own dialogs. The record is copied; members beyond
 * `tamano` count as null. NULL brings the default back. May be called at any time, on any thread, also
 * before EP_Init; a callback that is under way ends as it began, the next dialog goes to the new one.
 */
KESTRA_API void KESTRA_CALL Kestra_DefinirOperador(const KestraOperador* operador);

/* ---- Texts ---------------------------------------------------------------------------------- */

/*
 * How this process and the library hand each other texts: over the key TextosTerminados of Fiscal.ini,
 * from the next call on, also before EP_Init and across EP_Init and EP_Kill.
 *    0  as said at the top of this file
 *    1  a text argument of N bytes ends with its first zero, or after N bytes: what lies behind it is
 *       not read, and the library pads it. A result shorter than its N bytes has a zero behind it,
 *       within them.
 *    2  the same in UTF-8, in callbacks too. An argument ends with its first zero, or after N characters;
 *       what is no UTF-8, or not in windows-1252, counts as "-". A result has whole characters alone,
 *       and at most its N bytes; where a length comes back, it is that of the UTF-8 text.
 *   -1  asks, and changes nothing; so does any other number
 * Result: the mode that was in force; -1 while another call is under way, which changes nothing.
 */
KESTRA_API int32_t KESTRA_CALL Kestra_Textos(int32_t modo);

#ifdef __cplusplus
}
#endif

#endif
