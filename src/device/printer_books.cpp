#include "device/printer_books.hpp"

#include <algorithm>
#include <array>
#include <optional>

#include "fields/number_field.hpp"
#include "protocol/books.hpp"
#include "protocol/question.hpp"
#include "protocol/settlement.hpp"
#include "protocol/verdict.hpp"
#include "state/journal.hpp"
#include "state/library.hpp"
#include "state/report.hpp"

namespace kestra {
namespace {

constexpr std::size_t kNumberDigits = 8;

// Kinds of documents, by the letters that the ledger has for them and by the one that numbers them.
struct KindRow {
  DocumentKind kind;
  std::string_view letters;
  char numbered;
};
constexpr std::array kKinds{
    KindRow{DocumentKind::kInvoice, "FT", 'F'},      KindRow{DocumentKind::kTicket, "@", '\0'},
    KindRow{DocumentKind::kDebitNote, "D", 'D'},     KindRow{DocumentKind::kCreditNote, "MN", 'N'},
    KindRow{DocumentKind::kDeliveryNote, "E", '\0'}, KindRow{DocumentKind::kVoucher, "C", '\0'},
    KindRow{DocumentKind::kNonFiscal, "H", '\0'},
};

struct NumberRow {
  std::int32_t kind;
  std::size_t place;
};
constexpr std::array kNumbers{
    NumberRow{static_cast<std::int32_t>(DocumentKind::kTicket), kTickets},
    NumberRow{static_cast<std::int32_t>(BookNumber::kDailyClosings), kDailyClosings},
    NumberRow{static_cast<std::int32_t>(BookNumber::kCancelled), kCancelledToday},
    NumberRow{static_cast<std::int32_t>(BookNumber::kNonFiscal), kNonFiscalToday},
};

std::optional<std::size_t> PlaceOf(std::int32_t kind, std::int32_t letter) {
  for (const auto& row : kNumbers) {
    if (row.kind == kind) return row.place;
  }
  if (letter < 'A' || letter > 'Z') return std::nullopt;
  for (const auto& row : kKinds) {
    if (static_cast<std::int32_t>(row.kind) != kind || row.numbered == '\0') continue;
    return CounterOf(row.numbered, static_cast<char>(letter));
  }
  return std::nullopt;
}

// Asks, and puts what came of it into the call's report.
Reply AskFor(Library& library, const std::string& question) {
  auto reply = Ask(library, question);
  if (reply.answered) {
    NoteAnswer(library, reply.fields);
    NoteVerdict(library, JudgeWords(WordsOf(reply.fields), Errand::kQuestion), Errand::kQuestion);
  } else {
    const bool sent = library.certainty.report.attempts > 0;
    NoteVerdict(library, {sent ? Outcome::kNotDone : Outcome::kNotSent, reply.cause},
                Errand::kQuestion);
  }
  return reply;
}

// It answered, and not with what was asked for.
void NoteUnreadable(Library& library) {
  NoteVerdict(library, {Outcome::kNotDone, Cause::kBookUnreadable}, Errand::kQuestion);
}

// Empty for a family that the printers do not have.
std::string TotalQuestion(const State& state) {
  const bool ticket = state.TipoComprobante == "TQ";
  const bool invoice = state.TipoComprobante == "TF" || state.TipoComprobante == "FC";
  if (!ticket && !invoice) return {};
  return SubtotalQuestion(ticket ? "C" : "c");
}

std::optional<Subtotal> AskSubtotal(Library& library) {
  const auto question = TotalQuestion(library.state);
  if (question.empty()) {
    NoteVerdict(library, {Outcome::kNotSent, Cause::kNoCommand}, Errand::kQuestion);
    return std::nullopt;
  }
  const auto reply = AskFor(library, question);
  const auto subtotal = reply.answered ? ReadSubtotal(reply.fields) : std::nullopt;
  if (reply.answered && !subtotal) NoteUnreadable(library);
  return subtotal;
}

// What nobody has told since the document was opened is asked for. A document without a total refuses that,
// which says nothing against the status.
void CompleteLedger(Library& library) {
  const auto& ledger = library.certainty.ledger;
  if (!ledger.open.value_or(false) || ledger.lines) return;
  const auto question = TotalQuestion(library.state);
  if (question.empty()) return;
  Ask(library, question);
}

DocumentKind KindOf(const Ledger& ledger) {
  if (!ledger.open) return DocumentKind::kNotKnown;
  if (!*ledger.open) return DocumentKind::kNone;
  const auto* const row = std::find_if(kKinds.begin(), kKinds.end(), [&](const KindRow& one) {
    return one.letters.find(ledger.kind) != std::string_view::npos;
  });
  return row == kKinds.end() ? DocumentKind::kOther : row->kind;
}

DocumentStage StageOf(const Ledger& ledger) {
  if (!ledger.open.value_or(false) || !ledger.lines) return DocumentStage::kNotKnown;
  if (ledger.paid.value_or(0) > 0) return DocumentStage::kPaying;
  return *ledger.lines > 0 ? DocumentStage::kWithLines : DocumentStage::kEmpty;
}

std::string WithPoint(std::int64_t hundredths) {
  auto digits = std::to_string(hundredths);
  if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
  digits.insert(digits.size() - 2, 1, '.');
  return digits;
}

}  // namespace

std::int32_t AskStatus(Library& library) {
  const auto reply = AskFor(library, CountersQuestion());
  if (reply.answered) CompleteLedger(library);
  return reply.answered ? 0 : 1;
}

std::int32_t OpenDocument(const Ledger& ledger) {
  return static_cast<std::int32_t>(KindOf(ledger)) +
         256 * static_cast<std::int32_t>(StageOf(ledger));
}

std::string AskTotal(Library& library) {
  const auto subtotal = AskSubtotal(library);
  return subtotal ? WithPoint(subtotal->total) : std::string();
}

std::string AskNumber(Library& library, std::int32_t kind, std::int32_t letter) {
  const auto place = PlaceOf(kind, letter);
  if (!place) {
    NoteVerdict(library, {Outcome::kNotSent, Cause::kNoSuchNumber}, Errand::kQuestion);
    return {};
  }
  const auto reply = AskFor(library, CountersQuestion());
  if (!reply.answered) return {};
  const auto counters = ReadCounters(reply.fields, library.state.ModeloNombre);
  if (!counters) {
    NoteUnreadable(library);
    return {};
  }
  return PaddedInteger(std::to_string((*counters)[*place].value_or(0)), kNumberDigits);
}

std::int32_t Settle(Library& library) {
  auto& certainty = library.certainty;
  certainty.settled_number.clear();
  const bool known = KnowsJournal(library);
  if (!certainty.pending) {
    if (!known) NoteVerdict(library, {Outcome::kUnknown, certainty.journal.trouble});
    return static_cast<std::int32_t>(certainty.report.outcome);
  }
  NameCall(library, certainty.pending->call);
  const auto command = certainty.pending->command;
  const bool closes = MethodOf(command).method == Method::kClosing;
  const auto settlement = SettlePending(library);
  NoteVerdict(library, {settlement.outcome, settlement.cause});
  if (IsTurnedSheet(command, settlement.outcome)) {
    NoteVerdict(library, {Outcome::kNotSent, Cause::kSheetTurned});
  }
  TellSettled(library);
  if (closes && settlement.outcome == Outcome::kDone) {
    certainty.settled_number = settlement.fields[2];
  }
  return static_cast<std::int32_t>(certainty.report.outcome);
}

std::int32_t Forget(Library& library) {
  const bool pending = ForgetPending(library);
  if (!ForgetTotal(library) && !pending) return 0;
  NoteCause(library, Cause::kForgotten);
  return 1;
}

}  // namespace kestra
