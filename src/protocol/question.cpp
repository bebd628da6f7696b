#include "protocol/question.hpp"

#include "protocol/books.hpp"
#include "protocol/ledger.hpp"
#include "protocol/safe_line.hpp"
#include "protocol/strict_answer.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kBetweenQuestionsMs = 200;

}  // namespace

void Learn(Library& library, std::string_view command, const Fields& fields) noexcept {
  auto& ledger = library.certainty.ledger;
  EnterWords(ledger, WordsOf(fields));
  if (AsksForCounters(command)) {
    if (const auto counters = ReadCounters(fields, library.state.ModeloNombre)) {
      EnterCounters(ledger, *counters);
    }
  } else if (AsksForSubtotal(command)) {
    if (const auto subtotal = ReadSubtotal(fields)) EnterSubtotal(ledger, *subtotal);
  }
}

Reply AskOn(SafeLine& line, Library& library, const std::string& command) {
  auto& clock = library.platform.GetClock();
  if (library.state.DelayComandos > 0) clock.Sleep(library.state.DelayComandos);
  const auto frame = NumberFrame(library, command);
  Reply reply;
  if (!line.Write(frame)) {
    reply.cause = line.Why();
    return reply;
  }
  const auto reception = line.Wait(frame);
  reply.cause = reception.cause;
  reply.answered = !reception.answer.empty();
  if (!reply.answered) return reply;
  line.Acknowledge();
  reply.fields = FieldsOf(reception.answer);
  Learn(library, command, reply.fields);
  return reply;
}

Reply Ask(Library& library, const std::string& command, double patience) {
  auto& clock = library.platform.GetClock();
  SafeLine line(library);
  for (const double until = clock.Elapsed() + patience;;) {
    Reply reply{.answered = false, .fields = {}, .cause = Cause::kNone};
    if (line.Open()) {
      reply = AskOn(line, library, command);
    } else {
      reply.cause = line.Why();
    }
    if (reply.answered || clock.Elapsed() >= until) return reply;
    if (reply.cause == Cause::kNotStarted) return reply;
    clock.Sleep(kBetweenQuestionsMs);
  }
}

}  // namespace kestra
