#include <array>
#include <cmath>
#include <string>

#include "documents/document_kinds.hpp"
#include "documents/operations.hpp"
#include "fields/number_field.hpp"
#include "fields/text_field.hpp"
#include "operation/operation.hpp"
#include "protocol/answer_check.hpp"
#include "state/log.hpp"
#include "state/report.hpp"

namespace kestra {
namespace {

// How long a round whose question failed holds the next one up: without a printer the rounds would
// follow each other at once.
constexpr std::int32_t kRestMs = 500;

constexpr std::string_view kAdjustment = "Ajuste por redondeo";
// Kept as is: the capital R stands on the invoice's downward line alone.
constexpr std::string_view kAdjustmentWithCapital = "Ajuste por Redondeo";

Command RaiseInvoice(std::string_view difference) {
  return Command('f').Field(kAdjustment).Field("O").Field(difference).Field("0000");
}
Command LowerInvoice(std::string_view difference) {
  return Command('d').Field(kAdjustmentWithCapital).Field(difference).Field("D");
}
Command RaiseTicket(std::string_view difference) {
  return Command('D').Field(kAdjustment).Field(difference).Field("R");
}
Command LowerTicket(std::string_view difference) {
  return Command('D').Field(kAdjustment).Field(difference).Field("D");
}

using Line = Command (*)(std::string_view difference);

struct Adjuster {
  std::string_view family;
  char subtotal;
  bool split_again;  // the ticket's round splits the raw answer anew
  Line raise;
  Line lower;
};
constexpr std::array kAdjusters = {
    Adjuster{kTicketInvoiceFamily, kSubtotal.invoice, false, RaiseInvoice, LowerInvoice},
    Adjuster{kTicketFamily, kSubtotal.ticket, true, RaiseTicket, LowerTicket},
};

struct Reading {
  double total;  // the printer's running total
  bool answered;
};

Reading ReadTotal(Library& library, const Adjuster& adjuster) {
  const auto command = Command(adjuster.subtotal).Field("N").Field({&kEmptyField, 1});
  const bool answered = Run(library, {.command = command}) == kSuccess;
  if (adjuster.split_again) SepararRespuesta(library);
  const auto& answer = library.state.Respuesta;
  if (!answered && library.certainty.settings.ModoSeguro == 1) return {0, false};
  const double total = ToRealNumber(answer[2]) / 100;
  // Two more fields must be numbers, although nothing is done with them.
  ToRealNumber(answer[3]);
  ToRealNumber(answer[7]);
  return {total, answered};
}

bool Adjust(Library& library, Line line, double difference) {
  return Run(library, {.command = line(HundredthsDigits(difference))}) == kSuccess;
}

// The safe mode is content with so many lines. A total that is another still is told as not done.
constexpr int kSafeLines = 3;

void EqualizeSafely(Library& library, const Adjuster& adjuster, double total) {
  for (int lines = 0;; ++lines) {
    const auto [printed, answered] = ReadTotal(library, adjuster);
    if (!answered || total == printed) return;
    if (lines == kSafeLines) break;
    const auto line = total > printed ? adjuster.raise : adjuster.lower;
    if (!Adjust(library, line, std::abs(total - printed))) return;
  }
  NoteVerdict(library, {Outcome::kNotDone, Cause::kBooksDisagree});
}

// Kept as is: it ends when the totals agree, and only then: hosts wait for a printer that does not answer.
void Equalize(Library& library, const Adjuster& adjuster, double total) {
  while (true) {
    const auto [printed, answered] = ReadTotal(library, adjuster);
    if (total > printed) Adjust(library, adjuster.raise, total - printed);
    if (total < printed) Adjust(library, adjuster.lower, printed - total);
    if (total == printed) return;
    if (!answered) library.platform.GetClock().Sleep(kRestMs);
  }
}

}  // namespace

void AjusteRedondeo(Library& library, double total) {
  if (library.state.AjusteRedondeo != 1) return;
  const double rounded = RoundToHundredths(total);
  EscribirLog(library, " - Comando : AjusteRedondeo");
  const auto equalize = library.certainty.settings.ModoSeguro == 1 ? EqualizeSafely : Equalize;
  for (const auto& adjuster : kAdjusters) {
    if (library.state.TipoComprobante == adjuster.family) equalize(library, adjuster, rounded);
  }
}

}  // namespace kestra
