#include "campaigns/line_faults/faulty_wire.hpp"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

namespace kestra::line_faults {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

struct Row {
  std::string_view name;
  FaultKind kind;
  std::uint8_t detail;
  std::string_view at_once;  // what comes out of "abc" when its second byte is struck
  std::string_view later;    // what is still to come then
};

constexpr std::array kRows{
    Row{"a lost byte leaves a gap", FaultKind::kDrop, 0, "ac", ""},
    Row{"a bit turns over", FaultKind::kFlip, 0x01, "acc", ""},
    Row{"all bits turn over", FaultKind::kFlip, 0xFF,
        "a\x9D"
        "c",
        ""},
    Row{"a byte comes twice", FaultKind::kDouble, 0, "abbc", ""},
    Row{"noise comes before it", FaultKind::kInsert, 'U', "aUbc", ""},
    Row{"a delay holds up what is behind it too", FaultKind::kDelay, 0, "a", "bc"},
    Row{"so does a pause", FaultKind::kSplit, 0, "a", "bc"},
};

TEST(FaultyWire, StrikesOneByte) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.name);
    const ByteFault fault{Direction::kToHost, 1, row.kind, row.detail};
    FaultyWire wire(Direction::kToHost, {&fault, 1});
    wire.Push("abc", seconds(1));
    EXPECT_EQ(wire.Take(seconds(1)), row.at_once);
    EXPECT_EQ(wire.Take(seconds(60)), row.later);
    EXPECT_EQ(wire.Carried(), 3U);
  }
}

TEST(FaultyWire, LeavesTheOtherDirectionAlone) {
  const ByteFault fault{Direction::kToPrinter, 1, FaultKind::kDrop};
  FaultyWire wire(Direction::kToHost, {&fault, 1});
  wire.Push("abc", {});
  EXPECT_EQ(wire.Take({}), "abc");
}

TEST(FaultyWire, WhatComesBehindADelayNeverOvertakesIt) {
  const ByteFault fault{Direction::kToHost, 0, FaultKind::kDelay};
  FaultyWire wire(Direction::kToHost, {&fault, 1});
  wire.Push("late", {});
  wire.Push("later", seconds(1));
  EXPECT_EQ(wire.NextDue(), kPastTheDeadline);
  EXPECT_EQ(wire.Take(kPastTheDeadline - milliseconds(1)), "");
  EXPECT_EQ(wire.Take(kPastTheDeadline), "latelater");
  EXPECT_FALSE(wire.NextDue());
}

TEST(FaultyWire, TwoFaultsCanStrikeTheSameByte) {
  const std::array faults{ByteFault{Direction::kToHost, 0, FaultKind::kFlip, 0x01},
                          ByteFault{Direction::kToHost, 0, FaultKind::kDouble}};
  FaultyWire wire(Direction::kToHost, faults);
  wire.Push("b", {});
  EXPECT_EQ(wire.Take({}), "cc");
}

TEST(FaultForms, EveryFormIsEveryOtherByteAndEveryByteBefore) {
  EXPECT_EQ(EveryFaultForm().size(), 1 + 1 + 255 + 256 + 1 + 1U);
}

}  // namespace
}  // namespace kestra::line_faults
