#include "platform/windows/clock.hpp"

#include <windows.h>

#include <array>
#include <cstdio>

#include "platform/windows/text.hpp"

namespace kestra {
namespace {

SYSTEMTIME Now() {
  SYSTEMTIME now = {};
  ::GetLocalTime(&now);
  return now;
}

using Format = int(WINAPI*)(LCID, DWORD, const SYSTEMTIME*, LPCWSTR, LPWSTR, int);

std::string Formatted(Format format, DWORD form) {
  constexpr int kLongest = 256;
  std::array<wchar_t, kLongest> text{};
  const SYSTEMTIME now = Now();
  const int length =
      format(LOCALE_USER_DEFAULT, form, &now, nullptr, text.data(), static_cast<int>(text.size()));
  if (length <= 0) return {};
  return AnsiFromWide({text.data(), static_cast<std::size_t>(length - 1)});
}

}  // namespace

double WindowsClock::TimeOfDay() {
  const SYSTEMTIME now = Now();
  const int second = (now.wHour * 60 + now.wMinute) * 60 + now.wSecond;
  return second + now.wMilliseconds / 1000.0;
}

std::string WindowsClock::ShortDate() {
  return Formatted(::GetDateFormatW, DATE_SHORTDATE);
}

std::string WindowsClock::IsoDate() {
  const SYSTEMTIME now = Now();
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", now.wYear, now.wMonth, now.wDay);
  return text.data();
}

std::string WindowsClock::TimeText() {
  return Formatted(::GetTimeFormatW, 0);
}

double WindowsClock::Elapsed() {
  LARGE_INTEGER count = {};
  LARGE_INTEGER per_second = {};
  ::QueryPerformanceCounter(&count);
  ::QueryPerformanceFrequency(&per_second);
  return static_cast<double>(count.QuadPart) / static_cast<double>(per_second.QuadPart);
}

void WindowsClock::Sleep(std::int32_t milliseconds) {
  if (milliseconds > 0) ::Sleep(static_cast<DWORD>(milliseconds));
}

}  // namespace kestra
