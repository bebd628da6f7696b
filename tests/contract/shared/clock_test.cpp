#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <regex>

#include "contract/shared/clock_bench.hpp"
#include "fakes/fake_clock.hpp"
#include "system.hpp"

namespace kestra {
namespace {

constexpr double kDay = 86400.0;

class FakeClockBench : public ClockBench {
 public:
  FakeClockBench() { clock_.SetTimeOfDay(18.5 * 3600); }
  Clock& Get() override { return clock_; }

 private:
  Journal journal_;
  Trouble trouble_;
  FakeClock clock_{journal_, trouble_};
};

class ClockContract : public ::testing::TestWithParam<Twin<ClockBench>> {
 protected:
  // Seconds that a sleep took, round midnight too.
  double Slept(std::int32_t milliseconds) {
    const double before = clock_.TimeOfDay();
    clock_.Sleep(milliseconds);
    return std::fmod(clock_.TimeOfDay() - before + kDay, kDay);
  }

  std::unique_ptr<ClockBench> bench_ = GetParam().make();
  Clock& clock_ = bench_->Get();
};

TEST_P(ClockContract, TheTimeOfDayIsOfADayAndHasAFraction) {
  bool fraction = false;
  for (int i = 0; i < 10 && !fraction; ++i) {
    const double now = clock_.TimeOfDay();
    EXPECT_TRUE(now >= 0 && now < kDay) << now;
    fraction = now != std::floor(now);
    clock_.Sleep(3);
  }
  EXPECT_TRUE(fraction);
}

TEST_P(ClockContract, TheDateIsDayMonthAndYear) {
  const std::string date = clock_.ShortDate();
  EXPECT_TRUE(std::regex_match(date, std::regex("[0-3][0-9]/[01][0-9]/[0-9]{4}"))) << date;
}

TEST_P(ClockContract, TheDateThatSortsIsTheSameDay) {
  std::string date;
  std::string sorts;
  while (date != clock_.ShortDate()) {
    date = clock_.ShortDate();
    sorts = clock_.IsoDate();
  }
  EXPECT_EQ(sorts, date.substr(6, 4) + "-" + date.substr(3, 2) + "-" + date.substr(0, 2));
}

TEST_P(ClockContract, TheTimesTextIsTheTimeOfDay) {
  double second = -1;
  std::string text;
  while (second != std::floor(clock_.TimeOfDay())) {
    second = std::floor(clock_.TimeOfDay());
    text = clock_.TimeText();
  }
  ASSERT_TRUE(std::regex_match(text, std::regex("[0-9]{2}:[0-9]{2}:[0-9]{2}"))) << text;
  const auto part = [&](std::size_t at) { return std::stoi(text.substr(at, 2)); };
  EXPECT_EQ((part(0) * 60 + part(3)) * 60 + part(6), second);
}

TEST_P(ClockContract, TheTimeThatHasElapsedIsThatOfTheSleeps) {
  const double before = clock_.Elapsed();
  clock_.Sleep(60);
  const double after = clock_.Elapsed();
  EXPECT_GE(after - before, 0.045);
  EXPECT_LT(after - before, 30.0);
  EXPECT_GE(clock_.Elapsed(), after);
}

TEST_P(ClockContract, ASleepLastsItsTime) {
  EXPECT_GE(Slept(60), 0.045);  // some systems' ticks are that coarse
}

TEST_P(ClockContract, NoSleepTakesNoTime) {
  // Of some tries the shortest: a busy machine takes its time between two looks at the clock.
  double least = kDay;
  for (int tries = 0; tries < 50 && least >= 0.1; ++tries) {
    least = std::min(least, Slept(0) + Slept(-5000));
  }
  EXPECT_LT(least, 0.1);
}

INSTANTIATE_TEST_SUITE_P(Twins, ClockContract,
                         ::testing::Values(TwinOf<ClockBench, SystemClock>("System"),
                                           TwinOf<ClockBench, FakeClockBench>("Fake")),
                         TwinName<ClockBench>);

}  // namespace
}  // namespace kestra
