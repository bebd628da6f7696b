#pragma once

#include <chrono>
#include <string>

#include "platform/posix/locale_text.hpp"
#include "platform/seam/clock.hpp"

namespace kestra {

class PosixClock : public Clock {
 public:
  // Keeps the forms of date and time of the environment's locale.
  PosixClock();

  double TimeOfDay() override;
  std::string ShortDate() override;
  std::string IsoDate() override;
  std::string TimeText() override;
  double Elapsed() override;
  void Sleep(std::int32_t milliseconds) override;

 private:
  std::string Now(const char* local_form, const char* plain_form) const;

  UserLocale locale_;
  bool plain_;  // no country's forms: day/month/year and 24 hours
  std::string codeset_;
  // The second asked for last and its place in the local day: the wait for an answer asks many times.
  std::chrono::sys_seconds second_{};
  int second_of_day_ = 0;
};

}  // namespace kestra
