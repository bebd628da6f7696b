#pragma once

#include <cfenv>
#include <cstdint>

namespace kestra {

// The library's own floating-point environment, for as long as the object lives: hosts come with traps
// switched on and with roundings of their own, and want theirs back, flags included.
class FloatingPoint {
 public:
  FloatingPoint() noexcept;
  FloatingPoint(const FloatingPoint&) = delete;
  FloatingPoint& operator=(const FloatingPoint&) = delete;
  ~FloatingPoint();

 private:
  std::fenv_t hosts_{};
  // For where the system's library leaves that part out.
  [[maybe_unused]] std::uint32_t hosts_vector_control_ = 0;
};

}  // namespace kestra
