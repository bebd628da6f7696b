// What a call's frames make of the call: its outcome and its cause.

#include "state/report.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/fake_platform.hpp"
#include "platform/seam/port_fault.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

constexpr Verdict kDone{Outcome::kDone};
constexpr Verdict kLow{Outcome::kDone, Cause::kBatteryLow};
constexpr Verdict kRefused{Outcome::kRefused, Cause::kWrongState};
constexpr Verdict kUnsent{Outcome::kNotSent, Cause::kPortBusy};
constexpr Verdict kDoubt{Outcome::kUnknown, Cause::kSilence};
constexpr Verdict kUndone{Outcome::kNotDone, Cause::kPortLost};

class CallReports : public testing::Test {
 protected:
  FakePlatform world_;
  Library library_{world_};
  const CallReport& report_ = library_.certainty.report;

  void Expect(Outcome outcome, Cause cause) {
    EXPECT_EQ(static_cast<int>(report_.outcome), static_cast<int>(outcome));
    EXPECT_EQ(static_cast<int>(report_.cause), static_cast<int>(cause));
  }
};

struct Case {
  const char* name;
  std::vector<Verdict> commands;
  Outcome outcome;
  Cause cause;
};

TEST_F(CallReports, AreTheSumOfTheFrames) {
  const std::vector<Case> cases = {
      {"no frame", {}, Outcome::kNothingAsked, Cause::kNone},
      {"all done", {kDone, kDone}, Outcome::kDone, Cause::kNone},
      {"done, with a word about the battery", {kDone, kLow}, Outcome::kDone, Cause::kBatteryLow},
      {"refused", {kRefused}, Outcome::kRefused, Cause::kWrongState},
      {"not sent", {kUnsent}, Outcome::kNotSent, Cause::kPortBusy},
      {"not done", {kUndone}, Outcome::kNotDone, Cause::kPortLost},
      {"a text, and then the item refused",
       {kDone, kRefused},
       Outcome::kInPart,
       Cause::kWrongState},
      {"a text not sent, and then the item", {kUnsent, kDone}, Outcome::kInPart, Cause::kPortBusy},
      {"doubt beats what is known", {kDone, kDoubt, kRefused}, Outcome::kUnknown, Cause::kSilence},
      {"the printer's word beats ours", {kUnsent, kRefused}, Outcome::kRefused, Cause::kWrongState},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    BeginCall(library_, "EP_X");
    for (const auto& verdict : row.commands) NoteVerdict(library_, verdict);
    Expect(row.outcome, row.cause);
  }
}

TEST_F(CallReports, OfAQuestionAloneAreItsOwn) {
  BeginCall(library_, "EP_Numeracion");
  NoteVerdict(library_, kDone, Errand::kQuestion);
  Expect(Outcome::kDone, Cause::kNone);
  NoteVerdict(library_, kUndone, Errand::kQuestion);
  Expect(Outcome::kNotDone, Cause::kPortLost);
}

TEST_F(CallReports, DoNotCountAQuestionAmongTheParts) {
  BeginCall(library_, "EP_ImprimirItem");
  NoteVerdict(library_, kDone, Errand::kQuestion);
  NoteVerdict(library_, kRefused);
  Expect(Outcome::kRefused, Cause::kWrongState);
}

TEST_F(CallReports, TellOfAQuestionThatFailedBesideWhatWasDone) {
  BeginCall(library_, "EP_ImprimirItem");
  NoteVerdict(library_, kUndone, Errand::kQuestion);
  NoteVerdict(library_, kDone);
  Expect(Outcome::kDone, Cause::kPortLost);
}

TEST_F(CallReports, TakeAFailureBeforeAnyFrameAsNotSent) {
  BeginCall(library_, "EP_Init");
  NoteFailure(library_, Failure(8002, "300", PortReason(PortFault::kBadNumber)));
  Expect(Outcome::kNotSent, Cause::kPortNumber);
}

