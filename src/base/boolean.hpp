#pragma once

#include <array>
#include <cstdint>

namespace kestra {

// A boolean as the library has always kept it.
using Boolean = std::int16_t;
constexpr Boolean kTrue = -1;
constexpr Boolean kFalse = 0;
constexpr Boolean ToBoolean(bool b) {
  return b ? kTrue : kFalse;
}

// The conditions of a status word, each in its slot.
using Flags = std::array<Boolean, 16>;

}  // namespace kestra
