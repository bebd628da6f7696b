#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cmath>
#include <cstdio>

#include "contract/windows/user_form.hpp"
#include "platform/windows/clock.hpp"

namespace kestra {
namespace {

constexpr double kDay = 86400.0;

double SystemsSecond() {
  SYSTEMTIME now = {};
  ::GetLocalTime(&now);
  return (now.wHour * 60 + now.wMinute) * 60 + now.wSecond;
}

TEST(WindowsClock, TimeOfDayIsTheLocalTime) {
  const double before = SystemsSecond();
  const double got = WindowsClock().TimeOfDay();
  const double after = SystemsSecond() + 1;
  EXPECT_LT(std::fmod(got - before + kDay, kDay), std::fmod(after - before + kDay, kDay));
  EXPECT_LT(got, kDay);
}

TEST(WindowsClock, TheDateHasTheUsersShortForm) {
  const UserForm form(LOCALE_SSHORTDATE, L"dd/MM/yyyy");
  SYSTEMTIME now = {};
  std::array<char, 16> wanted{};
  std::string got;
  WORD day = 0;
  do {
    ::GetLocalTime(&now);
    got = WindowsClock().ShortDate();
    day = now.wDay;
    ::GetLocalTime(&now);
  } while (now.wDay != day);
  std::snprintf(wanted.data(), wanted.size(), "%02d/%02d/%04d", now.wDay, now.wMonth, now.wYear);
  EXPECT_EQ(got, wanted.data());
}

TEST(WindowsClock, WordsOfAFormAreWindows1252) {
  const UserForm form(LOCALE_SSHORTDATE, L"'a\u00F1o \u20AC'");
  EXPECT_EQ(WindowsClock().ShortDate(), "a\xF1o \x80");
}

}  // namespace
}  // namespace kestra
