#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/ansi.hpp"
#include "base/failure.hpp"

namespace kestra {

// Why a call ended as it did: the numbers of Kestra_Causa. Hosts keep them: a number never changes its
// meaning, and a new one goes to the end of its hundred.
enum class Cause : std::int32_t {
  kNone = 0,

  // It was not sent.
  kDeclined = 101,
  kNoCommand = 102,
  kNotStarted = 103,
  kUnsettled = 104,  // an earlier call
  kTotalDiffers = 105,
  kConsumerOnly = 106,  // tickets go to final consumers
  kBadSetting = 107,    // in Fiscal.ini
  kInternal = 108,
  kNoMemory = 109,
  kAbandoned = 110,  // by the host, from within a callback

  // The port: 201 and the number of its PortFault.
  kPortNumber = 201,
  kPortSettings = 202,
  kPortMissing = 203,
  kPortNoHardware = 204,
  kPortNotSerial = 205,
  kPortNotPermitted = 206,
  kPortBusy = 207,
  kPortCannotOpen = 208,
  kPortAlreadyOpen = 209,
  kPortNotOpen = 210,
  kPortLost = 211,
  kPortStalled = 212,
  kPortTransfer = 213,
  kNetAddress = 214,
  kNetUnknownHost = 215,
  kNetRefused = 216,
  kNetNoAnswer = 217,
  kNetUnreachable = 218,
  kNetTurnedAway = 219,

  // The line.
  kSilence = 301,
  kDamaged = 302,
  kForeign = 303,
  kNotUnderstood = 304,  // the printer says that the frame came damaged
  kRepeated = 305,
  kUnexpected = 306,

  // The printer's word: 400 and the bit.
  kPrinterFault = 402,
  kPrinterOffLine = 403,
  kNoJournalPaper = 404,
  kNoReceiptPaper = 405,
  kNoPaper = 414,

  // The fiscal word: 500 and the bit.
  kFiscalMemory = 500,
  kWorkMemory = 501,
  kBatteryLow = 502,
  kUnknownCommand = 503,
  kBadField = 504,
  kWrongState = 505,
  kOverflow = 506,
  kFiscalMemoryFull = 507,
  kFiscalMemoryLow = 508,
  kDayTooLong = 511,

  // The printer's books.
  kNoBook = 601,
  kBooksDisagree = 602,
  kBookUnreadable = 603,
  kSheetTurned = 604,    // instead of the item
  kAlreadyClosed = 605,  // what was to be cancelled
  kForgotten = 606,      // dropped by Kestra_Olvidar
  kNoSuchNumber = 607,

  // The journal.
  kJournalUnwritable = 701,
  kJournalForeign = 702,  // another printer's
  kJournalBusy = 703,
  kJournalDamaged = 704,
  kJournalSkipped = 705,  // it could not be written, and the call went on

