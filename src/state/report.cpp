#include "state/report.hpp"

#include <algorithm>

#include "base/failure.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

std::size_t PlaceOf(Outcome outcome) {
  return static_cast<std::size_t>(outcome);
}

bool Met(const Tally& tally, Outcome outcome) {
  return tally.met[PlaceOf(outcome)];
}

// Of frames that end differently the most doubtful one speaks for all; the printer's word comes before
// ours, and what was done beside them makes it a part.
Verdict Together(const Tally& tally, bool parts) {
  for (const auto outcome : {Outcome::kUnknown, Outcome::kInPart, Outcome::kRefused,
                             Outcome::kNotDone, Outcome::kNotSent, Outcome::kDone}) {
    if (!Met(tally, outcome)) continue;
    const bool failed = outcome != Outcome::kUnknown && outcome != Outcome::kDone;
    const bool part = parts && failed && Met(tally, Outcome::kDone);
    return {part ? Outcome::kInPart : outcome, tally.causes[PlaceOf(outcome)]};
  }
  return {};
}

void Count(Tally& tally, const Verdict& verdict) {
  const auto place = PlaceOf(verdict.outcome);
  tally.met[place] = true;
  if (tally.causes[place] == Cause::kNone) tally.causes[place] = verdict.cause;
}

// Questions count when nothing else was asked: an answer that is missing prints nothing, and one that came
// is no part of a sale.
void Conclude(CallReport& report) {
  auto commands = report.commands;
  auto questions = report.questions;
  if (report.so_far)
    Count(report.errand == Errand::kQuestion ? questions : commands, *report.so_far);
  const auto done = Together(commands, true);
  const auto told = Together(questions, false);
  report.outcome = done.outcome == Outcome::kNothingAsked ? told.outcome : done.outcome;
  report.cause = done.cause;
  if (report.cause == Cause::kNone) report.cause = told.cause;
  if (report.cause == Cause::kNone) report.cause = report.aside;
}

// What became of an earlier call is told once to the same call: the one that is over may have heard it.
void LeaveSettled(Certainty& certainty) {
  auto& settled = certainty.settled;
  if (!settled) return;
  const bool taken = settled->taken > 0 && !Met(certainty.report.commands, Outcome::kNotSent);
  if (taken || settled->told) return settled.reset();
  settled->taken = 0;
}

}  // namespace

Verdict AfterRepetition(const Verdict& before, const Verdict& now) {
  switch (before.outcome) {
    case Outcome::kDone:
      return {Outcome::kDone, now.outcome == Outcome::kDone || now.outcome == Outcome::kUnknown
                                  ? Cause::kRepeated
                                  : before.cause};
    case Outcome::kUnknown:
      return now.outcome == Outcome::kDone ? Verdict{Outcome::kDone, Cause::kRepeated} : before;
    default:
      if (now.outcome == Outcome::kNotSent && before.outcome != Outcome::kNothingAsked) {
        return before;
      }
      return now;
  }
}

void BeginCall(Library& library, std::string_view name) noexcept {
  auto& report = library.certainty.report;
  LeaveSettled(library.certainty);
  report = {};
  library.certainty.accepted.clear();
  library.certainty.patience_ends = kNever;
  // A report that lacks a text for want of memory is better than a call that fails for it.
  WithoutFailing([&] { report.call = name; });
}

void NameCall(Library& library, std::string_view call) noexcept {
  auto& report = library.certainty.report;
  if (report.named || call.empty()) return;
  report.named = true;
  WithoutFailing([&] { report.call = call; });
}

void NoteSending(Library& library) noexcept {
  ++library.certainty.report.attempts;
}

void NoteAnswer(Library& library, std::span<const std::string> fields) noexcept {
  auto& answer = library.certainty.report.answer;
  WithoutFailing([&] {
    answer.fill({});
    std::copy_n(fields.begin(), std::min(fields.size(), answer.size()), answer.begin());
  });
}

void NoteSoFar(Library& library, const Verdict& verdict, Errand errand) noexcept {
  auto& report = library.certainty.report;
  report.so_far = verdict;
  report.errand = errand;
  Conclude(report);
}

void NoteVerdict(Library& library, const Verdict& verdict, Errand errand) noexcept {
  auto& report = library.certainty.report;
  report.so_far.reset();
  Count(errand == Errand::kQuestion ? report.questions : report.commands, verdict);
  Conclude(report);
}

void NoteFailure(Library& library, const Failure& failure) noexcept {
  auto& report = library.certainty.report;
  const bool sent = Together(report.commands, true).outcome != Outcome::kNothingAsked;
  if (sent) {
    NoteCause(library, CauseOf(failure));
  } else {
    NoteVerdict(library, {Outcome::kNotSent, CauseOf(failure)});
  }
}

void NoteCause(Library& library, Cause cause) noexcept {
  auto& report = library.certainty.report;
  if (report.aside == Cause::kNone) report.aside = cause;
  Conclude(report);
}

}  // namespace kestra
