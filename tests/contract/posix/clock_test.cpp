#include <gtest/gtest.h>
#include <time.h>
#include <unistd.h>

#include <chrono>
#include <clocale>
#include <cmath>
#include <cstdlib>

#include "contract/posix/surroundings.hpp"
#include "contract/posix/ticking.hpp"
#include "contract/shared/scratch.hpp"
#include "platform/posix/clock.hpp"
#include "platform/posix/locale_text.hpp"

namespace kestra {
namespace {

constexpr double kDay = 86400.0;

// How much later b is than a on a clock that goes round at midnight.
double Later(double a, double b) {
  return std::fmod(b - a + kDay, kDay);
}

TEST(PosixClock, TimeOfDayIsThatOfTheTimeZone) {
  double greenwich = 0;
  {
    const Environment zone("TZ", "UTC0");
    greenwich = PosixClock().TimeOfDay();
    EXPECT_NEAR(Later(std::fmod(static_cast<double>(::time(nullptr)), kDay), greenwich + 2), 2, 2);
  }
  const Environment zone("TZ", "<-03>3");
  const double buenos_aires = PosixClock().TimeOfDay();
  EXPECT_NEAR(Later(buenos_aires, greenwich), 3 * 3600, 2);
  EXPECT_GE(buenos_aires, 0);
  EXPECT_LT(buenos_aires, kDay);
}

// The text that strftime gives now, unless the second changed meanwhile.
std::string Formatted(const char* form) {
  char text[64];
  const time_t now = ::time(nullptr);
  tm local = {};
  ::localtime_r(&now, &local);
  return {text, ::strftime(text, sizeof text, form, &local)};
}

// Both taken until they belong to the same second.
template <typename Text>
void ExpectNow(Text text, const char* form) {
  std::string before = Formatted(form);
  std::string got = text();
  while (before != Formatted(form)) {
    before = Formatted(form);
    got = text();
  }
  EXPECT_EQ(got, before);
}

TEST(PosixClock, WithoutACountryTheDateIsDayMonthYearAndTheTimeHas24Hours) {
  for (const char* const name : {"C", "POSIX", "C.UTF-8"}) {
    const Environment locale("LC_ALL", name);
    PosixClock clock;
    ExpectNow([&] { return clock.ShortDate(); }, "%d/%m/%Y");
    ExpectNow([&] { return clock.TimeText(); }, "%H:%M:%S");
  }
}

TEST(PosixClock, ALocaleThatIsNotInstalledIsNone) {
  const Environment locale("LC_ALL", "xx_XX.UTF-8");
  PosixClock clock;
  ExpectNow([&] { return clock.ShortDate(); }, "%d/%m/%Y");
}

TEST(PosixClock, ACountrysFormsAreUsed) {
  const ScratchDirectory scratch;
  const std::string make =
      "localedef -i de_DE -f ISO-8859-1 " + scratch.Path() + "/de_DE.ISO-8859-1 > /dev/null 2>&1";
  if (std::system(make.c_str()) != 0) GTEST_SKIP() << "this machine cannot make locales";
  // In a process of its own: the system never gives back what it notes about LOCPATH.
  EXPECT_EXIT(
      {
        const Environment path("LOCPATH", scratch.Path().c_str());
        const Environment all("LC_ALL", nullptr);
        const Environment time("LC_TIME", "de_DE.ISO-8859-1");
        PosixClock clock;
        ExpectNow([&] { return clock.ShortDate(); }, "%d.%m.%Y");
        ExpectNow([&] { return clock.TimeText(); }, "%H:%M:%S");
        ::_exit(HasFailure() ? 1 : 0);
      },
      ::testing::ExitedWithCode(0), "");
}

TEST(PosixClock, TheHostsLocaleStaysAsItIs) {
  const Environment locale("LC_ALL", "C.UTF-8");
  const std::string before = std::setlocale(LC_ALL, nullptr);
  PosixClock clock;
  clock.ShortDate();
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
}

TEST(PosixClock, ASleepLastsItsTimeThoughSignalsCome) {
  const Ticking ticking;
  PosixClock clock;
  const auto start = std::chrono::steady_clock::now();
  clock.Sleep(30);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(30));
  EXPECT_GE(Ticking::Ticks(), 1);
}

TEST(UserLocale, TheNameComesFromTheFirstVariableThatSaysSomething) {
  const Environment lang("LANG", "es_AR.UTF-8");
  const Environment time("LC_TIME", nullptr);
  const Environment all("LC_ALL", "");
  EXPECT_EQ(LocaleName("LC_TIME"), "es_AR.UTF-8");
  const Environment own("LC_TIME", "de_DE");
  EXPECT_EQ(LocaleName("LC_TIME"), "de_DE");
  const Environment over("LC_ALL", "POSIX");
  EXPECT_EQ(LocaleName("LC_TIME"), "POSIX");
}

TEST(UserLocale, PlainOnesKnowNoCountry) {
  for (const char* const name : {"C", "POSIX", "C.UTF-8", "C.utf8"}) {
    EXPECT_TRUE(IsPlainLocale(name)) << name;
  }
  for (const char* const name : {"es_AR", "es_AR.UTF-8", "CC", ""}) {
    EXPECT_FALSE(IsPlainLocale(name)) << name;
  }
}

}  // namespace
}  // namespace kestra