TEST_F(CallReports, KeepWhatWasDoneWhenTheCallFailsLater) {
  BeginCall(library_, "EP_CerrarComprobanteFiscal");
  NoteVerdict(library_, kDone);
  NoteFailure(library_, OutOfMemory());
  Expect(Outcome::kDone, Cause::kNoMemory);
}

TEST_F(CallReports, TellHowFarAFrameHasComeUntilItIsOver) {
  BeginCall(library_, "EP_CortaPapel");
  NoteSoFar(library_, {Outcome::kUnknown, Cause::kAbandoned});
  Expect(Outcome::kUnknown, Cause::kAbandoned);
  NoteSoFar(library_, kDone);
  Expect(Outcome::kDone, Cause::kNone);
  NoteVerdict(library_, kRefused);
  Expect(Outcome::kRefused, Cause::kWrongState);
}

TEST_F(CallReports, BeginAnewWithEachCall) {
  BeginCall(library_, "EP_ImprimirPago");
  NameCall(library_, "EP_ImprimirPago(Efectivo,5)");
  NameCall(library_, "another, from within");
  NoteSending(library_);
  NoteAnswer(library_, std::vector<std::string>{"0080", "1600", "000"});
  NoteVerdict(library_, kRefused);
  NoteCause(library_, Cause::kLogUnwritable);
  EXPECT_EQ(report_.call, "EP_ImprimirPago(Efectivo,5)");
  EXPECT_EQ(report_.attempts, 1);
  EXPECT_EQ(report_.answer[2], "000");

  BeginCall(library_, "EP_ReporteX");
  EXPECT_EQ(report_.call, "EP_ReporteX");
  EXPECT_EQ(report_.attempts, 0);
  EXPECT_EQ(report_.answer[0], "");
  Expect(Outcome::kNothingAsked, Cause::kNone);
}

TEST_F(CallReports, TellOnlyTheFirstOfWhatIsBesideTheFrames) {
  BeginCall(library_, "EP_ReporteX");
  NoteCause(library_, Cause::kLogUnwritable);
  NoteCause(library_, Cause::kBadSetting);
  Expect(Outcome::kNothingAsked, Cause::kLogUnwritable);
}

struct Again {
  const char* name;
  Verdict before;
  Verdict now;
  Outcome outcome;
  Cause cause;
};

TEST(Repetition, IsJudgedByAllSendings) {
  const std::vector<Again> cases = {
      {"the first", {}, kDoubt, Outcome::kUnknown, Cause::kSilence},
      {"silence, then done", kDoubt, kDone, Outcome::kDone, Cause::kRepeated},
      {"silence, then refused: the first may be why", kDoubt, kRefused, Outcome::kUnknown,
       Cause::kSilence},
      {"silence, then no port", kDoubt, kUnsent, Outcome::kUnknown, Cause::kSilence},
      {"refused, then done", kRefused, kDone, Outcome::kDone, Cause::kNone},
      {"refused, then silence", kRefused, kDoubt, Outcome::kUnknown, Cause::kSilence},
      {"done, and once more", kDone, kDone, Outcome::kDone, Cause::kRepeated},
      {"done, and perhaps once more", kDone, kDoubt, Outcome::kDone, Cause::kRepeated},
      {"no port at first", {}, kUnsent, Outcome::kNotSent, Cause::kPortBusy},
      {"refused, then no port", kRefused, kUnsent, Outcome::kRefused, Cause::kWrongState},
      {"done, the second refused", kLow, kRefused, Outcome::kDone, Cause::kBatteryLow},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    const auto verdict = AfterRepetition(row.before, row.now);
    EXPECT_EQ(static_cast<int>(verdict.outcome), static_cast<int>(row.outcome));
    EXPECT_EQ(static_cast<int>(verdict.cause), static_cast<int>(row.cause));
  }
}

}  // namespace
}  // namespace kestra
