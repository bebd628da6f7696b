#include "protocol/settlement.hpp"

#include <string>
#include <utility>

#include "protocol/books.hpp"
#include "protocol/consultation.hpp"
#include "protocol/ledger.hpp"
#include "protocol/patience.hpp"
#include "protocol/safe_line.hpp"
#include "state/journal.hpp"
#include "state/library.hpp"
#include "state/log.hpp"
#include "state/report.hpp"

namespace kestra {
namespace {

Outcome OutcomeOf(Finding finding) {
  switch (finding) {
    case Finding::kDone:
      return Outcome::kDone;
    case Finding::kNotDone:
      return Outcome::kNotDone;
    default:
      return Outcome::kUnknown;
  }
}

// Made again, a call whose sheet was turned goes on behind it: the printer itself tells which step is next.
void RememberSettled(Library& library, const Pending& pending, const Settlement& settlement) {
  if (IsTurnedSheet(pending.command, settlement.outcome)) return library.certainty.settled.reset();
  Settled settled{.call = pending.call,
                  .done = pending.accepted,
                  .command = pending.command,
                  .verdict = {settlement.outcome, settlement.cause},
                  .answer = settlement.fields};
  if (settlement.outcome == Outcome::kDone) settled.done.push_back(pending.command);
  library.certainty.settled = std::move(settled);
}

Doubt DoubtOf(Library& library, const Pending& pending) {
  const double now = library.platform.GetClock().Elapsed();
  return {pending.command, pending.before, now - pending.sent};
}

}  // namespace

bool IsTurnedSheet(std::string_view command, Outcome outcome) {
  const auto method = MethodOf(command).method;
  const bool step = method == Method::kSheetEnds || method == Method::kSheetBegins;
  return step && outcome == Outcome::kDone;
}

Settlement SettleOn(SafeLine& line, Library& library, Patience& patience) {
  auto& pending = library.certainty.pending;
  EscribirLog(library, " - Pendiente : " + pending->call);
  patience.Begin();
  const auto found = AskInTime(library, line, patience, true,
                               [&] { return Consult(line, library, DoubtOf(library, *pending)); });
  if (!found.answered) return {Outcome::kUnknown, found.cause, false, {}};
  Settlement settlement{OutcomeOf(found.finding), found.cause, true, found.fields};
  RememberSettled(library, *pending, settlement);
  NoteAnswer(library, settlement.fields);
  pending.reset();
  library.certainty.unheard = false;
  JournalResult(library, {settlement.outcome, settlement.cause});
  return settlement;
}

Settlement SettlePending(Library& library) {
  PrepareJournal(library);
  SafeLine line(library);
  Patience patience(library);
  return SettleOn(line, library, patience);
}

void TellSettled(Library& library) {
  auto& settled = library.certainty.settled;
  if (!settled) return;
  const auto method = MethodOf(settled->command).method;
  const bool may_be_two = method >= Method::kLine && method <= Method::kPerception;
  const auto outcome = settled->verdict.outcome;
  if (outcome == Outcome::kUnknown || (outcome == Outcome::kDone && may_be_two)) settled.reset();
}

bool ForgetPending(Library& library) {
  auto& pending = library.certainty.pending;
  if (!pending) return false;
  EscribirLog(library, " - Olvidado : " + pending->call);
  library.certainty.ledger = pending->before;
  Blur(library.certainty.ledger, pending->command);
  JournalForget(library);
  pending.reset();
  return true;
}

bool ForgetTotal(Library& library) {
  auto& ledger = library.certainty.ledger;
  if (!std::exchange(ledger.total_differs, false)) return false;
  ledger.total.reset();
  EscribirLog(library, " - Olvidado : el total que no coincide");
  return true;
}

}  // namespace kestra
