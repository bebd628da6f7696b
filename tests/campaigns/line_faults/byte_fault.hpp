#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace kestra::line_faults {

enum class Direction { kToPrinter, kToHost };

// What a line can do to one byte.
enum class FaultKind {
  kDrop,    // it never arrives
  kFlip,    // some of its bits turn over
  kDouble,  // it arrives twice
  kInsert,  // another byte arrives before it
  kDelay,   // it and all behind it come after the host's patience has ended
  kSplit,   // the same, but the host is still there
};

// `detail` is the bits that a flip turns over, or the byte that is inserted.
struct ByteFault {
  Direction direction = Direction::kToPrinter;
  std::size_t position = 0;  // of the byte among all that this side sends, from 0
  FaultKind kind = FaultKind::kDrop;
  std::uint8_t detail = 0;
};

struct FaultForm {
  std::string_view name;
  FaultKind kind;
  std::uint8_t detail = 0;
};

// What is done to each byte: every bit alone, and the bytes that mean something on this line.
inline constexpr std::array<FaultForm, 19> kFaultForms{{
    {"lost", FaultKind::kDrop},
    {"bit 0 flipped", FaultKind::kFlip, 0x01},
    {"bit 1 flipped", FaultKind::kFlip, 0x02},
    {"bit 2 flipped", FaultKind::kFlip, 0x04},
    {"bit 3 flipped", FaultKind::kFlip, 0x08},
    {"bit 4 flipped", FaultKind::kFlip, 0x10},
    {"bit 5 flipped", FaultKind::kFlip, 0x20},
    {"bit 6 flipped", FaultKind::kFlip, 0x40},
    {"bit 7 flipped", FaultKind::kFlip, 0x80},
    {"doubled", FaultKind::kDouble},
    {"noise inserted", FaultKind::kInsert, 'U'},
    {"start byte inserted", FaultKind::kInsert, 2},
    {"end byte inserted", FaultKind::kInsert, 3},
    {"acknowledgement inserted", FaultKind::kInsert, 6},
    {"busy byte inserted", FaultKind::kInsert, 18},
    {"refusal inserted", FaultKind::kInsert, 21},
    {"separator inserted", FaultKind::kInsert, 28},
    {"delayed past the deadline", FaultKind::kDelay},
    {"split", FaultKind::kSplit},
}};

// Everything that can become of one byte: all bits in all combinations, any byte before it.
std::vector<FaultForm> EveryFaultForm();

}  // namespace kestra::line_faults
