#include "protocol/consultation.hpp"

#include <string_view>

#include "fields/text_field.hpp"
#include "protocol/books.hpp"
#include "protocol/question.hpp"
#include "state/library.hpp"
#include "state/log.hpp"

namespace kestra {
namespace {

constexpr std::size_t kMoneyDigits = 12;

struct FindingRow {
  Finding finding;
  Cause cause;
  std::string_view log;
};
constexpr std::array kFindings{
    FindingRow{Finding::kDone, Cause::kNone, " - Libros : hecho"},
    FindingRow{Finding::kNotDone, Cause::kNone, " - Libros : no se hizo"},
    FindingRow{Finding::kAbsent, Cause::kNoBook, " - Libros : no lo muestran"},
    FindingRow{Finding::kDisagree, Cause::kBooksDisagree, " - Libros : no coinciden"},
};

// The answers of the questions, and what is read from them.
struct Shown {
  Fields first;
  Books books;
};

Books ReadBooks(const Doubt& doubt, const Fields& answer, const State& state) {
  const auto words = WordsOf(answer);
  Books books{.open = (words.fiscal & fiscal_word::kDocumentOpen) != 0,
              .refused = (words.fiscal & fiscal_word::kRefusal) != 0,
              .passed = doubt.passed};
  const auto question = QuestionFor(doubt.command);
  if (books.refused) return books;
  if (question == CountersQuestion()) books.counters = ReadCounters(answer, state.ModeloNombre);
  if (question == SubtotalQuestion(doubt.command)) books.subtotal = ReadSubtotal(answer);
  books.text = answer[3];
  books.date = answer[2];
  books.time = answer[3];
  return books;
}

// A second question, where the first one's answer does not tell all.
std::string MoreAbout(const Doubt& doubt, const Books& books) {
  const auto method = MethodOf(doubt.command).method;
  const bool opened = method == Method::kOpening && books.open && !doubt.before.open;
  if (opened && !doubt.command.starts_with('H')) return SubtotalQuestion(doubt.command);
  const bool no_baseline = !doubt.before.counters[kDailyClosings] || !books.counters;
  if (method == Method::kDay && no_baseline) return DayQuestion();
  return {};
}

void ReadMore(const std::string& question, const Fields& answer, Books& books) {
  if (question == DayQuestion()) {
    books.day_empty = DayIsEmpty(answer);
  } else {
    books.subtotal = ReadSubtotal(answer);
  }
}

std::string Money(std::int64_t cents) {
  return PadLeft(std::to_string(cents), kMoneyDigits, '0');
}

// That a question is refused, as between two sheets, says nothing of the command that it is about.
std::string WithoutRefusal(std::uint16_t fiscal) {
  const unsigned rest = fiscal & ~unsigned{fiscal_word::kRefusal | fiscal_word::kSummary};
  std::string digits;
  for (const unsigned shift : {12u, 8u, 4u, 0u}) digits += "0123456789ABCDEF"[rest >> shift & 0xF];
  return digits;
}

// What the command's own answer would have told.
Fields FieldsFor(const Doubt& doubt, const Shown& shown) {
  Fields fields{shown.first[0],
                shown.books.refused ? WithoutRefusal(WordsOf(shown.first).fiscal) : shown.first[1]};
  const auto method = MethodOf(doubt.command).method;
  if (method == Method::kClosing && shown.books.counters && !doubt.command.starts_with('J')) {
    if (const auto place = CounterOfClosing(doubt.command)) fields[2] = shown.first[*place + 2];
  }
  if (method == Method::kDay && shown.books.counters) fields[2] = shown.first[kDailyClosings + 2];
  if (method == Method::kPayment && shown.books.subtotal) {
    const auto& subtotal = *shown.books.subtotal;
    fields[2] = Money(subtotal.left);
    fields[3] = Money(std::max<std::int64_t>(subtotal.paid - subtotal.total, 0));
  }
  return fields;
}

// The ledger begins where it stood, and what was seen replaces what was reckoned.
void EnterShown(Library& library, const Doubt& doubt, const Consultation& found,
                const Shown& shown) {
  auto ledger = doubt.before;
  if (found.finding == Finding::kDone) {
    Enter(ledger, doubt.command, library.state);
  } else if (found.finding != Finding::kNotDone) {
    Blur(ledger, doubt.command);
  }
  if (shown.books.counters) EnterCounters(ledger, *shown.books.counters);
  if (shown.books.subtotal) EnterSubtotal(ledger, *shown.books.subtotal);
  EnterWords(ledger, WordsOf(shown.first));
  library.certainty.ledger = ledger;
}

}  // namespace

Consultation Consult(SafeLine& line, Library& library, const Doubt& doubt) {
  Consultation found;
  auto reply = AskOn(line, library, QuestionFor(doubt.command));
  found.cause = reply.cause;
  if (!reply.answered) return found;
  Shown shown{.first = std::move(reply.fields), .books = {}};
  shown.books = ReadBooks(doubt, shown.first, library.state);
  if (const auto more = MoreAbout(doubt, shown.books); !more.empty()) {
    reply = AskOn(line, library, more);
    found.cause = reply.cause;
    if (!reply.answered) return found;
    ReadMore(more, reply.fields, shown.books);
  }
  found.answered = true;
  found.finding = Compare(doubt.before, doubt.command, library.state, shown.books);
  const auto& row = kFindings[static_cast<std::size_t>(found.finding)];
  found.cause = row.cause;
  found.fields = FieldsFor(doubt, shown);
  EnterShown(library, doubt, found, shown);
  EscribirLog(library, row.log);
  return found;
}

}  // namespace kestra
