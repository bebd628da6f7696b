// What the wall shows, so that a test can set it.
#pragma once

#include <chrono>

namespace puerta {

class Clock {
 public:
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  virtual std::chrono::sys_time<std::chrono::milliseconds> Now() const = 0;
};

class SystemClock : public Clock {
 public:
  std::chrono::sys_time<std::chrono::milliseconds> Now() const override {
    return std::chrono::time_point_cast<std::chrono::milliseconds>(
        std::chrono::system_clock::now());
  }
};

}  // namespace puerta
