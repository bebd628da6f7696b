#pragma once

#include <string>

#include "platform/seam/clock.hpp"

namespace kestra {

// Dates and times in the forms of the user's regional settings.
class WindowsClock : public Clock {
 public:
  double TimeOfDay() override;
  std::string ShortDate() override;
  std::string IsoDate() override;
  std::string TimeText() override;
  double Elapsed() override;
  void Sleep(std::int32_t milliseconds) override;
};

}  // namespace kestra
