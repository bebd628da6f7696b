#pragma once

#include <cfenv>
#include <cstddef>
#include <cstdint>

namespace kestra {

// The host's memory, which need not be where the host says. Both copy as many bytes as there are from
// the front and return their count; memory that is not there ends the copy and nothing else.
std::size_t ReadHostMemory(void* to, const void* from, std::size_t count) noexcept;
std::size_t WriteHostMemory(void* to, const void* from, std::size_t count) noexcept;

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

// True when both addresses lie in one stack that the system has given: the running thread's own or, where the
// system knows of them, a fiber's. Of a stack that a host has made behind the system's back it cannot be told.
bool InOneStack(std::uintptr_t one, std::uintptr_t other) noexcept;

}  // namespace kestra
