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

// The pending command of an earlier call.
class Earlier {
 public:
  Earlier(Library& library, const std::string& command) : library_(library), command_(command) {}

  Admission Settle(SafeLine& line, Patience& patience) {
    auto& certainty = library_.certainty;
    const auto pending = *certainty.pending;
    const auto settlement = SettleOn(line, library_, patience);
    if (!settlement.settled) return NotSent(Cause::kUnsettled);
    const bool done = settlement.outcome == Outcome::kDone;
    if (pending.call != certainty.report.call) return ForAnother(pending, done);
    // The host makes the call again: what is done of it is done.
    certainty.done_before = pending.accepted;
    if (done) certainty.done_before.push_back(pending.command);
    if (done && pending.command == command_) return {.verdict = {}, .fields = settlement.fields};
    return {};
  }

 private:
  // What was to be cancelled may have been closed by the call before.
  [[nodiscard]] Admission ForAnother(const Pending& pending, bool done) const {
    const bool closed = done && MethodOf(pending.command).method == Method::kClosing;
    if (!closed || MethodOf(command_).method != Method::kCancel) return {};
    return {.verdict = {Outcome::kRefused, Cause::kAlreadyClosed}, .done = false, .fields = {}};
  }

  Library& library_;
  const std::string& command_;
};

bool TakeDoneBefore(Library& library, const std::string& command) {
  auto& before = library.certainty.done_before;
  if (before.empty() || MethodOf(command).method == Method::kQuestion) return false;
  const bool same = before.front() == command;
  if (same) {
    before.erase(before.begin());
  } else {
    before.clear();
  }
  return same;
}

// After a command of which nothing was heard: whatever of it is still under way has arrived when a question
// is answered.
Cause HearThePrinter(Library& library, SafeLine& line, Patience& patience) {
  while (library.certainty.unheard) {
    const bool open = OpenInTime(library, line, patience, false);
    if (!open) return line.Why();
    patience.Begin();
    const auto reply =
        line.Rest() ? AskOn(line, library, CountersQuestion()) : Reply{.cause = line.Why()};
    library.certainty.unheard = !reply.answered;
    if (!reply.answered && patience.Over()) return reply.cause;
  }
  return Cause::kNone;
}

// Whether the printer's total is the sum of what it has accepted.
Admission ControlTotal(Library& library, SafeLine& line, Patience& patience,
                       const std::string& command) {
  const auto expected = library.certainty.ledger.total;
  const bool wanted = library.certainty.settings.ControlarTotal == 1 && expected;
  if (!wanted || MethodOf(command).method != Method::kClosing || command.front() == 'J') return {};
  while (true) {
    const bool open = OpenInTime(library, line, patience, false);
    auto reply = open ? AskOn(line, library, SubtotalQuestion(command)) : Reply{};
    if (!reply.answered) {
      patience.Begin();
      if (!open || patience.Over()) return NotSent(open ? reply.cause : line.Why());
      line.Rest();
      continue;
    }
    const auto subtotal = ReadSubtotal(reply.fields);
    if (!subtotal || std::llabs(subtotal->total - expected->cents) <= expected->slack) return {};
    return NotSent(Cause::kTotalDiffers);
  }
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
  Admission admission;
  if (library.certainty.pending) admission = Earlier(library, command).Settle(line, patience);
  if (admission.verdict.outcome != Outcome::kNothingAsked) return admission;
  if (const auto cause = HearThePrinter(library, line, patience); cause != Cause::kNone) {
    return NotSent(cause);
  }
  admission.done = TakeDoneBefore(library, command);
  if (admission.done) return admission;
  admission = ControlTotal(library, line, patience, command);
  if (admission.verdict.outcome != Outcome::kNothingAsked) return admission;
  admission.fields = {};
  if (const auto cause = WriteIntent(library, command); cause != Cause::kNone) {
    return NotSent(cause);
  }
  return admission;
}

}  // namespace kestra
