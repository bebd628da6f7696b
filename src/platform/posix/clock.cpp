#include "platform/posix/clock.hpp"

#include <time.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace kestra {
namespace {

tm LocalTime(time_t when) {
  tm local = {};
  ::localtime_r(&when, &local);
  return local;
}

}  // namespace

PosixClock::PosixClock()
    : locale_(LC_TIME_MASK | LC_CTYPE_MASK),
      plain_(!locale_ || IsPlainLocale(LocaleName("LC_TIME"))),
      codeset_(locale_.Codeset()) {}

double PosixClock::TimeOfDay() {
  constexpr int kLastSecond = 59;  // a leap second does not reach the next minute
  timespec now = {};
  ::clock_gettime(CLOCK_REALTIME, &now);
  const tm local = LocalTime(now.tv_sec);
  const int seconds =
      (local.tm_hour * 60 + local.tm_min) * 60 + std::min(local.tm_sec, kLastSecond);
  return seconds + static_cast<double>(now.tv_nsec) / 1e9;
}

std::string PosixClock::ShortDate() {
  return Now("%x", "%d/%m/%Y");
}

std::string PosixClock::TimeText() {
  return Now("%X", "%H:%M:%S");
}

std::string PosixClock::Now(const char* local_form, const char* plain_form) const {
  const tm local = LocalTime(::time(nullptr));
  std::array<char, 256> text{};
  if (plain_) return {text.data(), ::strftime(text.data(), text.size(), plain_form, &local)};
  const std::size_t length =
      ::strftime_l(text.data(), text.size(), local_form, &local, locale_.Get());
  return AnsiFromCodeset({text.data(), length}, codeset_);
}

void PosixClock::Sleep(std::int32_t milliseconds) {
  if (milliseconds <= 0) return;
  timespec left = {.tv_sec = milliseconds / 1000, .tv_nsec = (milliseconds % 1000) * 1'000'000L};
  while (::clock_nanosleep(CLOCK_MONOTONIC, 0, &left, &left) == EINTR) {
  }
}

}  // namespace kestra
