#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cmath>
#include <cstdio>

#include "platform/windows/clock.hpp"

namespace kestra {
namespace {

constexpr double kDay = 86400.0;

TEST(WindowsClock, TimeOfDayIsTheLocalTime) {
  SYSTEMTIME now = {};
  ::GetLocalTime(&now);
  const double before = (now.wHour * 60 + now.wMinute) * 60 + now.wSecond;
  const double got = WindowsClock().TimeOfDay();
  EXPECT_LT(std::fmod(got - before + kDay, kDay), 2.0);
  EXPECT_LT(got, kDay);
}

TEST(WindowsClock, TimeOfDayHasAFraction) {
  WindowsClock clock;
  bool fraction = false;
  for (int i = 0; i < 10 && !fraction; ++i) {
    const double now = clock.TimeOfDay();
    fraction = now != std::floor(now);
    ::Sleep(3);
  }
  EXPECT_TRUE(fraction);
}

// The user's forms, for the time of one test.
class UserForm {
 public:
  UserForm(LCTYPE which, const wchar_t* form) : which_(which) {
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, which_, before_.data(), static_cast<int>(before_.size()));
    ::SetLocaleInfoW(LOCALE_USER_DEFAULT, which_, form);
  }
  UserForm(const UserForm&) = delete;
  UserForm& operator=(const UserForm&) = delete;
  ~UserForm() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, which_, before_.data()); }

 private:
  LCTYPE which_;
  std::array<wchar_t, 80> before_{};
};

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

TEST(WindowsClock, TheTimeHasTheUsersForm) {
  const UserForm form(LOCALE_STIMEFORMAT, L"HH:mm:ss");
  const std::string text = WindowsClock().TimeText();
  ASSERT_EQ(text.size(), 8u) << text;
  EXPECT_EQ(text[2], ':');
  EXPECT_EQ(text[5], ':');
}

TEST(WindowsClock, WordsOfAFormAreWindows1252) {
  const UserForm form(LOCALE_SSHORTDATE, L"'a\u00F1o \u20AC'");
  EXPECT_EQ(WindowsClock().ShortDate(), "a\xF1o \x80");
}

TEST(WindowsClock, ASleepLastsItsTime) {
  const DWORD start = ::GetTickCount();
  WindowsClock().Sleep(60);
  EXPECT_GE(::GetTickCount() - start, 45u);  // its ticks are that coarse
}

TEST(WindowsClock, NoSleepTakesNoTime) {
  const DWORD start = ::GetTickCount();
  WindowsClock().Sleep(0);
  WindowsClock().Sleep(-5000);
  EXPECT_LT(::GetTickCount() - start, 100u);
}

}  // namespace
}  // namespace kestra
