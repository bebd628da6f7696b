// What an answer's status words say of its command, and what is known without an answer.

#include "protocol/verdict.hpp"

#include <gtest/gtest.h>

#include "unit/rows.hpp"

namespace kestra {
namespace {

struct WordsRow {
  const char* sentence;
  Words words;
  Outcome of_a_command;
  Outcome of_a_question;
  Cause cause;
};

class StatusWords : public testing::TestWithParam<WordsRow> {};

TEST_P(StatusWords, SayWhatBecameOfTheFrame) {
  const auto& row = GetParam();
  const auto command = JudgeWords(row.words, Errand::kCommand);
  const auto question = JudgeWords(row.words, Errand::kQuestion);
  EXPECT_EQ(command.outcome, row.of_a_command);
  EXPECT_EQ(question.outcome, row.of_a_question);
  EXPECT_EQ(command.cause, row.cause);
  EXPECT_EQ(question.cause, row.cause);
}

constexpr auto kDone = Outcome::kDone;
constexpr auto kRefused = Outcome::kRefused;

constexpr std::array kRows{
    WordsRow{"nothing to say", {0x0080, 0x1600}, kDone, kDone, Cause::kNone},
    WordsRow{"the summary bits alone", {0x8000, 0x8000}, kDone, kDone, Cause::kNone},
    WordsRow{
        "a command that is not known", {0, 0x8008}, kRefused, kRefused, Cause::kUnknownCommand},
    WordsRow{"a field", {0, 0x8010}, kRefused, kRefused, Cause::kBadField},
    WordsRow{"a command out of place", {0, 0x8020}, kRefused, kRefused, Cause::kWrongState},
    WordsRow{"a total too large", {0, 0x8040}, kRefused, kRefused, Cause::kOverflow},
    WordsRow{"a broken fiscal memory", {0, 0x8001}, kRefused, kDone, Cause::kFiscalMemory},
    WordsRow{"a broken work memory", {0, 0x8002}, kRefused, kDone, Cause::kWorkMemory},
    WordsRow{"a full memory, and so out of place",
             {0, 0x80A0},
             kRefused,
             kRefused,
             Cause::kFiscalMemoryFull},
    WordsRow{"a printer off line", {0x8008, 0}, kRefused, kDone, Cause::kPrinterOffLine},
    WordsRow{"a broken printer", {0x8004, 0}, kRefused, kDone, Cause::kPrinterFault},
    WordsRow{"a printer that stops for paper", {0xC00C, 0}, kRefused, kDone, Cause::kNoPaper},
    WordsRow{"and the day is over too", {0xC004, 0x8800}, kRefused, kDone, Cause::kNoPaper},
    WordsRow{"out of place, beside paper at its end",
             {0x4000, 0x8020},
             kRefused,
             kRefused,
             Cause::kWrongState},
    WordsRow{"paper at its end", {0xC000, 0}, kDone, kDone, Cause::kNoPaper},
    WordsRow{"a low battery", {0, 0x8004}, kDone, kDone, Cause::kBatteryLow},
    WordsRow{"a day too long", {0, 0x8804}, kDone, kDone, Cause::kDayTooLong},
    WordsRow{
        "a day too long, and so out of place", {0, 0x8820}, kRefused, kRefused, Cause::kDayTooLong},
    WordsRow{"a memory nearly full", {0, 0x0100}, kDone, kDone, Cause::kFiscalMemoryLow},
};
INSTANTIATE_TEST_SUITE_P(Rows, StatusWords, testing::ValuesIn(kRows), unit::BySentence());

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
