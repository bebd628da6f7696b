#include "fakes/fake_clock.hpp"

#include <chrono>
#include <stdexcept>

namespace kestra {
namespace {

// A loop that only looks at the clock must see it move one day.
constexpr int kLooksBeforeItMoves = 100;
constexpr std::int64_t kCreep = 10'000;

// No session lasts two hours: something waits for what never comes.
constexpr std::int64_t kTooLong = 7200 * kMicrosPerSecond;

std::string TwoDigits(std::int64_t number) {
  return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

}  // namespace

double FakeClock::TimeOfDay() {
  trouble_.Reach(Point::kTimeOfDay);
  Look();
  return static_cast<double>(WallMicros() % kMicrosPerDay) / static_cast<double>(kMicrosPerSecond);
}

std::chrono::year_month_day FakeClock::Today() const {
  return std::chrono::sys_days{std::chrono::days{first_day_ + WallMicros() / kMicrosPerDay}};
}

std::string FakeClock::ShortDate() {
  trouble_.Reach(Point::kDate);
  const auto date = Today();
  return TwoDigits(unsigned{date.day()}) + "/" + TwoDigits(unsigned{date.month()}) + "/" +
         std::to_string(int{date.year()});
}

std::string FakeClock::IsoDate() {
  trouble_.Reach(Point::kDate);
  const auto date = Today();
  return std::to_string(int{date.year()}) + "-" + TwoDigits(unsigned{date.month()}) + "-" +
         TwoDigits(unsigned{date.day()});
}

std::string FakeClock::TimeText() {
  trouble_.Reach(Point::kTimeText);
  const std::int64_t seconds = WallMicros() % kMicrosPerDay / kMicrosPerSecond;
  return TwoDigits(seconds / 3600) + ":" + TwoDigits(seconds / 60 % 60) + ":" +
         TwoDigits(seconds % 60);
}

double FakeClock::Elapsed() {
  trouble_.Reach(Point::kElapsed);
  Look();
  return static_cast<double>(elapsed_) / static_cast<double>(kMicrosPerSecond);
}

void FakeClock::Sleep(std::int32_t milliseconds) {
  trouble_.Reach(Point::kSleep);
  journal_.Add({.kind = Happening::kSleep, .text = {}, .detail = {}, .number = milliseconds});
  if (milliseconds > 0) Advance(std::int64_t{milliseconds} * 1000);
}

void FakeClock::SetTimeOfDay(double seconds) {
  first_day_ += WallMicros() / kMicrosPerDay;
  offset_ = Micros(seconds) - elapsed_;
}

void FakeClock::SetDate(int day, int month, int year) {
  const std::chrono::year_month_day date{std::chrono::year{year},
                                         std::chrono::month{static_cast<unsigned>(month)},
                                         std::chrono::day{static_cast<unsigned>(day)}};
  if (!date.ok()) throw std::invalid_argument("no such date");
  first_day_ =
      std::chrono::sys_days{date}.time_since_epoch().count() - WallMicros() / kMicrosPerDay;
}

void FakeClock::Advance(std::int64_t micros) {
  elapsed_ += micros;
  looks_ = 0;
  if (elapsed_ - started_ > kTooLong) throw std::runtime_error("the wait never ends");
}

void FakeClock::Look() {
  if (++looks_ > kLooksBeforeItMoves) Advance(kCreep);
}

}  // namespace kestra
