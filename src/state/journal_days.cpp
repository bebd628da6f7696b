#include "state/journal_days.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <optional>

namespace kestra {
namespace {

std::string DigitsOf(std::string_view day) {
  std::string digits(day);
  digits.erase(std::remove(digits.begin(), digits.end(), '-'), digits.end());
  return digits;
}

std::optional<std::chrono::sys_days> DayOf(std::string_view digits) {
  constexpr std::size_t kLength = 8;
  int number = 0;
  const char* const end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, number);
  if (digits.size() != kLength || read.ptr != end) return std::nullopt;
  const std::chrono::year_month_day date{
      std::chrono::year{number / 10000},
      std::chrono::month(static_cast<unsigned>(number) / 100 % 100),
      std::chrono::day(static_cast<unsigned>(number) % 100)};
  if (!date.ok()) return std::nullopt;
  return std::chrono::sys_days{date};
}

std::string TwoDigits(int number) {
  return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

// "10:30:00"
std::optional<std::chrono::seconds> TimeOf(std::string_view text) {
  constexpr std::string_view kForm = "00:00:00";
  constexpr std::array kMost{24, 60, 60};
  if (text.size() != kForm.size()) return std::nullopt;
  int seconds = 0;
  for (std::size_t i = 0; i < kMost.size(); ++i) {
    const auto part = text.substr(3 * i, 2);
    if (i > 0 && text[3 * i - 1] != ':') return std::nullopt;
    if (part.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
    const int number = (part[0] - '0') * 10 + (part[1] - '0');
    if (number >= kMost.at(i)) return std::nullopt;
    seconds = seconds * 60 + number;
  }
  return std::chrono::seconds(seconds);
}

std::optional<std::chrono::sys_seconds> TimePointOf(std::string_view moment) {
  const auto space = moment.find(' ');
  if (space == std::string_view::npos) return std::nullopt;
  const auto day = DayOf(DigitsOf(moment.substr(0, space)));
  const auto time = TimeOf(moment.substr(space + 1));
  if (!day || !time) return std::nullopt;
  return *day + *time;
}

}  // namespace

std::string MomentOf(std::string_view day, double second_of_day) {
  const auto seconds = static_cast<int>(second_of_day);
  return std::string(day) + " " + TwoDigits(seconds / 3600) + ":" + TwoDigits(seconds / 60 % 60) +
         ":" + TwoDigits(seconds % 60);
}

std::optional<double> SecondsBetween(std::string_view from, std::string_view to) {
  const auto begin = TimePointOf(from);
  const auto end = TimePointOf(to);
  if (!begin || !end) return std::nullopt;
  return static_cast<double>((*end - *begin).count());
}

std::string FreeSuffix(std::string_view day, std::span<const std::string> taken) {
  const std::string first = "-" + DigitsOf(day);
  std::string suffix = first;
  for (int n = 2; std::find(taken.begin(), taken.end(), suffix) != taken.end(); ++n) {
    suffix = first + "-" + std::to_string(n);
  }
  return suffix;
}

bool IsOutdated(std::string_view suffix, std::string_view day, std::int32_t days) {
  if (suffix.empty() || suffix.front() != '-') return false;
  const auto rest = suffix.substr(1);
  const auto kept = DayOf(rest.substr(0, rest.find('-')));
  const auto today = DayOf(DigitsOf(day));
  return kept && today && *today - *kept > std::chrono::days{days};
}

}  // namespace kestra
