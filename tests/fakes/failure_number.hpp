#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "base/failure.hpp"

namespace kestra {

// Number of the run-time failure that an action ends with; 0 when it ends well.
template <typename Action>
std::int32_t FailureNumber(Action&& action) {
  try {
    std::forward<Action>(action)();
  } catch (const Failure& failure) {
    return failure.Number();
  }
  return 0;
}

// Its words, as the log would show them.
template <typename Action>
std::string FailureWords(Action&& action) {
  try {
    std::forward<Action>(action)();
  } catch (const Failure& failure) {
    return failure.Description();
  }
  return {};
}

}  // namespace kestra
