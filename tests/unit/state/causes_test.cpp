// Causes and what the operator reads about them.

#include "state/causes.hpp"

#include <gtest/gtest.h>

#include "base/ansi.hpp"
#include "platform/seam/port_fault.hpp"
#include "state/certainty.hpp"

namespace kestra {
namespace {

TEST(Causes, SayWhatHappenedWhatBecameOfItAndWhatToDo) {
  EXPECT_EQ(CauseText(Cause::kSilence, Outcome::kUnknown),
            "La impresora no contestó. No se sabe si la operación se hizo: mire el papel antes de "
            "repetirla. Revise que la impresora esté encendida y el cable bien puesto."_ansi);
  EXPECT_EQ(CauseText(Cause::kBatteryLow, Outcome::kDone),
            "La impresora tiene la batería baja. La operación se hizo. Consulte a su técnico "
            "fiscal."_ansi);
  EXPECT_EQ(CauseText(Cause::kNone, Outcome::kDone), "La operación se hizo."_ansi);
  EXPECT_EQ(CauseText(Cause::kNone, Outcome::kNothingAsked), "");
  constexpr auto kLaterVersions = static_cast<Cause>(999);
  EXPECT_EQ(CauseText(kLaterVersions, Outcome::kDone), "La operación se hizo."_ansi);
}

TEST(Causes, TellPortsApartThatAreOneNumberInTheLog) {
  const auto missing = Failure(8015, "COM1", PortReason(PortFault::kMissing));
  const auto not_permitted = Failure(8015, "COM1", PortReason(PortFault::kNotPermitted));
  EXPECT_EQ(CauseOf(missing), Cause::kPortMissing);
  EXPECT_EQ(CauseOf(not_permitted), Cause::kPortNotPermitted);
}

TEST(Causes, OfOtherFailures) {
  EXPECT_EQ(CauseOf(NoObject()), Cause::kNotStarted);
  EXPECT_EQ(CauseOf(OutOfMemory()), Cause::kNoMemory);
  EXPECT_EQ(CauseOf(TypeMismatch()), Cause::kUnexpected);  // an answer's field that is no number
  EXPECT_EQ(CauseOf(InvalidCall()), Cause::kInternal);
}

TEST(Causes, EveryOneHasASentence) {
  for (const auto& row : kCauses) {
    if (row.cause == Cause::kNone) continue;
    EXPECT_FALSE(row.what.empty()) << static_cast<int>(row.cause);
    EXPECT_EQ(row.what.back(), '.') << static_cast<int>(row.cause);
  }
}

}  // namespace
}  // namespace kestra
