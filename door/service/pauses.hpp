// How long the door waits before it tries again what did not come right.
#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>

namespace puerta {

// Before a worker is started again, by how many have died in a row; before a doubt is asked about again.
inline constexpr std::array<std::chrono::milliseconds, 6> kPauses{
    std::chrono::milliseconds(200),   std::chrono::milliseconds(1000),
    std::chrono::milliseconds(3000),  std::chrono::milliseconds(10000),
    std::chrono::milliseconds(30000), std::chrono::milliseconds(60000)};

// The next one, after so many failures in a row.
inline std::chrono::milliseconds PauseAfter(int failures) {
  const auto row = static_cast<std::size_t>(std::max(failures - 1, 0));
  return kPauses[std::min(row, kPauses.size() - 1)];
}

}  // namespace puerta
