#include "campaigns/line_faults/trial.hpp"

#include <algorithm>
#include <string>

namespace kestra::line_faults {
namespace {

// A printer that says nothing is not heard for so many of the document's own lengths.
constexpr std::size_t kAttempts = 4;

// The rounding goes on until the printer's total is right, so that a fault costs it a round more, and
// with a silent printer it does not end. A round asks, adds a line and asks again.
constexpr std::size_t kRoundsAtMost = 3;

std::string Describe(const ByteFault& fault) {
  const bool to_printer = fault.direction == Direction::kToPrinter;
  return std::string(to_printer ? ", to the printer" : ", to the host") + " byte " +
         std::to_string(fault.position) + " kind " + std::to_string(static_cast<int>(fault.kind)) +
         "/" + std::to_string(fault.detail);
}

}  // namespace

Trial::Trial(const CanonicalDocument& document, const CampaignSettings& settings,
             CampaignReport& report)
    : document_(&document),
      habit_(settings.habit),
      mode_(settings.mode),
      good_(Play(document, {}, OperatorHabit::kNever, mode_)),
      report_(&report) {}

CallReport Trial::Silent(std::size_t call) const {
  std::vector<ByteFault> cut;
  const std::size_t first = good_.calls[call].first_byte;
  for (std::size_t byte = first; byte < kAttempts * good_.to_printer; ++byte) {
    cut.push_back({.direction = Direction::kToPrinter, .position = byte});
  }
  return Play(*document_, cut, OperatorHabit::kNever, mode_).calls.at(call);
}

void Trial::MeasureOperations() {
  for (std::size_t i = 0; i < good_.calls.size(); ++i) {
    const CallReport& good = good_.calls[i];
    const bool in_rounds = good.operation == kRounding;
    const CallReport silent = in_rounds ? good : Silent(i);
    frames_.push_back(in_rounds ? kRoundsAtMost * good.frames
                                : std::max(good.frames, silent.frames));
    auto& times = report_->operations[good.operation];
    times.frames = std::max(times.frames, frames_.back());
    times.good = std::max(times.good, good.lasted);
    times.silent = in_rounds ? kNoEnd : std::max(times.silent, silent.lasted);
    times.allowed = std::max(times.allowed, LongestCall(frames_.back(), {1, habit_, mode_}));
  }
}

void Trial::Run(std::span<const ByteFault> faults, std::initializer_list<Tally*> tallies) {
  const RunReport run = Play(*document_, faults, habit_, mode_);
  const Verdict verdict = Judge(run, good_);
  for (Tally* tally : tallies) tally->Count(verdict, run);
  for (const CallReport& call : run.calls) {
    auto& times = report_->operations[call.operation];
    if (faults.size() == 1) times.faulty = std::max(times.faulty, call.lasted);
  }
  Check(run, verdict, faults);
}

bool Trial::Hung(const RunReport& run, std::size_t faults) const {
  for (std::size_t i = 0; i < run.calls.size(); ++i) {
    if (run.calls[i].lasted > LongestCall(frames_[i], {faults, habit_, mode_})) return true;
  }
  return false;
}

void Trial::Check(const RunReport& run, Verdict verdict, std::span<const ByteFault> faults) {
  if (Hung(run, faults.size())) Breach("longer than the protocol allows", faults);
  if (mode_ != Mode::kBase) return CheckSafe(run, verdict, faults);
  // Two faults can make up for each other in the printer's sum; one cannot.
  if (faults.size() > 1) return;
  if (Misled(verdict) && !run.damaged_answer) Breach("misled by what the printer said", faults);
  if (verdict == Verdict::kAltered) Breach("a damaged command was carried out", faults);
  const bool only_late = faults[0].kind == FaultKind::kSplit;
  if (only_late && verdict != Verdict::kAgreed) Breach("nothing was wrong with the bytes", faults);
}

// What passes is no failure; only what no book shows may stay unknown, and is told as not done.
void Trial::CheckSafe(const RunReport& run, Verdict verdict, std::span<const ByteFault> faults) {
  if (run.visible_damage) Breach("took an answer that shows its damage", faults);
  if (faults.size() > 1) return CheckSafePair(run, verdict, faults);
  const bool may_doubt = mode_ != Mode::kSafeWithRepeats && verdict == Verdict::kAmbiguous;
  if (verdict != Verdict::kAgreed && !may_doubt) {
    Breach(kVerdictNames[static_cast<std::size_t>(verdict)], faults);
  }
  if (mode_ != Mode::kSafeWithRepeats) return;
  const bool all = run.calls.size() == good_.calls.size();
  if (!all || run.calls.back().result != good_.calls.back().result) {
    Breach("a fault that passes ended a call", faults);
  }
}

// Two of them may make up for each other in a sum, or outlast what a printer remembers of its last frame.
void Trial::CheckSafePair(const RunReport& run, Verdict verdict,
                          std::span<const ByteFault> faults) {
  const bool in_a_sum = verdict == Verdict::kAltered || verdict == Verdict::kDisguised;
  if (verdict <= Verdict::kAmbiguous || in_a_sum) return;
  const bool forgotten =
      verdict == Verdict::kTwice && mode_ == Mode::kSafeWithRepeats && !DidABookTwice(run);
  if (!forgotten) Breach(kVerdictNames[static_cast<std::size_t>(verdict)], faults);
}

bool Trial::DidABookTwice(const RunReport& run) const {
  for (std::size_t i = 0; i < run.calls.size(); ++i) {
    const auto& done = run.calls[i].done;
    const auto& asked = good_.calls[i].done;
    const bool twice = std::any_of(done.begin(), done.end(), [&](const std::string& deed) {
      return HasBook(deed) && std::count(done.begin(), done.end(), deed) >
                                  std::count(asked.begin(), asked.end(), deed);
    });
    if (twice) return true;
  }
  return false;
}

void Trial::Breach(std::string_view what, std::span<const ByteFault> faults) {
  std::string text = std::string(what) + ": " + std::string(document_->name);
  for (const ByteFault& fault : faults) text += Describe(fault);
  report_->breaches.push_back(std::move(text));
}

}  // namespace kestra::line_faults
