#pragma once

#include <cstdint>

#include "exports/callbacks.hpp"

namespace kestra::hostile {

// An operator who says yes, does not retry, and closes what he is shown.
struct Person {
  int shown = 0;

  std::int32_t Message(const char* /*text*/, const char* /*title*/, std::int32_t style) {
    constexpr std::int32_t kRetryQuestion = 4;
    ++shown;
    if (style == kRetryQuestion) return 7;
    return style == 0 ? 1 : 6;
  }
  std::int32_t Report(auto... /*told*/) {
    ++shown;
    return 0;
  }
  void MemoryFull() { ++shown; }
};

}  // namespace kestra::hostile
