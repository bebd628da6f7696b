#include "campaigns/line_faults/judge.hpp"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

namespace kestra::line_faults {
namespace {

CallReport Call(std::int32_t result, Deeds done, std::string number = {}) {
  CallReport call;
  call.result = result;
  call.done = std::move(done);
  if (!number.empty()) call.buffers.push_back(std::move(number));
  return call;
}

RunReport One(CallReport call) {
  RunReport run;
  run.calls.push_back(std::move(call));
  return run;
}

struct Row {
  std::string_view name;
  CallReport good;
  CallReport call;
  Verdict verdict;
};

TEST(Judge, ComparesWhatWasToldWithWhatWasDone) {
  const std::array rows{
      Row{"told success, done", Call(0, {"E"}), Call(0, {"E"}), Verdict::kAgreed},
      Row{"told failure, not done", Call(0, {"E"}), Call(1, {}), Verdict::kAgreed},
      Row{"told failure, done", Call(0, {"E"}), Call(1, {"E"}), Verdict::kAmbiguous},
      Row{"told failure, half done", Call(0, {"A", "B"}), Call(1, {"A"}), Verdict::kAmbiguous},
      Row{"told success, done twice", Call(0, {"B"}), Call(0, {"B", "B"}), Verdict::kTwice},
      Row{"told failure, done twice", Call(0, {"B"}), Call(1, {"B", "B"}), Verdict::kTwice},
      Row{"told success, not done", Call(0, {"E"}), Call(0, {}), Verdict::kFalseSuccess},
      Row{"told success of what is refused", Call(1, {}), Call(0, {}), Verdict::kFalseSuccess},
      Row{"told failure of what is refused", Call(1, {}), Call(1, {}), Verdict::kAgreed},
      Row{"a text of an item is missing", Call(0, {"Ax", "B"}), Call(0, {"B"}), Verdict::kUnseen},
      Row{"the item itself is missing", Call(0, {"Ax", "B"}), Call(0, {"Ax"}),
          Verdict::kFalseSuccess},
      Row{"a text by itself is missing", Call(0, {"Ax"}), Call(0, {}), Verdict::kFalseSuccess},
      Row{"another number is read", Call(0, {"E"}, "00000007"), Call(0, {"E"}, "00000005"),
          Verdict::kMisread},
      Row{"a question that failed", Call(0, {}, "00000007"), Call(1, {}, "       "),
          Verdict::kAgreed},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(Judge(One(row.call), One(row.good)), row.verdict);
  }
}

// Two faults that make up for each other; what was not believed is no belief.
TEST(Judge, DamageThatNobodyCanSeeIsCountedByItself) {
  const auto disguised = [](CallReport call) {
    call.disguised = true;
    return One(std::move(call));
  };
  const auto good = One(Call(0, {"E"}, "00000007"));
  EXPECT_EQ(Judge(disguised(Call(0, {"E"}, "00000005")), good), Verdict::kDisguised);
  EXPECT_EQ(Judge(disguised(Call(0, {}, "00000007")), good), Verdict::kDisguised);
  EXPECT_EQ(Judge(disguised(Call(0, {"E", "E"}, "00000007")), good), Verdict::kTwice);
  EXPECT_EQ(Judge(disguised(Call(1, {"E"}, "00000007")), good), Verdict::kAmbiguous);
  EXPECT_EQ(Judge(disguised(Call(0, {"E"}, "00000007")), good), Verdict::kAgreed);
}

TEST(Judge, DamageToAnotherCallExcusesNothing) {
  RunReport run = One(Call(0, {"@"})), good = One(Call(0, {"@"}));
  run.calls.front().disguised = true;
  run.calls.push_back(Call(0, {}));
  good.calls.push_back(Call(0, {"E"}));
  EXPECT_EQ(Judge(run, good), Verdict::kFalseSuccess);
}

TEST(Judge, TheRoundingTellsSuccessWhateverComesOfIt) {
  CallReport good = Call(0, {"D"}), call = Call(0, {});
  good.operation = call.operation = kRounding;
  EXPECT_EQ(Judge(One(call), One(good)), Verdict::kUnseen);
}

TEST(Judge, WhatNobodyWroteIsTheWorst) {
  RunReport run = One(Call(0, {}));
  run.foreign = {"B"};
  EXPECT_EQ(Judge(run, One(Call(0, {"B"}))), Verdict::kAltered);
}

TEST(Judge, ARunIsAsBadAsItsWorstCall) {
  RunReport good, run;
  good.calls = {Call(0, {"@"}), Call(0, {"B"}), Call(0, {"E"})};
  run.calls = {Call(0, {"@"}), Call(0, {"B", "B"}), Call(1, {"E"})};
  EXPECT_EQ(Judge(run, good), Verdict::kTwice);
}

TEST(Judge, EachFaultAndEachYesCostsAnAttempt) {
  const Micros one = LongestCall(1, {});
  EXPECT_GE(one, std::chrono::milliseconds(5500));
  EXPECT_EQ(LongestCall(4, {}), 4 * one);
  EXPECT_EQ(LongestCall(1, {.faults = 2}), 3 * one);
  EXPECT_EQ(LongestCall(1, {.faults = 1, .habit = OperatorHabit::kOnce}), 3 * one);
}

}  // namespace
}  // namespace kestra::line_faults
