#pragma once

#include <chrono>
#include <cmath>
#include <cstdint>
#include <string>

#include "fakes/journal.hpp"
#include "fakes/trouble.hpp"
#include "platform/seam/clock.hpp"

namespace kestra {

constexpr std::int64_t kMicrosPerSecond = 1'000'000;
constexpr std::int64_t kMicrosPerDay = 86'400 * kMicrosPerSecond;

inline std::int64_t Micros(double seconds) {
  return std::llround(seconds * static_cast<double>(kMicrosPerSecond));
}

// A wall clock that stands still until it is told otherwise: by Sleep, by the fake port while the
// library waits for bytes, or by the test.
class FakeClock : public Clock {
 public:
  FakeClock(Journal& journal, Trouble& trouble) : journal_(journal), trouble_(trouble) {}

  double TimeOfDay() override;
  std::string ShortDate() override;  // 21/11/2026
  std::string IsoDate() override;    // 2026-11-21
  std::string TimeText() override;   // 10:30:00
  double Elapsed() override;
  void Sleep(std::int32_t milliseconds) override;

  void SetTimeOfDay(double seconds);
  void SetDate(int day, int month, int year);

  // Lets time pass. Throws when more has passed than any call may take.
  void Advance(std::int64_t micros);

  // Another session begins: it has as long as any other.
  void StartOver() { started_ = elapsed_; }

  // Microseconds that have passed since the clock was made, whatever the hands were set to.
  [[nodiscard]] std::int64_t ElapsedMicros() const { return elapsed_; }

  // Lets days pass, of which the stopwatch knows nothing.
  void LetDaysPass(int days) { first_day_ += days; }

 private:
  [[nodiscard]] std::chrono::year_month_day Today() const;
  [[nodiscard]] std::int64_t WallMicros() const { return elapsed_ + offset_; }
  void Look();

  Journal& journal_;
  Trouble& trouble_;
  std::int64_t elapsed_ = 0;
  std::int64_t started_ = 0;
  std::int64_t offset_ = 0;  // of the wall's time, in microseconds since midnight of the first day
  std::int64_t first_day_ = 0;  // days since 1/1/1970
  int looks_ = 0;               // since time last passed
};

}  // namespace kestra
