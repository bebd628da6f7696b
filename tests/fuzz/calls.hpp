#pragma once

#include <cstdint>

#include "fuzz/input.hpp"

namespace kestra::fuzzing {

struct Called {
  std::int32_t result = 0;
  bool kill = false;      // whose result says nothing
  bool rounding = false;  // which asks the printer again until their sums agree
};

// Calls the export with the arguments that the input says. Every text is as long as its operation
// may read and every buffer as long as it may write, to the byte.
Called CallAny(fuzz::Input& input);

// One that takes no arguments.
std::int32_t CallPlain(std::size_t which);

// The same from within another call, which must turn it away.
void CallWithin(std::size_t which);

}  // namespace kestra::fuzzing
