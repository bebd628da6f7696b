#include "platform/seam/host.hpp"

#include <pthread.h>

#include <cstddef>

namespace kestra {

FloatingPoint::FloatingPoint() noexcept {
  std::feholdexcept(&hosts_);
  std::fesetenv(FE_DFL_ENV);
}

FloatingPoint::~FloatingPoint() {
  std::fesetenv(&hosts_);
}

// Contexts and signal stacks are memory like any other here: the system knows the thread's own stack alone.
bool InOneStack(std::uintptr_t one, std::uintptr_t other) noexcept {
  pthread_attr_t thread;
  if (::pthread_getattr_np(::pthread_self(), &thread) != 0) return false;
  void* start = nullptr;
  std::size_t size = 0;
  ::pthread_attr_getstack(&thread, &start, &size);
  ::pthread_attr_destroy(&thread);
  const auto lowest = reinterpret_cast<std::uintptr_t>(start);
  return one - lowest < size && other - lowest < size;
}

}  // namespace kestra
