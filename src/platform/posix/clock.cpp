#include "platform/posix/clock.hpp"

#include <time.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

namespace kestra {
namespace {

using std::chrono::system_clock;

tm LocalTime(time_t when) {
  tm local = {};
  ::localtime_r(&when, &local);
  return local;
}

// Not time(): that one is of the system's last tick, and some milliseconds longer in the second before.
tm LocalNow() {
  return LocalTime(system_clock::to_time_t(system_clock::now()));
}

int SecondOfDay(const tm& local) {
  constexpr int kLastSecond = 59;  // a leap second does not reach the next minute
  return (local.tm_hour * 60 + local.tm_min) * 60 + std::min(local.tm_sec, kLastSecond);
}

}  // namespace

PosixClock::PosixClock()
    : locale_(LC_TIME_MASK | LC_CTYPE_MASK),
      plain_(!locale_ || IsPlainLocale(LocaleName("LC_TIME"))),
      codeset_(locale_.Codeset()) {}

double PosixClock::TimeOfDay() {
  const auto now = system_clock::now();
  const auto second = std::chrono::floor<std::chrono::seconds>(now);
  if (second != second_) {
    second_ = second;
    second_of_day_ = SecondOfDay(LocalTime(system_clock::to_time_t(second)));
  }
  return second_of_day_ + std::chrono::duration<double>(now - second).count();
}

std::string PosixClock::ShortDate() {
  return Now("%x", "%d/%m/%Y");
}

std::string PosixClock::IsoDate() {
  const tm local = LocalNow();
  std::array<char, 32> text{};
  return {text.data(), ::strftime(text.data(), text.size(), "%Y-%m-%d", &local)};
}

std::string PosixClock::TimeText() {
  return Now("%X", "%H:%M:%S");
}

double PosixClock::Elapsed() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double>(now).count();
}

std::string PosixClock::Now(const char* local_form, const char* plain_form) const {
  const tm local = LocalNow();
  std::array<char, 256> text{};
  if (plain_) return {text.data(), ::strftime(text.data(), text.size(), plain_form, &local)};
  const std::size_t length =
      ::strftime_l(text.data(), text.size(), local_form, &local, locale_.Get());
  return AnsiFromCodeset({text.data(), length}, codeset_);
}

void PosixClock::Sleep(std::int32_t milliseconds) {
  // A signal of the host's does not shorten it.
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace kestra
