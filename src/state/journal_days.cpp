#include "state/journal_days.hpp"

#include <algorithm>
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

}  // namespace

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
