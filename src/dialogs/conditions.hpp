#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/ansi.hpp"
#include "base/boolean.hpp"

namespace kestra {

enum class StatusWord : std::int32_t { kPrinter = 0, kFiscal = 1 };
enum class Severity : std::int32_t { kInformation = 0, kError = 1 };

// One condition of a status word: its part in the verdict on a command, the messages of the status
// query and its row in the status report. Where the columns differ they do so on purpose.
struct Condition {
  StatusWord word;
  std::size_t slot;                // of BitImpresora or BitFiscal
  bool failure;                    // fails the command
  std::string_view message;        // box of the status query; none when empty
  std::int32_t row;                // number of the row, as in its control's name
  Severity severity;               // kind of the row
  std::string_view text;           // caption of the row
  std::string_view hint;           // hint of the row
  std::string_view other_message;  // a second box for the same condition
};

// The printer's slot that says "out of paper".
constexpr std::size_t kOutOfPaper = 13;
// The fiscal slot that says "memory nearly full".
constexpr std::size_t kMemoryNearlyFull = 8;
// The slot of either word that says "something is set".
constexpr std::size_t kSummary = 15;

namespace hints {
inline constexpr auto kController = "Error del controlador. Consulte a su técnico fiscal."_ansi;
inline constexpr auto kOnLine =
    "Verificar que se encuentre en modo \"En Linea\" el controlador fiscal."_ansi;
inline constexpr auto kPaper =
    "Verifique el abastecimiento y la colocacion correcta del "
    "papel, si se repite consulte a su técnico fiscal."_ansi;
inline constexpr auto kInternal = "Información Interna."_ansi;
inline constexpr auto kInternalTerminal = "Información interna."_ansi;
inline constexpr auto kTechnician = "Consulte a su técnico fiscal."_ansi;
inline constexpr auto kInternalError = "Error interno."_ansi;
// Kept as is: "caracateres", which is what operators have always read.
inline constexpr auto kRemoveCharacters =
    "Verificar que se encuentre activado \"Quitar caracateres no "
    "validos\" en la configuración"_ansi;
inline constexpr auto kStuck = "Verificar que no se encuentre trabado un comprobante fiscal."_ansi;
inline constexpr auto kLimits =
    "Las cantidades o montos de la factura no son soportados. Verificar limites."_ansi;
inline constexpr auto kDailyClosing =
    "Debe hacer un cierre de la jornada (Cierre Z), ya que pasaron mas de 24 hs."_ansi;
}  // namespace hints

// In the order of the status report, which is also that of the messages.
// Kept as is: "Bateria Baja" fails a command but is an information row, the rows of missing paper
// are error rows but fail none, and an open document is told twice.
inline constexpr std::array kConditions = {
    Condition{.word = StatusWord::kPrinter,
              .slot = 2,
              .failure = true,
              .message = "Error y/o falla de impresora"_ansi,
              .row = 2,
              .severity = Severity::kError,
              .text = "Error y/o falla de impresora"_ansi,
              .hint = hints::kController,
              .other_message = {}},
    Condition{.word = StatusWord::kPrinter,
              .slot = 3,
              .failure = true,
              .message = "Impresora fuera de linea"_ansi,
              .row = 3,
              .severity = Severity::kError,
              .text = "Impresora fuera de linea"_ansi,
              .hint = hints::kOnLine,
              .other_message = {}},
    Condition{.word = StatusWord::kPrinter,
              .slot = 4,
              .failure = false,
              .message = {},
              .row = 4,
              .severity = Severity::kError,
              .text = "Falta Papel del diario"_ansi,
              .hint = hints::kPaper,
              .other_message = {}},
    Condition{.word = StatusWord::kPrinter,
              .slot = 5,
              .failure = false,
              .message = {},
              .row = 5,
              .severity = Severity::kError,
              .text = "Falta Papel de tickets"_ansi,
              .hint = hints::kPaper,
              .other_message = {}},
    Condition{.word = StatusWord::kPrinter,
              .slot = 6,
              .failure = false,
              .message = "Buffer de impresora lleno"_ansi,
              .row = 6,
              .severity = Severity::kInformation,
              .text = "Buffer de impresora lleno"_ansi,
              .hint = hints::kInternal,
              .other_message = {}},
    Condition{.word = StatusWord::kPrinter,
              .slot = 7,
              .failure = false,
              .message = "Buffer de impresora vacio"_ansi,
              .row = 7,
              .severity = Severity::kInformation,
              .text = "Buffer de impresora vacio"_ansi,
              .hint = hints::kInternal,
              .other_message = {}},
    Condition{.word = StatusWord::kPrinter,
              .slot = 8,
              .failure = false,
              .message = "Entrada de hojas sueltas frontal preparada"_ansi,
              .row = 8,
              .severity = Severity::kInformation,
              .text = "Entrada de hojas sueltas frontal preparada"_ansi,
              .hint = hints::kInternal,
              .other_message = {}},
    Condition{.word = StatusWord::kPrinter,
              .slot = 9,
              .failure = false,
              .message = "Hoja suelta frontal preparada"_ansi,
              .row = 9,
              .severity = Severity::kInformation,
              .text = "Hoja suelta frontal preparada"_ansi,
              .hint = hints::kInternal,
              .other_message = {}},
    Condition{.word = StatusWord::kPrinter,
              .slot = 13,
              .failure = false,
              .message = "Impresora sin papel"_ansi,
              .row = 14,
              .severity = Severity::kError,
              .text = "Impresora sin papel"_ansi,
              .hint = hints::kPaper,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 0,
              .failure = true,
              .message = "Error de comprobacion de memoria fiscal"_ansi,
              .row = 0,
              .severity = Severity::kError,
              .text = "Error de comprobacion de memoria fiscal"_ansi,
              .hint = hints::kController,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 1,
              .failure = true,
              .message = "Error de comprobacion de memoria de trabajo"_ansi,
              .row = 1,
              .severity = Severity::kError,
              .text = "Error de comprobacion de memoria de trabajo"_ansi,
              .hint = hints::kController,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 2,
              .failure = true,
              .message = "Bateria Baja"_ansi,
              .row = 2,
              .severity = Severity::kInformation,
              .text = "Bateria Baja"_ansi,
              .hint = hints::kTechnician,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 3,
              .failure = true,
              .message = "Comando no reconocido"_ansi,
              .row = 3,
              .severity = Severity::kError,
              .text = "Comando no reconocido"_ansi,
              .hint = hints::kInternalError,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 4,
              .failure = true,
              .message = "Campo de datos invalido"_ansi,
              .row = 4,
              .severity = Severity::kError,
              .text = "Campo de datos invalido"_ansi,
              .hint = hints::kRemoveCharacters,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 5,
              .failure = true,
              .message = "Comando no valido para estado fiscal"_ansi,
              .row = 5,
              .severity = Severity::kError,
              .text = "Comando no valido para estado fiscal"_ansi,
              .hint = hints::kStuck,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 6,
              .failure = true,
              .message = "Desbordamiento de totales"_ansi,
              .row = 6,
              .severity = Severity::kError,
              .text = "Desbordamiento de totales"_ansi,
              .hint = hints::kLimits,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 7,
              .failure = true,
              .message = "Memoria Fiscal llena"_ansi,
              .row = 7,
              .severity = Severity::kError,
              .text = "Memoria Fiscal llena"_ansi,
              .hint = hints::kController,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 8,
              .failure = false,
              .message = "Memoria Fiscal casi llena"_ansi,
              .row = 8,
              .severity = Severity::kInformation,
              .text = "Memoria Fiscal casi llena (restan menos de 30 cierres)"_ansi,
              .hint = hints::kTechnician,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 9,
              .failure = false,
              .message = {},
              .row = 9,
              .severity = Severity::kInformation,
              .text = "Terminal Fiscal Certificada"_ansi,
              .hint = hints::kInternalTerminal,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 10,
              .failure = false,
              .message = {},
              .row = 10,
              .severity = Severity::kInformation,
              .text = "Terminal Fiscal Fiscalizada"_ansi,
              .hint = hints::kInternalTerminal,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 11,
              .failure = true,
              .message = "Es necesario hacer un cierre de la jornada (pasaron mas de "
                         "24 hs)"_ansi,
              .row = 11,
              .severity = Severity::kError,
              .text = "Es necesario hacer un cierre de la jornada (pasaron mas de "
                      "24 hs)"_ansi,
              .hint = hints::kDailyClosing,
              .other_message = {}},
    Condition{.word = StatusWord::kFiscal,
              .slot = 12,
              .failure = false,
              .message = "Documento fiscal abierto"_ansi,
              .row = 12,
              .severity = Severity::kInformation,
              .text = "Documento fiscal abierto"_ansi,
              .hint = hints::kInternal,
              .other_message = "Documento Fiscal abierto o Documento No Fiscal abierto que "
                               "se emite por el rollo de papel"_ansi},
    Condition{.word = StatusWord::kFiscal,
              .slot = 13,
              .failure = false,
              .message = "Factura o Impresión en hoja suelta inicializada"_ansi,
              .row = 13,
              .severity = Severity::kInformation,
              .text = "Factura o Impresión en hoja suelta inicializada"_ansi,
              .hint = hints::kInternal,
              .other_message = {}},
};
static_assert(kConditions.size() == 23);

bool IsLit(const Condition& condition, const Flags& printer, const Flags& fiscal);

// True when a condition that fails a command is set.
bool FailsCommand(const Flags& printer, const Flags& fiscal);

// The messages that the status query shows for these flags, in their order.
std::vector<std::string_view> StatusMessages(const Flags& printer, const Flags& fiscal);

}  // namespace kestra
