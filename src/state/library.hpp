#pragma once

#include <atomic>

#include "platform/seam/platform.hpp"
#include "state/state.hpp"

namespace kestra {

// The library: its state and the world it works in. Every routine gets it from its caller; only the
// exported functions know the one that serves the process.
struct Library {
  explicit Library(Platform& world) : platform(world) {}

  State state;
  Platform& platform;
  // Whether there is a Puerto, for those who ask without a turn.
  std::atomic<bool> holds_port = false;
};

}  // namespace kestra
