#pragma once

#include <cstdint>
#include <string>

namespace kestra {

// Time as the shop's wall shows it.
class Clock {
 public:
  Clock() = default;
  Clock(const Clock&) = delete;
  Clock& operator=(const Clock&) = delete;
  virtual ~Clock() = default;

  // Seconds since local midnight, with fraction: 0 <= t < 86400.
  virtual double TimeOfDay() = 0;

  // Today's date in the system's short form.
  virtual std::string ShortDate() = 0;

  // The same in the form that sorts, "2026-11-21", whatever the system's.
  virtual std::string IsoDate() = 0;

  // The time in the system's time form.
  virtual std::string TimeText() = 0;

  // Seconds from some fixed point, with fraction. Nobody sets it: midnight and a corrected wall clock
  // leave it alone.
  virtual double Elapsed() = 0;

  virtual void Sleep(std::int32_t milliseconds) = 0;
};

}  // namespace kestra
