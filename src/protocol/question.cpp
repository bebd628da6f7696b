#include "protocol/question.hpp"

#include "protocol/books.hpp"
#include "protocol/ledger.hpp"
#include "protocol/safe_line.hpp"
#include "protocol/strict_answer.hpp"
#include "state/journal.hpp"
#include "state/library.hpp"

namespace kestra {

void Learn(Library& library, std::string_view command, const Fields& fields) noexcept {
  auto& ledger = library.certainty.ledger;
  EnterWords(ledger, WordsOf(fields));
  if (AsksForCounters(command)) {
    const auto counters = ReadCounters(fields, library.state.ModeloNombre);
    if (!counters || *counters == ledger.counters) return;
    EnterCounters(ledger, *counters);
    JournalBooks(library);
  } else if (AsksForSubtotal(command)) {
    if (const auto subtotal = ReadSubtotal(fields)) EnterSubtotal(ledger, *subtotal);
  }
}

Reply AskOn(SafeLine& line, Library& library, const std::string& command) {
  auto& clock = library.platform.GetClock();
  if (library.state.DelayComandos > 0) clock.Sleep(library.state.DelayComandos);
  const auto frame = NumberFrame(library, command);
  if (!line.Write(frame)) return {.answered = false, .fields = {}, .cause = line.Why()};
  Reply reply;
  const auto reception = line.Wait(frame);
  reply.cause = reception.cause;
  reply.answered = !reception.answer.empty();
  if (!reply.answered) return reply;
  line.Acknowledge();
  reply.fields = FieldsOf(reception.answer);
  Learn(library, command, reply.fields);
  return reply;
}

Reply Ask(Library& library, const std::string& command) {
  SafeLine line(library);
  if (line.Open()) return AskOn(line, library, command);
  return {.answered = false, .fields = {}, .cause = line.Why()};
}

}  // namespace kestra
