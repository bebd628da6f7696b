#include "protocol/admission.hpp"

#include <cstdlib>
#include <utility>

#include "protocol/books.hpp"
#include "protocol/packet.hpp"
#include "protocol/patience.hpp"
#include "protocol/question.hpp"
#include "protocol/safe_line.hpp"
#include "protocol/settlement.hpp"
#include "state/journal.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

// Bytes that would end the frame, or begin another one in its middle.
constexpr std::string_view kFrameBytes("\x02\x03", 2);

bool CanBeSent(const std::string& command) {
  return MethodOf(command).method != Method::kNotOurs &&
         command.find_first_of(kFrameBytes) == std::string::npos;
}

Admission NotSent(Cause cause) {
  return {.verdict = {Outcome::kNotSent, cause}, .done = false, .fields = {}};
}

// What was to be cancelled may have been closed by the call before.
Admission ForAnother(const Settled& settled, Method method) {
  const bool closed = settled.verdict.outcome == Outcome::kDone &&
                      MethodOf(settled.command).method == Method::kClosing;
  if (!closed || method != Method::kCancel) return {};
  return {.verdict = {Outcome::kRefused, Cause::kAlreadyClosed}, .done = false, .fields = {}};
}

// The host makes the call again: what is done of it is done.
Admission ForTheSame(Settled& settled, const std::string& command) {
  if (settled.verdict.outcome == Outcome::kUnknown) {
    settled.told = true;
    return {.verdict = settled.verdict, .done = false, .fields = {}};
  }
  const auto& done = settled.done;
  const bool same = settled.taken < done.size() && done[settled.taken] == command;
  settled.taken = same ? settled.taken + 1 : done.size();
  const bool all =
      same && settled.taken == done.size() && settled.verdict.outcome == Outcome::kDone;
  return {.verdict = {}, .done = same, .fields = all ? settled.answer : Fields{}};
}

Admission AfterSettled(Library& library, const std::string& command) {
  auto& settled = library.certainty.settled;
  const auto method = MethodOf(command).method;
  if (!settled || method == Method::kQuestion) return {};
  const bool same = settled->call == library.certainty.report.call;
  return same ? ForTheSame(*settled, command) : ForAnother(*settled, method);
}

bool IsDecided(const Admission& admission) {
  return admission.done || admission.verdict.outcome != Outcome::kNothingAsked;
}

// After a command of which nothing was heard: whatever of it is still under way has arrived when a question
// is answered.
Cause HearThePrinter(Library& library, SafeLine& line, Patience& patience) {
  if (!library.certainty.unheard) return Cause::kNone;
  patience.Begin();
  const auto reply = AskInTime(library, line, patience, false,
                               [&] { return AskOn(line, library, CountersQuestion()); });
  library.certainty.unheard = !reply.answered;
  return reply.answered ? Cause::kNone : reply.cause;
}

// Whether the printer's total is the sum of what it has accepted.
Admission ControlTotal(Library& library, SafeLine& line, Patience& patience,
                       const std::string& command) {
  const auto expected = library.certainty.ledger.total;
  const bool wanted = library.certainty.settings.ControlarTotal == 1 && expected;
  if (!wanted || MethodOf(command).method != Method::kClosing || command.front() == 'J') return {};
  const auto reply = AskInTime(library, line, patience, false,
                               [&] { return AskOn(line, library, SubtotalQuestion(command)); });
  if (!reply.answered) return NotSent(reply.cause);
  const auto subtotal = ReadSubtotal(reply.fields);
  if (!subtotal || std::llabs(subtotal->total - expected->cents) <= expected->slack) return {};
  library.certainty.ledger.total_differs = true;
  return NotSent(Cause::kTotalDiffers);
}

Cause WriteIntent(Library& library, const std::string& command) {
  const auto method = MethodOf(command).method;
  if (method == Method::kQuestion) return Cause::kNone;
  const auto& certainty = library.certainty;
  const Pending intent{.call = certainty.report.call,
                       .command = command,
                       .accepted = certainty.accepted,
                       .before = certainty.ledger};
  return JournalIntent(library, intent,
                       {.opens = method == Method::kOpening, .has_book = method > Method::kNoBook});
}

}  // namespace

Admission Admit(Library& library, SafeLine& line, Patience& patience, const std::string& command) {
  if (!CanBeSent(command)) return NotSent(Cause::kNoCommand);
  PrepareJournal(library);
  if (library.certainty.pending && !SettleOn(line, library, patience).settled) {
    return NotSent(Cause::kUnsettled);
  }
  if (const auto cause = HearThePrinter(library, line, patience); cause != Cause::kNone) {
    return NotSent(cause);
  }
  auto admission = AfterSettled(library, command);
  if (IsDecided(admission)) return admission;
  admission = ControlTotal(library, line, patience, command);
  if (IsDecided(admission)) return admission;
  if (const auto cause = WriteIntent(library, command); cause != Cause::kNone) {
    return NotSent(cause);
  }
  return admission;
}

}  // namespace kestra
