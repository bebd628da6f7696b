#include "campaigns/line_faults/judge.hpp"

#include <algorithm>

namespace kestra::line_faults {
namespace {

// The library waits in whole seconds of the time of day: never longer than this for one answer.
constexpr Micros kLongestWait = std::chrono::milliseconds(5500);

// Of the slowest command, announced by busy bytes that come every half second.
constexpr Micros kLongestWork = std::chrono::milliseconds(1200);

// Of the longest frame and its answer at 9600 baud.
constexpr Micros kLongestWire = std::chrono::milliseconds(500);

constexpr Micros kLongestExchange = kLongestWait + kLongestWork + kLongestWire;

// As PacienciaSegura has it where it is not set.
constexpr Micros kSafePatience = std::chrono::seconds(20);

constexpr char kFiscalText = 'A';

bool MoreThanOnce(const Deeds& done, const Deeds& asked) {
  return std::any_of(asked.begin(), asked.end(), [&](const std::string& deed) {
    return std::count(done.begin(), done.end(), deed) >
           std::count(asked.begin(), asked.end(), deed);
  });
}

// All but the extra lines of an item.
Deeds WithoutTexts(Deeds deeds) {
  std::erase_if(deeds, [](const std::string& deed) { return deed.front() == kFiscalText; });
  return deeds;
}

// Nobody looks at what comes of a ticket's extra lines, nor of the rounding.
bool LooksAway(const CallReport& call, const CallReport& good) {
  if (call.operation == kRounding) return true;
  return good.done.size() > 1 && WithoutTexts(call.done) == WithoutTexts(good.done);
}

Verdict JudgeBelief(const CallReport& call, const CallReport& good) {
  if (MoreThanOnce(call.done, good.done)) return Verdict::kTwice;
  if (call.result != 0) return call.done.empty() ? Verdict::kAgreed : Verdict::kAmbiguous;
  if (good.result != 0) return Verdict::kFalseSuccess;
  if (call.done == good.done) {
    return call.buffers == good.buffers ? Verdict::kAgreed : Verdict::kMisread;
  }
  return LooksAway(call, good) ? Verdict::kUnseen : Verdict::kFalseSuccess;
}

Verdict JudgeCall(const CallReport& call, const CallReport& good) {
  const auto verdict = JudgeBelief(call, good);
  return call.disguised && Misled(verdict) ? Verdict::kDisguised : verdict;
}

}  // namespace

bool Misled(Verdict verdict) {
  return verdict == Verdict::kFalseSuccess || verdict == Verdict::kMisread ||
         verdict == Verdict::kDisguised;
}

bool HasBook(const std::string& deed) {
  return std::string_view("AI:;KR{|").find(deed.front()) == std::string_view::npos &&
         !deed.starts_with("9\x1CX");
}

Verdict Judge(const RunReport& run, const RunReport& good) {
  if (!run.foreign.empty()) return Verdict::kAltered;
  auto verdict = Verdict::kAgreed;
  for (std::size_t i = 0; i < run.calls.size(); ++i) {
    verdict = std::max(verdict, JudgeCall(run.calls[i], good.calls[i]));
  }
  return verdict;
}

Micros LongestCall(std::size_t frames, const Strain& strain) {
  // Each fault costs the safe mode its patience at most, and what was under way.
  const auto faults = static_cast<std::int64_t>(strain.faults);
  if (strain.mode != Mode::kBase) {
    return kSafePatience * faults + kLongestExchange * static_cast<std::int64_t>(frames + 1);
  }
  const std::size_t attempts = 1 + strain.faults + (strain.habit == OperatorHabit::kOnce ? 1 : 0);
  return kLongestExchange * static_cast<std::int64_t>(frames * attempts);
}

}  // namespace kestra::line_faults
