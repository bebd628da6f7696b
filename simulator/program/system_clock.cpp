#include "program/system_clock.hpp"

#include <chrono>
#include <ctime>

#include "program/system.hpp"

namespace impresora {

std::int64_t SystemClock::LocalSeconds() {
  const std::tm local = LocalTime(std::time(nullptr));
  const std::chrono::year_month_day date(
      std::chrono::year(local.tm_year + 1900),
      std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
      std::chrono::day(static_cast<unsigned>(local.tm_mday)));
  const std::chrono::sys_days day(date);
  const std::int64_t minutes = std::int64_t{local.tm_hour} * 60 + local.tm_min;
  return std::int64_t{day.time_since_epoch().count()} * 86'400 + minutes * 60 + local.tm_sec;
}

}  // namespace impresora
