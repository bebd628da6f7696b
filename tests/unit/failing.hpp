#pragma once

#include <cstdint>

#include "base/failure.hpp"

namespace kestra::unit {

// The number of the run-time failure that comes out of `action`; 0 when it ends well.
template <typename Action>
std::int32_t FailureOf(Action action) {
  try {
    (void)action();
    return 0;
  } catch (const Failure& failure) {
    return failure.Number();
  }
}

}  // namespace kestra::unit
