#pragma once

#include <cstdint>

namespace kestra {

// True when both addresses lie in one stack that the system has given: the running thread's own or, where the
// system knows of them, a fiber's. Of a stack that a host has made behind the system's back it cannot be told.
bool InOneStack(std::uintptr_t one, std::uintptr_t other) noexcept;

}  // namespace kestra