  kLogUnwritable = 801,
};

enum class Outcome : std::int32_t;

// What the operator is told of a cause. Between both stands what became of the call.
struct CauseRow {
  Cause cause;
  std::string_view what;    // happened
  std::string_view advice;  // what to do now
};

namespace causes {
inline constexpr auto kTillTrouble = "Avise a quien mantiene el programa de ventas."_ansi;
inline constexpr auto kCheckPort =
    "Revise ImpresoraDispositivo, ImpresoraPuerto e ImpresoraConfig en Fiscal.ini."_ansi;
inline constexpr auto kCheckCable =
    "Revise que la impresora esté encendida y el cable bien puesto."_ansi;
inline constexpr auto kCheckNet =
    "Revise que la impresora esté encendida y la red, y la dirección en Fiscal.ini."_ansi;
inline constexpr auto kNewCable = "Si se repite, revise o cambie el cable."_ansi;
inline constexpr auto kLookAtPaper = "Mire el papel antes de seguir."_ansi;
inline constexpr auto kTechnician = "Consulte a su técnico fiscal."_ansi;
inline constexpr auto kPaper = "Coloque papel y siga."_ansi;
inline constexpr auto kJournal =
    "Revise Diario en Fiscal.ini, el lugar en el disco y los permisos de la carpeta."_ansi;
}  // namespace causes

// In the order of their numbers.
inline constexpr std::array kCauses = {
    CauseRow{Cause::kNone, ""_ansi, ""_ansi},
    CauseRow{Cause::kDeclined, "El operador contestó que no se enviara."_ansi, ""_ansi},
    CauseRow{Cause::kNoCommand,
             "Este modelo de impresora no tiene ese comprobante o esa operación."_ansi,
             causes::kTillTrouble},
    CauseRow{Cause::kNotStarted, "El controlador no está iniciado."_ansi,
             "Llame antes a EP_Init y vea que devuelva 1."_ansi},
    CauseRow{Cause::kUnsettled,
             "Falta saber qué fue de una operación anterior y la impresora no contesta."_ansi,
             causes::kCheckCable},
    CauseRow{Cause::kTotalDiffers,
             "El total de la impresora no es la suma de lo que se le mandó."_ansi,
             "Cancele el comprobante y hágalo de nuevo."_ansi},
    CauseRow{Cause::kConsumerOnly, "Los tickets se emiten solo a consumidor final."_ansi,
             "Use la letra B o C."_ansi},
    CauseRow{Cause::kBadSetting, "Fiscal.ini tiene una clave que no se puede leer."_ansi,
             "Corrija la clave: las que le siguen no se leyeron."_ansi},
    CauseRow{Cause::kInternal, "El controlador falló."_ansi, causes::kTillTrouble},
    CauseRow{Cause::kNoMemory, "A la máquina le falta memoria."_ansi,
             "Cierre otros programas."_ansi},
    CauseRow{Cause::kAbandoned, "El programa de ventas dejó la llamada por la mitad."_ansi,
             causes::kTillTrouble},

    CauseRow{Cause::kPortNumber, "El número de puerto no es válido (1 a 256)."_ansi,
             causes::kCheckPort},
    CauseRow{Cause::kPortSettings, "La configuración del puerto no es válida."_ansi,
             causes::kCheckPort},
    CauseRow{Cause::kPortMissing, "No existe el puerto de la impresora."_ansi, causes::kCheckCable},
    CauseRow{Cause::kPortNoHardware, "No hay un puerto serie donde dice la configuración."_ansi,
             causes::kCheckCable},
    CauseRow{Cause::kPortNotSerial,
             "El dispositivo de la configuración no es un puerto serie."_ansi, causes::kCheckPort},
    CauseRow{Cause::kPortNotPermitted, "No hay permiso para usar el puerto de la impresora."_ansi,
             "Dé al usuario permiso sobre el dispositivo."_ansi},
    CauseRow{Cause::kPortBusy, "Otro programa está usando el puerto de la impresora."_ansi,
             "Cierre el otro programa."_ansi},
    CauseRow{Cause::kPortCannotOpen, "No se pudo abrir el puerto de la impresora."_ansi,
             causes::kCheckCable},
    CauseRow{Cause::kPortAlreadyOpen, "El puerto ya estaba abierto."_ansi, causes::kTillTrouble},
    CauseRow{Cause::kPortNotOpen, "El puerto no estaba abierto."_ansi, causes::kTillTrouble},
    CauseRow{Cause::kPortLost, "Se perdió la conexión con la impresora."_ansi, causes::kCheckCable},
    CauseRow{Cause::kPortStalled, "El puerto no acepta datos."_ansi, causes::kCheckCable},
    CauseRow{Cause::kPortTransfer, "El puerto falló al leer o escribir."_ansi, causes::kCheckCable},
    CauseRow{Cause::kNetAddress, "La dirección de red no es válida (tcp:EQUIPO:PUERTO)."_ansi,
             "Revise ImpresoraDispositivo en Fiscal.ini."_ansi},
    CauseRow{Cause::kNetUnknownHost, "No se conoce el equipo de la impresora en la red."_ansi,
             causes::kCheckNet},
    CauseRow{Cause::kNetRefused, "Nadie atiende en la dirección de la impresora."_ansi,
             causes::kCheckNet},
    CauseRow{Cause::kNetNoAnswer, "La dirección de la impresora no responde."_ansi,
             causes::kCheckNet},
    CauseRow{Cause::kNetUnreachable, "No hay camino en la red hasta la impresora."_ansi,
             causes::kCheckNet},
    CauseRow{Cause::kNetTurnedAway,
             "La conexión se cortó sin contestar: se perdió o la usa otro programa."_ansi,
             causes::kCheckNet},

    CauseRow{Cause::kSilence, "La impresora no contestó."_ansi, causes::kCheckCable},
    CauseRow{Cause::kDamaged, "La respuesta de la impresora llegó dañada."_ansi, causes::kNewCable},
    CauseRow{Cause::kForeign, "La impresora contestó a otros comandos."_ansi, causes::kNewCable},
    CauseRow{Cause::kNotUnderstood, "La impresora avisó que el comando le llegó dañado."_ansi,
             causes::kNewCable},
    CauseRow{Cause::kRepeated, "El comando se mandó más de una vez: puede estar repetido."_ansi,
             causes::kLookAtPaper},
    CauseRow{Cause::kUnexpected, "La respuesta de la impresora no trae los datos esperados."_ansi,
             causes::kLookAtPaper},

    CauseRow{Cause::kPrinterFault, "La impresora avisa un error o una falla."_ansi,
             causes::kTechnician},
    CauseRow{Cause::kPrinterOffLine, "La impresora está fuera de línea."_ansi,
             "Cierre la tapa y ponga la impresora en línea."_ansi},
    CauseRow{Cause::kNoJournalPaper, "Falta papel del diario."_ansi, causes::kPaper},
    CauseRow{Cause::kNoReceiptPaper, "Falta papel de tickets."_ansi, causes::kPaper},
    CauseRow{Cause::kNoPaper, "La impresora no tiene papel."_ansi, causes::kPaper},

    CauseRow{Cause::kFiscalMemory, "Falló la comprobación de la memoria fiscal."_ansi,
             causes::kTechnician},
    CauseRow{Cause::kWorkMemory, "Falló la comprobación de la memoria de trabajo."_ansi,
             causes::kTechnician},
    CauseRow{Cause::kBatteryLow, "La impresora tiene la batería baja."_ansi, causes::kTechnician},
    CauseRow{Cause::kUnknownCommand, "La impresora no conoce el comando."_ansi,
             "Revise ModeloNombre y TipoComprobante en Fiscal.ini."_ansi},
    CauseRow{Cause::kBadField, "La impresora no aceptó un dato del comando."_ansi,
             "Revise el texto, la cantidad o el importe."_ansi},
    CauseRow{Cause::kWrongState,
             "El comando no corresponde a lo que la impresora está haciendo."_ansi,
             "Vea si quedó un comprobante abierto; si hace falta, cancélelo."_ansi},
    CauseRow{Cause::kOverflow, "La cantidad o el importe pasa lo que la impresora admite."_ansi,
             "Divida la venta en más de un comprobante."_ansi},
    CauseRow{Cause::kFiscalMemoryFull, "La memoria fiscal está llena."_ansi, causes::kTechnician},
    CauseRow{Cause::kFiscalMemoryLow, "La memoria fiscal está casi llena."_ansi,
             causes::kTechnician},
    CauseRow{Cause::kDayTooLong, "Hace falta un cierre Z: pasaron más de 24 horas."_ansi,
             "Haga el cierre Z."_ansi},

    CauseRow{Cause::kNoBook, "Nada en la impresora muestra si esta operación se hizo."_ansi,
             causes::kCheckCable},
    CauseRow{Cause::kBooksDisagree,
             "Los registros de la impresora no coinciden con lo enviado."_ansi,
             causes::kLookAtPaper},
    CauseRow{Cause::kBookUnreadable, "No se pudieron leer los registros de la impresora."_ansi,
             causes::kCheckCable},
    CauseRow{Cause::kSheetTurned,
             "La hoja se llenó y se hizo el transporte: falta el artículo."_ansi,
             "Mande el artículo de nuevo."_ansi},
    CauseRow{Cause::kAlreadyClosed, "El comprobante ya estaba cerrado: no se puede cancelar."_ansi,
             "Si corresponde, haga una nota de crédito."_ansi},
    CauseRow{Cause::kForgotten, "La operación pendiente se dejó de lado."_ansi,
             causes::kLookAtPaper},

    CauseRow{Cause::kNoSuchNumber, "La impresora no lleva ese número."_ansi, ""_ansi},

    CauseRow{Cause::kJournalUnwritable, "No se puede escribir el diario."_ansi, causes::kJournal},
    CauseRow{Cause::kJournalForeign, "El diario es de otra impresora."_ansi,
             "Dé a cada impresora un archivo propio en Diario."_ansi},
    CauseRow{Cause::kJournalBusy, "Otro programa tiene abierto el diario."_ansi,
             "Cierre el otro programa."_ansi},
    CauseRow{Cause::kJournalDamaged, "El diario está dañado."_ansi, causes::kTechnician},
    CauseRow{Cause::kJournalSkipped, "No se pudo escribir el diario y se siguió sin él."_ansi,
             causes::kJournal},

    CauseRow{Cause::kLogUnwritable, "No se puede escribir el registro fiscal.log."_ansi,
             "Revise el lugar en el disco y los permisos de la carpeta."_ansi},
};

consteval bool CausesAreInOrder() {
  for (std::size_t i = 1; i < kCauses.size(); ++i) {
    if (kCauses[i].cause <= kCauses[i - 1].cause) return false;
  }
  return true;
}
static_assert(CausesAreInOrder());

// What a failure of the run time or of the port means.
Cause CauseOf(const Failure& failure);

// One sentence or more for the operator: what happened, whether it was printed, what to do now.
std::string CauseText(Cause cause, Outcome outcome);

}  // namespace kestra
