#pragma once

#include "contract/shared/bench.hpp"
#include "platform/seam/clock.hpp"

namespace kestra {

// A clock of a user whose dates are 21/11/2026 and whose times are 18:30:00.
class ClockBench : public Bench {
 public:
  virtual Clock& Get() = 0;
};

}  // namespace kestra
