#pragma once

#include <chrono>
#include <cstdint>
#include <thread>

namespace kestra::bench {

// Nanoseconds of the clock that the host's process and its printer share.
using Moment = std::int64_t;

constexpr Moment kSecond = 1'000'000'000;
constexpr Moment kMillisecond = kSecond / 1000;

inline Moment Now() {
  return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

inline void SleepUntil(Moment when) {
  using std::chrono::steady_clock;
  std::this_thread::sleep_until(steady_clock::time_point(std::chrono::nanoseconds(when)));
}

inline double Seconds(Moment span) {
  return static_cast<double>(span) / static_cast<double>(kSecond);
}

}  // namespace kestra::bench
