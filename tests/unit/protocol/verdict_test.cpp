// What an answer's status words say of its command, and what is known without an answer.

#include "protocol/verdict.hpp"

#include <gtest/gtest.h>

namespace kestra {
namespace {

using enum Outcome;

constexpr struct {
  const char* sentence;
  Words words;
  Outcome of_a_command;
  Outcome of_a_question;
  Cause cause;
} kRows[] = {
    {"nothing to say", {0x0080, 0x1600}, kDone, kDone, Cause::kNone},
    {"the summary bits alone", {0x8000, 0x8000}, kDone, kDone, Cause::kNone},
    {"a command that is not known", {0, 0x8008}, kRefused, kRefused, Cause::kUnknownCommand},
    {"a field", {0, 0x8010}, kRefused, kRefused, Cause::kBadField},
    {"a command out of place", {0, 0x8020}, kRefused, kRefused, Cause::kWrongState},
    {"a total too large", {0, 0x8040}, kRefused, kRefused, Cause::kOverflow},
    {"a broken fiscal memory", {0, 0x8001}, kRefused, kDone, Cause::kFiscalMemory},
    {"a broken work memory", {0, 0x8002}, kRefused, kDone, Cause::kWorkMemory},
    {"a full memory, and so out of place",
     {0, 0x80A0},
     kRefused,
     kRefused,
     Cause::kFiscalMemoryFull},
    {"a printer off line", {0x8008, 0}, kRefused, kDone, Cause::kPrinterOffLine},
    {"a broken printer", {0x8004, 0}, kRefused, kDone, Cause::kPrinterFault},
    {"a printer that stops for paper", {0xC00C, 0}, kRefused, kDone, Cause::kNoPaper},
    {"and the day is over too", {0xC004, 0x8800}, kRefused, kDone, Cause::kNoPaper},
    {"out of place, beside paper at its end",
     {0x4000, 0x8020},
     kRefused,
     kRefused,
     Cause::kWrongState},
    {"paper at its end", {0xC000, 0}, kDone, kDone, Cause::kNoPaper},
    {"a low battery", {0, 0x8004}, kDone, kDone, Cause::kBatteryLow},
    {"a day too long", {0, 0x8804}, kDone, kDone, Cause::kDayTooLong},
    {"a day too long, and so out of place", {0, 0x8820}, kRefused, kRefused, Cause::kDayTooLong},
    {"a memory nearly full", {0, 0x0100}, kDone, kDone, Cause::kFiscalMemoryLow},
};

TEST(StatusWords, SayWhatBecameOfTheFrame) {
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.sentence);
    const auto command = JudgeWords(row.words, Errand::kCommand);
    const auto question = JudgeWords(row.words, Errand::kQuestion);
    EXPECT_EQ(command.outcome, row.of_a_command);
    EXPECT_EQ(question.outcome, row.of_a_question);
    EXPECT_EQ(command.cause, row.cause);
    EXPECT_EQ(question.cause, row.cause);
  }
}

TEST(WhatWasHeard, WithoutAnAnswerIsADoubtWithAName) {
  const auto cause = [](const Heard& heard, bool leftover) {
    const auto verdict = JudgeHeard(heard, leftover);
    EXPECT_EQ(verdict.outcome, Outcome::kUnknown);
    return verdict.cause;
  };
  EXPECT_EQ(cause({}, false), Cause::kSilence);
  EXPECT_EQ(cause({.answer = {}, .busy = true}, false), Cause::kSilence);
  EXPECT_EQ(cause({}, true), Cause::kDamaged);
  EXPECT_EQ(cause({.answer = {}, .refused = true}, true), Cause::kNotUnderstood);
  EXPECT_EQ(cause({.answer = {}, .refused = true, .damaged = true}, true), Cause::kDamaged);
  EXPECT_EQ(cause({.answer = {}, .damaged = true, .foreign = true}, true), Cause::kForeign);
}

}  // namespace
}  // namespace kestra
