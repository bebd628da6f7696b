#pragma once

#include <cstdint>

namespace kestra {

// How long, in milliseconds, a port waits before it comes back to its caller.
struct PortPatience {
  std::int32_t look = 20;       // for a byte that has not come yet
  std::int32_t stall = 5000;    // for a line that takes no byte of ours
  std::int32_t connect = 5000;  // for a far end across a network, all of its addresses together
  std::int32_t farewell = 50;   // for it to hang up too
};

}  // namespace kestra
