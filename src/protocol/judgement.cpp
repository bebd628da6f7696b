#include "protocol/judgement.hpp"

#include "protocol/verdict.hpp"

namespace kestra {
namespace {

Judgement Ends(const Verdict& verdict) {
  return {Next::kEnd, {.if_absent = verdict, .answered = true}};
}

Judgement Reads(const MethodRow& row, Reading reading) {
  const bool has_book = row.method > Method::kNoBook;
  reading.answered = true;
  return {has_book ? Next::kAskBooks : Next::kEnd, reading};
}

// A printer that cannot print says so and does not carry the command out. Where something can be done about
// it, that is waited for.
Judgement JudgeMechanism(const MethodRow& row, const Words& words, Cause condition) {
  const unsigned curable = printer_word::kPaper | printer_word::kOffLine;
  const bool failed = (words.printer & printer_word::kFailure) != 0;
  const Verdict refused{Outcome::kRefused, condition};
  if (failed && (words.printer & curable) != 0) {
    return {Next::kCure, {.if_absent = refused, .then_cure = true, .answered = true}};
  }
  if (failed) return Reads(row, {.if_not_done = refused, .if_absent = refused});
  return Reads(row, {.if_absent = {Outcome::kUnknown, condition}, .then_cure = true});
}

// A zero byte that the line puts into a command is seen by no sum: what the printer does not understand goes
// out once more.
Judgement JudgeRefusal(const MethodRow& row, const Words& words, const Before& before,
                       Cause condition) {
  const unsigned refusal = words.fiscal & fiscal_word::kRefusal;
  const bool not_understood = (refusal & ~unsigned{fiscal_word::kNotUnderstood}) == 0;
  const Verdict refused{Outcome::kRefused, condition};
  if (not_understood && !before.refused) {
    return {Next::kSendOnceMore, {.if_absent = refused, .answered = true}};
  }
  if (!before.doubted) return Ends(refused);
  return Reads(row, {.if_not_done = refused, .if_absent = refused});
}

}  // namespace

Judgement JudgeAnswer(const MethodRow& row, const Words& words, const Before& before) {
  const auto condition = JudgeWords(words).cause;
  const Verdict done{Outcome::kDone, condition};
  if ((words.fiscal & fiscal_word::kRefusal) != 0) {
    return JudgeRefusal(row, words, before, condition);
  }
  if (row.method == Method::kQuestion) return Ends(done);
  const unsigned mechanism = printer_word::kFailure | printer_word::kOffLine;
  if (row.prints && (words.printer & mechanism) != 0) {
    return JudgeMechanism(row, words, condition);
  }
  if ((words.fiscal & fiscal_word::kMachine) == 0) return Ends(done);
  return Reads(row, {.if_not_done = Verdict{Outcome::kNotDone, condition}, .if_absent = done});
}

bool CanPrint(const Words& words) {
  const unsigned blocked = printer_word::kPaper | printer_word::kOffLine | printer_word::kFailure;
  return (words.printer & blocked) == 0;
}

}  // namespace kestra
